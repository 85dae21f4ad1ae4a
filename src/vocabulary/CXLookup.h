// A small ordered table between a text (Item), a number (ItemData) and a second text
// (DisplayName). Entries count from 1; every search gives the first match.
// "(none)" as an Item is special: LookupItem gives the empty text for it.
#pragma once

#include <cstdint>
#include <vector>

#include "Text.h"

/// What a list box or combo box offers to LoadListBox.
class ILookupList {
 public:
  virtual ~ILookupList() = default;
  virtual void Clear() = 0;
  virtual void AddItem(TextView item) = 0;
  virtual std::int32_t NewIndex() const = 0;
  virtual void SetItemData(std::int32_t index, std::int32_t data) = 0;
  virtual void SetListIndex(std::int32_t index) = 0;
};

class CXLookup {
 public:
  void Add(TextView item, std::int32_t itemData, TextView displayName);
  std::int32_t Count() const { return static_cast<std::int32_t>(mEntries.size()); }
  /// Empty for an index below 1 or above Count.
  Text Item(std::int32_t index) const;
  /// As decimal text; empty for an index out of range.
  Text ItemData(std::int32_t index) const;
  Text LookupItem(std::int32_t itemData) const;
  Text LookupDisplayName(std::int32_t itemData) const;
  /// Without regard to case; 0 if there is none.
  std::int32_t LookupItemData(TextView item) const;
  bool ItemExists(TextView item) const;
  /// Fills the list and selects the last line that equals defaultItem (no case) or has
  /// defaultItemData; with none the list's selection stays.
  void LoadListBox(ILookupList& list, TextView defaultItem, std::int32_t defaultItemData) const;

 private:
  struct Entry {
    Text item;
    std::int32_t itemData;
    Text displayName;
  };
  std::vector<Entry> mEntries;
};
