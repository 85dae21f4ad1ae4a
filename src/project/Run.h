// One call of ApplyPendingSettings: what was asked, and the state of the procedure in hand.
#pragma once

#include "CIDEHandler.h"
#include "MQuillon.h"

struct CIDEHandler::Run {
  bool bRefresh = false;
  MQuillon::LineNumAction eLineNumAction = MQuillon::LineNumAction::Leave;
  /// The component whose declarations were compared with their code last.
  ComponentHandle hDeclarationsRead{};

  bool bCounted = false;  ///< the procedure's line stands in the account
  bool bErrors = false;
  Text sProcName{};  ///< as soon as it is known
  Text sReason{};    ///< the first message since the procedure began

  void Begin() {
    bCounted = bErrors = false;
    sProcName.clear();
    sReason.clear();
  }

  /// Whether the procedure's settings call for a rewrite.
  bool CallsFor(const ProcedureRecord& oRecord) const {
    if (oRecord.oCurrent.bForeign()) return false;
    if (IsDirty(oRecord)) return true;
    return bRefresh && !oRecord.oCurrent.sTemplate().empty() &&
           oRecord.oPending.eLocked() != MQuillon::TriState::True;
  }
};
