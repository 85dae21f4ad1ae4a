// A component in the IDE, with the controls of its designer.
#pragma once

#include "ComCodeModule.h"
#include "VBProject.h"

class ComProject;

class ComControls : public VBControls {
 public:
  explicit ComControls(LateBound object) : mObject(std::move(object)) {}
  std::int32_t Count() const override { return mObject.Get(u"Count").AsNumber(); }
  Text ItemName(std::int32_t lIndex) const override;
  void Renew(LateBound object) { mObject = std::move(object); }

 private:
  LateBound mObject;
};

class ComComponent : public VBComponent {
 public:
  /// parent: null for the component of a code pane, whose project is asked for when it is wanted.
  ComComponent(ComProject* parent, ComStore& store, LateBound object)
      : mParent(parent), mStore(store), mObject(std::move(object)) {}
  Text Name() const override { return mObject.Get(u"Name").AsText(); }
  /// The IDE has no number for a child form of an MDI form; its property says so.
  ComponentType Type() const override;
  std::int32_t FileCount() const override { return mObject.Get(u"FileCount").AsNumber(); }
  Text FileNames(std::int32_t nIndex) const override;
  ::CodeModule* CodeModule() override;
  VBControls* DesignerControls() override;
  std::int32_t Property(TextView sName) override;
  /// Empty as well when the IDE has none to tell.
  Text DesignerID() const override;
  /// The IDE knows no Parent here: it is the parent of the collection.
  VBProject& Parent() const override;
  Text ReadOnlyReason() const override;

 private:
  Variant PropertyValue(TextView name) const;

  mutable ComProject* mParent;
  ComStore& mStore;
  LateBound mObject;
  ComCodeModule* mModule = nullptr;
  ComControls* mControls = nullptr;
};

/// A component as an object of its class.
LateBound ComponentObject(const LateBound& owner, TextView property);
LateBound ComponentItem(const LateBound& components, std::int32_t index);
