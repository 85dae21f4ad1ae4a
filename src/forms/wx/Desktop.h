// Programs with windows: the window system's start and end, around a function that is the program.
//
//   return Forms::RunDesktop([](Forms::Toolkit& oToolkit) {
//     FDemo oDemo(oToolkit);
//     oDemo.Show();
//     Forms::RunForms(oToolkit);
//     return 0;
//   });
#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include "Toolkit.h"

namespace Forms {

/// Starts the window system, hands a toolkit that draws on the screen to oProgram, and ends the
/// window system behind it. Result: what oProgram gives, or 3 without a display, with a message on
/// standard error. An exception of oProgram is passed on after the window system has ended. Once
/// per process.
int RunDesktop(const std::function<int(Toolkit&)>& oProgram);

/// The same for a library inside another program, whose loop runs the events while no form of ours
/// is modal. Forms are shown modally only: others would have no keys there. May be made again after
/// it has ended.
class HostedDesktop {
 public:
  /// poModule: the library (its HMODULE). oWindow: gives the program's main window, above which
  /// forms without an owner stand; 0 for none. Failure 5 when windows can't be shown.
  HostedDesktop(void* poModule, std::function<std::intptr_t()> oWindow);
  ~HostedDesktop();
  HostedDesktop(const HostedDesktop&) = delete;
  HostedDesktop& operator=(const HostedDesktop&) = delete;

  Toolkit& Kit();

 private:
  struct Parts;
  std::unique_ptr<Parts> mpParts;
};

/// The main loop: runs events until no form is visible. Inside RunDesktop only.
void RunForms(Toolkit& oToolkit);

}  // namespace Forms
