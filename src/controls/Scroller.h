// A pane of text to which lines are only appended. Once it holds more than 32000 characters, its
// oldest text is removed in blocks of 1024, so that the cost of appending doesn't grow. A cut may
// be in the middle of a line.
#pragma once

#include "TextBox.h"
#include "UserControl.h"

class Scroller : public Forms::UserControl {
 public:
  Scroller(Forms::ControlContainer& oContainer, TextView sName);

  /// Appends a line; the empty text is an empty line.
  void Add(TextView sText);
  void Clear();
  Text SelText() const { return txtScroller.SelText(); }
  std::int32_t SelLength() const { return txtScroller.SelLength(); }
  std::int32_t SelStart() const { return txtScroller.SelStart(); }
  // The font is the text's: these stand in for those of the control itself.
  void SetFontName(TextView sName) { txtScroller.SetFontName(sName); }
  void SetFontSize(double dPoints) { txtScroller.SetFontSize(dPoints); }
  void SetFontBold(bool bBold) { txtScroller.SetFontBold(bBold); }
  void SetFontItalic(bool bItalic) { txtScroller.SetFontItalic(bItalic); }

  void Reset() override;

 private:
  void Design() override;
  void CutOldest();

  /// Characters that the text box holds, counted here because asking would copy them.
  std::int32_t mlLength = 0;
  Forms::TextBox txtScroller{*this, u"txtScroller"};
};
