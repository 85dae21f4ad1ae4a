#include "FSave.h"

#include "PathText.h"

namespace {

// Twips. Choices: a margin of 12 pixels, buttons of 97 by 29 that hold "Discard" on all renderers,
// and room for a dozen files with paths of some sixty letters.
constexpr std::int32_t lMargin = 180, lButtonWidth = 1455, lButtonHeight = 435;
constexpr std::int32_t lWidth = 7200, lHeight = 4200;

}  // namespace

FSave::FSave(Forms::Toolkit& oToolkit) : FDialog(oToolkit, u"FSave", u"FSave") {
  On(Resize, [this] { LayOut(); });
  On(cmdSave.Click, [this] { Answer(SaveAnswer::Save); });
  On(cmdDiscard.Click, [this] { Answer(SaveAnswer::Discard); });
  On(cmdCancel.Click, [this] { Answer(SaveAnswer::Cancel); });
}

void FSave::Design() {
  DesignWindow(u"Save Changes", lWidth, lHeight);
  lblPrompt.SetCaption(u"&These files have changes that aren't saved:");
  cmdSave.SetCaption(u"&Save");
  cmdDiscard.SetCaption(u"&Discard");
  cmdCancel.SetCaption(u"Cancel");
  cmdSave.SetDefault(true);
  cmdCancel.SetCancel(true);
}

// The room inside is known only when the window has its frame.
void FSave::LayOut() {
  const std::int32_t lInner = ScaleWidth() - 2 * lMargin;
  const std::int32_t lButtons = ScaleHeight() - lMargin - lButtonHeight;
  lblPrompt.Move(lMargin, lMargin, lInner, 285);
  lstFiles.Move(lMargin, lMargin + 345, lInner, lButtons - 2 * lMargin - 345);
  std::int32_t lLeft = lMargin + lInner - 3 * lButtonWidth - 2 * 120;
  for (Forms::CommandButton* po : {&cmdSave, &cmdDiscard, &cmdCancel}) {
    po->Move(lLeft, lButtons, lButtonWidth, lButtonHeight);
    lLeft += lButtonWidth + 120;
  }
}

SaveAnswer FSave::Display(const std::vector<std::string>& asPath) {
  meAnswer = SaveAnswer::Cancel;
  Load();
  for (const std::string& sPath : asPath) lstFiles.AddItem(TextOfPath(sPath));
  RunModal();
  const SaveAnswer eAnswer = meAnswer;
  Unload();
  return eAnswer;
}

void FSave::Answer(SaveAnswer eAnswer) {
  meAnswer = eAnswer;
  Hide();
}
