// Gathers the facts about a procedure for the Property Expert, whose decisions are functions of
// rules/, and has them made.
//
//   ExpertFacts::Suggest(model, record);   // fills record.oSuggest
#pragma once

#include "GroupModel.h"

namespace ExpertFacts {

/// record: its component is in the model; the record itself need not be yet.
void Suggest(const GroupModel& model, ProcedureRecord& record);

}  // namespace ExpertFacts
