#include "Rewrite.h"

#include <cstring>

#include "CodePage.h"
#include "PathText.h"
#include "UnifiedDiff.h"

namespace {

/// The account of a batch as it comes. The line of a procedure is held back until something follows
/// it that has to be told; with -q nothing but failures is.
class Account {
 public:
  explicit Account(Session& oSession)
      : moSession(oSession),
        moLink(oSession.oTemplate.ReportBatch.Connect(
            [this](BatchLine eLine, TextView sMessage) { Message(eLine, sMessage); })) {}

 private:
  void Message(BatchLine eLine, TextView sMessage) {
    Console& oConsole = moSession.oConsole;
    switch (eLine) {
      case BatchLine::Item:
        Progress(sMessage);
        msHeld = ToUtf8(sMessage);
        if (!oConsole.IsQuiet()) TellHeld();
        break;
      case BatchLine::Problem:
        TellHeld();
        oConsole.Error(ToUtf8(sMessage));
        break;
      case BatchLine::Total:
        oConsole.Say(ToUtf8(sMessage));
        break;
    }
  }

  void Progress(TextView sMessage) {
    moSession.oConsole.Progress(static_cast<std::size_t>(moSession.oTemplate.BatchItems()),
                                moSession.Procedures().size(), sMessage);
  }

  void TellHeld() {
    if (!msHeld.empty()) moSession.oConsole.Error(msHeld);
    msHeld.clear();
  }

  Session& moSession;
  std::string msHeld;
  Connection moLink;
};

/// On a terminal the reader wants letters, in a pipe git apply wants the bytes.
std::string ForReader(const Session& oSession, const std::string& sBytes) {
  if (!Output::IsTerminal()) return sBytes;
  const std::string& sPage = oSession.oArguments.sCodePage;
  const CodePage& oAnsi = CodePage::Get(sPage.empty() ? "1252" : sPage);
  const CodePage& oPage = sPage.empty() ? CodePage::Detect(sBytes, oAnsi) : oAnsi;
  return ToUtf8(oPage.Decode(sBytes));
}

void PrintDifferences(Session& oSession) {
  const DiffStyle oStyle{oSession.IsColored()};
  for (const std::string& sPath : oSession.pIDE->ChangedPaths()) {
    DiskIDE::Change oChange = oSession.pIDE->ChangeOf(sPath);
    AppendUnifiedDiff(RelativePath(sPath), ForReader(oSession, oChange.sOldBytes),
                      ForReader(oSession, oChange.sNewBytes), oStyle, oSession.oOutput.Buffer());
    oSession.oOutput.FlushWhenLarge();
  }
  oSession.oOutput.Flush();
  if (int nError = oSession.oOutput.Error())
    throw Stop{std::string("The differences can't be written, no file was changed: ") +
               std::strerror(nError)};
}

std::string Files(std::size_t lCount) {
  return std::to_string(lCount) + (lCount == 1 ? " file" : " files");
}

/// False when a file could not be written.
bool SaveFiles(Session& oSession) {
  DiskIDE::SaveResult oResult = oSession.pIDE->Save();
  for (const std::string& sPath : oResult.asSaved)
    oSession.oConsole.Detail("Written: " + ShownFile(sPath));
  for (const DiskIDE::Note& oNote : oResult.oFailed)
    oSession.oConsole.Error(
        Finding(ShownFile(PathOfText(oNote.sFile)), 0, "not written: " + ToUtf8(oNote.sMessage)));
  oSession.oConsole.Say(Files(oResult.asSaved.size()) + " written");
  return oResult.oFailed.empty();
}

}  // namespace

void RewriteScope(Session& oSession, bool bRefresh, MQuillon::LineNumAction eLineNumAction) {
  CTemplate& oTemplate = oSession.oTemplate;
  Account oAccount(oSession);
  oTemplate.BatchStart();
  // Without a refresh only what the scope made dirty is rewritten, so that one walk over the group
  // does; it is also the quickest, since a walk compares each module's declarations once.
  if (!bRefresh || oSession.IsWholeGroup()) {
    oSession.oHandler.ApplyPendingSettings(ModelScope::Group(), bRefresh, eLineNumAction);
  } else {
    for (ProcedureHandle h : oSession.Procedures())
      oSession.oHandler.ApplyPendingSettings(h, true, eLineNumAction);
  }
  oSession.oConsole.ProgressEnd();
  oTemplate.BatchSummary();
}

int SaveChanges(Session& oSession) {
  if (oSession.oArguments.bDiff) PrintDifferences(oSession);
  bool bDone = oSession.oTemplate.BatchErrors() == 0 && oSession.IsScopeRead();
  if (!oSession.oArguments.bDryRun) {
    bDone = SaveFiles(oSession) && bDone;
  } else {
    std::size_t lCount = oSession.pIDE->ChangedPaths().size();
    oSession.oConsole.Say("Nothing was written: " + Files(lCount) + " would change");
  }
  return bDone ? 0 : 1;
}
