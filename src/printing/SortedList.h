// A list in the order of a sorted list box: by text, without regard to letter case, other signs
// ahead of digits and digits ahead of letters, letters with accents among those without. Equal
// texts stay in the order in which they were added.
//
//   SortedList oList;
//   oList.AddItem(u"modMain", hComponent.Number());
//   for (const std::int32_t lNumber : oList.ItemData()) ...
#pragma once

#include <cstdint>
#include <vector>

#include "Text.h"

class SortedList {
 public:
  void AddItem(TextView sText, std::int32_t lItemData);
  /// The numbers that were added, in the order of their texts.
  std::vector<std::int32_t> ItemData() const;

 private:
  struct Item {
    Text sPrimary, sSecondary;
    std::int32_t lItemData;
  };
  std::vector<Item> moItems;
};
