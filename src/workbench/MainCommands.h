// The commands of the main window, a table and a file for each menu: captions, keys, toolbar
// buttons, when they are enabled and checked, and what they do.
#pragma once

#include "MenuTable.h"

struct Workbench;

CommandMenu FileCommands(Workbench& window);
CommandMenu ViewCommands(Workbench& window);
CommandMenu SelectCommands(Workbench& window);
CommandMenu RulesCommands(Workbench& window);
CommandMenu PropsCommands(Workbench& window);
CommandMenu ToolsCommands(Workbench& window);
CommandMenu HelpCommands(Workbench& window);
