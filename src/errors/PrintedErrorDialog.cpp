#include "PrintedErrorDialog.h"

#include "ErrorText.h"
#include "Utf8.h"
#include "VisibleText.h"

PrintedErrorDialog::PrintedErrorDialog(std::FILE* poStream, std::string sName)
    : mpoStream(poStream), msName(std::move(sName)) {}

ErrorAnswer PrintedErrorDialog::Ask(const ErrorEvent& oEvent) {
  std::string sLine = ToUtf8(oEvent.sModule) + '.' + ToUtf8(oEvent.sProcedure) + ": ";
  AppendErrorField(oEvent.oFailure.Description(), sLine);
  sLine += " (error " + std::to_string(oEvent.oFailure.Number()) + ')';
  if (!oEvent.sSuggestion.empty()) sLine += ". " + ToUtf8(oEvent.sSuggestion);
  Tell(sLine);
  return {};
}

void PrintedErrorDialog::Tell(std::string_view sMessageUtf8) {
  if (sMessageUtf8 == msLast) return;
  msLast = sMessageUtf8;
  const std::string sLine = msName + ": " + VisibleLines(msLast) + '\n';
  std::fwrite(sLine.data(), 1, sLine.size(), mpoStream);
  std::fflush(mpoStream);
}
