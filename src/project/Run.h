// One call of ApplyPendingSettings: what was asked, and the state of the procedure in hand.
#pragma once

#include "CIDEHandler.h"
#include "MQuillon.h"

struct CIDEHandler::Run {
  bool bRefresh = false;
  MQuillon::LineNumAction eLineNumAction = MQuillon::LineNumAction::Leave;
  bool bListChanges = false;
  /// The component whose declarations were compared with their code last.
  ComponentHandle hDeclarationsRead{};

  bool bCounted = false;  ///< the procedure's line stands in the account
  Text sProcName{};       ///< as soon as it is known
  std::vector<Refusal> refusals{};

  void Begin() {
    bCounted = false;
    sProcName.clear();
    refusals.clear();
  }

  /// Whether the procedure's settings call for a rewrite.
  bool CallsFor(const ProcedureRecord& oRecord) const {
    if (oRecord.oCurrent.bForeign()) return false;
    if (IsDirty(oRecord)) return true;
    return bRefresh && !oRecord.oCurrent.sTemplate().empty() &&
           oRecord.oPending.eLocked() != MQuillon::TriState::True;
  }
};
