// The run-time over a real log file in a folder of its own.
#include "ErrorRuntime.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>
#include <stdexcept>

#include "PrintedErrorDialog.h"
#include "TempFolder.h"

namespace {

using namespace ErrorIds;
using namespace std::string_literals;
using Lines = std::vector<std::string>;

struct RecordingDialog : IErrorDialog {
  ErrorAnswer oAnswer;
  int lAsked = 0;
  Lines asTold;
  std::function<void()> oMeanwhile = [] {};
  ErrorAnswer Ask(const ErrorEvent&) override {
    ++lAsked;
    oMeanwhile();
    return oAnswer;
  }
  void Tell(std::string_view sMessage) override { asTold.emplace_back(sMessage); }
};

class ErrorRuntimeTest : public testing::Test {
 protected:
  std::string LogPath() const { return moFolder / "state/quillon.log"; }

  /// The lines of the log without time and process, each checked to begin with them.
  Lines Logged(const std::string& sSuffix = {}) const {
    Lines asLine;
    std::ifstream oFile(LogPath() + sSuffix);
    const std::string sProcess = "Z\t" + std::to_string(getpid()) + '\t';
    for (std::string sLine; std::getline(oFile, sLine);) {
      EXPECT_TRUE(sLine.find('T') == 10 && sLine.find(sProcess) == 23) << sLine;
      asLine.push_back(sLine.substr(23 + sProcess.size()));
    }
    return asLine;
  }

  static std::int32_t Report(ErrorRuntime& oRuntime, const Failure& oFailure,
                             std::int32_t eSeverity = SeverityNormal,
                             std::int32_t eRetry = RetryLine) {
    std::int32_t eAction = 0;
    oRuntime.ReportError(oFailure, u"CIDEHandler", u"Load", u"Form1\t.frm", BoundaryFirewall,
                         eSeverity, eRetry, eAction);
    return eAction;
  }

  TempFolder moFolder;
  RecordingDialog moDialog;
};

TEST_F(ErrorRuntimeTest, EveryEventIsOneLineOfFields) {
  ErrorRuntime oRuntime(moDialog, LogPath());
  Report(oRuntime, Failure(53, u"Not found:\r\n\"C:\\\u00E9.bas\"", u"host"));
  moDialog.oAnswer.eAction = ActionRetry;
  EXPECT_EQ(Report(oRuntime, Failure(61), SeverityNormal), ActionRetry);
  EXPECT_EQ(Report(oRuntime, Failure(62), SeverityNormal, RetryNone), ActionLeave);
  EXPECT_EQ(Report(oRuntime, Failure(63), SeverityCosmetic), ActionNext);
  EXPECT_EQ(moDialog.lAsked, 3);
  oRuntime.CheckResult(u"RegSetValueEx Rules", 5);
  oRuntime.CheckResult(u"RegSetValueEx Rules", 0);
  for (const std::int32_t lResult : {0, 2, 6, 234}) {
    ResultStatus oStatus = oRuntime.CheckResultEx(u"RegQueryValueEx Rules", lResult);
    oRuntime.ExpectResult(oStatus, {2, 234});
    oRuntime.CloseResult(oStatus);
  }
  oRuntime.WriteDiagnostic(u"  Build = 1\r\n");
  oRuntime.HandleException(u"signal 11\n");
  oRuntime.TraceEnter(u"M", u"A");
  oRuntime.TraceEnter(u"M", u"B");
  oRuntime.TraceExit(u"M", u"B");
  const std::string sWhere = "CIDEHandler.Load\tForm1\\x09.frm\t";
  EXPECT_EQ(Logged(),
            (Lines{"Normal\t" + sWhere +
                       "53\tNot found:\\x0D\\x0A\"C:\\\xC3\xA9.bas\"\thost\tFirewall\tLeave",
                   "Normal\t" + sWhere + "61\tDisk full\t-\tFirewall\tRetry",
                   "Normal\t" + sWhere + "62\tInput past end of file\t-\tFirewall\tLeave",
                   "Cosmetic\t" + sWhere + "63\tBad record number\t-\tFirewall\tNext",
                   "Result\tRegSetValueEx Rules\t-\t5\tA system call failed\t-\t-\tNext",
                   "Result\tRegQueryValueEx Rules\t-\t6\tA system call failed\t-\t-\tNext",
                   "Diagnostic\t-\t-\t-\t  Build = 1", "Exception\t-\t-\t-\tsignal 11?",
                   "Enter\tM.A\tdepth 0", "Enter\tM.B\tdepth 1", "Exit\tM.B\tdepth 1"}));
}

TEST_F(ErrorRuntimeTest, FloodOfOneEventIsCounted) {
  ErrorRuntime oRuntime(moDialog, LogPath());
  for (int i = 0; i < 25000; ++i) oRuntime.CheckResult(u"Call", 5);
  oRuntime.CheckResult(u"Other", 5);
  const std::string sRest = "\tCall\t-\t5\tA system call failed\t-\t-\tNext";
  EXPECT_EQ(Logged(), (Lines{"Result" + sRest, "Repeated 10000" + sRest, "Repeated 10000" + sRest,
                             "Repeated 4999" + sRest,
                             "Result\tOther\t-\t5\tA system call failed\t-\t-\tNext"}));
}

TEST_F(ErrorRuntimeTest, FloodOfDifferentEventsIsBoundedByRotation) {
  ErrorRuntime oRuntime(moDialog, LogPath(), 2000);
  for (int i = 1; i <= 300; ++i) oRuntime.CheckResult(u"Call", i);
  std::size_t lLines = 0;
  for (const std::string sSuffix : {"", ".1", ".2", ".3"}) {
    EXPECT_LE(std::filesystem::file_size(LogPath() + sSuffix), 2000u) << sSuffix;
    lLines += Logged(sSuffix).size();
  }
  EXPECT_TRUE(lLines > 60 && Logged(".4").empty());
  EXPECT_EQ(Logged().back().substr(0, 17), "Result\tCall\t-\t300");
}

TEST_F(ErrorRuntimeTest, TwoProgramsShareALogThroughRotationsWithoutMixingLines) {
  constexpr int lEach = 5000;
  const auto write = [&](const char* pcName) {
    ErrorLog oLog(LogPath(), 9000, 100);
    for (int i = 0; i < lEach; ++i) oLog.Write(pcName + std::to_string(i) + std::string(20, '.'));
  };
  const pid_t lChild = fork();
  write(lChild == 0 ? "child " : "parent ");
  if (lChild == 0) _exit(0);
  waitpid(lChild, nullptr, 0);
  int lLines = 0;
  for (const auto& oEntry : std::filesystem::directory_iterator(moFolder / "state")) {
    std::ifstream oFile(oEntry.path());
    for (std::string sLine; std::getline(oFile, sLine); ++lLines)
      EXPECT_TRUE(sLine.find('.') + 20 == sLine.size()) << sLine;
  }
  EXPECT_EQ(lLines, 2 * lEach);
}

TEST_F(ErrorRuntimeTest, LogThatCanNotBeWrittenIsToldOnceAndStopsNothing) {
  // A folder, a folder that is a file, a full device.
  for (const std::string& sPath : {moFolder.Path(), "/dev/null/q"s, "/dev/full"s}) {
    SCOPED_TRACE(sPath);
    RecordingDialog oDialog;
    ErrorRuntime oRuntime(oDialog, sPath);
    oRuntime.Start();
    EXPECT_EQ(Report(oRuntime, Failure(5)), ActionLeave);
    Report(oRuntime, Failure(6));
    ASSERT_EQ(oDialog.asTold.size(), 1u);
    EXPECT_EQ(oDialog.asTold[0].find("the log " + sPath + " can't be written"), 0u);
  }
}

TEST_F(ErrorRuntimeTest, DialogThatFailsOrReportsItselfDoesNoHarm) {
  ErrorRuntime oRuntime(moDialog, LogPath());
  moDialog.oMeanwhile = [&] { Report(oRuntime, Failure(91)); };
  Report(oRuntime, Failure(5));
  moDialog.oMeanwhile = [] { throw std::runtime_error("dialog"); };
  EXPECT_EQ(Report(oRuntime, Failure(6)), ActionLeave);
  moDialog.oMeanwhile = [] {};
  oRuntime.SetEnding(true);
  Report(oRuntime, Failure(9));
  EXPECT_EQ(moDialog.lAsked, 2);
  EXPECT_EQ(Logged().size(), 4u);
}

struct EndingClient : IErrorClient {
  int lEnded = 0;
  void CustomClick(std::int32_t) override {}
  void EndApplication() override { ++lEnded; }
  void GetDiagnostics(std::u16string&) override { goError->WriteDiagnostic(u"System 1"); }
  void GetErrorText(std::int32_t, std::u16string&, std::u16string& sSuggestion,
                    std::u16string&) override {
    sSuggestion = u"Try again";
  }
  void NotifyError(std::u16string_view, std::u16string_view, std::u16string_view, std::int32_t,
                   std::int32_t, std::int32_t, std::int32_t lErrorNum, std::u16string_view,
                   std::u16string_view, std::int32_t& eAction) override {
    if (lErrorNum == 5) eAction = ActionNext;
  }
};

TEST_F(ErrorRuntimeTest, ClientGivesWordsChangesTheActionAndEndsAfterAFatalFailure) {
  char acPrinted[1000] = {};
  std::FILE* poStream = fmemopen(acPrinted, sizeof acPrinted, "w");
  PrintedErrorDialog oDialog(poStream);
  ErrorRuntime oRuntime(oDialog, LogPath());
  EndingClient oClient;
  oRuntime.SetErrorClient(&oClient);
  oRuntime.SetApplicationName(u"TarvaneQuillon");
  goError = &oRuntime;
  EXPECT_EQ(Report(oRuntime, Failure(5)), ActionNext);
  for (const std::int32_t eSeverity : {SeverityNormal, SeverityFatal}) {
    EXPECT_EQ(oClient.lEnded, 0);
    Report(oRuntime, Failure(6), eSeverity);
    oRuntime.CloseError(BoundaryVB);
    oRuntime.CloseError(BoundaryVB);
  }
  EXPECT_EQ(oClient.lEnded, 1);
  goError = &SilentErrorRuntime();
  EXPECT_EQ(Logged()[1], "Diagnostic\t-\t-\t-\tSystem 1");
  std::fclose(poStream);
  EXPECT_EQ(std::string(acPrinted),
            "quillon: CIDEHandler.Load: Invalid procedure call or argument (error 5). Try again\n"
            "quillon: CIDEHandler.Load: Overflow (error 6). Try again\n");
}

}  // namespace
