// Programs with windows: the window system's start and end, around a function that is the program.
//
//   return Forms::RunDesktop([](Forms::Toolkit& oToolkit) {
//     FDemo oDemo(oToolkit);
//     oDemo.Show();
//     Forms::RunForms(oToolkit);
//     return 0;
//   });
#pragma once

#include <functional>

#include "Toolkit.h"

namespace Forms {

/// Starts the window system, hands a toolkit that draws on the screen to oProgram, and ends the
/// window system behind it. Result: what oProgram gives, or 3 without a display, with a message on
/// standard error. An exception of oProgram is passed on after the window system has ended. Once
/// per process.
int RunDesktop(const std::function<int(Toolkit&)>& oProgram);

/// The main loop: runs events until no form is visible. Inside RunDesktop only.
void RunForms(Toolkit& oToolkit);

}  // namespace Forms
