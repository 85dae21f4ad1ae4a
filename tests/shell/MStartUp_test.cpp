#include "MStartUp.h"

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include "ErrorRuntime.h"
#include "ExceptionFilter.h"
#include "FormsFixture.h"
#include "MQuillon.h"
#include "MXHTMLHelp.h"
#include "PrintedErrorDialog.h"
#include "RegistryStore.h"
#include "TempFolder.h"

namespace {

using namespace Forms;

class MStartUpTest : public FormsTest {
 protected:
  MStartUpTest() {
    goRegistry = &moStore;
    moToolkit.SetPath(u"/opt/quillon");
    moToolkit.SetHelpFile(u"Tarvane.htb");
  }
  ~MStartUpTest() override {
    MStartUp::End();
    goRegistry = nullptr;
  }
  MStartUp::Setup Given(TextView sCommandLine = {}) {
    return {moToolkit, Text(sCommandLine), moFolder / "quillon.log", {}, {}};
  }

  RegistryStore moStore;
  TempFolder moFolder;
};

TEST_F(MStartUpTest, EverythingStandsBehindMain) {
  MQuillon::asFolderName.clear();
  EXPECT_TRUE(MStartUp::Main(Given()));
  EXPECT_NE(goError, &SilentErrorRuntime());
  EXPECT_NE(MStartUp::goErrorClient, nullptr);
  EXPECT_EQ(MQuillon::asFolderName.size(), 9U);
  EXPECT_EQ(MXHTMLHelp::HelpFile(), u"/opt/quillon/Tarvane.htb");
  EXPECT_EQ(moToolkit.HelpFile(), u"/opt/quillon/Tarvane.htb");
  MStartUp::End();
  EXPECT_EQ(goError, &SilentErrorRuntime());
}

TEST_F(MStartUpTest, TraceIsAnExactWordOfTheCommandLine) {
  struct Row {
    TextView sCommandLine;
    bool bTrace;
  };
  for (const Row& oRow :
       {Row{u"quillon-desktop", false}, Row{u"quillon-desktop /TRACE a.vbg", true},
        Row{u"x/TRACEy", true}, Row{u"/trace", false}, Row{u"quillon-desktop TRACE.vbg", false}}) {
    SCOPED_TRACE(ToUtf8(oRow.sCommandLine));
    EXPECT_TRUE(MStartUp::Main(Given(oRow.sCommandLine)));
    EXPECT_EQ(goError->TraceEnabled(), oRow.bTrace);
    MStartUp::End();
  }
}

TEST_F(MStartUpTest, FailureIsToldAndStartUpDoesNotRun) {
  MQuillon::asFolderName.clear();
  MStartUp::Setup oSetup = Given();
  oSetup.oMakeRuntime = [](IErrorDialog&) -> std::unique_ptr<IErrorRuntime> {
    throw Failure(429, u"ActiveX component can't create object", u"TarvaneA");
  };
  User().MsgBox(MsgBoxResult::Ok);
  EXPECT_FALSE(MStartUp::Main(oSetup));
  const MsgBoxRequest& oBox = User().Boxes().at(0);
  EXPECT_EQ(ToUtf8(oBox.sPrompt),
            "Failed to Initialize Error Handling\r\n\r\n"
            "Description = ActiveX component can't create object\r\n"
            "Source = [Sub Main][Line 3]TarvaneA\r\n"
            "Error = 429");
  EXPECT_EQ(oBox.eIcon, MsgBoxIcon::Critical);
  EXPECT_EQ(oBox.sTitle, u"");
  EXPECT_TRUE(MQuillon::asFolderName.empty());
  EXPECT_EQ(goError, &SilentErrorRuntime());
}

TEST_F(MStartUpTest, BoxTellsAFailureAndTakesTheAnswer) {
  struct Row {
    const char* sName;
    std::int32_t eRetry;
    MsgBoxResult eAnswer;
    std::int32_t eAction;
  };
  const Row aoRow[] = {
      {"again", ErrorIds::RetryLine, MsgBoxResult::Retry, ErrorIds::ActionRetry},
      {"go on", ErrorIds::RetryProcedure, MsgBoxResult::Ignore, ErrorIds::ActionNext},
      {"leave", ErrorIds::RetryLine, MsgBoxResult::Abort, ErrorIds::ActionLeave},
      {"no choice", ErrorIds::RetryNone, MsgBoxResult::Ok, ErrorIds::ActionLeave},
  };
  EXPECT_TRUE(MStartUp::Main(Given()));
  for (const Row& oRow : aoRow) {
    SCOPED_TRACE(oRow.sName);
    User().MsgBox(oRow.eAnswer);
    std::int32_t eAction = 0;
    goError->ReportError(Failure(61), u"CXRecent", u"Save", {}, ErrorIds::BoundaryVB,
                         ErrorIds::SeverityNormal, oRow.eRetry, eAction);
    EXPECT_EQ(eAction, oRow.eAction);
    const std::string sPrompt = ToUtf8(User().Boxes().back().sPrompt);
    EXPECT_EQ(sPrompt.find("Disk Full\r\n\r\nDisk full\r\n\r\nFree some disk space"), 0U)
        << sPrompt;
    EXPECT_NE(sPrompt.find("Error 61 in CXRecent.Save"), std::string::npos);
  }
}

/// Runs the deed in a process of its own, under a log, and gives the signal that ended it.
int EndOf(const std::string& sLog, void (*oDeed)()) {
  const pid_t lChild = fork();
  if (lChild == 0) {
    static PrintedErrorDialog oDialog(stderr);
    static ErrorRuntime oRuntime(oDialog, sLog);
    goError = &oRuntime;
    ExceptionFilter::Install();
    oDeed();
    _exit(0);
  }
  int nStatus = 0;
  waitpid(lChild, &nStatus, 0);
  return WIFSIGNALED(nStatus) ? WTERMSIG(nStatus) : 0;
}

void Uncaught(void (*oDeed)()) noexcept {
  oDeed();
}

int Deeper(volatile char* pcAbove) {
  volatile char acFrame[4096];
  if (!pcAbove) return 0;
  acFrame[0] = pcAbove[0];
  return Deeper(acFrame) + acFrame[0];
}

TEST(ExceptionFilter, RecordsTheEndAndLeavesItToTheSystem) {
  struct Row {
    const char* sName;
    void (*oDeed)();
    int nSignal;
    const char* sRecord;
  };
  const Row aoRow[] = {
      {"segmentation", [] { raise(SIGSEGV); }, SIGSEGV, "Signal SIGSEGV"},
      {"stack overflow",
       [] {
         volatile char c = 0;
         Deeper(&c);
       },
       SIGSEGV, "Signal SIGSEGV"},
      {"abort", [] { std::abort(); }, SIGABRT, "Signal SIGABRT"},
      {"arithmetic", [] { raise(SIGFPE); }, SIGFPE, "Signal SIGFPE"},
      {"illegal instruction", [] { raise(SIGILL); }, SIGILL, "Signal SIGILL"},
      {"bus error", [] { raise(SIGBUS); }, SIGBUS, "Signal SIGBUS"},
      {"exception", [] { Uncaught([] { throw Failure(53, u"No such file"); }); }, SIGABRT,
       "Unhandled exception: No such file"},
      {"unknown exception", [] { Uncaught([] { throw 1; }); }, SIGABRT, "Unhandled exception"},
  };
  for (const Row& oRow : aoRow) {
    SCOPED_TRACE(oRow.sName);
    TempFolder oFolder;
    EXPECT_EQ(EndOf(oFolder / "log", oRow.oDeed), oRow.nSignal);
    const std::string sLog = TempFolder::Read(oFolder / "log");
    EXPECT_EQ(std::count(sLog.begin(), sLog.end(), '\n'), 1) << sLog;
    EXPECT_NE(sLog.find(std::string("Exception\t-\t-\t-\t") + oRow.sRecord + '\n'),
              std::string::npos)
        << sLog;
  }
}

}  // namespace
