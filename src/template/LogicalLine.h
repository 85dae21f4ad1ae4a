// Walks physical lines as logical ones: a statement with its continuations is one step.
//
//   LogicalLines oLogical(asLine);
//   while (oLogical.Next()) Use(oLogical.Statement(), oLogical.First(), oLogical.Last());
#pragma once

#include <cstddef>
#include <span>

#include "Text.h"

/// Code in the form in which statements are classified: trimmed, lower case, each tab a blank.
Text FoldCode(TextView sCode);

class LogicalLines {
 public:
  /// The lines must outlive this object and may be changed only behind Last().
  explicit LogicalLines(std::span<const Text> asLine) : masLine(asLine) {}

  /// Goes to the next logical line; false behind the last.
  bool Next();
  /// Its text: continuations joined, comment and literals cut, folded.
  TextView Statement() const { return msStatement; }
  /// Indices from 0 of its first and last physical line.
  std::size_t First() const { return mlFirst; }
  std::size_t Last() const { return mlNext - 1; }

 private:
  std::span<const Text> masLine;
  std::size_t mlFirst = 0;
  std::size_t mlNext = 0;
  Text msStatement;
};
