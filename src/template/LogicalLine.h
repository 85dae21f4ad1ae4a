// Walks physical lines as logical ones: a statement with its continuations is one step.
//
//   LogicalLines logical(lines);
//   while (logical.Next()) Use(logical.Statement(), logical.First(), logical.Last());
#pragma once

#include <cstddef>
#include <span>

#include "Text.h"

/// Code in the form in which statements are classified: trimmed, lower case, each tab a blank.
Text FoldCode(TextView code);

class LogicalLines {
 public:
  /// The lines must outlive this object.
  explicit LogicalLines(std::span<const TextView> lines) : mLines(lines) {}

  /// Goes to the next logical line; false behind the last.
  bool Next();
  /// Its text: continuations joined, comment and literals cut, folded.
  TextView Statement() const { return mStatement; }
  /// Indices from 0 of its first and last physical line.
  std::size_t First() const { return mFirst; }
  std::size_t Last() const { return mNext - 1; }

 private:
  std::span<const TextView> mLines;
  std::size_t mFirst = 0;
  std::size_t mNext = 0;
  Text mStatement;
};
