#include "BoxErrorDialog.h"

#include "Text.h"
#include "Toolkit.h"

namespace {

void AddParagraph(TextView sText, Text& sPrompt) {
  if (sText.empty()) return;
  if (!sPrompt.empty()) sPrompt += u"\r\n\r\n";
  sPrompt += sText;
}

Text WhereOf(const ErrorEvent& oEvent) {
  Text sWhere = u"Error " + ToText(oEvent.oFailure.Number()) + u" in " + Text(oEvent.sModule) +
                u"." + Text(oEvent.sProcedure);
  if (!oEvent.oFailure.Source().empty()) sWhere += u" (" + oEvent.oFailure.Source() + u")";
  return sWhere;
}

Text PromptOf(const ErrorEvent& oEvent, bool bRepeats) {
  Text sPrompt = oEvent.sDescription;
  AddParagraph(oEvent.oFailure.Description(), sPrompt);
  AddParagraph(oEvent.sSuggestion, sPrompt);
  AddParagraph(WhereOf(oEvent), sPrompt);
  AddParagraph(oEvent.sNotes, sPrompt);
  if (bRepeats)
    AddParagraph(
        u"Retry tries the failing step again, Ignore goes on behind it, Abort ends the "
        u"command.",
        sPrompt);
  return sPrompt;
}

std::int32_t ActionOf(Forms::MsgBoxResult eResult) {
  if (eResult == Forms::MsgBoxResult::Retry) return ErrorIds::ActionRetry;
  if (eResult == Forms::MsgBoxResult::Ignore) return ErrorIds::ActionNext;
  return ErrorIds::ActionLeave;
}

}  // namespace

ErrorAnswer BoxErrorDialog::Ask(const ErrorEvent& oEvent) {
  const bool bRepeats = oEvent.eRetry != ErrorIds::RetryNone;
  const auto eIcon = oEvent.eSeverity == ErrorIds::SeverityFatal ? Forms::MsgBoxIcon::Critical
                                                                 : Forms::MsgBoxIcon::Exclamation;
  const auto eResult = moToolkit.MsgBox(
      PromptOf(oEvent, bRepeats),
      bRepeats ? Forms::MsgBoxButtons::AbortRetryIgnore : Forms::MsgBoxButtons::OkOnly, eIcon);
  return {ActionOf(eResult), false};
}

void BoxErrorDialog::Tell(std::string_view sMessageUtf8) {
  moToolkit.MsgBox(FromUtf8(sMessageUtf8), Forms::MsgBoxButtons::OkOnly,
                   Forms::MsgBoxIcon::Exclamation);
}
