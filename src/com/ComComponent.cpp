#include "ComComponent.h"

#include "ComProjects.h"
#include "Failure.h"

namespace {

MemberNames componentNames, propertiesNames, propertyNames, controlsNames, controlNames;

Variant ValueOf(const LateBound& properties, TextView name) {
  return properties.GetObject(&propertyNames, u"Item", name).Get(u"Value");
}

/// Whether the IDE runs a project. It has no word for it; only its own menu shows that there is
/// something to end. An IDE whose menus have other names counts as one that doesn't.
bool IsRunning(const LateBound& component) {
  try {
    return component.GetObject(nullptr, u"VBE")
        .GetObject(nullptr, u"CommandBars")
        .GetObject(nullptr, u"Item", u"Run")
        .GetObject(nullptr, u"Controls")
        .GetObject(nullptr, u"Item", u"End")
        .Get(u"Enabled")
        .AsBool();
  } catch (const Failure&) {
    return false;
  }
}

}  // namespace

LateBound ComponentObject(const LateBound& owner, TextView property) {
  return owner.GetObject(&componentNames, property);
}

LateBound ComponentItem(const LateBound& components, std::int32_t index) {
  return components.GetObject(&componentNames, u"Item", index);
}

Text ComControls::ItemName(std::int32_t lIndex) const {
  const LateBound control = mObject.GetObject(&controlNames, u"Item", lIndex);
  return ValueOf(control.GetObject(&propertiesNames, u"Properties"), u"Name").AsText();
}

Variant ComComponent::PropertyValue(TextView name) const {
  return ValueOf(mObject.GetObject(&propertiesNames, u"Properties"), name);
}

ComponentType ComComponent::Type() const {
  const auto type = MQuillon::FromNumber<ComponentType>(mObject.Get(u"Type").AsNumber());
  if (type != ComponentType::VBForm) return type;
  try {
    return PropertyValue(u"MDIChild").AsBool() ? ComponentType::MDIChild : type;
  } catch (const Failure&) {
    return type;
  }
}

Text ComComponent::FileNames(std::int32_t nIndex) const {
  return mObject.Get(u"FileNames", static_cast<std::int16_t>(nIndex)).AsText();
}

::CodeModule* ComComponent::CodeModule() {
  LateBound object = ModuleObject(mObject, u"CodeModule");
  if (!object) return nullptr;
  if (mModule) {
    mModule->Renew(std::move(object));
  } else {
    mModule = &mStore.Make<ComCodeModule>(this, mStore, std::move(object));
  }
  return mModule;
}

// The designer's class is another one for each kind of component, so that its only member of
// interest is asked for by name each time.
VBControls* ComComponent::DesignerControls() {
  const LateBound designer = mObject.GetObject(nullptr, u"Designer");
  if (!designer) return nullptr;
  LateBound object = designer.GetObject(&controlsNames, u"VBControls");
  if (!object) return nullptr;
  if (mControls) {
    mControls->Renew(std::move(object));
  } else {
    mControls = &mStore.Make<ComControls>(std::move(object));
  }
  return mControls;
}

std::int32_t ComComponent::Property(TextView sName) {
  return PropertyValue(sName).AsNumber();
}

Text ComComponent::DesignerID() const {
  try {
    return mObject.Get(u"DesignerID").AsText();
  } catch (const Failure&) {
    return {};
  }
}

VBProject& ComComponent::Parent() const {
  if (!mParent) {
    LateBound object = ProjectObject(mObject.GetObject(nullptr, u"Collection"), u"Parent");
    if (!object) throw Failure(91);
    mParent = &mStore.Make<ComProject>(mStore, std::move(object));
  }
  return *mParent;
}

Text ComComponent::ReadOnlyReason() const {
  if (!IsRunning(mObject)) return {};
  return u"The IDE is running the project; end it and open the template again";
}
