// The base of everything that stands on a form: controls, menus, timers, image lists, arrays of
// them, and forms themselves. Components are members of their form's class (or of a user control's)
// and register in their constructor:
//
//   class FDemo : public Form {
//     Label lblName{*this, u"lblName"};
//     CommandButton cmdOK{*this, u"cmdOK"};
//   };
//
// A component has its defaults until its form loads; then the form's Design gives it the values of
// design time. Unloading the form brings the defaults back.
#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "FormsTypes.h"
#include "IPeer.h"
#include "Signal.h"

namespace Forms {

class Form;
class Toolkit;

enum class ComponentKind {
  Form,
  Label,
  TextBox,
  ListBox,
  ComboBox,
  CheckBox,
  OptionButton,
  CommandButton,
  Frame,
  PictureBox,
  Line,
  UserControl,
  TreeView,
  ListView,
  TabStrip,
  StatusBar,
  CodePane,
  Timer,
  Menu,
  ImageList,
  Array,
};

class Component {
 public:
  Component(Form& oForm, TextView sName);
  Component(const Component&) = delete;
  Component& operator=(const Component&) = delete;
  /// Takes the component off its form and ends its peer.
  virtual ~Component();

  virtual ComponentKind Kind() const = 0;
  const Text& Name() const { return msName; }
  /// Its number in a control array; -1 outside one.
  std::int32_t Index() const { return mlIndex; }
  /// The form it stands on; a form is its own parent.
  Form& Parent() const { return *mpoForm; }
  Toolkit& Kit() const;
  const Text& Tag() const { return msTag; }
  void SetTag(TextView sTag);

  /// Connects a handler for as long as this component lives. Forms connect the events of their
  /// controls in their constructor: On(cmdOK.Click, [this] { cmdOK_Click(); });
  template <class... Args, class Handler>
  void On(Signal<Args...>& oSignal, Handler oHandler) {
    moLinks.push_back(oSignal.Connect(std::move(oHandler)));
  }

  /// Null while the form isn't loaded, and for kinds that are drawn as a part of another.
  IPeer* Peer() const { return mpPeer.get(); }

  // For the form, control arrays and this layer only.
  virtual void Reset();                            ///< back to the defaults
  virtual void CopyFrom(const Component& oOther);  ///< same class; all but name, index and events
  virtual void Realize();                          ///< makes the peer unless there is one
  void Unrealize() { mpPeer.reset(); }
  virtual void SetElement(std::int32_t lIndex, const std::shared_ptr<Component>& pSelf);
  /// Keeps an element of an array alive while one of its own events is on the stack, though the
  /// event's handler unloads it. Null for others.
  std::shared_ptr<Component> Hold() const { return mpSelf.lock(); }

 protected:
  /// For forms, which call BindForm with themselves.
  explicit Component(TextView sName) : msName(sName) {}
  void BindForm(Form& oForm) { mpoForm = &oForm; }
  void UnbindForm() { mpoForm = nullptr; }

  /// Loads the form when it isn't; every operation that changes something begins with it.
  void Touch();
  void Changed(Property eProperty, std::int32_t lIndex = 0);
  /// Sets a field and tells the peer. True when the value is new.
  template <class Field, class Value>
  bool Set(Field& oField, const Value& oValue, Property eProperty) {
    Touch();
    if (oField == oValue) return false;
    oField = oValue;
    Changed(eProperty);
    return true;
  }
  /// Raises an event that code caused, unless the values of design time are being set. Must be the
  /// last thing that an operation does: the handler may destroy this object.
  template <class... Args, class... Values>
  void Raise(Signal<Args...>& oSignal, Values&&... values) {
    if (Designing()) return;
    auto pHold = Hold();
    oSignal(std::forward<Values>(values)...);
  }

 private:
  bool Designing() const;

  Text msName, msTag;
  std::int32_t mlIndex = -1;
  Form* mpoForm = nullptr;
  std::weak_ptr<Component> mpSelf;
  std::unique_ptr<IPeer> mpPeer;
  std::vector<Connection> moLinks;
};

/// Puts a class's fields into one struct, so that reset and copy need no list of them.
template <class Base, class State>
class WithState : public Base {
 public:
  using Base::Base;
  void Reset() override {
    Base::Reset();
    mo = State{};
  }
  void CopyFrom(const Component& oOther) override {
    Base::CopyFrom(oOther);
    mo = static_cast<const WithState&>(oOther).mo;
  }

 protected:
  State mo;
};

}  // namespace Forms
