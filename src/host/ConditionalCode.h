// Conditional compilation: which lines of a module are active. The state at a line is a number
// that stands for the whole stack of open #If blocks; equal numbers, equal stacks. So a scan can
// start again at a line in the middle, and tell whether it arrives at the same state as before.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "CondValue.h"
#include "Directive.h"
#include "LexicalScan.h"
#include "SourceDocument.h"

/// What the language itself defines; names in lower case.
struct PredefinedConstant {
  TextView name;
  std::int32_t value;
};
inline constexpr PredefinedConstant PredefinedConstants[] = {
    {u"win32", -1}, {u"win16", 0}, {u"vba6", -1}};

class ConditionalCode {
 public:
  /// How directives are read: by the values of the constants; always the first branch; or not at
  /// all, so that every line is active (for a module whose directives don't pair).
  enum class Reading { Values, FirstBranch, All };

  ConditionalCode(const std::vector<CondConstant>& oConstants, const CodePage& oPage);

  /// Forgets the module's own constants and all open blocks.
  void Reset(Reading eReading);
  Reading Mode() const { return meReading; }

  std::int32_t State() const { return mlState; }
  void SetState(std::int32_t lState) { mlState = lState; }
  bool IsActive() const { return Now().bActive; }
  /// False when a directive came without its #If, or one is still open.
  bool IsSound() const { return mbSound && mlState == 0; }

  /// True when a directive came without its #If.
  bool HasOrphan() const { return !mbSound; }

  /// Takes a directive line whose "#" stands at lColumn (from 0). Gives its last physical line.
  std::int32_t Directive(LexicalScan& oScan, DirectiveKind kind, std::int32_t lLine,
                         std::size_t lColumn);
  /// True when #Const was met since this was last asked: what was known before may be void.
  bool TakeConstSeen();

 private:
  struct Node {
    std::int32_t lParent;
    bool bActive;
    bool bTaken;  // a branch of this block was active, or none may be
    std::array<std::int32_t, 4> alChild;
  };

  const Node& Now() const { return moNode[static_cast<std::size_t>(mlState)]; }
  void Enter(std::int32_t lParent, bool bActive, bool bTaken);
  void Open(bool bCondition);
  void Branch(bool bCondition);
  void Close();
  void Define(LexicalScan& oScan);
  bool Holds(LexicalScan& oScan);

  const CodePage& moPage;
  CondNames moProject;
  CondNames moNames;
  std::unordered_set<Text> moOwnNames;  // of #Const
  std::vector<Node> moNode;
  std::int32_t mlState = 0;
  Reading meReading = Reading::Values;
  bool mbSound = true;
  bool mbConstSeen = false;
};
