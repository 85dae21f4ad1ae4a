// The IDE's objects as a routine under the common handler uses them: every call is a step of the
// routine's scope, so that the code behind reads straight.
//
//   Guard(Named(u"LoadMethod"), [&](GuardScope& scope) {
//     const SteppedModule module(scope, codeModule);
//     const auto line = module.ProcBodyLine(name, ProcKind::Method);
//     ...
//   });
//
// A call that fails is run again, or its failure leaves the routine, as the error run-time answers;
// an answer to go on behind the call leaves the routine too, since its result is needed. A view
// holds references alone: the scope and the object outlive it. Results that are objects come out
// bare, because records keep them beyond the routine.
#pragma once

#include <functional>

#include "Guard.h"
#include "VBE.h"

/// What all views share.
template <class Object>
class Stepped {
 public:
  Stepped(GuardScope& scope, Object& object) : mScope(scope), mObject(object) {}

 protected:
  /// Runs one call of the object as a step and gives what it gives.
  template <class Call, class... Arguments>
  decltype(auto) Ask(Call call, const Arguments&... arguments) const {
    return mScope.Require(
        [&]() -> decltype(auto) { return std::invoke(call, mObject, arguments...); });
  }

 private:
  GuardScope& mScope;
  Object& mObject;
};

class SteppedMember : public Stepped<Member> {
 public:
  using Stepped::Stepped;
  Text Name() const { return Ask(&Member::Name); }
  MemberType Type() const { return Ask(&Member::Type); }
  MemberScope Scope() const { return Ask(&Member::Scope); }
  std::int32_t CodeLocation() const { return Ask(&Member::CodeLocation); }
  bool MayHave(ProcKind kind) const { return Ask(&Member::MayHave, kind); }
  bool KeepsAttributes() const { return Ask(&Member::KeepsAttributes); }
  /// The name of the component that holds the member.
  Text ComponentName() const {
    return Ask([](const Member& member) { return member.Parent().Parent().Parent().Name(); });
  }
  void SetAttribute(MemberAttribute attribute, const AttributeValue& value) const {
    Ask(&Member::SetAttribute, attribute, value);
  }
};

class SteppedMembers : public Stepped<Members> {
 public:
  using Stepped::Stepped;
  std::int32_t Count() const { return Ask(&Members::Count); }
  Member& Item(std::int32_t index) const { return Ask(&Members::Item, index); }
};

class SteppedModule : public Stepped<CodeModule> {
 public:
  using Stepped::Stepped;
  Text Lines(std::int32_t start, std::int32_t count) const {
    return Ask(&CodeModule::Lines, start, count);
  }
  std::int32_t CountOfLines() const { return Ask(&CodeModule::CountOfLines); }
  std::int32_t CountOfDeclarationLines() const { return Ask(&CodeModule::CountOfDeclarationLines); }
  std::int32_t ProcStartLine(TextView name, ProcKind kind) const {
    return Ask(&CodeModule::ProcStartLine, name, kind);
  }
  std::int32_t ProcBodyLine(TextView name, ProcKind kind) const {
    return Ask(&CodeModule::ProcBodyLine, name, kind);
  }
  std::int32_t ProcCountLines(TextView name, ProcKind kind) const {
    return Ask(&CodeModule::ProcCountLines, name, kind);
  }
  void DeleteLines(std::int32_t start, std::int32_t count) const {
    Ask(&CodeModule::DeleteLines, start, count);
  }
  void InsertLines(std::int32_t line, TextView text) const {
    Ask(&CodeModule::InsertLines, line, text);
  }
  ::Members& Members() const { return Ask(&CodeModule::Members); }
};

class SteppedComponent : public Stepped<VBComponent> {
 public:
  using Stepped::Stepped;
  Text Name() const { return Ask(&VBComponent::Name); }
  ComponentType Type() const { return Ask(&VBComponent::Type); }
  std::int32_t FileCount() const { return Ask(&VBComponent::FileCount); }
  Text FileNames(std::int32_t index) const { return Ask(&VBComponent::FileNames, index); }
  /// Empty when it has none or was never saved.
  Text FirstFile() const { return FileCount() > 0 ? FileNames(1) : Text(); }
  Text DesignerID() const { return Ask(&VBComponent::DesignerID); }
  Text ReadOnlyReason() const { return Ask(&VBComponent::ReadOnlyReason); }
  std::int32_t Property(TextView name) const { return Ask(&VBComponent::Property, name); }
  ProjectType TypeOfProject() const {
    return Ask([](const VBComponent& component) { return component.Parent().Type(); });
  }
  /// Failure 91 when the component has none.
  ::CodeModule& CodeModule() const {
    ::CodeModule* const module = Ask(&VBComponent::CodeModule);
    if (!module) throw Failure(91);
    return *module;
  }
};

class SteppedComponents : public Stepped<VBComponents> {
 public:
  using Stepped::Stepped;
  std::int32_t Count() const { return Ask(&VBComponents::Count); }
  VBComponent& Item(std::int32_t index) const { return Ask(&VBComponents::Item, index); }
};

class SteppedControls : public Stepped<VBControls> {
 public:
  using Stepped::Stepped;
  std::int32_t Count() const { return Ask(&VBControls::Count); }
};

class SteppedProject : public Stepped<VBProject> {
 public:
  using Stepped::Stepped;
  Text Name() const { return Ask(&VBProject::Name); }
  Text FileName() const { return Ask(&VBProject::FileName); }
  ProjectType Type() const { return Ask(&VBProject::Type); }
  ::VBComponents& VBComponents() const { return Ask(&VBProject::VBComponents); }
};

/// The projects of the group that the IDE has open.
class SteppedProjects : public Stepped<VBE> {
 public:
  using Stepped::Stepped;
  std::int32_t Count() const {
    return Ask([](VBE& ide) { return ide.VBProjects().Count(); });
  }
  VBProject& Item(std::int32_t index) const {
    return Ask([](VBE& ide, std::int32_t i) -> VBProject& { return ide.VBProjects().Item(i); },
               index);
  }
};
