#include "ComCodeModule.h"

#include "ComComponent.h"
#include "Failure.h"

namespace {

MemberNames moduleNames, membersNames, memberNames;

struct AttributeRow {
  TextView name;
  enum { IsText, IsNumber, IsBool } kind;
};

/// In the order of MemberAttribute.
constexpr std::array<AttributeRow, MemberAttributeCount> Attributes = {{
    {u"Description", AttributeRow::IsText},
    {u"HelpContextID", AttributeRow::IsNumber},
    {u"Category", AttributeRow::IsText},
    {u"PropertyPage", AttributeRow::IsText},
    {u"StandardMethod", AttributeRow::IsNumber},
    {u"Hidden", AttributeRow::IsBool},
    {u"Bindable", AttributeRow::IsBool},
    {u"Browsable", AttributeRow::IsBool},
    {u"DefaultBind", AttributeRow::IsBool},
    {u"DisplayBind", AttributeRow::IsBool},
    {u"RequestEdit", AttributeRow::IsBool},
    {u"UIDefault", AttributeRow::IsBool},
}};

const AttributeRow& RowOf(MemberAttribute attribute) {
  return Attributes[static_cast<std::size_t>(attribute)];
}

Text NameOf(const LateBound& member) {
  return member.Get(u"Name").AsText();
}

}  // namespace

LateBound ModuleObject(const LateBound& owner, TextView property) {
  return owner.GetObject(&moduleNames, property);
}

ComMember::ComMember(ComMembers& parent, Text name, MemberType type, LateBound object)
    : mParent(parent), mName(std::move(name)), mType(type), mObject(std::move(object)) {}

::Members& ComMember::Parent() const {
  return mParent;
}

bool ComMember::IsAlive() const {
  try {
    return EqualNoCase(NameOf(mObject), mName);
  } catch (const Failure&) {
    return false;
  }
}

// An attribute that the member doesn't have fails as well: then a new object would be no help.
template <class Work>
auto ComMember::Ask(Work&& work) const {
  try {
    return work(mObject);
  } catch (const Failure&) {
    if (IsAlive()) throw;
  }
  LateBound present = mParent.Find(mName);
  if (!present) throw Failure(35);
  mObject = std::move(present);
  return work(mObject);
}

MemberScope ComMember::Scope() const {
  return MQuillon::FromNumber<MemberScope>(
      Ask([](const LateBound& member) { return member.Get(u"Scope").AsNumber(); }));
}

std::int32_t ComMember::CodeLocation() const {
  return Ask([](const LateBound& member) { return member.Get(u"CodeLocation").AsNumber(); });
}

AttributeValue ComMember::Attribute(MemberAttribute eAttribute) const {
  const AttributeRow& row = RowOf(eAttribute);
  const Variant value = Ask([&](const LateBound& member) { return member.Get(row.name); });
  if (row.kind == AttributeRow::IsText) return {value.AsText(), 0};
  if (row.kind == AttributeRow::IsNumber) return {{}, value.AsNumber()};
  return {{}, value.AsBool() ? -1 : 0};
}

void ComMember::SetAttribute(MemberAttribute eAttribute, const AttributeValue& oValue) {
  const AttributeRow& row = RowOf(eAttribute);
  Ask([&](const LateBound& member) {
    if (row.kind == AttributeRow::IsText) return member.Put(row.name, oValue.sText);
    if (row.kind == AttributeRow::IsNumber) return member.Put(row.name, oValue.lNumber);
    member.Put(row.name, oValue.lNumber != 0);
  });
}

Member& ComMembers::Item(std::int32_t lIndex) {
  LateBound object = mObject.GetObject(&memberNames, u"Item", lIndex);
  if (!object) throw Failure(9);
  Text name = NameOf(object);
  const auto type = static_cast<MemberType>(object.Get(u"Type").AsNumber());
  ComMember*& known = mKnown[{LowerCase(name), type}];
  if (known) {
    known->Renew(std::move(object));
  } else {
    known = &mStore.Make<ComMember>(*this, std::move(name), type, std::move(object));
  }
  return *known;
}

LateBound ComMembers::Find(TextView name) const {
  try {
    return mObject.GetObject(&memberNames, u"Item", name);
  } catch (const Failure&) {
    return {};
  }
}

Text ComCodeModule::Lines(std::int32_t lStart, std::int32_t lCount) const {
  return mObject.Get(u"Lines", lStart, lCount).AsText();
}

std::int32_t ComCodeModule::CountOfLines() const {
  return mObject.Get(u"CountOfLines").AsNumber();
}

std::int32_t ComCodeModule::CountOfDeclarationLines() const {
  return mObject.Get(u"CountOfDeclarationLines").AsNumber();
}

std::int32_t ComCodeModule::Line(TextView question, TextView name, ProcKind kind) const {
  return mObject.Get(question, name, MQuillon::ToNumber(kind)).AsNumber();
}

std::int32_t ComCodeModule::ProcStartLine(TextView sName, ProcKind nKind) const {
  return Line(u"ProcStartLine", sName, nKind);
}

std::int32_t ComCodeModule::ProcBodyLine(TextView sName, ProcKind nKind) const {
  return Line(u"ProcBodyLine", sName, nKind);
}

std::int32_t ComCodeModule::ProcCountLines(TextView sName, ProcKind nKind) const {
  return Line(u"ProcCountLines", sName, nKind);
}

void ComCodeModule::DeleteLines(std::int32_t lStart, std::int32_t lCount) {
  mObject.Call(u"DeleteLines", lStart, lCount);
}

void ComCodeModule::InsertLines(std::int32_t lLine, TextView sText) {
  mObject.Call(u"InsertLines", lLine, sText);
}

::Members& ComCodeModule::Members() {
  LateBound object = mObject.GetObject(&membersNames, u"Members");
  if (!object) throw Failure(91);
  if (mMembers) {
    mMembers->Renew(std::move(object));
  } else {
    mMembers = &mStore.Make<ComMembers>(*this, mStore, std::move(object));
  }
  return *mMembers;
}

VBComponent& ComCodeModule::Parent() const {
  if (!mParent) {
    LateBound object = ComponentObject(mObject, u"Parent");
    if (!object) throw Failure(91);
    mParent = &mStore.Make<ComComponent>(nullptr, mStore, std::move(object));
  }
  return *mParent;
}
