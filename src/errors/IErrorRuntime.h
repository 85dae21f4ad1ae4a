// The error run-time as the program sees it, the process-wide object that holds it, and the
// values that travel with a report. The order of the operations is that of the interface.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string_view>

#include "Failure.h"

/// The three constants of a routine, by their ids.
namespace ErrorIds {
inline constexpr std::int32_t BoundaryNone = 1, BoundaryVB = 2, BoundaryFirewall = 3,
                              BoundaryActiveX = 4;
inline constexpr std::int32_t SeverityCosmetic = 1, SeverityNormal = 2, SeverityFatal = 3;
inline constexpr std::int32_t RetryLine = 1, RetryProcedure = 2, RetryNone = 3;
/// What a routine does next. Leave: close the error and leave with the result built so far.
inline constexpr std::int32_t ActionLeave = 1, ActionRetry = 4, ActionNext = 5;
}  // namespace ErrorIds

class IErrorClient;

/// The result of a system call while it is checked.
struct ResultStatus {
  std::u16string_view call;
  std::int32_t result = 0;  ///< 0: no error
};

class IErrorRuntime {
 public:
  virtual ~IErrorRuntime() = default;

  virtual void SetErrorClient(IErrorClient* poErrorClient) = 0;
  virtual void SetDevelopmentMode(bool bOn) = 0;
  virtual bool BreakRequested() = 0;
  virtual void Start() = 0;
  /// Ends the handling of the current error. nBoundary: the routine's boundary id.
  virtual void CloseError(std::int16_t nBoundary) = 0;
  /// Reports a failure and gives the action in eAction (ErrorIds::Action...).
  virtual void ReportError(const Failure& oFailure, std::u16string_view sModule,
                           std::u16string_view sProcedure, std::u16string_view sContext,
                           std::int32_t eBoundary, std::int32_t eSeverity, std::int32_t eRetry,
                           std::int32_t& eAction) = 0;
  /// Logs a system call's result code when it isn't 0. sCall: name of the call and its object.
  virtual void CheckResult(std::u16string_view sCall, std::int32_t lResult) = 0;
  /// The same in three steps, for a call of which some codes are no error: this one begins, the
  /// next names codes that leave no trace, and CloseResult logs what is left. sCall is kept until
  /// then.
  ///   ResultStatus status = goError->CheckResultEx(u"RegQueryValueEx", result);
  ///   goError->ExpectResult(status, {2, 234});
  ///   goError->CloseResult(status);
  [[nodiscard]] virtual ResultStatus CheckResultEx(std::u16string_view sCall,
                                                   std::int32_t lResult) = 0;
  virtual void ExpectResult(ResultStatus& oStatus,
                            std::initializer_list<std::int32_t> alAccepted) = 0;
  virtual void CloseResult(const ResultStatus& oStatus) = 0;
  virtual void SetApplicationName(std::u16string_view sName) = 0;
  virtual void SetApplicationPath(std::u16string_view sPath) = 0;
  virtual void SetTraceEnabled(bool bOn) = 0;
  virtual bool TraceEnabled() const = 0;
  virtual void WriteDiagnostic(std::u16string_view sLine) = 0;
  virtual void SetEnding(bool bEnding) = 0;
  /// A fatal signal or unhandled exception: writes the record to the log before the end.
  virtual std::int32_t HandleException(std::u16string_view sRecord) = 0;

  /// Entry and exit of a routine; called only while TraceEnabled.
  virtual void TraceEnter(std::u16string_view sModule, std::u16string_view sProcedure) = 0;
  virtual void TraceExit(std::u16string_view sModule, std::u16string_view sProcedure) = 0;
};

/// The process-wide run-time. Never null: before start-up (and in tests) it is a silent one that
/// answers every report with ActionLeave. Not owned.
extern IErrorRuntime* goError;
