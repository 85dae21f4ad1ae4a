// A text field of one or many lines. Positions count from 0; lines of a multi-line box are joined
// by CR LF.
#pragma once

#include "Control.h"
#include "Label.h"

namespace Forms {

enum class ScrollBars { None, Horizontal, Vertical, Both };

struct TextBoxState {
  Text sText;
  std::int32_t lSelStart = 0, lSelLength = 0, lMaxLength = 0;
  bool bLocked = false, bMultiLine = false;
  ScrollBars eScrollBars = ScrollBars::None;
  BorderStyle eBorder = BorderStyle::Single;
};

class TextBox : public WithState<Control, TextBoxState> {
 public:
  TextBox(ControlContainer& oContainer, TextView sName) : WithState(oContainer, sName) { Reset(); }
  ComponentKind Kind() const override { return ComponentKind::TextBox; }

  const ::Text& Text() const { return mo.sText; }
  /// Puts the caret at the start. Raises Change when the text differs.
  void SetText(TextView sText);
  std::int32_t SelStart() const { return mo.lSelStart; }
  /// Held inside the text; ends the selection.
  void SetSelStart(std::int32_t lStart);
  std::int32_t SelLength() const { return mo.lSelLength; }
  void SetSelLength(std::int32_t lLength);
  ::Text SelText() const;
  /// Replaces the selection and puts the caret behind it. Raises Change when the text differs.
  void SetSelText(TextView sText);
  /// The user can't change the text; code can.
  bool Locked() const { return mo.bLocked; }
  void SetLocked(bool b) { Set(mo.bLocked, b, Property::Locked); }
  /// What the user can type at most; 0 for no limit.
  std::int32_t MaxLength() const { return mo.lMaxLength; }
  void SetMaxLength(std::int32_t l) { Set(mo.lMaxLength, l, Property::Locked); }
  bool MultiLine() const { return mo.bMultiLine; }
  void SetMultiLine(bool b) { mo.bMultiLine = b; }  ///< design time
  Forms::ScrollBars ScrollBars() const { return mo.eScrollBars; }
  void SetScrollBars(Forms::ScrollBars e) { mo.eScrollBars = e; }  ///< design time
  Forms::BorderStyle BorderStyle() const { return mo.eBorder; }
  void SetBorderStyle(Forms::BorderStyle e) { mo.eBorder = e; }  ///< design time

  Signal<> Change;

  /// The native control's text after an edit of the user's, with the caret; raises Change. False
  /// for a locked box: the peer then has to show the old text again. What exceeds MaxLength is
  /// taken out of what the user put in.
  bool UserText(TextView sText, std::int32_t lSelStart, std::int32_t lSelLength = 0);
  bool UserSelection(std::int32_t lSelStart, std::int32_t lSelLength);
  /// The commands of the clipboard, as by Ctrl+X, Ctrl+C and Ctrl+V. A single-line box takes
  /// a pasted text up to its first line end.
  bool UserCut();
  bool UserCopy();
  bool UserPaste();

 protected:
  ControlState DefaultState() const override { return FieldDefaults(); }
  /// Ctrl+C, X, V and A, Shift+Insert, Back, Delete, Left, Right, Home and End.
  void KeyAction(std::int32_t nKeyCode, std::int32_t nShift) override;
  /// Inserts it; Return in a multi-line box is a line end.
  void CharAction(std::int32_t nCharacter) override;

 private:
  bool UserReplace(TextView sText);
  void MoveCaret(std::int32_t lStart);
};

}  // namespace Forms
