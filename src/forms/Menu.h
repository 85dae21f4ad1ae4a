// One entry of a form's menus: a title in the menu bar, an item, or a separator (caption "-").
//
//   Menu mnuFile{*this, u"mnuFile"};                     // on the form: in the menu bar
//   Menu mnuFileExit{mnuFile, u"mnuFileExit"};           // under it, in order of construction
//   ControlArray<Menu> mnuFileRecent{mnuFile, u"mnuFileRecent"};
//
// A menu with items raises its own Click when it drops, which is the time to enable and check them.
// The shortcut of an item drops the menus above it first, so those rules hold for shortcuts too.
#pragma once

#include "Component.h"

namespace Forms {

/// Key code and shift bits; code 0 for none.
struct Shortcut {
  std::int32_t nKeyCode = 0, nShift = 0;
  bool operator==(const Shortcut&) const = default;
};

struct MenuState {
  Text sCaption;
  bool bChecked = false, bEnabled = true, bVisible = true;
  Forms::Shortcut oShortcut;
};

class Menu : public WithState<Component, MenuState> {
 public:
  Menu(Form& oForm, TextView sName);
  Menu(Menu& oParent, TextView sName);
  ~Menu() override;
  ComponentKind Kind() const override { return ComponentKind::Menu; }
  /// Drawn by the form's peer, which is told of every change.
  void Realize() override { TellForm(); }
  void SetElement(std::int32_t lIndex, const std::shared_ptr<Component>& pSelf) override;

  const Text& Caption() const { return mo.sCaption; }
  void SetCaption(TextView s) { SetField(mo.sCaption, s); }
  bool Separator() const { return mo.sCaption == u"-"; }
  bool Checked() const { return mo.bChecked; }
  void SetChecked(bool b) { SetField(mo.bChecked, b); }
  bool Enabled() const { return mo.bEnabled; }
  void SetEnabled(bool b) { SetField(mo.bEnabled, b); }
  bool Visible() const { return mo.bVisible; }
  void SetVisible(bool b) { SetField(mo.bVisible, b); }
  Forms::Shortcut Shortcut() const { return mo.oShortcut; }
  void SetShortcut(std::int32_t nKeyCode, std::int32_t nShift);  ///< design time

  /// Null in the menu bar.
  Menu* Above() const { return mpoAbove; }
  /// Elements of an array stand together, in order of their index.
  const std::vector<Menu*>& Items() const { return moItems; }
  /// It and all menus above it are visible and enabled.
  bool Reachable() const;

  Signal<> Click;

  /// The menu drops: raises its Click. For those with items.
  bool UserDrop();
  /// The user picks the item, by mouse, access key or shortcut: each menu above it drops, from the
  /// top, and then, if it is reachable still, its Click is raised.
  bool UserPick();

 private:
  template <class Field, class Value>
  void SetField(Field& oField, const Value& oValue) {
    if (Set(oField, oValue, Property::Menu)) TellForm();
  }
  void TellForm();
  std::vector<Menu*>& Siblings();

  Menu* mpoAbove = nullptr;
  std::vector<Menu*> moItems;
};

}  // namespace Forms
