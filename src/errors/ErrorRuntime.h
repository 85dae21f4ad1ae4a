// The system's own error run-time. Every event is one line of the log, its fields parted by tabs:
//
//   time  process  severity  module.procedure  context  number  description  source  boundary
//   action
//
// Severity is Cosmetic, Normal or Fatal for failures, and Result, Diagnostic, Exception, Enter,
// Exit or Repeated for the other kinds of events. An empty field is "-", control characters are
// \xNN. The time is UTC. An event that comes again and again is written once and then counted: its
// fields come once more behind "Repeated" and the count.
// A log that can't be written is reported once through the dialog; the program goes on.
#pragma once

#include <memory>

#include "ErrorLog.h"
#include "IErrorClient.h"
#include "IErrorDialog.h"

class ErrorRuntime : public IErrorRuntime {
 public:
  /// oDialog must outlive this object. An empty sLogPath means DefaultLogPath(), whose file is made
  /// with the first event only; a log that was named is opened by Start, so that a wrong name is
  /// told at once.
  explicit ErrorRuntime(IErrorDialog& oDialog, std::string sLogPath = {},
                        std::size_t lMaxBytes = ErrorLog::lUsualBytes);
  /// Writes the pending count of a repeated event. If goError points here, the silent run-time
  /// replaces it.
  ~ErrorRuntime() override;

  void SetErrorClient(IErrorClient* poErrorClient) override { mpoClient = poErrorClient; }
  void SetDevelopmentMode(bool bOn) override { mbDevelopment = bOn; }
  bool BreakRequested() override;
  void Start() override;
  void CloseError(std::int16_t nBoundary) override;
  void ReportError(const Failure& oFailure, std::u16string_view sModule,
                   std::u16string_view sProcedure, std::u16string_view sContext,
                   std::int32_t eBoundary, std::int32_t eSeverity, std::int32_t eRetry,
                   std::int32_t& eAction) override;
  void CheckResult(std::u16string_view sCall, std::int32_t lResult) override;
  ResultStatus CheckResultEx(std::u16string_view sCall, std::int32_t lResult) override;
  void ExpectResult(ResultStatus& oStatus, std::initializer_list<std::int32_t> alAccepted) override;
  void CloseResult(const ResultStatus& oStatus) override;
  void SetApplicationName(std::u16string_view sName) override { msName = sName; }
  void SetApplicationPath(std::u16string_view sPath) override { msPath = sPath; }
  void SetTraceEnabled(bool bOn) override { mbTrace = bOn; }
  bool TraceEnabled() const override { return mbTrace; }
  void WriteDiagnostic(std::u16string_view sLine) override;
  void SetEnding(bool bEnding) override { mbEnding = bEnding; }
  /// Gives 0: the default handling of the system follows.
  std::int32_t HandleException(std::u16string_view sRecord) override;
  void TraceEnter(std::u16string_view sModule, std::u16string_view sProcedure) override;
  void TraceExit(std::u16string_view sModule, std::u16string_view sProcedure) override;

 private:
  std::int32_t ActionFor(ErrorEvent& oEvent);
  void WriteEvent(std::string_view sFields);
  void WriteLine(std::string_view sFields);
  void WriteRepeats();
  void WriteFirstDiagnostics();
  void WriteTrace(std::string_view sKind, std::u16string_view sModule,
                  std::u16string_view sProcedure) noexcept;
  void TellLogProblem();

  IErrorDialog& moDialog;
  IErrorClient* mpoClient = nullptr;
  bool mbNamedLog;
  ErrorLog moLog;
  std::u16string msName, msPath;
  bool mbDevelopment = false, mbBreak = false, mbTrace = false, mbEnding = false;
  bool mbAsking = false;  ///< a report that comes from the dialog itself is only logged
  bool mbFatalInHand = false;
  bool mbDiagnosed = false, mbLogProblemTold = false;
  std::size_t mlDepth = 0;
  std::string msLastEvent, msLine;
  std::size_t mlRepeats = 0;
};

/// The silent run-time that goError holds before start-up.
IErrorRuntime& SilentErrorRuntime();
