// How a failure is shown and answered: a message box in a window, a line on a terminal. The error
// run-time decides when; an implementation only shows and answers.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "IErrorRuntime.h"

/// A failure on its way to the log and to the user.
struct ErrorEvent {
  const Failure& oFailure;
  std::u16string_view sModule, sProcedure, sContext;
  std::int32_t eBoundary, eSeverity, eRetry;
  /// The application's own words; empty when it has none.
  std::u16string sDescription, sSuggestion, sNotes;
};

struct ErrorAnswer {
  std::int32_t eAction = ErrorIds::ActionLeave;
  /// A developer wants to stop in the debugger before the repetition (development mode only).
  bool bBreak = false;
};

class IErrorDialog {
 public:
  virtual ~IErrorDialog() = default;
  /// Not called for cosmetic failures. An ActionRetry with eRetry RetryNone counts as leaving.
  virtual ErrorAnswer Ask(const ErrorEvent& oEvent) = 0;
  /// A message without a question, such as that the log can't be written.
  virtual void Tell(std::string_view sMessageUtf8) = 0;
};
