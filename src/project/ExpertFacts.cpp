#include "ExpertFacts.h"

#include <algorithm>

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

/// name: kept by the caller, since the facts refer to it.
Facts FactsOf(GuardScope& scope, const GroupModel& model, const ProcedureRecord& record,
              Text& name) {
  Facts facts = FactsOfComponent(model, model.Component(record.hComponent));
  facts.eKind = KindOf(record.nKind);
  if (!record.oMember) return facts;
  name = model.NameOf(scope, record);
  facts.sName = name;
  facts.nScope = SteppedMember(scope, *record.oMember).Scope();
  facts.bEventHandler = record.bEventHandler;
  facts.bHandlerNoCase = record.bHandlerNoCase;
  return facts;
}

/// As above, with what the template that would be suggested does to the code.
Facts FactsOf(GuardScope& scope, const GroupModel& model, const TemplateSet& templates,
              const ProcedureRecord& record, Text& name) {
  Facts facts = FactsOf(scope, model, record, name);
  if (!record.bReadsErr) return facts;
  const TemplateRow* const row = templates.Find(MRules::oRules.sDefaultProcTemplate);
  facts.bClearsErr = row && row->names.handles;
  return facts;
}

/// Nearly all procedures are judged alike with and without those rules, and need not be asked for.
bool MayDiffer(const Facts& component, const ProcedureRecord& record) {
  return record.oMember && (record.bHandlerNoCase ||
                            std::ranges::any_of(component.asForeignInterface, [](TextView name) {
                              return name.find(u'.') != TextView::npos;
                            }));
}

}  // namespace

void Suggest(const GroupModel& model, const TemplateSet& templates, ProcedureRecord& record) {
  Guard(Named(RoutineFor(KindOf(record.nKind))), [&](GuardScope& scope) {
    Text name;
    const Facts facts = FactsOf(scope, model, templates, record, name);
    Suggestions::Suggest(facts, record.oCurrent, MRules::oRules, record.oSuggest);
  });
}

std::vector<TextView> RulesJudgingOtherwise(const GroupModel& model,
                                            const ProcedureRecord& record) {
  if (!MayDiffer(FactsOfComponent(model, model.Component(record.hComponent)), record)) return {};
  return Result(u"RulesJudgingOtherwise", [&](GuardScope& scope) {
    Text name;
    const Facts facts = FactsOf(scope, model, record, name);
    return Suggestions::RulesJudgingOtherwise(facts, record.oCurrent, MRules::oRules);
  });
}

Suggestions::Suggestion SuggestionOf(const GroupModel& model, const TemplateSet& templates,
                                     const ProcedureRecord& record) {
  return Result(u"SuggestionOf", [&](GuardScope& scope) {
    Text name;
    const Facts facts = FactsOf(scope, model, templates, record, name);
    return Suggestions::SuggestionFor(facts, record.oCurrent, MRules::oRules,
                                      record.oSuggest.bForeign());
  });
}

}  // namespace ExpertFacts
