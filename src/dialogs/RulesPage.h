// One page of the rules' dialog: some of the rules as controls on a frame.
#pragma once

#include <cstdint>

#include "ComboBox.h"
#include "Label.h"
#include "MRules.h"

class CXLookup;

class IRulesPage {
 public:
  virtual ~IRulesPage() = default;
  /// Captions and places, in twips.
  virtual void Design() = 0;
  /// Puts the controls to the rules.
  virtual void Fill(const MRules::Values& oRules) = 0;
  /// Takes the rules of this page from the controls.
  virtual void Read(MRules::Values& oRules) const = 0;
};

namespace RulesPage {

/// A caption with the combo box that it names.
void Place(Forms::Label& oLabel, TextView sCaption, Forms::ComboBox& oCombo, std::int32_t lTop);
void Enable(Forms::Label& oLabel, Forms::ComboBox& oCombo, bool bEnabled);
/// Fills the box and picks the line of that name, or of that id. None is picked for a value that
/// the lookup doesn't have; reading such a box leaves the rule as it is. poLookup may be null.
void FillNames(Forms::ComboBox& oCombo, const CXLookup* poLookup, TextView sName);
void FillIds(Forms::ComboBox& oCombo, const CXLookup* poLookup, std::int32_t lId);
template <class Choice>
void FillIds(Forms::ComboBox& oCombo, const CXLookup* poLookup, Choice eValue) {
  FillIds(oCombo, poLookup, MQuillon::ToNumber(eValue));
}
/// "(none)" is read as the empty name.
void ReadName(const Forms::ComboBox& oCombo, Text& sName);
template <class Choice>
void ReadId(const Forms::ComboBox& oCombo, Choice& eValue) {
  if (oCombo.ListIndex() < 0) return;
  eValue = MQuillon::FromNumber<Choice>(oCombo.ItemData(oCombo.ListIndex()));
}
/// The number at the start of a text, rounded to a whole one and held to 32 bits; 0 without one.
/// Example: ` 2.6 lines` gives 3.
std::int32_t NumberAtStart(TextView sText);

}  // namespace RulesPage
