#include "CodePane.h"

#include <algorithm>

#include "Failure.h"
#include "Form.h"
#include "TextOrder.h"
#include "Toolkit.h"

namespace Forms {

namespace {

/// Splits at each CR LF, LF or CR; a line end at the very end makes no further line.
std::vector<Text> Split(TextView sText) {
  std::vector<Text> asLine;
  for (std::size_t lAt = 0; lAt < sText.size();) {
    const std::size_t lEnd = std::min(sText.find_first_of(u"\r\n", lAt), sText.size());
    asLine.emplace_back(sText.substr(lAt, lEnd - lAt));
    lAt = lEnd + (sText.substr(lEnd, 2) == CrLf ? 2 : 1);
  }
  return asLine;
}

}  // namespace

ControlState CodePane::DefaultState() const {
  ControlState oState = FieldDefaults();
  oState.oFont.sName = u"Courier New";
  return oState;
}

std::size_t CodePane::At(std::int32_t lLine) const {
  if (lLine < 1 || lLine > LineCount()) throw Failure(5);
  return static_cast<std::size_t>(lLine) - 1;
}

void CodePane::SetText(TextView sText) {
  CodePaneState oNew;
  oNew.sText = sText;
  oNew.asLine = Split(sText);
  oNew.aoLook.resize(oNew.asLine.size());
  Show(std::move(oNew));
}

void CodePane::SetLines(const std::vector<CodeLine>& lines) {
  CodePaneState content;
  for (const CodeLine& line : lines) {
    ::Text& shown = content.asLine.emplace_back(line.text);
    std::replace(shown.begin(), shown.end(), u'\r', u'\u240D');
    std::replace(shown.begin(), shown.end(), u'\n', u'\u240A');
    content.aoLook.push_back({line.mark, true, line.number});
    if (&line != &lines.front()) content.sText += CrLf;
    content.sText += shown;
  }
  Show(std::move(content));
}

void CodePane::Show(CodePaneState content) {
  Touch();
  content.bLineNumbers = mo.bLineNumbers;
  mo = std::move(content);
  Changed(Property::Items);
}

const Text& CodePane::Line(std::int32_t lLine) const {
  return mo.asLine[At(lLine)];
}
LineMark CodePane::Mark(std::int32_t lLine) const {
  return mo.aoLook[At(lLine)].eMark;
}

void CodePane::SetMark(std::int32_t lLine, LineMark eMark) {
  Touch();
  mo.aoLook[At(lLine)].eMark = eMark;
  Changed(Property::Items, lLine);
}

Text CodePane::LineNumber(std::int32_t lLine) const {
  const LineLook& oLook = mo.aoLook[At(lLine)];
  return oLook.bNumberSet ? oLook.sNumber : ToText(lLine);
}

void CodePane::SetLineNumber(std::int32_t lLine, TextView sNumber) {
  Touch();
  LineLook& oLook = mo.aoLook[At(lLine)];
  oLook.sNumber = sNumber;
  oLook.bNumberSet = true;
  Changed(Property::Items, lLine);
}

void CodePane::SetTopLine(std::int32_t lLine) {
  Touch();
  Set(mo.lTopLine, std::clamp(lLine, 1, std::max(1, LineCount())), Property::Scroll);
}

Text CodePane::SelText() const {
  ::Text sText;
  for (std::int32_t i = mo.lSelStartLine; i >= 1 && i <= mo.lSelEndLine; ++i) {
    if (i > mo.lSelStartLine) sText += CrLf;
    sText += Line(i);
  }
  return sText;
}

bool CodePane::UserSelectLines(std::int32_t lFirst, std::int32_t lLast) {
  if (!UserEnabled() || lFirst < 1 || lLast < lFirst || lLast > LineCount()) return false;
  UserFocus();
  mo.lSelStartLine = lFirst;
  mo.lSelEndLine = lLast;
  Changed(Property::Selection);
  return true;
}

bool CodePane::UserTopLine(std::int32_t lLine) {
  if (!UserEnabled()) return false;
  SetTopLine(lLine);
  return true;
}

bool CodePane::UserCopy() {
  if (!UserEnabled() || mo.lSelStartLine == 0) return false;
  Kit().Clipboard().SetText(SelText());
  return true;
}

void CodePane::KeyAction(std::int32_t nKeyCode, std::int32_t nShift) {
  if (nShift == Shift::Ctrl && nKeyCode == u'A') UserSelectLines(1, LineCount());
  if (nShift == Shift::Ctrl && nKeyCode == u'C') UserCopy();
  SetTopLine(MovedIndex(nKeyCode, mo.lTopLine, 1, LineCount()));
}

}  // namespace Forms
