// The options: the fonts of the code, the results and the errors, each shown by a sample.
#pragma once

#include <array>
#include <memory>

#include "CommandButton.h"
#include "FDialog.h"
#include "Label.h"
#include "MOptions.h"
#include "TabStrip.h"

/// The frame of one font: a sample that tells its face and size, and the button that changes it.
class FontBox {
 public:
  FontBox(Forms::ControlContainer& oContainer, std::int32_t lIndex);
  void Design(TextView sCaption, std::int32_t lTop);
  void Fill(const MOptions::Font& oFont);
  void Read(MOptions::Font& oFont) const;
  /// Asks for another font.
  void Change();

  Forms::Frame fraFont;
  Forms::Label lblFont;
  Forms::CommandButton cmdFont;

 private:
  void ShowSample();

  /// The font by itself, since a label can't take a face that this machine doesn't have.
  Forms::FontSpec moFont;
};

class FOptions : public FDialog {
 public:
  explicit FOptions(Forms::Toolkit& oToolkit);
  /// True when the user left it with OK: then the options have changed and are stored.
  bool Display();

  /// Index: 0 code, 1 results, 2 errors.
  Forms::Label& lblFont(std::int32_t Index) { return Box(Index).lblFont; }
  Forms::CommandButton& cmdFont(std::int32_t Index) { return Box(Index).cmdFont; }

  Forms::TabStrip tabOption{*this, u"tabOption"};
  Forms::Frame fraOption{*this, u"fraOption"};

 private:
  FontBox aoBox[3] = {{fraOption, 0}, {fraOption, 1}, {fraOption, 2}};

 public:
  Forms::CommandButton cmdOK{*this, u"cmdOK"}, cmdCancel{*this, u"cmdCancel"},
      cmdHelp{*this, u"cmdHelp"};

 private:
  void Design() override;
  FontBox& Box(std::int32_t lIndex) { return aoBox[lIndex]; }
  void Accept();

  bool mbAccepted = false;
};
