// The text of one procedure as lines, and the places in it that every rewrite needs: the end of
// its head and its end line. Lines are views into the given text, from index 0, and none is lost:
// n line ends make n + 1 lines, so blank last lines are lines like any other.
//
//   ProcText oProc(sProcCode);
//   ProcPlaces oPlaces = FindPlaces(oProc, lBodyLine, u"Sub");
//   if (oPlaces.Refused()) ReportError(oPlaces.sRefusal);
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "Text.h"

/// True when the line goes on in the next one: a blank or tab and an underscore at its end,
/// outside a literal. In a comment it counts as well.
bool Continues(TextView sLine);
/// Position from 0 of the line's comment, by an apostrophe or by Rem at the start of a statement;
/// the line's length when it has none.
std::size_t CommentStart(TextView sLine);
bool IsBlank(TextView sLine);
/// Without the blanks and tabs at both ends.
TextView TrimWhite(TextView sText);

class ProcText {
 public:
  explicit ProcText(TextView sProcCode);

  /// Length of the text that was given.
  std::size_t Units() const { return mlUnits; }
  std::size_t Count() const { return moLines.size(); }
  TextView Line(std::size_t i) const { return moLines[i]; }
  const std::vector<TextView>& Lines() const { return moLines; }
  /// The form in which lines are compared: FullTrim, lower case. Made at construction.
  TextView Folded(std::size_t i) const {
    return {msFolded.data() + moFolds[i].lStart, moFolds[i].lLength};
  }
  bool Holds(char16_t cLower) const { return FindUnit(msFolded, cLower) != Text::npos; }
  /// True when line i is the second or a later physical line of a statement or comment.
  bool IsContinued(std::size_t i) const { return i > 0 && Continues(moLines[i - 1]); }

 private:
  struct Fold {
    std::uint32_t lStart, lLength;  // in msFolded
  };

  std::vector<TextView> moLines;
  std::size_t mlUnits = 0;
  Text msFolded;
  std::vector<Fold> moFolds;
};

/// Indices from 0. Empty refusal: the procedure can be rewritten.
struct ProcPlaces {
  std::size_t lFirstBody = 0;  ///< the line behind the head
  std::size_t lEnd = 0;        ///< the End line
  Text sRefusal;
  bool Refused() const { return !sRefusal.empty(); }
};

/// lBodyLine: from 1. sBaseType: Sub, Function or Property. Refuses a head that isn't there, a head
/// and end on one line, an end that is missing or written in another form than by itself on a
/// line, and unbalanced conditional compilation between head and end.
ProcPlaces FindPlaces(const ProcText& oProc, std::int32_t lBodyLine, TextView sBaseType);

/// Index of the line behind the head that begins at lBodyLine, or Count() when there is none.
std::size_t BehindHead(const ProcText& oProc, std::int32_t lBodyLine);
/// True when the head's own line holds the procedure's end as well.
bool HeadHoldsEnd(const ProcText& oProc, std::int32_t lBodyLine);
/// "Property" for a property, else the type itself; the kind behind "Property ", else empty.
TextView BaseType(TextView sProcType);
TextView PropertyKind(TextView sProcType);
/// Index behind the leading blanks, comments, Option and Def lines of a declarations section.
std::size_t BehindOptions(const ProcText& oProc);

/// Collects lines and joins them with CR LF; the last line gets no line end.
class LineWriter {
 public:
  void Add(TextView sLine) { NewLine().append(sLine); }
  /// Begins a line: the text to append it to, good until the next call.
  Text& NewLine() {
    if (mbAny) msText.append(CrLf);
    mbAny = true;
    return msText;
  }
  /// Lines from lFirst up to and not including lLast.
  void Add(const ProcText& oProc, std::size_t lFirst, std::size_t lLast) {
    for (std::size_t i = lFirst; i < lLast; ++i) Add(oProc.Line(i));
  }
  /// Text in which each line is followed by CR LF; the empty text adds nothing.
  void AddEnded(TextView sLines) {
    if (sLines.empty()) return;
    Add(sLines.substr(0, sLines.size() - CrLf.size()));
  }
  void Reserve(std::size_t lUnits) { msText.reserve(lUnits); }
  Text Take() { return std::move(msText); }
  bool Any() const { return mbAny; }

 private:
  Text msText;
  bool mbAny = false;
};
