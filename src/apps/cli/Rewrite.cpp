#include "Rewrite.h"

#include <deque>

#include "Differences.h"
#include "PathText.h"
#include "SignalHold.h"

namespace {

/// Where the procedures of a run stand in the files. Without writing, the files stay as they are
/// while modules grow: then a procedure stands where it stood before the run, wherever in its file
/// those stand that were rewritten ahead of it.
class Places {
 public:
  explicit Places(Session& session) : mSession(session) {
    if (!session.oArguments.bDryRun) return;
    for (const ProcedureHandle h : session.Procedures())
      mBefore.emplace(h.Number(), Lines{session.LineOf(h, 1), session.LineOf(h, 0)});
  }

  /// "file:line: " of what is refused; empty for a component without a file.
  std::string Of(ProcedureHandle procedure, const Refusal& refusal) {
    const std::string file = mSession.FileOf(mSession.oHandler.Procedure(procedure).hComponent);
    return file.empty() ? file : Placed(file, LineOf(procedure, SourceLine(refusal)), "");
  }

 private:
  struct Lines {
    std::int32_t first, head;
  };

  std::int32_t LineOf(ProcedureHandle procedure, std::size_t textLine) const {
    const auto before = mBefore.find(procedure.Number());
    if (before == mBefore.end()) return mSession.LineOf(procedure, textLine);
    const Lines& lines = before->second;
    return textLine == 0 ? lines.head : lines.first + static_cast<std::int32_t>(textLine) - 1;
  }

  Session& mSession;
  std::unordered_map<std::int32_t, Lines> mBefore;  // by procedure
};

/// The account of a batch as it comes. The line of a procedure is held back until something follows
/// it that has to be told; with -q nothing but failures is.
class Account {
 public:
  explicit Account(Session& session)
      : mSession(session),
        mPlaces(session),
        mRefused(session.oHandler.ProcedureRefused.Connect(
            [this](ProcedureHandle h, const std::vector<Refusal>& refusals) {
              for (const Refusal& refusal : refusals) mAhead.push_back(mPlaces.Of(h, refusal));
            })),
        mLines(session.oTemplate.ReportBatch.Connect(
            [this](BatchLine line, TextView message) { Message(line, message); })) {}

 private:
  void Message(BatchLine line, TextView message) {
    Console& console = mSession.oConsole;
    switch (line) {
      case BatchLine::Item:
        Progress(message);
        mHeld = ToUtf8(message);
        if (!console.IsQuiet()) TellHeld();
        break;
      case BatchLine::Problem:
        TellHeld();
        console.Error(Placed(message));
        break;
      case BatchLine::Total:
        console.Say(ToUtf8(message));
        break;
    }
  }

  /// The engine's message behind the place that the signal gave for it.
  std::string Placed(TextView message) {
    if (mAhead.empty()) return ToUtf8(message);
    const std::string place = std::move(mAhead.front());
    mAhead.pop_front();
    return place.empty() ? ToUtf8(message) : place + ToUtf8(Trim(message));
  }

  void Progress(TextView message) {
    mSession.oConsole.Progress(static_cast<std::size_t>(mSession.oTemplate.BatchItems()),
                               mSession.Procedures().size(), message);
  }

  void TellHeld() {
    if (!mHeld.empty()) mSession.oConsole.Error(mHeld);
    mHeld.clear();
  }

  Session& mSession;
  Places mPlaces;
  std::string mHeld;
  std::deque<std::string> mAhead;  // of problems that are about to be told
  Connection mRefused, mLines;
};

void PrintDifferences(Session& oSession) {
  for (const std::string& sPath : oSession.pIDE->ChangedPaths()) {
    const DiskIDE::Change oChange = oSession.pIDE->ChangeOf(sPath);
    PutDifference(oSession, sPath, oChange.sOldBytes, oChange.sNewBytes);
  }
  EndDifferences(oSession);
}

std::string Files(std::size_t lCount) {
  return std::to_string(lCount) + (lCount == 1 ? " file" : " files");
}

/// The session lives to the end of the program, its run doesn't: a save that is broken off leaves
/// no record.
DiskIDE::SaveResult Save(Session& session) {
  try {
    return session.pIDE->Save(session.Journal());
  } catch (const Failure&) {
    session.EndRun();
    throw;
  }
}

std::string Procedures(std::size_t count) {
  return std::to_string(count) + (count == 1 ? " procedure" : " procedures");
}

/// False when a file could not be written.
bool SaveFiles(Session& oSession, const RewrittenOfFile& rewritten) {
  const SignalHold hold;
  DiskIDE::SaveResult oResult = Save(oSession);
  for (const std::string& sPath : oResult.asSaved)
    oSession.oConsole.Detail("Written: " + ShownFile(sPath));
  std::size_t unwritten = 0;
  for (const DiskIDE::Note& oNote : oResult.oFailed) {
    const std::string file = ShownFile(PathOfText(oNote.sFile));
    oSession.oConsole.Error(Placed(file, 0, "not written: " + ToUtf8(oNote.sMessage)));
    const auto found = rewritten.find(file);
    if (found != rewritten.end()) unwritten += found->second;
  }
  std::string sTotal = Files(oResult.asSaved.size()) + " written";
  if (const std::size_t lFailed = oResult.oFailed.size())
    sTotal += ", " + Files(lFailed) + " not: what was to change there in " + Procedures(unwritten) +
              " is as it was";
  oSession.oConsole.Say(sTotal);
  oSession.oConsole.Flush();
  oSession.EndRun();
  return oResult.oFailed.empty();
}

}  // namespace

RewrittenOfFile RewriteScope(Session& oSession, bool bRefresh,
                             MQuillon::LineNumAction eLineNumAction) {
  CTemplate& oTemplate = oSession.oTemplate;
  std::unordered_map<std::int32_t, std::size_t> ofComponent;
  const auto count = oSession.oHandler.ProcedureRewritten.Connect([&](ProcedureHandle h) {
    ++ofComponent[oSession.oHandler.Procedure(h).hComponent.Number()];
  });
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
  RewrittenOfFile rewritten;
  for (const auto& [component, procedures] : ofComponent)
    rewritten[oSession.FileOf(ComponentHandle(component))] += procedures;
  return rewritten;
}

int SaveChanges(Session& oSession, const RewrittenOfFile& rewritten) {
  if (oSession.oArguments.bDiff) PrintDifferences(oSession);
  bool bDone = oSession.oTemplate.BatchErrors() == 0 && oSession.IsScopeRead();
  if (!oSession.oArguments.bDryRun) {
    bDone = SaveFiles(oSession, rewritten) && bDone;
  } else {
    std::size_t lCount = oSession.pIDE->ChangedPaths().size();
    oSession.oConsole.Say("Nothing was written: " + Files(lCount) + " would change");
    if (oSession.oArguments.bExitCode && lCount > 0) bDone = false;
  }
  return bDone ? 0 : 1;
}
