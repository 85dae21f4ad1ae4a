#include "TabStrip.h"

#include <algorithm>

#include "Failure.h"
#include "Form.h"
#include "TextOrder.h"
#include "Toolkit.h"

namespace Forms {

std::int32_t Tab::Index() const {
  const auto& oAll = moStrip.Tabs().moTabs;
  const auto it =
      std::find_if(oAll.begin(), oAll.end(), [this](const auto& p) { return p.get() == this; });
  return static_cast<std::int32_t>(it - oAll.begin()) + 1;
}

bool Tab::Selected() const {
  return moStrip.SelectedItem() == this;
}

void Tab::SetSelected(bool bSelected) {
  if (bSelected) moStrip.Select(this, true);
}

Tab* Tabs::Find(TextView sKey) const {
  for (const auto& p : moTabs) {
    if (p->Key() == sKey) return p.get();
  }
  return nullptr;
}

Tab& Tabs::Add(std::int32_t lIndex, TextView sKey, TextView sCaption) {
  moStrip.TabsChanged();
  if (lIndex == 0) lIndex = Count() + 1;
  if (lIndex < 1 || lIndex > Count() + 1) throw Failure(35600, u"There is no such place for a tab");
  if (Find(sKey)) throw Failure(35602, u"There is a tab with the key " + Text(sKey) + u" already");
  const auto it =
      moTabs.insert(moTabs.begin() + (lIndex - 1), std::make_unique<Tab>(moStrip, sKey, sCaption));
  if (Count() == 1) moStrip.Select(it->get(), false);
  return **it;
}

void Tabs::Remove(TextView sKey) {
  const Tab& oTab = Item(sKey);
  const bool bSelected = oTab.Selected();
  const auto lAt = static_cast<std::size_t>(oTab.Index()) - 1;
  moStrip.TabsChanged();
  const auto pGone = std::move(moTabs[lAt]);
  moTabs.erase(moTabs.begin() + static_cast<std::ptrdiff_t>(lAt));
  if (!bSelected) return;
  const bool bNone = moTabs.empty();
  moStrip.Select(bNone ? nullptr : moTabs[std::min(lAt, moTabs.size() - 1)].get(), !bNone);
}

void Tabs::Clear() {
  moStrip.TabsChanged();
  moStrip.Select(nullptr, false);
  moTabs.clear();
}

Tab& Tabs::Item(std::int32_t lIndex) const {
  if (lIndex < 1 || lIndex > Count()) {
    throw Failure(35600, u"There is no tab with the number " + ToText(lIndex));
  }
  return *moTabs[static_cast<std::size_t>(lIndex) - 1];
}

Tab& Tabs::Item(TextView sKey) const {
  Tab* po = Find(sKey);
  if (!po) throw Failure(35601, u"There is no tab with the key " + Text(sKey));
  return *po;
}

bool Tabs::Exists(TextView sKey) const {
  return Find(sKey) != nullptr;
}

Rect TabStrip::ClientArea() const {
  const Edges o = Kit().Renderer().TabEdges(*this);
  return {Left() + o.lLeft, Top() + o.lTop, std::max(0, Width() - o.lLeft - o.lRight),
          std::max(0, Height() - o.lTop - o.lBottom)};
}

void TabStrip::Select(Tab* poTab, bool bClick) {
  Set(mpoSelected, poTab, Property::Selection);
  if (bClick) Raise(Click);
}

void TabStrip::TabsChanged() {
  Touch();
  Changed(Property::Items);
}

bool TabStrip::UserSelect(std::int32_t lIndex) {
  if (!UserEnabled() || lIndex < 1 || lIndex > moTabs.Count()) return false;
  auto pHold = Hold();
  UserFocus();
  Select(&moTabs.Item(lIndex), true);
  return true;
}

void TabStrip::KeyAction(std::int32_t nKeyCode, std::int32_t) {
  if (!mpoSelected) return;
  const std::int32_t lNow = mpoSelected->Index();
  const std::int32_t lMoved = MovedIndex(nKeyCode, lNow, 1, moTabs.Count(), true);
  if (lMoved != lNow) UserSelect(lMoved);
}

void TabStrip::Reset() {
  Control::Reset();
  mpoSelected = nullptr;
  moTabs.moTabs.clear();
}

}  // namespace Forms
