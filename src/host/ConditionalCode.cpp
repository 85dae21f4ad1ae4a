#include "ConditionalCode.h"

#include "ByteText.h"

ConditionalCode::ConditionalCode(const std::vector<CondConstant>& oConstants, const CodePage& oPage)
    : moPage(oPage) {
  for (const PredefinedConstant& own : PredefinedConstants) {
    moProject[Text(own.name)] = CondValue::Of(own.value);
  }
  for (const CondConstant& oConstant : oConstants) {
    moProject[LowerCase(oConstant.sName)] = CondValue::Of(oConstant.lValue);
  }
  Reset(Reading::Values);
}

void ConditionalCode::Reset(Reading eReading) {
  meReading = eReading;
  moNames = moProject;
  moOwnNames.clear();
  moNode.assign(1, {-1, true, true, {}});
  mlState = 0;
  mbSound = true;
}

bool ConditionalCode::TakeConstSeen() {
  const bool bSeen = mbConstSeen;
  mbConstSeen = false;
  return bSeen;
}

void ConditionalCode::Enter(std::int32_t lParent, bool bActive, bool bTaken) {
  const std::size_t lChild = (bActive ? 1U : 0U) + (bTaken ? 2U : 0U);
  const std::int32_t lKnown = moNode[static_cast<std::size_t>(lParent)].alChild[lChild];
  if (lKnown != 0) {
    mlState = lKnown;
    return;
  }
  mlState = static_cast<std::int32_t>(moNode.size());
  moNode.push_back({lParent, bActive, bTaken, {}});
  moNode[static_cast<std::size_t>(lParent)].alChild[lChild] = mlState;
}

void ConditionalCode::Open(bool bCondition) {
  const bool bOuter = IsActive();
  Enter(mlState, bOuter && bCondition, !bOuter || bCondition);
}

void ConditionalCode::Branch(bool bCondition) {
  if (mlState == 0) {
    mbSound = false;
    return;
  }
  const bool bTaken = Now().bTaken;
  Enter(Now().lParent, !bTaken && bCondition, bTaken || bCondition);
}

void ConditionalCode::Close() {
  if (mlState == 0)
    mbSound = false;
  else
    mlState = Now().lParent;
}

bool ConditionalCode::Holds(LexicalScan& oScan) {
  if (meReading == Reading::FirstBranch) return true;
  return EvaluateCondition(oScan, moNames, moPage).IsTrue();
}

// The first definition of a name stands: a second one is no legal code.
void ConditionalCode::Define(LexicalScan& oScan) {
  mbConstSeen = true;
  const Token oName = oScan.Next();
  if (!IsActive() || !oName.IsName() || !oScan.Next().IsMark('=')) return;
  Text sName = LowerCase(moPage.Decode(oName.sText));
  const CondValue oValue = EvaluateCondition(oScan, moNames, moPage);
  // It hides a constant of the project.
  if (moOwnNames.insert(sName).second) moNames[sName] = oValue;
}

std::int32_t ConditionalCode::Directive(LexicalScan& oScan, DirectiveKind kind, std::int32_t lLine,
                                        std::size_t lColumn) {
  oScan.Start(lLine, lColumn + 1);
  if (meReading == Reading::All || !oScan.NextStatement()) return oScan.LastLine();
  const bool isFirstOnly = meReading == Reading::FirstBranch;
  oScan.Next();  // the directive's own word
  switch (kind) {
    case DirectiveKind::If:
      Open(Holds(oScan));
      break;
    case DirectiveKind::ElseIf:
      Branch(!isFirstOnly && Holds(oScan));
      break;
    case DirectiveKind::Else:
      Branch(!isFirstOnly);
      break;
    case DirectiveKind::EndIf:
      Close();
      break;
    case DirectiveKind::Const:
      Define(oScan);
      break;
    case DirectiveKind::None:
    case DirectiveKind::Other:
      break;
  }
  return oScan.LastLine();
}
