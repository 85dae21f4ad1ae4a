// The text of one procedure, or of one declarations section, as lines. Each line is kept as it is
// written and in the form in which lines are compared; both are made once, when the text is taken
// apart, and lines that a rewrite keeps pass from one ProcText to the next as they are.
//
//   ProcText code(text);
//   code.Line(0)     // Public Sub  Load()
//   code.Folded(0)   // public sub load()
//
// Lines count from 0. None is lost: n line ends make n + 1 lines, and the empty text has none.
// Lines are views into the text that was given, which must outlive them, or into lines that this
// object keeps itself.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "Text.h"

/// For Continues only: the same for a line that ends in an underscore, a blank or a tab.
bool ContinuesInFull(TextView line);
/// True when the line goes on in the next one: a blank or tab and an underscore at its end,
/// outside a literal. In a comment it counts as well.
inline bool Continues(TextView line) {
  if (line.empty()) return false;
  const char16_t last = line.back();
  return (last == u'_' || last == u' ' || last == u'\t') && ContinuesInFull(line);
}
/// Position from 0 of the line's comment, by an apostrophe or by Rem at the start of a statement;
/// the line's length when it has none.
std::size_t CommentStart(TextView line);
bool IsBlank(TextView line);
/// Without the blanks and tabs at both ends.
TextView TrimWhite(TextView text);

class ProcText {
 public:
  ProcText() = default;
  explicit ProcText(TextView text);
  ProcText(ProcText&&) = default;
  ProcText& operator=(ProcText&&) = default;

  std::size_t Count() const { return mLines.size(); }
  TextView Line(std::size_t i) const { return mLines[i].text; }
  /// FullTrim, lower case.
  TextView Folded(std::size_t i) const { return mLines[i].folded; }
  /// True when line i is the second or a later physical line of a statement or comment.
  bool IsContinued(std::size_t i) const { return i > 0 && Continues(mLines[i - 1].text); }
  /// False when the line holds no colon and no apostrophe: what it says is one statement, or
  /// nothing but a comment that begins with Rem.
  bool MayHoldMore(std::size_t i) const { return mLines[i].mayHoldMore; }
  /// True when one of the folded lines first up to and not including end may hold the text, which
  /// is lower case and no blank: false for most texts that aren't there, at a fraction of the time
  /// of a look at each line.
  bool MayHold(std::size_t first, std::size_t end, TextView lower) const;
  /// False only when no line holds the sign of a compiler directive.
  bool MayHoldDirective() const { return mMayHoldDirective; }
  /// As the function of that name, for line i.
  std::size_t CommentOf(std::size_t i) const;
  /// Where the run of lines that stand one behind the other in the given text ends: the index
  /// behind it. All of the run is one stretch of that text.
  std::size_t RunEnd(std::size_t first, std::size_t end) const;

  /// Index of the line of `source` that line i was made from, when this text is that one with lines
  /// taken out and others shortened at their beginning; Count() of source when none is found.
  std::size_t LineIn(const ProcText& source, std::size_t i) const;

  /// Takes over lines first up to and not including end. The other text must outlive this one.
  void Keep(const ProcText& other, std::size_t first, std::size_t end);
  /// Takes a copy of one line.
  void Add(TextView line);
  /// Drops the empty lines at the end and gives their number.
  std::size_t CutEmptyTail();
  /// The lines joined by CR LF; no lines give the empty text.
  Text Joined() const;
  /// Units of all lines together with their line ends.
  std::size_t Units() const;

 private:
  struct Entry {
    TextView text;
    TextView folded;
    bool given;  ///< a view into the text that was taken apart, not a line of our own
    bool mayHoldMore;
  };

  /// Room for so many units, for as long as this object lives.
  char16_t* Room(std::size_t units);

  /// Takes over a line of the given text. lower: the line in lower case, in room of our own.
  void AddGiven(TextView line, char16_t* lower, bool mayHoldMore, bool isTidy);

  std::vector<Entry> mLines;
  std::vector<std::unique_ptr<char16_t[]>> mBlocks;
  char16_t* mRoom = nullptr;  ///< what is left of the last block
  std::size_t mFree = 0;
  bool mMayHoldDirective = false;
};
