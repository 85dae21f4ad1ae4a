// The dialog that chooses a font.
//
//   CXChooseFont oChoose(App());
//   oChoose.Dialog = this;
//   oChoose.OFont = lblSample.Font();
//   if (oChoose.Show()) lblSample.SetFont(*oChoose.OFont);
#pragma once

#include <cstdint>
#include <optional>

#include "Toolkit.h"

class CXChooseFont {
 public:
  explicit CXChooseFont(Forms::Toolkit& oToolkit) : moToolkit(oToolkit) {}

  Forms::Form* Dialog = nullptr;  ///< the owner; null for none
  bool Screen = true, Printer = true, FixedOnly = false, TrueTypeOnly = false, Effects = false,
       Script = false;
  /// Points; below 1 for no limit. A MaxSize below a MinSize becomes 144.
  std::int32_t MinSize = 0, MaxSize = 0;
  /// To start on; when confirmed the chosen one, made when there was none.
  std::optional<Forms::FontSpec> OFont;
  Forms::Color OColor = 0;  ///< in and out

  /// True when the user confirmed. Failures as those of WasConfirmed.
  bool Show();

 private:
  Forms::Toolkit& moToolkit;
};
