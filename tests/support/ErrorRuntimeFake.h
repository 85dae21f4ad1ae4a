// A run-time that counts reports and gives one answer to all, for as long as it lives.
#pragma once

#include "ErrorRuntime.h"

struct NoDialog : IErrorDialog {
  ErrorAnswer Ask(const ErrorEvent&) override { return {}; }
  void Tell(std::string_view) override {}
};

class AnswersWith : private NoDialog, public ErrorRuntime {
 public:
  explicit AnswersWith(std::int32_t eAction)
      : ErrorRuntime(static_cast<NoDialog&>(*this)), meAction(eAction) {
    goError = this;
  }
  void ReportError(const Failure&, std::u16string_view, std::u16string_view, std::u16string_view,
                   std::int32_t, std::int32_t, std::int32_t, std::int32_t& eAction) override {
    ++nReports;
    eAction = meAction;
  }
  void CloseError(std::int16_t) override {}

  int nReports = 0;

 private:
  std::int32_t meAction;
};
