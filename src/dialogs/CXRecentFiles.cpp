#include "CXRecentFiles.h"

#include "CXRecent.h"
#include "Form.h"
#include "MXFile.h"
#include "MXString.h"

using namespace Forms;

namespace {

constexpr std::int32_t ItemCount = 9, SeparatorIndex = 10;
constexpr double CaptionWidth = 2700;  ///< twips, about 30 characters

void DropMissingFiles() {
  for (std::int32_t i = RecentFiles().Count(); i >= 1; --i) {
    if (!MXFile::FileExists(RecentFiles().Item(i))) RecentFiles().Remove(i);
  }
}

}  // namespace

std::int32_t CXRecentFiles::Add(TextView sFile) {
  const std::int32_t lIndex = RecentFiles().Add(sFile);
  LoadMenus();
  return lIndex;
}

void CXRecentFiles::Initialize(ControlArray<Menu>& oMenu, std::int32_t hReg) {
  mpoMenu = &oMenu;
  RecentFiles().Initialize(hReg);
  CreateMenus();
  LoadMenus();
}

Text CXRecentFiles::Item(std::int32_t lIndex) const {
  return RecentFiles().Item(lIndex);
}
Text CXRecentFiles::Property(std::int32_t lIndex, TextView sName) const {
  return RecentFiles().Property(lIndex, sName);
}
void CXRecentFiles::SetProperty(std::int32_t lIndex, TextView sName, TextView sValue) {
  RecentFiles().SetProperty(lIndex, sName, sValue);
}
std::int32_t CXRecentFiles::Count() const {
  return RecentFiles().Count();
}

void CXRecentFiles::CreateMenus() {
  for (std::int32_t i = 1; i <= SeparatorIndex; ++i) {
    if (!mpoMenu->Exists(i)) mpoMenu->Load(i);
  }
  (*mpoMenu)(SeparatorIndex).SetCaption(u"-");
}

void CXRecentFiles::LoadMenus() {
  DropMissingFiles();
  if (!mpoMenu) return;
  for (std::int32_t i = 1; i <= ItemCount; ++i) ShowItem(i);
  (*mpoMenu)(SeparatorIndex).SetVisible(Count() > 0);
}

void CXRecentFiles::ShowItem(std::int32_t lIndex) {
  Menu& oItem = (*mpoMenu)(lIndex);
  oItem.SetVisible(lIndex <= Count());
  if (lIndex > Count()) return;
  const Text sFile = Item(lIndex);
  const auto oMeasure = [this](TextView s) -> double { return mpoMenu->Parent().TextWidth(s); };
  const Text sFitted = MXString::TrimPathToFit(sFile, oMeasure, CaptionWidth, false);
  // Ampersands in a path are doubled, so that they don't mark access keys.
  oItem.SetCaption(u"&" + ToText(lIndex) + u" " + MXString::StringReplace(sFitted, u"&", u"&&"));
  oItem.SetTag(sFile);
}
