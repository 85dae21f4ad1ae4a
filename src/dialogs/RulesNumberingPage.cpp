#include "RulesNumberingPage.h"

#include "Put.h"

using namespace Forms;
using RulesPage::NumberAtStart;

namespace {

/// Twips that a button or box takes ahead of its caption, and the margin of a text box in a gap.
/// Window systems differ from the first by about 50 in both directions; the margin allows for that.
constexpr std::int32_t lIndicator = 240, lMargin = 60;

/// The index of the button to turn on: the rule's number, or the default for a number that no
/// button has.
template <class Choice>
std::int32_t IndexOf(Choice eRule, Choice eDefault) {
  const std::int32_t lRule = MQuillon::ToNumber(eRule);
  return lRule >= 0 && lRule <= 2 ? lRule : MQuillon::ToNumber(eDefault);
}

/// Places the box over the run of blanks in the caption of oBeside.
void PlaceInGap(TextBox& oBox, const Control& oBeside, TextView sCaption) {
  const Text sPlain = PlainCaption(sCaption);
  const auto lGap = sPlain.find(u"  "), lBehind = sPlain.find_first_not_of(u' ', lGap);
  const ControlContainer& oFont = oBeside.Container();
  const std::int32_t lLeft = lIndicator + oFont.TextWidth(sPlain.substr(0, lGap));
  const std::int32_t lWidth = oFont.TextWidth(sPlain.substr(lGap, lBehind - lGap));
  oBox.Move(oBeside.Left() + lLeft + lMargin, oBeside.Top() + 15, lWidth - 2 * lMargin, 330);
}

}  // namespace

RulesNumberingPage::RulesNumberingPage(ControlContainer& oPage)
    : fraAction(oPage, u"fraAction"), fraWhat(oPage, u"fraWhat"), fraSkip(oPage, u"fraSkip") {
  Connect();
}

void RulesNumberingPage::Connect() {
  optAction.OnElement(
      [this](OptionButton& o) { o.On(o.Click, [this, &o] { lAction = o.Index(); }); });
  optWhat.OnElement(
      [this](OptionButton& o) { o.On(o.Click, [this, &o] { optWhat_Click(o.Index()); }); });
  chkSkipShort.On(chkSkipShort.Click, [this] { txtSkipShort.SetEnabled(chkSkipShort.Checked()); });
  txtWhatLines.On(txtWhatLines.KeyDown, [this](std::int32_t& KeyCode, std::int32_t nShift) {
    txtWhatLines_KeyDown(KeyCode, nShift);
  });
  txtWhatLines.On(txtWhatLines.KeyPress,
                  [this](std::int32_t& KeyAscii) { txtWhatLines_KeyPress(KeyAscii); });
}

void RulesNumberingPage::Design() {
  DesignOptions();
  DesignSkip();
}

void RulesNumberingPage::DesignOptions() {
  constexpr TextView asAction[] = {u"&Insert/Refresh", u"&Leave", u"&Remove"};
  constexpr TextView asWhat[] = {u"&Every Line", u"E&very          Lines",
                                 u"L&ogic Control Statements Only"};
  Put(fraAction, u"Line Numbering Action", {120, 60, 2190, 1410});
  Put(fraWhat, u"What to Line Number", {2430, 60, 3390, 1410});
  for (std::int32_t i = 0; i < 3; ++i) {
    Put(optAction(i), asAction[i], {150, 255 + i * 375, 1890, 360});
    Put(optWhat(i), asWhat[i], {150, 255 + i * 375, 3120, 360});
  }
}

void RulesNumberingPage::DesignSkip() {
  Put(fraSkip, u"What to Skip", {120, 1530, 5700, 1290});
  Put(chkSkipData, u"D&ata Declarations", {150, 240, 5400, 330});
  Put(chkSkipEnd, u"&Simple End Statements", {150, 570, 5400, 330});
  Put(chkSkipShort, u"Procedures s&horter than            Lines", {150, 900, 5400, 345});
  txtSkipShort.SetEnabled(false);
}

void RulesNumberingPage::PlaceInGaps() {
  PlaceInGap(txtWhatLines, optWhat(1), optWhat(1).Caption());
  PlaceInGap(txtSkipShort, chkSkipShort, chkSkipShort.Caption());
}

void RulesNumberingPage::Fill(const MRules::Values& oRules) {
  const MRules::Values oDefault;
  optAction(IndexOf(oRules.eLineNumAction, oDefault.eLineNumAction)).SetValue(true);
  optWhat(IndexOf(oRules.eLineNumWhat, oDefault.eLineNumWhat)).SetValue(true);
  txtWhatLines.SetText(ToText(oRules.lLineNumInterval));
  chkSkipData.SetChecked(oRules.bLineNumSkipData);
  chkSkipEnd.SetChecked(oRules.bLineNumSkipEnd);
  chkSkipShort.SetChecked(oRules.bLineNumSkipShort);
  txtSkipShort.SetText(ToText(oRules.lLineNumSkipShortSize));
}

void RulesNumberingPage::Read(MRules::Values& oRules) const {
  oRules.eLineNumAction = MQuillon::FromNumber<MQuillon::LineNumAction>(lAction);
  oRules.eLineNumWhat = MQuillon::FromNumber<MQuillon::LineNumWhat>(lWhat);
  oRules.lLineNumInterval = NumberAtStart(txtWhatLines.Text());
  oRules.bLineNumSkipData = chkSkipData.Checked();
  oRules.bLineNumSkipEnd = chkSkipEnd.Checked();
  oRules.bLineNumSkipShort = chkSkipShort.Checked();
  oRules.lLineNumSkipShortSize = NumberAtStart(txtSkipShort.Text());
}

void RulesNumberingPage::optWhat_Click(std::int32_t Index) {
  lWhat = Index;
  txtWhatLines.SetEnabled(Index == 1);
}

void RulesNumberingPage::txtWhatLines_KeyDown(std::int32_t& KeyCode, std::int32_t nShift) {
  const bool bPastes = (nShift == Shift::Ctrl && KeyCode == u'V') ||
                       (nShift == Shift::Shift && KeyCode == Key::Insert);
  if (bPastes) KeyCode = 0;
}

void RulesNumberingPage::txtWhatLines_KeyPress(std::int32_t& KeyAscii) {
  const bool bDigit = KeyAscii >= u'0' && KeyAscii <= u'9';
  // The key codes of Delete, Left and Right are those of the last three characters, so that these
  // characters are let through too.
  const bool bOther =
      KeyAscii == Key::Back || KeyAscii == u'.' || KeyAscii == u'%' || KeyAscii == u'\'';
  if (!bDigit && !bOther) KeyAscii = 0;
}
