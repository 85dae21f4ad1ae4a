// The Code tab: the text of the selected procedure and, when the user asks for it, what applying
// its pending changes would make of that text.
#include "FMain.h"
#include "LineDifferences.h"

using namespace Forms;

namespace {

/// Shown beside the line, since not everybody can tell the colours apart.
TextView SignOf(LineFate fate) {
  if (fate == LineFate::Stays) return u"";
  return fate == LineFate::Goes ? u"-" : u"+";
}

/// Both versions of a procedure in one text.
std::vector<CodeLine> BothVersions(TextView present, TextView coming) {
  const std::vector<TextView> oldLines = SplitLines(present), newLines = SplitLines(coming);
  const std::vector<LineChange> changes = LineDifferences(oldLines, newLines);
  std::vector<CodeLine> rows;
  VisitLines({0, oldLines.size(), 0, newLines.size(), changes},
             [&](LineFate fate, std::size_t line) {
               const TextView text = (fate == LineFate::Goes ? oldLines : newLines)[line];
               rows.push_back({MarkOf(fate), Text(SignOf(fate)), Text(text)});
             });
  return rows;
}

}  // namespace

void FMain::ShowCode(ProcedureHandle hProcedure) {
  std::int32_t lBodyStart = 0;
  const Text sCode = oIDEHandler->GetProcCode(hProcedure, lBodyStart);
  txtCode.SetLineNumbers(false);
  txtCode.SetText(sCode);
  if (mbPendingCode && !mbReadOnly && oIDEHandler->ProcedureIsDirty(hProcedure))
    ShowPendingCode(hProcedure, sCode);
}

void FMain::ShowPendingCode(ProcedureHandle hProcedure, TextView sPresent) {
  bool bRefused = false;
  Text sMessage;
  const Text sComing = oIDEHandler->PendingCode(hProcedure, bRefused, sMessage);
  if (bRefused) {
    txtCode.SetText(u"Can't be applied: " + sMessage + Text(CrLf) + Text(sPresent));
    return txtCode.SetMark(1, LineMark::Heading);
  }
  txtCode.SetLineNumbers(true);
  txtCode.SetLines(BothVersions(sPresent, sComing));
}

void FMain::mnuViewPending_Click() {
  OnEvent(u"mnuViewPending_Click", [&] {
    mbPendingCode = !mbPendingCode;
    if (ShowsProcs()) ProcessProcListSelection();
    if (mbPendingCode) SelectTab(u"Code");
  });
}
