// Read-only text with line numbers and marked lines: source code, or a difference between two
// texts. Lines count from 1.
#pragma once

#include "Control.h"
#include "LineDifferences.h"

namespace Forms {

/// How a line is drawn. Added and Removed are those of a difference.
enum class LineMark { None, Added, Removed, Heading, Current };

/// How the line of a difference is drawn.
inline LineMark MarkOf(LineFate fate) {
  if (fate == LineFate::Stays) return LineMark::None;
  return fate == LineFate::Goes ? LineMark::Removed : LineMark::Added;
}

struct LineLook {
  LineMark eMark = LineMark::None;
  bool bNumberSet = false;
  Text sNumber;
};

/// A line with all that is shown of it.
struct CodeLine {
  LineMark mark = LineMark::None;
  Text number;  ///< what stands before the line: its number, a sign or nothing
  Text text;
  bool operator==(const CodeLine&) const = default;
};

struct CodePaneState {
  Text sText;
  std::vector<Text> asLine;
  std::vector<LineLook> aoLook;  ///< one for each line
  bool bLineNumbers = true;
  std::int32_t lTopLine = 1, lSelStartLine = 0, lSelEndLine = 0;
};

class CodePane : public WithState<Control, CodePaneState> {
 public:
  CodePane(ControlContainer& oContainer, TextView sName) : WithState(oContainer, sName) { Reset(); }
  ComponentKind Kind() const override { return ComponentKind::CodePane; }

  const ::Text& Text() const { return mo.sText; }
  /// Lines end in CR LF, LF or CR. Takes all marks, numbers and the selection away and shows the
  /// first line.
  void SetText(TextView sText);
  /// The same from lines with their marks and numbers, one row each: a CR or LF inside of a line
  /// becomes the sign that stands for it (U+240D, U+240A).
  void SetLines(const std::vector<CodeLine>& lines);
  std::int32_t LineCount() const { return static_cast<std::int32_t>(mo.asLine.size()); }
  /// Failure 5 outside 1 to LineCount, here and below.
  const ::Text& Line(std::int32_t lLine) const;
  LineMark Mark(std::int32_t lLine) const;
  void SetMark(std::int32_t lLine, LineMark eMark);
  bool LineNumbers() const { return mo.bLineNumbers; }
  void SetLineNumbers(bool b) { Set(mo.bLineNumbers, b, Property::Items); }
  /// What is shown before the line; by default its number.
  ::Text LineNumber(std::int32_t lLine) const;
  void SetLineNumber(std::int32_t lLine, TextView sNumber);
  /// The first line in view; held inside the text.
  std::int32_t TopLine() const { return mo.lTopLine; }
  void SetTopLine(std::int32_t lLine);
  /// First and last selected line; 0 and 0 for none.
  std::int32_t SelStartLine() const { return mo.lSelStartLine; }
  std::int32_t SelEndLine() const { return mo.lSelEndLine; }
  /// The selected lines, joined by CR LF.
  ::Text SelText() const;

  /// The user selected whole lines.
  bool UserSelectLines(std::int32_t lFirst, std::int32_t lLast);
  bool UserTopLine(std::int32_t lLine);
  bool UserCopy();

 protected:
  ControlState DefaultState() const override;
  /// Up, Down, Home and End scroll; Ctrl+A selects all lines, Ctrl+C copies.
  void KeyAction(std::int32_t nKeyCode, std::int32_t nShift) override;

 private:
  void Show(CodePaneState content);
  std::size_t At(std::int32_t lLine) const;
};

}  // namespace Forms
