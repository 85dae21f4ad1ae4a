// The windowed program on a toolkit that draws: the add-in's start-up, and the stand-in IDE with
// the add-in in it until its window is closed.
#pragma once

#include "DesktopArguments.h"
#include "RegistryStore.h"
#include "Toolkit.h"

/// Inside Forms::RunDesktop. oStore: the settings in use. sCommandLine: all of it, as it was given.
/// Gives the program's exit status.
int RunDesktopProgram(Forms::Toolkit& oToolkit, const DesktopArguments& oArguments,
                      const RegistryStore& oStore, Text sCommandLine);
