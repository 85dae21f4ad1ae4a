// A row of tabs over an area that the form fills by itself. Tabs count from 1.
#pragma once

#include "Control.h"

namespace Forms {

class TabStrip;

class Tab {
 public:
  Tab(TabStrip& oStrip, TextView sKey, TextView sCaption)
      : moStrip(oStrip), msKey(sKey), msCaption(sCaption) {}
  std::int32_t Index() const;
  const Text& Key() const { return msKey; }
  const Text& Caption() const { return msCaption; }
  bool Selected() const;
  /// True selects it and raises the strip's Click, also when it was selected before; False does
  /// nothing.
  void SetSelected(bool bSelected);

 private:
  TabStrip& moStrip;
  Text msKey, msCaption;
};

class Tabs {
 public:
  explicit Tabs(TabStrip& oStrip) : moStrip(oStrip) {}
  /// lIndex: where it goes, from 1 to Count + 1; 0 for the end. The first tab of an empty strip
  /// becomes selected, without an event. Failure 35602 for a key that is taken, 35600 for an index
  /// out of range.
  Tab& Add(std::int32_t lIndex, TextView sKey, TextView sCaption);
  /// Removing the selected tab selects its right neighbour, or the last tab, and raises Click.
  void Remove(TextView sKey);
  void Clear();
  std::int32_t Count() const { return static_cast<std::int32_t>(moTabs.size()); }
  /// Failure 35600, by key 35601, when there is none.
  Tab& Item(std::int32_t lIndex) const;
  Tab& Item(TextView sKey) const;
  bool Exists(TextView sKey) const;

 private:
  friend class Tab;
  friend class TabStrip;
  Tab* Find(TextView sKey) const;

  TabStrip& moStrip;
  std::vector<std::unique_ptr<Tab>> moTabs;
};

class TabStrip : public Control {
 public:
  TabStrip(ControlContainer& oContainer, TextView sName) : Control(oContainer, sName) { Reset(); }
  ComponentKind Kind() const override { return ComponentKind::TabStrip; }

  Forms::Tabs& Tabs() {
    Touch();
    return moTabs;
  }
  const Forms::Tabs& Tabs() const { return moTabs; }
  /// Null without tabs.
  Tab* SelectedItem() const { return mpoSelected; }
  /// The area for the selected tab's content, in the coordinates of the strip's container.
  Rect ClientArea() const;
  std::int32_t ClientLeft() const { return ClientArea().lLeft; }
  std::int32_t ClientTop() const { return ClientArea().lTop; }
  std::int32_t ClientWidth() const { return ClientArea().lWidth; }
  std::int32_t ClientHeight() const { return ClientArea().lHeight; }

  bool UserSelect(std::int32_t lIndex);

  void Reset() override;

  // For tabs only.
  void Select(Tab* poTab, bool bClick);
  void TabsChanged();

 protected:
  /// Left and Right.
  void KeyAction(std::int32_t nKeyCode, std::int32_t nShift) override;

 private:
  Forms::Tabs moTabs{*this};
  Tab* mpoSelected = nullptr;
};

}  // namespace Forms
