// What the error run-time asks the application for: plain words for a failure, lines for the
// diagnostics, how to end. None of these operations reports to the error run-time itself.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

class IErrorClient {
 public:
  virtual ~IErrorClient() = default;

  virtual void CustomClick(std::int32_t lIndex) = 0;
  virtual void EndApplication() = 0;
  /// Hands its lines to goError->WriteDiagnostic; sDiagnostics may stay as it is.
  virtual void GetDiagnostics(std::u16string& sDiagnostics) = 0;
  /// Texts that the application has no better words for stay as they came.
  virtual void GetErrorText(std::int32_t lError, std::u16string& sDescription,
                            std::u16string& sSuggestion, std::u16string& sNotes) = 0;
  /// Told of each failure with the action chosen, which it may change.
  virtual void NotifyError(std::u16string_view sModule, std::u16string_view sProcedure,
                           std::u16string_view sContext, std::int32_t eBoundary,
                           std::int32_t eSeverity, std::int32_t lErrorLine, std::int32_t lErrorNum,
                           std::u16string_view sErrorText, std::u16string_view sErrorSource,
                           std::int32_t& eAction) = 0;
};
