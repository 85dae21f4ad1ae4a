#include "ErrorRuntime.h"

namespace {

/// Used before start-up, so that guards needn't check whether there is a run-time.
class SilentRuntime : public IErrorRuntime {
 public:
  void SetErrorClient(IErrorClient*) override {}
  void SetDevelopmentMode(bool) override {}
  bool BreakRequested() override { return false; }
  void Start() override {}
  void CloseError(std::int16_t) override {}
  void ReportError(const Failure&, std::u16string_view, std::u16string_view, std::u16string_view,
                   std::int32_t, std::int32_t, std::int32_t, std::int32_t& eAction) override {
    eAction = ErrorIds::ActionLeave;
  }
  void CheckResult(std::u16string_view, std::int32_t) override {}
  ResultStatus CheckResultEx(std::u16string_view, std::int32_t) override { return {}; }
  void ExpectResult(ResultStatus&, std::initializer_list<std::int32_t>) override {}
  void CloseResult(const ResultStatus&) override {}
  void SetApplicationName(std::u16string_view) override {}
  void SetApplicationPath(std::u16string_view) override {}
  void SetTraceEnabled(bool) override {}
  bool TraceEnabled() const override { return false; }
  void WriteDiagnostic(std::u16string_view) override {}
  void SetEnding(bool) override {}
  std::int32_t HandleException(std::u16string_view) override { return 0; }
  void TraceEnter(std::u16string_view, std::u16string_view) override {}
  void TraceExit(std::u16string_view, std::u16string_view) override {}
};

// Constant initialisation: usable by the initialisers of other files, whatever their order.
constinit SilentRuntime oSilentRuntime;

}  // namespace

constinit IErrorRuntime* goError = &oSilentRuntime;

IErrorRuntime& SilentErrorRuntime() {
  return oSilentRuntime;
}
