#include "RulesPage.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "CXLookup.h"
#include "MQuillon.h"
#include "Put.h"

using namespace Forms;

namespace RulesPage {

namespace {

void Fill(ComboBox& oCombo, const CXLookup* poLookup, TextView sName, std::int32_t lId) {
  oCombo.Clear();
  if (poLookup) poLookup->LoadListBox(oCombo, sName, lId);
}

}  // namespace

void Place(Label& oLabel, TextView sCaption, ComboBox& oCombo, std::int32_t lTop) {
  Put(oLabel, sCaption, {120, lTop + 60, 900, 240});
  oCombo.Move(1050, lTop, 1620, 330);
}

void Enable(Label& oLabel, ComboBox& oCombo, bool bEnabled) {
  oLabel.SetEnabled(bEnabled);
  oCombo.SetEnabled(bEnabled);
}

void FillNames(ComboBox& oCombo, const CXLookup* poLookup, TextView sName) {
  constexpr std::int32_t eNoId = -1;
  Fill(oCombo, poLookup, sName.empty() ? MQuillon::NoneName : sName, eNoId);
}

void FillIds(ComboBox& oCombo, const CXLookup* poLookup, std::int32_t lId) {
  constexpr TextView sNoName = u"\n";  // no entry has this name; the empty text could be one
  Fill(oCombo, poLookup, sNoName, lId);
}

void ReadName(const ComboBox& oCombo, Text& sName) {
  if (oCombo.ListIndex() < 0) return;
  sName = oCombo.Text() == MQuillon::NoneName ? Text() : oCombo.Text();
}

std::int32_t NumberAtStart(TextView sText) {
  using Limits = std::numeric_limits<std::int32_t>;
  constexpr std::size_t lEnough = 30;  // digits: beyond 32 bits, well within a double
  std::string sNumber = ToUtf8(LeftTrim(sText).substr(0, lEnough));
  if (sNumber.starts_with('+')) sNumber.erase(0, 1);
  // The library would also read "inf" and "nan", which aren't numbers here.
  if (sNumber.find_first_of("0123456789") > 2) return 0;
  double dNumber = 0;
  std::from_chars(sNumber.data(), sNumber.data() + sNumber.size(), dNumber,
                  std::chars_format::fixed);
  return static_cast<std::int32_t>(
      std::nearbyint(std::clamp<double>(dNumber, Limits::min(), Limits::max())));
}

}  // namespace RulesPage
