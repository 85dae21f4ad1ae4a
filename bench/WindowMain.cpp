// quillon-bench-window open|apply GROUP TEMPLATE: runs the windowed program on the screen of
// $DISPLAY, whose content lies in $SCREEN_FILE, does in it what a person would, and prints what
// that took, in seconds of the clock.
//   open   until the group stands in the IDE's window, and until the main window shows its modules
//   apply  all procedures of the group's first component: selecting them, giving them a template,
//          applying; and for how long the status bar stood still meanwhile
#include <cstdio>
#include <cstring>
#include <deque>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>

#include "Desktop.h"
#include "DesktopProgram.h"
#include "FAction.h"
#include "FIDE.h"
#include "FMain.h"
#include "ScreenWatch.h"

using namespace Forms;

namespace {

using Clock = ScreenWatch::Clock;

double Since(Clock::time_point oFrom, Clock::time_point oTo = Clock::now()) {
  return std::chrono::duration<double>(oTo - oFrom).count();
}

/// When the process began, to a hundredth of a second: before its libraries were loaded.
Clock::time_point ProcessStart() {
  std::ifstream oStat("/proc/self/stat"), oUptime("/proc/uptime");
  std::string sStat((std::istreambuf_iterator<char>(oStat)), {});
  std::istringstream oFields(sStat.substr(sStat.rfind(')') + 2));
  std::string sField;
  for (int i = 3; i <= 22; ++i) oFields >> sField;
  double dUptime = 0;
  oUptime >> dUptime;
  const std::chrono::duration<double> oAge(dUptime - std::stod(sField) / 100);
  return Clock::now() - std::chrono::duration_cast<Clock::duration>(oAge);
}

template <class F>
F* Shown(const Toolkit& oToolkit) {
  for (Form* po : oToolkit.LoadedForms())
    if (auto* poForm = dynamic_cast<F*>(po); poForm && po->Visible()) return poForm;
  return nullptr;
}

/// Steps that wait for their time; a form that nobody sees, because its timers tick in every loop.
/// A timer whose step leads into a modal loop rests until that ends: the next one takes over.
class Steps : public Form {
 public:
  explicit Steps(Toolkit& oToolkit) : Form(oToolkit, u"Steps") {
    tmrTick.OnElement([this](Timer& o) { On(o.Tick, [this] { Tick(); }); });
    Load();
    for (std::int32_t i = 0; i < tmrTick.Count(); ++i) tmrTick(i).SetInterval(2);
  }
  void Add(std::function<bool()> oReady, std::function<void()> oAct) {
    moSteps.push_back({std::move(oReady), std::move(oAct)});
  }
  /// Whatever the steps before this one have drawn is on the screen. oAct gets when it got there.
  void AddDrawn(ScreenWatch& oWatch, std::function<void(Clock::time_point)> oAct) {
    Add([] { return true; },
        [this, &oWatch] {
          oWatch.Look({0, 0, oWatch.Width(), oWatch.Height()});
          moCalm = Clock::now() + std::chrono::milliseconds(300);
        });
    Add([this] { return Clock::now() > moCalm; },
        [&oWatch, oAct = std::move(oAct)] { oAct(oWatch.Stop().oLast); });
  }

 private:
  struct OneStep {
    std::function<bool()> oReady;
    std::function<void()> oAct;
  };
  // A step may lead into a modal loop in which the next one comes.
  void Tick() {
    if (moSteps.empty() || !moSteps.front().oReady()) return;
    const OneStep oStep = std::move(moSteps.front());
    moSteps.pop_front();
    oStep.oAct();
  }

  ControlArray<Timer> tmrTick{*this, u"tmrTick", 4};
  std::deque<OneStep> moSteps;
  Clock::time_point moCalm;
};

void Say(const char* psWhat, double dSeconds) {
  std::printf("%-44s %8.3f s\n", psWhat, dSeconds);
}

class Bench {
 public:
  Bench(Toolkit& oToolkit, ScreenWatch& oWatch, Clock::time_point oStart)
      : moToolkit(oToolkit), moWatch(oWatch), moStart(oStart), moSteps(oToolkit) {}

  void Open() {
    OpenWindows();
    moSteps.Add([] { return true; }, Exit);
  }
  void Apply() {
    OpenWindows();
    moSteps.Add([] { return true; }, [this] { ShowFirstComponent(); });
    moSteps.Add([this] { return Main().lvwProcs.ListItems().Count() > 1; }, [this] { Mark(); });
    moSteps.AddDrawn(moWatch, [this](auto oTime) {
      std::printf("%-44s %8d\n", "procedures", Main().lvwProcs.ListItems().Count());
      Say("the component is shown", Since(moMark, oTime));
      Timed("all rows are selected", [this] { Main().oMenu[u"mnuSelectAll"].Click(); });
      Timed("their template is pending",
            [this] { Main().prlProperties.PropertyChange(u"Template", u"Standard"); });
    });
    moSteps.Add([] { return true; }, [this] { ApplySelection(); });
    moSteps.Add([this] { return Shown<FApplyPending>(moToolkit) != nullptr; },
                [this] { AnswerScope(); });
  }

 private:
  FMain& Main() const { return *Shown<FMain>(moToolkit); }
  void Mark() { moMark = Clock::now(); }
  template <class Work>
  void Timed(const char* psWhat, Work&& oWork) {
    const auto oFrom = Clock::now();
    oWork();
    Say(psWhat, Since(oFrom));
  }

  void OpenWindows() {
    moSteps.Add(
        [this] {
          FIDE* const po = Shown<FIDE>(moToolkit);
          return po && po->oMenu[u"mnuAddInsLoad"].Checked();
        },
        [] {});
    moSteps.AddDrawn(moWatch,
                     [this](auto oTime) { Say("the group is open", Since(moStart, oTime)); });
    moSteps.Add([] { return true; },
                [this] {
                  Mark();
                  Shown<FIDE>(moToolkit)->cmdTool(1).Click();
                });
    moSteps.Add(
        [this] {
          FMain* const po = Shown<FMain>(moToolkit);
          return po && po->Model() && po->tvwProjects.Enabled() &&
                 po->lvwMods.ListItems().Count() + po->lvwProcs.ListItems().Count() > 0;
        },
        [] {});
    moSteps.AddDrawn(moWatch,
                     [this](auto oTime) { Say("the main window shows it", Since(moMark, oTime)); });
  }

  void ShowFirstComponent() {
    Nodes& oNodes = Main().tvwProjects.Nodes();
    for (std::int32_t i = 1; i <= oNodes.Count(); ++i)
      if (const ComponentHandle h(oNodes.Item(i).Tag()); h) {
        Mark();
        return Main().SelectNode(ProjectHandle(1), h);
      }
  }

  void ApplySelection() {
    Main().oMenu[u"mnuToolsApplyPending"].Click();
    Say("applied", Since(moMark));
    const ScreenWatch::Result o = moWatch.Stop();
    std::printf("%-44s %8zu\n", "pictures of the status bar", o.lChanges + 1);
    Say("the longest time without a new picture", o.dLongest);
    Exit();
  }
  void AnswerScope() {
    const FMain& o = Main();
    const std::int32_t lTwips = moToolkit.Screen().TwipsPerPixelX();
    const int nBottom = (o.Top() + o.Height()) / lTwips;
    const int nHeight = o.StatusBar1.Height() / lTwips;
    moWatch.Look({o.Left() / lTwips, nBottom - nHeight, o.Width() / lTwips, nHeight});
    Mark();
    Shown<FApplyPending>(moToolkit)->cmdAction(1).Click();
  }

  // What the program does on its way out isn't the bench's.
  [[noreturn]] static void Exit() {
    std::fflush(stdout);
    std::_Exit(0);
  }

  Toolkit& moToolkit;
  ScreenWatch& moWatch;
  Clock::time_point moStart, moMark;
  Steps moSteps;
};

int Run(const char* psWhat, const char* psGroup, const char* psTemplate) {
  const auto oStart = ProcessStart();
  const char* const psScreen = std::getenv("SCREEN_FILE");
  ScreenWatch oWatch(psScreen ? psScreen : "");
  DesktopArguments oArguments;
  oArguments.sGroup = std::filesystem::absolute(psGroup);
  oArguments.sTemplateFile = std::filesystem::absolute(psTemplate);
  oArguments.sLogFile = oArguments.sGroup + ".log";
  RegistryStore oStore;
  goRegistry = &oStore;
  return RunDesktop([&](Toolkit& oToolkit) {
    Bench oBench(oToolkit, oWatch, oStart);
    std::strcmp(psWhat, "open") == 0 ? oBench.Open() : oBench.Apply();
    return RunDesktopProgram(oToolkit, oArguments, oStore, u"quillon-bench-window");
  });
}

}  // namespace

int main(int argc, char** argv) try {
  if (argc != 4 || (std::strcmp(argv[1], "open") != 0 && std::strcmp(argv[1], "apply") != 0)) {
    std::fputs("Usage: quillon-bench-window open|apply GROUP TEMPLATE\n", stderr);
    return 2;
  }
  return Run(argv[1], argv[2], argv[3]);
} catch (const std::exception& oError) {
  std::fprintf(stderr, "quillon-bench-window: %s\n", oError.what());
  return 1;
}
