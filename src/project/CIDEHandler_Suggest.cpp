// Gathers the facts about a procedure for the Property Expert, whose decisions are functions of
// rules/.
#include "CIDEHandler.h"
#include "HandlerGuard.h"
#include "MQuillon.h"
#include "SteppedIDE.h"
#include "Suggestions.h"

using namespace HandlerGuard;
using Suggestions::Facts;
using Suggestions::Kind;

namespace {

Facts FactsOf(const ComponentRecord& oComponent, const std::vector<Text>& asForeign) {
  Facts oFacts;
  oFacts.bPublicClass = oComponent.bPublicClass;
  oFacts.bHasEventSource = oComponent.lFirstEventSource != -1;
  oFacts.bHasDesigner = !oComponent.sDesignerName.empty();
  if (oComponent.lFirstInterface != -1) {
    const auto lFirst = static_cast<std::size_t>(oComponent.lFirstInterface);
    const auto lLast = static_cast<std::size_t>(oComponent.lLastInterface);
    oFacts.asForeignInterface = std::span(asForeign).subspan(lFirst, lLast - lFirst + 1);
  }
  return oFacts;
}

/// The facts of a procedure with a member. sName: its name, which outlives the facts.
void AddMemberFacts(GuardScope& oScope, const ProcedureRecord& oRecord, TextView sName,
                    Facts& oFacts) {
  oFacts.sName = sName;
  oFacts.nScope = SteppedMember(oScope, *oRecord.oMember).Scope();
  oFacts.bEventHandler = oRecord.bEventHandler;
}

}  // namespace

void CIDEHandler::SuggestMethodSettings(ComponentHandle hComponent, ProcedureRecord& oRecord) {
  Guard(Named(u"SuggestMethodSettings"), [&](GuardScope& oScope) {
    Facts oFacts = FactsOf(ComponentAt(hComponent), moForeignInterfaces);
    const Text sName = NameOf(oScope, oRecord);
    AddMemberFacts(oScope, oRecord, sName, oFacts);
    Suggestions::Suggest(oFacts, oRecord.oCurrent, MRules::oRules, oRecord.oSuggest);
  });
}

void CIDEHandler::SuggestPropertySettings(ComponentHandle hComponent, ProcedureRecord& oRecord) {
  Guard(Named(u"SuggestPropertySettings"), [&](GuardScope& oScope) {
    Facts oFacts = FactsOf(ComponentAt(hComponent), moForeignInterfaces);
    oFacts.eKind = Kind::Property;
    const Text sName = NameOf(oScope, oRecord);
    AddMemberFacts(oScope, oRecord, sName, oFacts);
    Suggestions::Suggest(oFacts, oRecord.oCurrent, MRules::oRules, oRecord.oSuggest);
  });
}

void CIDEHandler::SuggestDeclarationsSettings(ComponentHandle hComponent,
                                              ProcedureRecord& oRecord) {
  Guard(Named(u"SuggestDeclarationsSettings"), [&](GuardScope&) {
    Facts oFacts = FactsOf(ComponentAt(hComponent), moForeignInterfaces);
    oFacts.eKind = Kind::Declarations;
    Suggestions::Suggest(oFacts, oRecord.oCurrent, MRules::oRules, oRecord.oSuggest);
  });
}

void CIDEHandler::RefreshSuggestions() {
  Guard(Named(u"RefreshSuggestions"), [&](GuardScope&) {
    for (const ProcedureHandle h : Procedures()) {
      ProcedureRecord& oRecord = ProcedureAt(h);
      switch (oRecord.nKind) {
        case MQuillon::ProcKind::Method:
          SuggestMethodSettings(oRecord.hComponent, oRecord);
          break;
        case MQuillon::ProcKind::Let:
        case MQuillon::ProcKind::Set:
        case MQuillon::ProcKind::Get:
          SuggestPropertySettings(oRecord.hComponent, oRecord);
          break;
        case MQuillon::ProcKind::Declarations:
          SuggestDeclarationsSettings(oRecord.hComponent, oRecord);
          break;
        default:
          break;
      }
    }
  });
}
