// apply: fills Pending from --suggested and --set, then makes the code agree.
#include "Assignments.h"
#include "Commands.h"
#include "MQuillon.h"
#include "Rewrite.h"

namespace {

void TellPassed(Session& oSession, const Assignments::Passed& oPassed) {
  auto fnTell = [&](std::size_t lCount, const char* sWhy) {
    oSession.oConsole.Detail("Passed over, " + std::string(sWhy) + ": " + std::to_string(lCount));
  };
  fnTell(oPassed.lLocked, "locked");
  fnTell(oPassed.lForeign, "foreign");
  if (oPassed.lNoTemplate) fnTell(oPassed.lNoTemplate, "without a template");
}

}  // namespace

int ApplyCommand(Session& oSession) {
  Assignments oAssignments(oSession.oArguments.asSet);
  oSession.OpenTemplate();
  oAssignments.CheckTemplate(oSession);
  oSession.OpenGroup(Session::Use::Rewrite);
  oSession.LoadScope();
  Assignments::Passed oPassed;
  for (ProcedureHandle h : oSession.Procedures()) oAssignments.Apply(oSession, h, oPassed);
  TellPassed(oSession, oPassed);
  return SaveChanges(oSession, RewriteScope(oSession, false, MQuillon::LineNumAction::AsRule));
}
