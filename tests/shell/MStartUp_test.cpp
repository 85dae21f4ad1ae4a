#include "MStartUp.h"

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include "ErrorRuntime.h"
#include "ExceptionFilter.h"
#include "FormsFixture.h"
#include "Guard.h"
#include "MOptions.h"
#include "MQuillon.h"
#include "MRules.h"
#include "MXHTMLHelp.h"
#include "OwnSettings.h"
#include "PrintedErrorDialog.h"
#include "TempFolder.h"

namespace {

using namespace Forms;

class MStartUpTest : public FormsTest {
 protected:
  MStartUpTest() {
    moToolkit.SetPath(u"/opt/quillon");
    moToolkit.SetHelpFile(u"Tarvane.htb");
  }
  ~MStartUpTest() override { MStartUp::End(); }
  MStartUp::Setup Given(TextView sCommandLine = {}) {
    return {moToolkit, Text(sCommandLine), moFolder / "quillon.log", {}, {}};
  }

  OwnSettings moStore;
  TempFolder moFolder;
};

/// Notes how it is set up.
struct NotedRuntime : ErrorRuntime {
  using ErrorRuntime::ErrorRuntime;
  void SetErrorClient(IErrorClient* po) override { Note(u"client", po != nullptr); }
  void SetDevelopmentMode(bool b) override { Note(u"development", b); }
  void Start() override { Note(u"start", true); }
  void SetApplicationName(std::u16string_view s) override { Note(s, true); }
  void SetApplicationPath(std::u16string_view s) override { Note(s, true); }
  void SetTraceEnabled(bool b) override { Note(u"trace", b); }
  void Note(TextView s, bool b) { sNoted += ToUtf8(s) + (b ? " " : " off "); }
  static inline std::string sNoted;
};

TEST_F(MStartUpTest, EverythingStandsBehindMain) {
  MQuillon::asFolderName.clear();
  const Text sRoot = u"HKEY_CURRENT_USER\\Software\\Morvelle\\Tarvane\\Quillon\\";
  moStore.SetLong(sRoot + u"Rules", u"Severity Default", 3);
  moStore.SetLong(sRoot + u"Options", u"Error Font Size", 21);
  MStartUp::Setup oSetup = Given();
  oSetup.oMakeRuntime = [](IErrorDialog& o) { return std::make_unique<NotedRuntime>(o); };
  std::set_terminate(std::abort);
  EXPECT_TRUE(MStartUp::Main(oSetup));
  EXPECT_NE(std::get_terminate(), std::abort) << "the exception filter";
  EXPECT_EQ(NotedRuntime::sNoted,
            "client TarvaneQuillon /opt/quillon development off trace off start ");
  EXPECT_EQ(MQuillon::asFolderName.size(), 9U);
  EXPECT_EQ(MQuillon::ToNumber(MRules::oRules.eSeverityDefault) * 100 + MOptions::oErrorFont.lSize,
            321);
  MRules::oRules = {};
  MOptions::oErrorFont = {};
  EXPECT_EQ(MXHTMLHelp::HelpFile(), u"/opt/quillon/Tarvane.htb");
  EXPECT_EQ(moToolkit.HelpFile(), u"/opt/quillon/Tarvane.htb");
  MStartUp::End();
  EXPECT_EQ(goError, &SilentErrorRuntime());
}

TEST_F(MStartUpTest, TraceIsAnExactWordOfTheCommandLine) {
  for (const TextView s : {u"quillon-desktop", u"/trace", u"quillon-desktop TRACE.vbg",
                           u"quillon-desktop /TRACE a.vbg", u"x/TRACEy"}) {
    EXPECT_TRUE(MStartUp::Main(Given(s)));
    EXPECT_EQ(goError->TraceEnabled(), s.ends_with(u"a.vbg") || s.ends_with(u"y")) << ToUtf8(s);
    MStartUp::End();
  }
}

TEST_F(MStartUpTest, FailureIsToldAndStartUpDoesNotRun) {
  MQuillon::asFolderName.clear();
  MStartUp::Setup oSetup = Given();
  oSetup.oMakeRuntime = [](IErrorDialog&) -> std::unique_ptr<IErrorRuntime> {
    throw Failure(429, u"can't create", u"TarvaneA");
  };
  User().MsgBox(MsgBoxResult::Ok);
  EXPECT_FALSE(MStartUp::Main(oSetup));
  EXPECT_EQ(ToUtf8(User().Boxes().at(0).sPrompt),
            "Failed to Initialize Error Handling\r\n\r\nDescription = can't create\r\n"
            "Source = [Sub Main][Line 3]TarvaneA\r\nError = 429");
  EXPECT_EQ(User().Boxes().at(0).eIcon, MsgBoxIcon::Critical);
  EXPECT_TRUE(MQuillon::asFolderName.empty());
  EXPECT_EQ(goError, &SilentErrorRuntime());
}

TEST_F(MStartUpTest, BoxTellsAFailureAndTakesTheAnswer) {
  EXPECT_TRUE(MStartUp::Main(Given()));
  using enum MsgBoxResult;
  for (const auto& [eRetry, eAnswer, eExpected] :
       {std::tuple{ErrorIds::RetryLine, Retry, ErrorIds::ActionRetry},
        {ErrorIds::RetryProcedure, Ignore, ErrorIds::ActionNext},
        {ErrorIds::RetryLine, Abort, ErrorIds::ActionLeave},
        {ErrorIds::RetryNone, Ok, ErrorIds::ActionLeave}}) {
    SCOPED_TRACE(eRetry);
    User().MsgBox(eAnswer);
    std::int32_t eAction = 0;
    goError->ReportError(Failure(61), u"CXRecent", u"Save", {}, ErrorIds::BoundaryVB,
                         ErrorIds::SeverityNormal, eRetry, eAction);
    EXPECT_EQ(eAction, eExpected);
    const std::string sPrompt = ToUtf8(User().Boxes().back().sPrompt);
    EXPECT_TRUE(sPrompt.starts_with("Disk Full\r\n\r\nDisk full\r\n\r\nFree some disk space"))
        << sPrompt;
    EXPECT_NE(sPrompt.find("Error 61 in CXRecent.Save"), std::string::npos);
  }
  EXPECT_NE(TempFolder::Read(moFolder / "quillon.log").find("Application Version"), Text::npos);
  User().MsgBox(Ok);
  for (int i = 0; i < 2; ++i)  // the application ends with the first
    Guard({u"FMain", u"Form_Load", ErrorIds::BoundaryVB, ErrorIds::SeverityFatal},
          [](GuardScope&) { throw Failure(5); });
  EXPECT_EQ(User().Boxes().back().eButtons, MsgBoxButtons::OkOnly) << "no step to repeat";
  EXPECT_EQ(User().Boxes().back().eIcon, MsgBoxIcon::Critical);
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

int Deeper(const volatile char* pcAbove) {
  volatile char acFrame[4096];
  if (!pcAbove) return 0;
  acFrame[0] = pcAbove[0];
  return Deeper(acFrame) + acFrame[0];
}

TEST(ExceptionFilter, RecordsTheEndAndLeavesItToTheSystem) {
  const auto Check = [](void (*oDeed)(), int nSignal, const std::string& sRecord) {
    SCOPED_TRACE(sRecord);
    TempFolder oFolder;
    EXPECT_EQ(EndOf(oFolder / "log", oDeed), nSignal);
    const std::string sLog = TempFolder::Read(oFolder / "log");
    EXPECT_TRUE(sLog.ends_with("Exception\t-\t-\t-\t" + sRecord + '\n')) << sLog;
    EXPECT_EQ(std::count(sLog.begin(), sLog.end(), '\n'), 1) << sLog;
  };
  Check([] { std::abort(); }, SIGABRT, "Signal SIGABRT");
  Check([] { raise(SIGFPE); }, SIGFPE, "Signal SIGFPE");
  Check([] { raise(SIGILL); }, SIGILL, "Signal SIGILL");
  Check([] { raise(SIGBUS); }, SIGBUS, "Signal SIGBUS");
  Check([] { static_cast<void>(Deeper("")); }, SIGSEGV, "Signal SIGSEGV");  // overflows the stack
  Check([] { Uncaught([] { throw Failure(53, u"Gone"); }); }, SIGABRT, "Unhandled exception: Gone");
  Check([] { Uncaught([] { throw 1; }); }, SIGABRT, "Unhandled exception");
}

}  // namespace
