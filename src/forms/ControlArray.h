// A control array: elements of one class and one name, told apart by Index, that can be made and
// destroyed while the form is loaded. Works for controls and menus.
//
//   ControlArray<CommandButton> cmdAction{*this, u"cmdAction", 5};   // elements 0 to 4
//   ControlArray<Label> lblName{*this, u"lblName"};                  // element 0
//   lblName.OnElement([this](Label& o) { o.On(o.Click, [this, &o] { Clicked(o.Index()); }); });
//   lblName.Load(1).SetCaption(u"Boundary");
//
// An element made by Load has the properties of the lowest element, but is hidden; elements that
// hold others can only be of design time. Unloading the form destroys the elements that Load made.
// An element may be unloaded inside its own event.
#pragma once

#include <algorithm>
#include <functional>
#include <map>

#include "Component.h"
#include "Failure.h"

namespace Forms {

template <class T>
class ControlArray : public Component {
 public:
  using Setup = std::function<void(T&)>;

  /// oParent: a container for controls, a form or a menu for menus. lCount: elements of design
  /// time, numbered from 0.
  template <class P>
  ControlArray(P& oParent, TextView sName, std::int32_t lCount = 1)
      : Component(FormOf(oParent), sName),
        mlDesignCount(lCount),
        moMake([&oParent, s = Text(sName)] { return std::make_shared<T>(oParent, s); }) {
    for (std::int32_t i = 0; i < lCount; ++i) Make(i);
  }
  ComponentKind Kind() const override { return ComponentKind::Array; }
  void Realize() override {}

  /// Runs oSetup for each element that is there and each one to come; for connecting events.
  void OnElement(Setup oSetup) {
    for (auto& [lIndex, pElement] : moElements) oSetup(*pElement);
    moSetup = std::move(oSetup);
  }

  /// Failure 340 when there is none of that index.
  T& operator()(std::int32_t lIndex) const {
    auto it = moElements.find(lIndex);
    if (it == moElements.end()) throw Failure(340, u"There is no such element of " + Name());
    return *it->second;
  }
  bool Exists(std::int32_t lIndex) const { return moElements.count(lIndex) != 0; }
  std::int32_t Count() const { return static_cast<std::int32_t>(moElements.size()); }
  /// Lowest and highest index.
  std::int32_t LBound() const { return moElements.begin()->first; }
  std::int32_t UBound() const { return moElements.rbegin()->first; }

  /// Failure 360 when it is there, 340 for a negative index.
  T& Load(std::int32_t lIndex) {
    Touch();
    if (lIndex < 0) throw Failure(340, u"There is no such element of " + Name());
    if (Exists(lIndex)) throw Failure(360, u"The element of " + Name() + u" is loaded already");
    T& oNew = Make(lIndex);
    oNew.CopyFrom(*moElements.begin()->second);
    oNew.SetVisible(false);
    oNew.Realize();
    return oNew;
  }
  /// Failure 340 when it isn't there, 362 for an element of design time.
  void Unload(std::int32_t lIndex) {
    if (!Exists(lIndex)) throw Failure(340, u"There is no such element of " + Name());
    if (lIndex < mlDesignCount)
      throw Failure(362, u"The element of " + Name() + u" belongs to the form");
    (*this)(lIndex).SetVisible(false);  // passes the focus on
    moElements.erase(lIndex);
  }

  void Reset() override {
    moElements.erase(moElements.lower_bound(mlDesignCount), moElements.end());
  }

 private:
  template <class P>
  static Form& FormOf(P& oParent) {
    return static_cast<Component&>(oParent).Parent();
  }
  T& Make(std::int32_t lIndex) {
    std::shared_ptr<T> pNew = moMake();
    pNew->SetElement(lIndex, pNew);
    moElements[lIndex] = pNew;
    if (moSetup) moSetup(*pNew);
    return *pNew;
  }

  std::int32_t mlDesignCount;
  std::function<std::shared_ptr<T>()> moMake;
  Setup moSetup;
  // Shared because an element outlives its place here while one of its own events runs.
  std::map<std::int32_t, std::shared_ptr<T>> moElements;
};

}  // namespace Forms
