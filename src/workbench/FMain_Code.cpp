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
std::vector<CodeLine> BothVersions(TextView present, const Rewrite& coming) {
  const std::vector<TextView> oldLines = SplitLines(present), newLines = SplitLines(coming.text);
  std::vector<CodeLine> rows;
  VisitLines({0, oldLines.size(), 0, newLines.size(), coming.changes},
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
  const Rewrite rewrite = oIDEHandler->PendingRewrite(hProcedure, true);
  if (rewrite.Refused()) {
    txtCode.SetText(u"Can't be applied: " + MessageOf(rewrite.refusals.front()) + Text(CrLf) +
                    Text(sPresent));
    return txtCode.SetMark(1, LineMark::Heading);
  }
  txtCode.SetLineNumbers(true);
  txtCode.SetLines(BothVersions(sPresent, rewrite));
}

void FMain::mnuViewPending_Click() {
  OnEvent(u"mnuViewPending_Click", [&] {
    mbPendingCode = !mbPendingCode;
    if (ShowsProcs()) ProcessProcListSelection();
    if (mbPendingCode) SelectTab(u"Code");
  });
}
