#include "BoxText.h"

namespace {

// Choices: a box of 20 rows stays well below the 768 pixels of a small screen.
constexpr std::size_t lRowsShown = 20, lRowWidth = 60;

/// An estimate of how many rows of a box the text takes.
std::size_t Rows(TextView sText) {
  std::size_t lRows = 0, lWidth = 0;
  for (const char16_t c : sText) {
    const bool bNew = c == u'\n' || ++lWidth > lRowWidth;
    lRows += bNew ? 1 : 0;
    lWidth = bNew ? 0 : lWidth;
  }
  return lRows;
}

}  // namespace

Text BoxList(const std::vector<Text>& asItem, TextView sBreak) {
  Text sList;
  std::size_t lShown = 0;
  for (std::size_t lRows = 0; lShown < asItem.size(); ++lShown) {
    const Text sNext = Text(sBreak) + asItem[lShown];
    lRows += Rows(sNext);
    if (lRows > lRowsShown && lShown > 0) break;
    sList += sNext;
  }
  if (lShown == asItem.size()) return sList;
  return sList.append(sBreak) + u"and " + ToText(static_cast<long long>(asItem.size() - lShown)) +
         u" more";
}
