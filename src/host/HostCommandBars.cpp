#include "HostCommandBars.h"

#include <algorithm>

#include "Failure.h"

namespace {

template <class T>
T& ItemOf(std::vector<std::unique_ptr<T>>& oItems, std::int32_t lIndex) {
  if (lIndex < 1 || static_cast<std::size_t>(lIndex) > oItems.size()) throw Failure(9);
  return *oItems[static_cast<std::size_t>(lIndex) - 1];
}

template <class T>
void MoveOut(std::vector<std::unique_ptr<T>>& oFrom, std::vector<std::unique_ptr<T>>& oTo,
             const T& oItem) {
  auto it = std::ranges::find_if(oFrom, [&](const auto& pItem) { return pItem.get() == &oItem; });
  if (it == oFrom.end()) throw Failure(5);
  oTo.push_back(std::move(*it));
  oFrom.erase(it);
}

}  // namespace

void HostControl::PasteFace() {
  const auto& oClipboard = moOwner.Bars().Clipboard();
  if (!oClipboard) return;
  Picture oPicture = oClipboard();
  if (oPicture.sBytes.empty()) throw Failure(5, u"No picture is on the clipboard", u"host");
  moFace = std::move(oPicture);
}

void HostControl::Delete() {
  moOwner.Remove(*this);
}

CommandBarControl& HostControls::Add(std::int32_t nType) {
  if (nType != 1) throw Failure(5);
  moControls.push_back(std::make_unique<HostControl>(*this));
  return *moControls.back();
}

HostControl& HostControls::Item(std::int32_t lIndex) {
  return ItemOf(moControls, lIndex);
}

void HostControls::Remove(const HostControl& oControl) {
  MoveOut(moControls, moDeleted, oControl);
}

void HostCommandBar::Delete() {
  if (mbBuiltIn) throw Failure(5);
  moBars.Remove(*this);
}

HostCommandBars::HostCommandBars() {
  moBars.push_back(std::make_unique<HostCommandBar>(*this, u"Add-Ins", 1, true));
}

HostCommandBar& HostCommandBars::Item(TextView sName) {
  for (const auto& pBar : moBars)
    if (EqualNoCase(pBar->Name(), sName)) return *pBar;
  throw Failure(5, u"There is no command bar " + Text(sName), u"host");
}

HostCommandBar& HostCommandBars::Item(std::int32_t lIndex) {
  return ItemOf(moBars, lIndex);
}

HostCommandBar& HostCommandBars::Add(TextView sName, std::int32_t lPosition) {
  for (const auto& pBar : moBars)
    if (EqualNoCase(pBar->Name(), sName))
      throw Failure(5, u"There is a command bar " + Text(sName) + u" already", u"host");
  moBars.push_back(std::make_unique<HostCommandBar>(*this, sName, lPosition, false));
  return *moBars.back();
}

void HostCommandBars::Remove(const HostCommandBar& oBar) {
  MoveOut(moBars, moDeleted, oBar);
}

::CommandBarEvents& HostCommandBars::CommandBarEvents(CommandBarControl& oControl) {
  auto* poControl = dynamic_cast<HostControl*>(&oControl);
  if (!poControl) throw Failure(13);
  return poControl->Events();
}

void HostCommandBars::Click(CommandBarControl& oControl) {
  bool bHandled = false, bCancelDefault = false;
  CommandBarEvents(oControl).Click(oControl, bHandled, bCancelDefault);
}
