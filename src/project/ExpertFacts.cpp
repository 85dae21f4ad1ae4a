#include "ExpertFacts.h"

#include "HandlerGuard.h"
#include "MRules.h"
#include "SteppedIDE.h"
#include "Suggestions.h"

using namespace HandlerGuard;
using Suggestions::Facts;
using Suggestions::Kind;

namespace ExpertFacts {

namespace {

Kind KindOf(ProcKind kind) {
  if (kind == ProcKind::Declarations) return Kind::Declarations;
  return kind == ProcKind::Method ? Kind::Method : Kind::Property;
}

TextView RoutineFor(Kind kind) {
  if (kind == Kind::Declarations) return u"SuggestDeclarationsSettings";
  return kind == Kind::Method ? u"SuggestMethodSettings" : u"SuggestPropertySettings";
}

Facts FactsOfComponent(const GroupModel& model, const ComponentRecord& component) {
  Facts facts;
  facts.bPublicClass = component.bPublicClass;
  facts.bHasEventSource = component.lFirstEventSource != -1;
  facts.bHasDesigner = !component.sDesignerName.empty();
  facts.asForeignInterface = model.ForeignInterfacesOf(component);
  return facts;
}

}  // namespace

void Suggest(const GroupModel& model, ProcedureRecord& record) {
  const Kind kind = KindOf(record.nKind);
  Guard(Named(RoutineFor(kind)), [&](GuardScope& scope) {
    Facts facts = FactsOfComponent(model, model.Component(record.hComponent));
    facts.eKind = kind;
    Text name;
    if (record.oMember) {
      name = model.NameOf(scope, record);
      facts.sName = name;
      facts.nScope = SteppedMember(scope, *record.oMember).Scope();
      facts.bEventHandler = record.bEventHandler;
    }
    Suggestions::Suggest(facts, record.oCurrent, MRules::oRules, record.oSuggest);
  });
}

}  // namespace ExpertFacts
