// A run-time that counts reports and gives one answer to all, for as long as it lives.
#pragma once

#include "IErrorRuntime.h"

class AnswersWith : public IErrorRuntime {
 public:
  explicit AnswersWith(std::int32_t eAction) : meAction(eAction), mpBefore(goError) {
    goError = this;
  }
  ~AnswersWith() override { goError = mpBefore; }
  void ReportError(const Failure&, std::u16string_view, std::u16string_view, std::u16string_view,
                   std::int32_t, std::int32_t, std::int32_t, std::int32_t& eAction) override {
    ++nReports;
    eAction = meAction;
  }
  void SetErrorClient(IErrorClient*) override {}
  void SetDevelopmentMode(bool) override {}
  bool BreakRequested() override { return false; }
  void Start() override {}
  void CloseError(std::int16_t) override {}
  void CheckResult(std::u16string_view, std::int32_t) override {}
  void CheckResultEx(std::u16string_view, std::int32_t,
                     std::initializer_list<std::int32_t>) override {}
  void SetApplicationName(std::u16string_view) override {}
  void SetApplicationPath(std::u16string_view) override {}
  void SetTraceEnabled(bool) override {}
  bool TraceEnabled() const override { return false; }
  void WriteDiagnostic(std::u16string_view) override {}
  void SetEnding(bool) override {}
  std::int32_t HandleException(std::u16string_view) override { return 0; }
  void TraceEnter(std::u16string_view, std::u16string_view) override {}
  void TraceExit(std::u16string_view, std::u16string_view) override {}

  int nReports = 0;

 private:
  std::int32_t meAction;
  IErrorRuntime* mpBefore;
};
