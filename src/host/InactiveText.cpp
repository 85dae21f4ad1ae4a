#include "InactiveText.h"

void InactiveText::Take(const Statement& statement) {
  if (statement.eKind == StatementKind::Procedure) {
    ++mHeads;
    ++mHeadsOfBranch;
  } else {
    mHeadsOnly = false;
  }
}

void InactiveText::Take(DirectiveKind kind, bool wasActive, bool isActive, End here) {
  const bool isElse = kind == DirectiveKind::Else || kind == DirectiveKind::ElseIf;
  if (!isElse && kind != DirectiveKind::If && kind != DirectiveKind::EndIf) return;
  if (wasActive) {
    Settle();
    if (!isActive) {
      mAny = false;
      mHeadsOnly = kind == DirectiveKind::If;
      mHeadsOfBranch = 0;
    }
    return;
  }
  mHeadsOnly = mHeadsOnly && isElse && mHeadsOfBranch == 1;
  mHeadsOfBranch = 0;
  if (!isActive || !mAny) return;
  here.heads = mHeads;
  (mHeadsOnly ? mOtherHeads : mEnd) = here;
}
