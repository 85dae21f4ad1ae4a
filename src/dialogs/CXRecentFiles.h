// The recent template files as items of a menu, newest first, at most nine. The list behind it is
// RecentFiles(), which keeps itself in the settings store.
//
//   oRecentFiles.Initialize(mnuFileRecent, hKey);
//   oRecentFiles.Add(sFile);
//
// The menu is an array whose element 0 stays as the form defines it. Elements 1 to 9 are made for
// the files: their Tag holds the full path, their caption what fits of it; element 10 is the
// separator below them.
#pragma once

#include <cstdint>

#include "ControlArray.h"
#include "Menu.h"

class CXRecentFiles {
 public:
  /// Puts the file to the top, with the parameters that it had, and shows the menu anew. Gives 1.
  std::int32_t Add(TextView sFile);
  /// Reads the list of the key hReg, makes the items that the array doesn't have yet, and shows
  /// them. oMenu outlives this object; when its form loads again, this has to be called again.
  void Initialize(Forms::ControlArray<Forms::Menu>& oMenu, std::int32_t hReg);
  /// Entries count from 1. Empty above Count.
  Text Item(std::int32_t lIndex) const;
  Text Property(std::int32_t lIndex, TextView sName) const;
  /// Failure 9 for an entry that isn't there.
  void SetProperty(std::int32_t lIndex, TextView sName, TextView sValue);
  std::int32_t Count() const;

 private:
  void CreateMenus();
  void LoadMenus();
  void ShowItem(std::int32_t lIndex);

  Forms::ControlArray<Forms::Menu>* mpoMenu = nullptr;
};
