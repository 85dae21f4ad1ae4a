#include "FOptions.h"

#include <cmath>
#include <iterator>

#include "CXChooseFont.h"
#include "Guard.h"
#include "MXHTMLHelp.h"
#include "Put.h"

using namespace Forms;

namespace {

constexpr std::int32_t HelpContext = 2300;
constexpr double LargestFont = 1638;  // the limit of Windows' font dialogs

MOptions::Font* const apoOption[] = {&MOptions::oCodeFont, &MOptions::oResultsFont,
                                     &MOptions::oErrorFont};

/// Points with as many decimals, up to two, as the size has.
Text SizeText(double dSize) {
  const auto lHundredths = std::llround(dSize * 100);
  Text sSize = ToText(lHundredths / 100);
  if (const auto lRest = lHundredths % 100; lRest != 0) {
    sSize += u"." + ToText(lRest / 10) + (lRest % 10 == 0 ? Text() : ToText(lRest % 10));
  }
  return sSize;
}

}  // namespace

FontBox::FontBox(ControlContainer& oContainer)
    : fraFont(oContainer, u"fraFont"), lblFont(fraFont, u"lblFont"), cmdFont(fraFont, u"cmdFont") {
  cmdFont.On(cmdFont.Click, [this] { cmdFont_Click(); });
}

void FontBox::Design(TextView sCaption, std::int32_t lTop) {
  Put(fraFont, sCaption, {120, lTop, 5640, 900});
  lblFont.SetUseMnemonic(false);
  lblFont.SetWordWrap(false);
  lblFont.Move(150, 300, 4080, 510);
  Put(cmdFont, u"Change...", {4320, 300, 1200, 420});
}

void FontBox::Fill(const MOptions::Font& oOption) {
  moFont = {};
  moFont.sName = oOption.sFace;
  if (oOption.lSize >= 1 && oOption.lSize <= LargestFont) moFont.dSize = oOption.lSize;
  moFont.bBold = oOption.bBold;
  moFont.bItalic = oOption.bItalic;
  moFont.lWeight = oOption.bBold ? 700 : 400;
  ShowSample();
}

void FontBox::Read(MOptions::Font& oOption) const {
  oOption = {moFont.sName, static_cast<std::int32_t>(std::nearbyint(moFont.dSize)), moFont.bBold,
             moFont.bItalic};
}

void FontBox::ShowSample() {
  if (lblFont.Kit().Renderer().HasFont(moFont.sName)) lblFont.SetFontName(moFont.sName);
  lblFont.SetFontSize(moFont.dSize);
  lblFont.SetFontBold(moFont.bBold);
  lblFont.SetFontItalic(moFont.bItalic);
  lblFont.SetCaption(moFont.sName + u"  " + SizeText(moFont.dSize) + u" pt");
}

void FontBox::cmdFont_Click() {
  // A failure of the font dialog is reported, and the options stay open.
  Guard({u"FOptions", u"cmdFont_Click", ErrorIds::BoundaryVB}, [this](GuardScope&) {
    CXChooseFont oChoose(cmdFont.Kit());
    oChoose.Dialog = &cmdFont.Parent();
    oChoose.OFont = moFont;
    if (!oChoose.Show()) return;
    moFont = *oChoose.OFont;
    ShowSample();
  });
}

FOptions::FOptions(Toolkit& oToolkit) : FOptionSheet(oToolkit, u"FOptions") {
  On(OnLoad, [this] { PlacePage(fraOption); });
}

void FOptions::Design() {
  DesignSheet(u"Options", {u"&General"});
  SetHelpContextID(HelpContext);
  tabOption.SetHelpContextID(HelpContext);
  fraOption.SetBorder(false);
  aoFont[0].Design(u"&Code Font", 60);
  aoFont[1].Design(u"&Results Font", 1000);
  aoFont[2].Design(u"&Errors Font", 1940);
}

bool FOptions::Display() {
  Load();
  for (std::size_t i = 0; i < std::size(aoFont); ++i) aoFont[i].Fill(*apoOption[i]);
  const bool bAccepted = ShowSheet();
  if (bAccepted) {
    for (std::size_t i = 0; i < std::size(aoFont); ++i) aoFont[i].Read(*apoOption[i]);
    MOptions::SetOptions();
  }
  Unload();
  return bAccepted;
}
