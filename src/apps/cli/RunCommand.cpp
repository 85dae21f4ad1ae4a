// refresh, number, unnumber: rewriting from what the code holds.
#include "Commands.h"
#include "MQuillon.h"
#include "Rewrite.h"

int RunCommand(Session& oSession) {
  const std::string& sCommand = oSession.oArguments.sCommand;
  std::int32_t eLineNumAction = MQuillon::NumberAsRule;
  if (sCommand == "number") eLineNumAction = MQuillon::NumberInsert;
  if (sCommand == "unnumber") eLineNumAction = MQuillon::NumberRemove;
  oSession.OpenGroup();
  oSession.LoadScope(false);
  Rewrite(oSession, true, eLineNumAction);
  return SaveChanges(oSession);
}
