// A most-recently-used list that keeps a parameter string beside each entry and saves itself in a
// registry key at every change. Entries count from 1; entry 1 is the most recent.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "CXParamString.h"
#include "Text.h"

class CXRecent {
 public:
  /// Reads the list of that key: "MaxCount", then the values 1, 2 and so on, gaps closing up,
  /// each with its "<i>_PropString".
  void Initialize(std::int32_t hReg);
  /// Moves or puts the item to the top, with its parameters, without regard to case. Gives 1.
  std::int32_t Add(TextView item);
  /// Empty when index is above the count.
  Text Property(std::int32_t index, TextView sName) const;
  /// index must exist, else Failure 9.
  void SetProperty(std::int32_t index, TextView sName, TextView sValue);
  Text Item(std::int32_t index) const;
  void Remove(std::int32_t index);
  std::int32_t MaxCount() const { return mMaxCount; }
  void SetMaxCount(std::int32_t maxCount);
  std::int32_t Count() const { return static_cast<std::int32_t>(mEntries.size()); }

 private:
  struct Entry {
    Text item;
    Text params;
  };

 public:
  /// The items, the most recent first; valid until the list changes.
  ///   for (const Text& file : RecentFiles()) ...
  class Iterator {
   public:
    explicit Iterator(const Entry* entry) : mEntry(entry) {}
    const Text& operator*() const { return mEntry->item; }
    Iterator& operator++() {
      ++mEntry;
      return *this;
    }
    bool operator==(const Iterator&) const = default;

   private:
    const Entry* mEntry;
  };
  Iterator begin() const { return Iterator(mEntries.data()); }
  Iterator end() const { return Iterator(mEntries.data() + mEntries.size()); }

 private:
  void CutAndSave();
  void SaveToRegistry();

  std::int32_t mhReg = 0;
  std::int32_t mMaxCount = 9;
  std::vector<Entry> mEntries;
};

/// The recent template files, key "FMain\Recent Files". Made at first use.
CXRecent& RecentFiles();
/// Forgets the list in memory, so that the next use reads the store again (tests, new store).
void ResetRecentFiles();
