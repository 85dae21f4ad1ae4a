// refresh, number, unnumber: rewriting from what the code holds.
#include "Commands.h"
#include "MQuillon.h"
#include "Rewrite.h"

namespace {

int Run(Session& session, MQuillon::LineNumAction lineNumberAction) {
  session.OpenGroup(Session::Use::Rewrite);
  session.LoadScope();
  return SaveChanges(session, RewriteScope(session, true, lineNumberAction));
}

}  // namespace

int RefreshCommand(Session& session) {
  return Run(session, MQuillon::LineNumAction::AsRule);
}

int NumberCommand(Session& session) {
  return Run(session, MQuillon::LineNumAction::Insert);
}

int UnnumberCommand(Session& session) {
  return Run(session, MQuillon::LineNumAction::Remove);
}
