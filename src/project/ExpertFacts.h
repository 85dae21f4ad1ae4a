// Gathers the facts about a procedure for the Property Expert, whose decisions are functions of
// rules/, and has them made.
//
//   ExpertFacts::Suggest(model, templates, record);   // fills record.oSuggest
#pragma once

#include "GroupModel.h"
#include "Reasons.h"
#include "TemplateSet.h"

namespace ExpertFacts {

/// The rules that are off and would give the procedure another boundary if they were on, by their
/// stored names.
std::vector<TextView> RulesJudgingOtherwise(const GroupModel& model, const ProcedureRecord& record);

/// What is suggested for a record of the model, with the facts that decide.
Suggestions::Suggestion SuggestionOf(const GroupModel& model, const TemplateSet& templates,
                                     const ProcedureRecord& record);

/// record: its component is in the model; the record itself need not be yet.
void Suggest(const GroupModel& model, const TemplateSet& templates, ProcedureRecord& record);

}  // namespace ExpertFacts
