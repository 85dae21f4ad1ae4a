// The code of a component in the IDE, and its members.
#pragma once

#include <map>

#include "CodeModule.h"
#include "ComStore.h"
#include "LateBound.h"

class ComMembers;

/// A member is its name and type: when its procedure is rewritten, the IDE may give it another
/// object, which is looked up then.
class ComMember : public Member {
 public:
  ComMember(ComMembers& parent, Text name, MemberType type, LateBound object);
  Text Name() const override { return mName; }
  MemberType Type() const override { return mType; }
  MemberScope Scope() const override;
  std::int32_t CodeLocation() const override;
  ::Members& Parent() const override;
  AttributeValue Attribute(MemberAttribute eAttribute) const override;
  void SetAttribute(MemberAttribute eAttribute, const AttributeValue& oValue) override;

  /// The object that stands for the member now.
  void Renew(LateBound object) { mObject = std::move(object); }

 private:
  template <class Work>
  auto Ask(Work&& work) const;
  bool IsAlive() const;

  ComMembers& mParent;
  Text mName;
  MemberType mType;
  mutable LateBound mObject;
};

class ComMembers : public ::Members {
 public:
  ComMembers(CodeModule& parent, ComStore& store, LateBound object)
      : mParent(parent), mStore(store), mObject(std::move(object)) {}
  std::int32_t Count() const override { return mObject.Get(u"Count").AsNumber(); }
  /// The same object for a member as often as it is asked for, wherever it stands then.
  Member& Item(std::int32_t lIndex) override;
  CodeModule& Parent() const override { return mParent; }

  void Renew(LateBound object) { mObject = std::move(object); }
  /// The present object of a member; nothing when there is none of that name.
  LateBound Find(TextView name) const;

 private:
  CodeModule& mParent;
  ComStore& mStore;
  LateBound mObject;
  std::map<std::pair<Text, MemberType>, ComMember*> mKnown;  // by name in lower case
};

class ComComponent;

class ComCodeModule : public CodeModule {
 public:
  /// parent: null for the module of a code pane, whose component is asked for when it is wanted.
  ComCodeModule(ComComponent* parent, ComStore& store, LateBound object)
      : mParent(parent), mStore(store), mObject(std::move(object)) {}
  Text Lines(std::int32_t lStart, std::int32_t lCount) const override;
  std::int32_t CountOfLines() const override;
  std::int32_t CountOfDeclarationLines() const override;
  std::int32_t ProcStartLine(TextView sName, ProcKind nKind) const override;
  std::int32_t ProcBodyLine(TextView sName, ProcKind nKind) const override;
  std::int32_t ProcCountLines(TextView sName, ProcKind nKind) const override;
  void DeleteLines(std::int32_t lStart, std::int32_t lCount) override;
  void InsertLines(std::int32_t lLine, TextView sText) override;
  ::Members& Members() override;
  VBComponent& Parent() const override;

  void Renew(LateBound object) { mObject = std::move(object); }

 private:
  std::int32_t Line(TextView question, TextView name, ProcKind kind) const;

  mutable ComComponent* mParent;
  ComStore& mStore;
  LateBound mObject;
  ComMembers* mMembers = nullptr;
};

/// A code module as an object of its class.
LateBound ModuleObject(const LateBound& owner, TextView property);
