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
  virtual void AddItem(TextView sItem) = 0;
  virtual std::int32_t NewIndex() const = 0;
  virtual void SetItemData(std::int32_t lIndex, std::int32_t lData) = 0;
  virtual void SetListIndex(std::int32_t lIndex) = 0;
};

class CXLookup {
 public:
  void Add(TextView sItem, std::int32_t lItemData, TextView sDisplayName);
  std::int32_t Count() const { return static_cast<std::int32_t>(moEntries.size()); }
  /// Empty for an index below 1 or above Count.
  Text Item(std::int32_t lIndex) const;
  /// As decimal text; empty for an index out of range.
  Text ItemData(std::int32_t lIndex) const;
  Text LookupItem(std::int32_t lItemData) const;
  Text LookupDisplayName(std::int32_t lItemData) const;
  /// Without regard to case; 0 if there is none.
  std::int32_t LookupItemData(TextView sItem) const;
  bool ItemExists(TextView sItem) const;
  /// Fills the list and selects the last line that equals sDefaultItem (no case) or has
  /// lDefaultItemData; with none the list's selection stays.
  void LoadListBox(ILookupList& oListBox, TextView sDefaultItem,
                   std::int32_t lDefaultItemData) const;

 private:
  struct Entry {
    Text sItem;
    std::int32_t lItemData;
    Text sDisplayName;
  };
  std::vector<Entry> moEntries;
};
