// One function per command; each gives the exit status: 0 done, 1 findings or failed procedures,
// 2 wrong usage or unreadable input. A Stop or a Failure that leaves them ends the program.
#pragma once

#include "Session.h"

int ListCommand(Session& oSession);
int ApplyCommand(Session& oSession);
/// refresh, number, unnumber.
int RunCommand(Session& oSession);
int CheckCommand(Session& oSession);
int TemplateCommand(Session& oSession);
int ReportCommand(Session& oSession);
int TextCommand(Session& oSession);
int RulesCommand(Session& oSession);
