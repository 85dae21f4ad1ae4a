#include "ComProjects.h"

#include "Failure.h"

namespace {

MemberNames projectNames, componentsNames;

}  // namespace

LateBound ProjectObject(const LateBound& owner, TextView property) {
  return owner.GetObject(&projectNames, property);
}

VBComponent& ComComponents::Item(std::int32_t lIndex) {
  LateBound object = ComponentItem(mObject, lIndex);
  if (!object) throw Failure(9);
  return mStore.Make<ComComponent>(&mParent, mStore, std::move(object));
}

ProjectType ComProject::Type() const {
  return MQuillon::FromNumber<ProjectType>(mObject.Get(u"Type").AsNumber());
}

::VBComponents& ComProject::VBComponents() {
  LateBound object = mObject.GetObject(&componentsNames, u"VBComponents");
  if (!object) throw Failure(91);
  return mStore.Make<ComComponents>(*this, mStore, std::move(object));
}

VBProject& ComProjects::Item(std::int32_t lIndex) {
  LateBound object = mObject.GetObject(&projectNames, u"Item", lIndex);
  if (!object) throw Failure(9);
  return mStore.Make<ComProject>(mStore, std::move(object));
}
