#include "TextBox.h"

#include <algorithm>

#include "Form.h"
#include "TextOrder.h"
#include "Toolkit.h"

namespace Forms {

namespace {

std::int32_t Length(TextView sText) {
  return static_cast<std::int32_t>(sText.size());
}

/// By how many units an edit exceeds the limit. They are taken out directly ahead of the caret,
/// where the user's input ends: never more than that input, and never half of a line end or of a
/// surrogate pair.
std::int32_t Overrun(TextView sOld, TextView sNew, std::int32_t lCaret, std::int32_t lMaxLength) {
  const std::int32_t lOver = Length(sNew) - lMaxLength;
  if (lMaxLength <= 0 || lOver <= 0) return 0;
  const auto lBehind = std::min(sOld.size(), sNew.size() - static_cast<std::size_t>(lCaret));
  const TextView sAhead = sNew.substr(0, static_cast<std::size_t>(lCaret));
  const auto it = std::mismatch(sOld.begin(), sOld.end() - static_cast<std::ptrdiff_t>(lBehind),
                                sAhead.begin(), sAhead.end());
  const auto lPutIn = static_cast<std::int32_t>(sAhead.end() - it.second);
  if (lOver >= lPutIn) return lPutIn;
  const char16_t cLast = sAhead[sAhead.size() - static_cast<std::size_t>(lOver) - 1];
  return cLast == u'\r' || (cLast & 0xFC00) == 0xD800 ? lOver + 1 : lOver;
}

}  // namespace

void TextBox::SetText(TextView sText) {
  Touch();
  MoveCaret(0);
  if (Set(mo.sText, sText, Property::Text)) Raise(Change);
}

void TextBox::MoveCaret(std::int32_t lStart) {
  mo.lSelStart = lStart;
  mo.lSelLength = 0;
  Changed(Property::Selection);
}

void TextBox::SetSelStart(std::int32_t lStart) {
  Touch();
  MoveCaret(std::clamp(lStart, 0, Length(mo.sText)));
}

void TextBox::SetSelLength(std::int32_t lLength) {
  Touch();
  Set(mo.lSelLength, std::clamp(lLength, 0, Length(mo.sText) - mo.lSelStart), Property::Selection);
}

::Text TextBox::SelText() const {
  return mo.sText.substr(static_cast<std::size_t>(mo.lSelStart),
                         static_cast<std::size_t>(mo.lSelLength));
}

void TextBox::SetSelText(TextView sText) {
  Touch();
  const bool bNew = SelText() != sText;
  mo.sText.replace(static_cast<std::size_t>(mo.lSelStart), static_cast<std::size_t>(mo.lSelLength),
                   sText);
  if (bNew) Changed(Property::Text);
  MoveCaret(mo.lSelStart + Length(sText));
  if (bNew) Raise(Change);
}

bool TextBox::UserReplace(TextView sText) {
  if (!UserEnabled() || mo.bLocked) return false;
  if (!mo.bMultiLine) sText = sText.substr(0, sText.find_first_of(u"\r\n"));
  if (mo.lMaxLength > 0) {
    const std::int32_t lRoom = mo.lMaxLength - Length(mo.sText) + mo.lSelLength;
    sText = sText.substr(0, static_cast<std::size_t>(std::max(0, lRoom)));
  }
  SetSelText(sText);
  return true;
}

bool TextBox::UserText(TextView sText, std::int32_t lSelStart, std::int32_t lSelLength) {
  if (!UserEnabled() || mo.bLocked) {
    Changed(Property::Text);
    return false;
  }
  lSelStart = std::clamp(lSelStart, 0, Length(sText));
  const std::int32_t lOver = Overrun(mo.sText, sText, lSelStart, mo.lMaxLength);
  const ::Text sKept = ::Text(sText).erase(static_cast<std::size_t>(lSelStart - lOver),
                                           static_cast<std::size_t>(lOver));
  const bool bNew = mo.sText != sKept;
  mo.sText = sKept;
  mo.lSelStart = lSelStart - lOver;
  mo.lSelLength = std::clamp(lSelLength, 0, Length(sKept) - mo.lSelStart);
  // The peer isn't told of a text that it shows already.
  if (lOver > 0) Changed(Property::Text);
  if (bNew) Raise(Change);
  return true;
}

bool TextBox::UserSelection(std::int32_t lSelStart, std::int32_t lSelLength) {
  if (!UserEnabled()) return false;
  SetSelStart(lSelStart);
  SetSelLength(lSelLength);
  return true;
}

bool TextBox::UserCopy() {
  if (!UserEnabled() || mo.lSelLength == 0) return false;
  Kit().Clipboard().SetText(SelText());
  return true;
}

bool TextBox::UserCut() {
  return !mo.bLocked && UserCopy() && UserReplace({});
}
bool TextBox::UserPaste() {
  return UserReplace(Kit().Clipboard().GetText());
}

void TextBox::KeyAction(std::int32_t nKeyCode, std::int32_t nShift) {
  const bool bCtrl = nShift == Shift::Ctrl;
  if (bCtrl && nKeyCode == u'X') {
    UserCut();
  } else if (bCtrl && nKeyCode == u'C') {
    UserCopy();
  } else if ((bCtrl && nKeyCode == u'V') || (nShift == Shift::Shift && nKeyCode == Key::Insert)) {
    UserPaste();
  } else if (bCtrl && nKeyCode == u'A') {
    UserSelection(0, Length(mo.sText));
  } else if (nKeyCode == Key::Back || nKeyCode == Key::Delete) {
    if (mo.lSelLength == 0 && nKeyCode == Key::Back && mo.lSelStart == 0) return;
    if (mo.lSelLength == 0) UserSelection(mo.lSelStart - (nKeyCode == Key::Back ? 1 : 0), 1);
    UserReplace({});
  } else {
    SetSelStart(MovedIndex(nKeyCode, mo.lSelStart, 0, Length(mo.sText), true));
  }
}

void TextBox::CharAction(std::int32_t nCharacter) {
  const auto cUnit = static_cast<char16_t>(nCharacter);
  if (nCharacter == Key::Return && mo.bMultiLine) UserReplace(CrLf);
  if (nCharacter >= Key::Space) UserReplace({&cUnit, 1});
}

}  // namespace Forms
