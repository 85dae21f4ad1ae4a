// The Code tab: the text of the selected procedure and, when the user asks for it, what applying
// its pending changes would make of that text.
#include "CodeDiff.h"
#include "FMain.h"

using namespace Forms;

namespace {

struct Look {
  LineMark eMark;
  TextView sSign;  ///< beside the line: a colour alone doesn't tell everybody
};

Look LookOf(CodeDiff::Fate eFate) {
  switch (eFate) {
    case CodeDiff::Fate::Goes:
      return {LineMark::Removed, u"-"};
    case CodeDiff::Fate::Comes:
      return {LineMark::Added, u"+"};
    default:
      return {LineMark::None, u""};
  }
}

}  // namespace

void FMain::ShowCode(Handle hProcedure) {
  std::int32_t lBodyStart = 0;
  const Text sCode = oIDEHandler->GetProcCode(hProcedure, lBodyStart);
  txtCode.SetLineNumbers(false);
  txtCode.SetText(sCode);
  if (mbPendingCode && !mbReadOnly && oIDEHandler->ProcedureIsDirty(hProcedure))
    ShowPendingCode(hProcedure, sCode);
}

void FMain::ShowPendingCode(Handle hProcedure, TextView sPresent) {
  bool bRefused = false;
  Text sMessage;
  const Text sComing = oIDEHandler->PendingCode(hProcedure, bRefused, sMessage);
  if (bRefused) {
    txtCode.SetText(u"Can't be applied: " + sMessage + Text(CrLf) + Text(sPresent));
    return txtCode.SetMark(1, LineMark::Heading);
  }
  const std::vector<CodeDiff::Line> oLines = CodeDiff::Compare(sPresent, sComing);
  Text sBoth;
  for (const auto& oLine : oLines) sBoth.append(oLine.sText).append(CrLf);
  txtCode.SetLineNumbers(true);
  txtCode.SetText(sBoth);
  for (std::size_t i = 0; i < oLines.size(); ++i) {
    const auto lLine = static_cast<std::int32_t>(i) + 1;
    const Look oLook = LookOf(oLines[i].eFate);
    txtCode.SetMark(lLine, oLook.eMark);
    txtCode.SetLineNumber(lLine, oLook.sSign);
  }
}

void FMain::mnuViewPending_Click() {
  OnEvent(u"mnuViewPending_Click", [&] {
    mbPendingCode = !mbPendingCode;
    if (ShowsProcs()) ProcessProcListSelection();
    if (mbPendingCode) SelectTab(u"Code");
  });
}
