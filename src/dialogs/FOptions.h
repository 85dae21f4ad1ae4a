// The options: the fonts of the code, the results and the errors, each shown by a sample.
#pragma once

#include "FOptionSheet.h"
#include "Label.h"
#include "MOptions.h"

/// The frame of one font: a sample that tells its face and size, and the button that changes it.
class FontBox {
 public:
  explicit FontBox(Forms::ControlContainer& oContainer);
  /// lTop: its place on the container, in twips.
  void Design(TextView sCaption, std::int32_t lTop);
  void Fill(const MOptions::Font& oOption);
  void Read(MOptions::Font& oOption) const;

  Forms::Frame fraFont;
  Forms::Label lblFont;
  Forms::CommandButton cmdFont;

 private:
  void cmdFont_Click();
  void ShowSample();

  /// Kept apart from the sample, because a label can't have a face that isn't installed.
  Forms::FontSpec moFont;
};

class FOptions : public FOptionSheet {
 public:
  explicit FOptions(Forms::Toolkit& oToolkit);
  /// True when the user left it with OK: then the options have changed and are stored.
  bool Display();

  Forms::Frame fraOption{*this, u"fraOption"};
  /// 0 code, 1 results, 2 errors.
  FontBox aoFont[3] = {FontBox(fraOption), FontBox(fraOption), FontBox(fraOption)};

 private:
  void Design() override;
};
