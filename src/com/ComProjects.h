// The open group in the IDE: projects and their components.
#pragma once

#include "ComComponent.h"

class ComComponents : public VBComponents {
 public:
  ComComponents(ComProject& parent, ComStore& store, LateBound object)
      : mParent(parent), mStore(store), mObject(std::move(object)) {}
  std::int32_t Count() const override { return mObject.Get(u"Count").AsNumber(); }
  /// A new object each time.
  VBComponent& Item(std::int32_t lIndex) override;

 private:
  ComProject& mParent;
  ComStore& mStore;
  LateBound mObject;
};

class ComProject : public VBProject {
 public:
  ComProject(ComStore& store, LateBound object) : mStore(store), mObject(std::move(object)) {}
  Text Name() const override { return mObject.Get(u"Name").AsText(); }
  Text FileName() const override { return mObject.Get(u"FileName").AsText(); }
  ProjectType Type() const override;
  ::VBComponents& VBComponents() override;

 private:
  ComStore& mStore;
  LateBound mObject;
};

class ComProjects : public VBProjects {
 public:
  ComProjects(ComStore& store, LateBound object) : mStore(store), mObject(std::move(object)) {}
  std::int32_t Count() const override { return mObject.Get(u"Count").AsNumber(); }
  /// A new object each time.
  VBProject& Item(std::int32_t lIndex) override;

 private:
  ComStore& mStore;
  LateBound mObject;
};

/// A project as an object of its class.
LateBound ProjectObject(const LateBound& owner, TextView property);
