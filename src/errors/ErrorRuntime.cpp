// Parts: names of the ids; reports and their answers; results and diagnostics; trace; the log.
#include "ErrorRuntime.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "ErrorText.h"

namespace {

template <class Call>
void NeverThrows(Call&& oCall) noexcept {
  try {
    oCall();
  } catch (...) {
    // There is no place left to report this to, and a failing report must not end the program.
  }
}

std::string NameOf(std::int32_t lId, std::initializer_list<const char*> asName) {
  const auto lCount = static_cast<std::int32_t>(asName.size());
  return lId >= 1 && lId <= lCount ? asName.begin()[lId - 1] : std::to_string(lId);
}

std::string SeverityName(std::int32_t eSeverity) {
  return NameOf(eSeverity, {"Cosmetic", "Normal", "Fatal"});
}

std::string BoundaryName(std::int32_t eBoundary) {
  return NameOf(eBoundary, {"None", "VB", "Firewall", "ActiveX"});
}

std::string ActionName(std::int32_t eAction) {
  return NameOf(eAction, {"Leave", "2", "3", "Retry", "Next"});
}

std::string EventFields(const ErrorEvent& oEvent, std::int32_t eAction) {
  std::string sLine = SeverityName(oEvent.eSeverity) + '\t';
  AppendErrorField(oEvent.sModule, sLine);
  sLine += '.';
  AppendErrorField(oEvent.sProcedure, sLine);
  sLine += '\t';
  AppendErrorField(oEvent.sContext, sLine);
  sLine += '\t' + std::to_string(oEvent.oFailure.Number()) + '\t';
  AppendErrorField(oEvent.oFailure.Description(), sLine);
  sLine += '\t';
  AppendErrorField(oEvent.oFailure.Source(), sLine);
  return sLine + '\t' + BoundaryName(oEvent.eBoundary) + '\t' + ActionName(eAction);
}

std::u16string_view WithoutLineEnd(std::u16string_view sLine) {
  while (!sLine.empty() && (sLine.back() == u'\n' || sLine.back() == u'\r')) sLine.remove_suffix(1);
  return sLine;
}

}  // namespace

ErrorRuntime::ErrorRuntime(IErrorDialog& oDialog, std::string sLogPath, std::size_t lMaxBytes)
    : moDialog(oDialog),
      mbNamedLog(!sLogPath.empty()),
      moLog(mbNamedLog ? std::move(sLogPath) : DefaultLogPath(), lMaxBytes) {}

ErrorRuntime::~ErrorRuntime() {
  NeverThrows([this] { WriteRepeats(); });
  if (goError == this) goError = &SilentErrorRuntime();
}

void ErrorRuntime::Start() {
  if (mbNamedLog && !moLog.Open()) NeverThrows([this] { TellLogProblem(); });
}

bool ErrorRuntime::BreakRequested() {
  const bool bBreak = mbBreak && mbDevelopment;
  mbBreak = false;
  return bBreak;
}

void ErrorRuntime::CloseError(std::int16_t) {
  const bool bEnds = mbFatalInHand && mpoClient != nullptr;
  mbFatalInHand = false;
  if (bEnds) NeverThrows([this] { mpoClient->EndApplication(); });
}

void ErrorRuntime::ReportError(const Failure& oFailure, std::u16string_view sModule,
                               std::u16string_view sProcedure, std::u16string_view sContext,
                               std::int32_t eBoundary, std::int32_t eSeverity, std::int32_t eRetry,
                               std::int32_t& eAction) {
  eAction = ErrorIds::ActionLeave;
  ErrorEvent oEvent{oFailure,  sModule, sProcedure, sContext, eBoundary,
                    eSeverity, eRetry,  {},         {},       {}};
  NeverThrows([&] { eAction = ActionFor(oEvent); });
  if (eAction == ErrorIds::ActionRetry && eRetry == ErrorIds::RetryNone) {
    eAction = ErrorIds::ActionLeave;
  }
  mbFatalInHand = eSeverity == ErrorIds::SeverityFatal && eAction == ErrorIds::ActionLeave;
  NeverThrows([&] {
    WriteFirstDiagnostics();
    WriteEvent(EventFields(oEvent, eAction));
  });
}

std::int32_t ErrorRuntime::ActionFor(ErrorEvent& oEvent) {
  std::int32_t eAction = ErrorIds::ActionLeave;
  if (mbAsking) return eAction;
  struct Asking {
    bool& bFlag;
    explicit Asking(bool& bTheFlag) : bFlag(bTheFlag) { bFlag = true; }
    ~Asking() { bFlag = false; }
  } oAsking(mbAsking);
  const Failure& oFailure = oEvent.oFailure;
  if (oEvent.eSeverity == ErrorIds::SeverityCosmetic) {
    eAction = ErrorIds::ActionNext;
  } else if (!mbEnding) {
    if (mpoClient != nullptr) {
      mpoClient->GetErrorText(oFailure.Number(), oEvent.sDescription, oEvent.sSuggestion,
                              oEvent.sNotes);
    }
    const ErrorAnswer oAnswer = moDialog.Ask(oEvent);
    eAction = oAnswer.eAction;
    mbBreak = oAnswer.bBreak;
  }
  if (mpoClient != nullptr) {
    mpoClient->NotifyError(oEvent.sModule, oEvent.sProcedure, oEvent.sContext, oEvent.eBoundary,
                           oEvent.eSeverity, 0, oFailure.Number(), oFailure.Description(),
                           oFailure.Source(), eAction);
  }
  return eAction;
}

void ErrorRuntime::CheckResult(std::u16string_view sCall, std::int32_t lResult) {
  CloseResult(CheckResultEx(sCall, lResult));
}

ResultStatus ErrorRuntime::CheckResultEx(std::u16string_view sCall, std::int32_t lResult) {
  return {sCall, lResult};
}

void ErrorRuntime::ExpectResult(ResultStatus& oStatus,
                                std::initializer_list<std::int32_t> alAccepted) {
  if (std::ranges::count(alAccepted, oStatus.result) > 0) oStatus.result = 0;
}

void ErrorRuntime::CloseResult(const ResultStatus& oStatus) {
  if (oStatus.result == 0) return;
  NeverThrows([&] {
    std::string sLine = "Result\t";
    AppendErrorField(oStatus.call, sLine);
    WriteEvent(sLine + "\t-\t" + std::to_string(oStatus.result) +
               "\tA system call failed\t-\t-\tNext");
  });
}

void ErrorRuntime::WriteDiagnostic(std::u16string_view sLine) {
  NeverThrows([&] {
    std::string sFields = "Diagnostic\t-\t-\t-\t";
    AppendErrorField(WithoutLineEnd(sLine), sFields);
    WriteLine(sFields);
  });
}

void ErrorRuntime::WriteFirstDiagnostics() {
  if (mbDiagnosed) return;
  mbDiagnosed = true;
  if (!msName.empty()) WriteDiagnostic(msName + u" " + msPath);
  std::u16string sDiagnostics;
  if (mpoClient != nullptr) mpoClient->GetDiagnostics(sDiagnostics);
}

std::int32_t ErrorRuntime::HandleException(std::u16string_view sRecord) {
  // Runs after a fatal signal: the heap may be broken, so a buffer on the stack and plain ASCII.
  static constexpr char acKind[] = "Exception\t-\t-\t-\t";
  char acLine[1024];
  std::size_t lLength = LogLineStart(acLine);
  std::memcpy(acLine + lLength, acKind, sizeof acKind - 1);
  lLength += sizeof acKind - 1;
  for (const char16_t cUnit : sRecord) {
    if (lLength + 1 >= sizeof acLine) break;
    acLine[lLength++] = cUnit >= 0x20 && cUnit < 0x7F ? static_cast<char>(cUnit) : '?';
  }
  acLine[lLength++] = '\n';
  moLog.WriteUnsafe({acLine, lLength});
  return 0;
}

void ErrorRuntime::TraceEnter(std::u16string_view sModule, std::u16string_view sProcedure) {
  WriteTrace("Enter", sModule, sProcedure);
  ++mlDepth;
}

void ErrorRuntime::TraceExit(std::u16string_view sModule, std::u16string_view sProcedure) {
  if (mlDepth > 0) --mlDepth;
  WriteTrace("Exit", sModule, sProcedure);
}

void ErrorRuntime::WriteTrace(std::string_view sKind, std::u16string_view sModule,
                              std::u16string_view sProcedure) noexcept {
  NeverThrows([&] {
    std::string sFields(sKind);
    sFields += '\t';
    AppendErrorField(sModule, sFields);
    sFields += '.';
    AppendErrorField(sProcedure, sFields);
    WriteLine(sFields + "\tdepth " + std::to_string(mlDepth));
  });
}

void ErrorRuntime::WriteEvent(std::string_view sFields) {
  if (sFields != msLastEvent) {
    WriteRepeats();
    msLastEvent = sFields;
    WriteLine(sFields);
    return;
  }
  // Written from time to time, so that a program that is killed leaves a trace of the flood.
  ++mlRepeats;
  if (mlRepeats % 10000 == 0) WriteRepeats();
}

void ErrorRuntime::WriteRepeats() {
  if (mlRepeats == 0) return;
  const std::size_t lTimes = std::exchange(mlRepeats, 0);
  WriteLine("Repeated " + std::to_string(lTimes) + msLastEvent.substr(msLastEvent.find('\t')));
}

void ErrorRuntime::WriteLine(std::string_view sFields) {
  char acStart[64];
  msLine.assign(acStart, LogLineStart(acStart)).append(sFields);
  if (moLog.Path().empty() || !moLog.Write(msLine)) TellLogProblem();
}

void ErrorRuntime::TellLogProblem() {
  if (std::exchange(mbLogProblemTold, true)) return;
  if (moLog.Path().empty()) {
    moDialog.Tell("there is no home folder for the log; name a file with --log");
    return;
  }
  moDialog.Tell("the log " + moLog.Path() + " can't be written (" + std::strerror(moLog.Problem()) +
                "); the work goes on without it. " + "Name another file with --log");
}
