// refresh, number, unnumber: rewriting from what the code holds.
#include "Commands.h"
#include "MQuillon.h"
#include "Rewrite.h"

int RunCommand(Session& oSession) {
  const std::string& sCommand = oSession.oArguments.sCommand;
  MQuillon::LineNumAction eLineNumAction = MQuillon::LineNumAction::AsRule;
  if (sCommand == "number") eLineNumAction = MQuillon::LineNumAction::Insert;
  if (sCommand == "unnumber") eLineNumAction = MQuillon::LineNumAction::Remove;
  oSession.OpenGroup();
  oSession.LoadScope(false);
  Rewrite(oSession, true, eLineNumAction);
  return SaveChanges(oSession);
}
