#include "SortedList.h"

#include <algorithm>
#include <tuple>

namespace {

/// The plain letter under an accent, for lower-case letters of the western European alphabets;
/// others stay.
char16_t WithoutAccent(char16_t cLetter) {
  constexpr TextView FromDF = u"saaaaaaaceeeeiiiidnooooo\u00F7ouuuuyty";
  if (cLetter >= 0xDF && cLetter <= 0xFF) return FromDF[cLetter - 0xDFu];
  if (cLetter == 0x153) return u'o';
  if (cLetter == 0x161) return u's';
  return cLetter == 0x17E ? u'z' : cLetter;
}

bool IsDigit(char16_t c) {
  return c >= u'0' && c <= u'9';
}

bool IsLetter(char16_t c) {
  return (c >= u'a' && c <= u'z') || c >= 0xC0;
}

/// A text whose plain order by units is the wanted one: each unit with its class ahead of it.
Text KeyOf(TextView sLower) {
  Text sKey;
  for (const char16_t c : sLower) {
    sKey += IsLetter(c) ? u'2' : IsDigit(c) ? u'1' : u'0';
    sKey += WithoutAccent(c);
  }
  return sKey;
}

}  // namespace

void SortedList::AddItem(TextView sText, std::int32_t lItemData) {
  Text sLower = LowerCase(sText);
  Text sKey = KeyOf(sLower);
  moItems.push_back({std::move(sKey), std::move(sLower), lItemData});
}

std::vector<std::int32_t> SortedList::ItemData() const {
  std::vector<const Item*> oOrder;
  for (const Item& oItem : moItems) oOrder.push_back(&oItem);
  std::stable_sort(oOrder.begin(), oOrder.end(), [](const Item* poLeft, const Item* poRight) {
    return std::tie(poLeft->sPrimary, poLeft->sSecondary) <
           std::tie(poRight->sPrimary, poRight->sSecondary);
  });
  std::vector<std::int32_t> alData;
  for (const Item* poItem : oOrder) alData.push_back(poItem->lItemData);
  return alData;
}
