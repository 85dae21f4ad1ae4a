// One function per command, which its row in CommandTable.cpp names; each gives the exit status: 0
// done, 1 findings or failed procedures, 2 wrong usage or unreadable input. A Stop or a Failure
// that leaves them ends the program.
#pragma once

#include "Session.h"

int ListCommand(Session& session);
int ApplyCommand(Session& session);
int RefreshCommand(Session& session);
int NumberCommand(Session& session);
int UnnumberCommand(Session& session);
int CheckCommand(Session& session);
int ExplainCommand(Session& session);
int SurveyCommand(Session& session);
int TemplateCommand(Session& session);
int UndoCommand(Session& session);
int ReportCommand(Session& session);
int TextCommand(Session& session);
int InitCommand(Session& session);
int ConfigCommand(Session& session);
int RulesCommand(Session& session);
