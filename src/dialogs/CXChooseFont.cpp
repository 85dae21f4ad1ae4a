#include "CXChooseFont.h"

#include <algorithm>

#include "CommonDialogFailure.h"

using namespace Forms;

namespace {

constexpr std::int32_t LargestSize = 144;

}  // namespace

bool CXChooseFont::Show() {
  if (MinSize != 0 && MaxSize < MinSize) MaxSize = LargestSize;
  FontDialog oDialog;
  oDialog.poOwner = Dialog;
  oDialog.oFont = OFont.value_or(FontSpec{});
  oDialog.lColor = OColor;
  oDialog.bFixedOnly = FixedOnly;
  oDialog.bTrueTypeOnly = TrueTypeOnly;
  oDialog.bEffects = Effects;
  oDialog.bScript = Script;
  oDialog.bScreen = Screen;
  oDialog.bPrinter = Printer;
  oDialog.lMinSize = std::max(MinSize, 0);
  oDialog.lMaxSize = std::max(MaxSize, 0);
  if (!WasConfirmed(moToolkit.ChooseFont(oDialog))) return false;
  OFont = oDialog.oFont;
  OColor = oDialog.lColor;
  return true;
}
