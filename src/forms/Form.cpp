// The life of a form: loading, showing, unloading, its size. Focus and tab order are in
// Form_Focus.cpp, keys in Form_Keys.cpp.
#include "Form.h"

#include <algorithm>
#include <iterator>

#include "Failure.h"
#include "Menu.h"
#include "Toolkit.h"
#include "UserControl.h"

namespace Forms {

Form::Form(Toolkit& oToolkit, TextView sName) : WithState(sName), moToolkit(oToolkit) {
  BindForm(*this);
  Reset();
}

Form::~Form() {
  if (Loaded()) moToolkit.FormGone(*this);
  Unrealize();
  UnbindForm();
}

ControlState Form::DefaultState() const {
  ControlState oState;
  oState.bVisible = false;
  oState.oBounds = {0, 0, 4800, 3600};
  return oState;
}

void Form::Register(Component& oComponent) {
  moComponents.push_back(&oComponent);
}
void Form::Unregister(Component& oComponent) {
  std::erase(moComponents, &oComponent);
}

void Form::Load() {
  if (meLife != Life::Unloaded) return;
  meLife = Life::Designing;
  moToolkit.FormLoaded(*this);
  try {
    DesignAll();
    meLife = Life::Loaded;
    Realize();
    for (Component* po : moComponents) po->Realize();
    FirstLayout();
    OnLoad();
  } catch (...) {
    Drop();
    throw;
  }
}

void Form::DesignAll() {
  // The innermost first: a control that is made of others gives them their places.
  for (auto it = moComponents.rbegin(); it != moComponents.rend(); ++it) {
    if ((*it)->Kind() == ComponentKind::UserControl) static_cast<UserControl*>(*it)->Design();
  }
  Design();
}

void Form::FirstLayout() {
  mbResizePending = true;
  for (Control* po : Controls()) po->ContainerResized();
  const auto oAll = moComponents;  // a handler may load elements of arrays
  for (Component* po : oAll) {
    if (po->Kind() == ComponentKind::UserControl || po->Kind() == ComponentKind::PictureBox) {
      static_cast<ControlContainer*>(po)->Resized();
    }
  }
}

bool Form::Unload(UnloadMode eMode) {
  if (meLife == Life::Unloaded) return true;
  if (meLife != Life::Loaded) return false;
  meLife = Life::Unloading;
  bool bCancel = false;
  try {
    QueryUnload(bCancel, eMode);
    if (!bCancel) OnUnload(bCancel);
  } catch (...) {
    meLife = Life::Loaded;
    throw;
  }
  meLife = Life::Loaded;
  if (!bCancel) Drop();
  return !bCancel;
}

void Form::Drop() {
  meLife = Life::Unloading;
  mpoActive = mpoGotFocus = nullptr;
  moEntered.clear();
  ++mlFocusMoves;
  Set(moControl.bVisible, false, Property::Visible);
  moToolkit.ActivateNext(*this);
  for (auto it = moComponents.rbegin(); it != moComponents.rend(); ++it) (*it)->Unrealize();
  Unrealize();
  ResetAll();
  meLife = Life::Unloaded;
  moToolkit.FormGone(*this);
}

void Form::ResetAll() {
  // Arrays first, in a list of their own: they take their elements off the form's.
  std::vector<Component*> oArrays;
  std::copy_if(moComponents.begin(), moComponents.end(), std::back_inserter(oArrays),
               [](auto* po) { return po->Kind() == ComponentKind::Array; });
  for (Component* po : oArrays) po->Reset();
  for (Component* po : moComponents) {
    if (po->Kind() != ComponentKind::Array) po->Reset();
  }
  mpoDefault = mpoCancel = nullptr;
  mbResizePending = false;
  mpoOwner = nullptr;
  Reset();
}

void Form::Show(ShowMode eMode, Form* poOwner) {
  Load();
  if (eMode == ShowMode::Modal && Visible()) {
    throw Failure(400, u"The form " + Name() + u" shows already and can't be shown modally");
  }
  if (!Visible()) mpoOwner = poOwner ? poOwner : moToolkit.ActiveForm();
  if (eMode == ShowMode::Modeless) {
    SetVisible(true);
    UserActivate();
    return;
  }
  moToolkit.PushModal(*this);
  mbModal = true;
  const auto End = [this] {
    mbModal = false;
    moToolkit.PopModal(*this);
  };
  try {
    SetVisible(true);
    if (Visible()) moToolkit.Renderer().RunModal(*this);
  } catch (...) {
    End();
    if (Loaded()) Hide();
    throw;
  }
  End();
}

void Form::SetVisible(bool bVisible) {
  if (!Set(moControl.bVisible, bVisible, Property::Visible)) return;
  if (!bVisible) return moToolkit.ActivateNext(*this);
  if (mbResizePending) Resized();
  if (!Visible()) return;
  UserActivate();
  if (!mpoActive) ChangeFocus(NextInTabOrder(nullptr));
}

void Form::SetWindowState(Forms::WindowState eState) {
  Touch();
  const auto eOld = mo.eWindowState;
  if (!Set(mo.eWindowState, eState, Property::WindowState)) return;
  if (eOld == Forms::WindowState::Maximized) moControl.oBounds = moNormal;
  if (eState == Forms::WindowState::Maximized) {
    moNormal = moControl.oBounds;
    moControl.oBounds = moToolkit.Screen().WorkArea();
  }
  Resized();
}

void Form::ChangeBounds(const Rect& oBounds) {
  if (mo.eWindowState != Forms::WindowState::Normal && !(oBounds == Bounds())) {
    throw Failure(384, u"A form can't be moved while it is minimised or maximised");
  }
  Control::ChangeBounds(oBounds);
}

void Form::Resized() {
  mbResizePending = !Visible();
  if (mbResizePending || Designing()) return;
  for (Control* po : Controls()) po->ContainerResized();
  Raise(Resize);
}

std::int32_t Form::ScaleWidth() const {
  const Edges oEdges = moToolkit.Renderer().FormEdges(*this);
  return std::max(0, Width() - oEdges.lLeft - oEdges.lRight);
}

std::int32_t Form::ScaleHeight() const {
  const Edges oEdges = moToolkit.Renderer().FormEdges(*this);
  return std::max(0, Height() - oEdges.lTop - oEdges.lBottom);
}

bool Form::UserClose() {
  return UserEnabled() && Unload(UnloadMode::User);
}

bool Form::UserMove(std::int32_t lLeft, std::int32_t lTop) {
  if (!UserEnabled() || mo.eWindowState != Forms::WindowState::Normal) return false;
  Move(lLeft, lTop);
  return true;
}

bool Form::UserResize(std::int32_t lWidth, std::int32_t lHeight) {
  if (!Showing() || lWidth < 0 || lHeight < 0) return false;
  Control::ChangeBounds({Left(), Top(), lWidth, lHeight});
  return true;
}

bool Form::UserWindowState(Forms::WindowState eState) {
  if (!UserEnabled()) return false;
  SetWindowState(eState);
  return true;
}

bool Form::UserActivate() {
  if (!UserEnabled()) return false;
  moToolkit.SetActiveForm(this);
  return true;
}

}  // namespace Forms
