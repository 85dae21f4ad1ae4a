// The code of a component as the IDE shows it: no header block, no attribute lines. Lines count
// from 1; text passes with lines joined by CR LF. Objects belong to the host and live as long as
// its VBE; a Member stays valid when lines move, and when its own procedure is rewritten.
// Every operation can fail with a Failure; 35 means no such procedure of that kind.
#pragma once

#include <cstdint>

#include "Choices.h"
#include "Text.h"

class CodeModule;
class Members;
class VBComponent;

using MQuillon::MemberScope;
using MQuillon::ProcKind;

enum class MemberType : std::uint8_t { Method = 1, Property, Variable, Event, Constant };

/// The twelve settable attributes of a member, in the order in which they are saved and set.
enum class MemberAttribute {
  Description,
  HelpContextID,
  Category,
  PropertyPage,
  StandardMethod,
  Hidden,
  Bindable,
  Browsable,
  DefaultBind,
  DisplayBind,
  RequestEdit,
  UIDefault
};
inline constexpr int MemberAttributeCount = 12;

/// The value of an attribute: text for Description, Category and PropertyPage, a number for
/// HelpContextID and StandardMethod, -1 or 0 for the others.
struct AttributeValue {
  Text sText;
  std::int32_t lNumber = 0;
  bool operator==(const AttributeValue&) const = default;
};

class Member {
 public:
  virtual ~Member() = default;
  virtual Text Name() const = 0;
  virtual MemberType Type() const = 0;
  virtual MemberScope Scope() const = 0;
  /// Line of the declaration; 0 when it has none.
  virtual std::int32_t CodeLocation() const = 0;
  virtual Members& Parent() const = 0;
  /// False when the member has no procedure of a kind; to ask for its lines would be Failure 35. A
  /// host that can't tell says true.
  virtual bool MayHave(ProcKind) const { return true; }
  /// True when the attributes stay as they are while the lines of the member are exchanged. Else
  /// who exchanges them saves the attributes ahead of it and sets them behind.
  virtual bool KeepsAttributes() const { return false; }
  /// Each may fail by itself.
  virtual AttributeValue Attribute(MemberAttribute eAttribute) const = 0;
  virtual void SetAttribute(MemberAttribute eAttribute, const AttributeValue& oValue) = 0;
};

class Members {
 public:
  virtual ~Members() = default;
  virtual std::int32_t Count() const = 0;
  /// lIndex from 1; Failure 9 outside. A property is one entry for all its kinds.
  virtual Member& Item(std::int32_t lIndex) = 0;
  virtual CodeModule& Parent() const = 0;
};

class CodeModule {
 public:
  virtual ~CodeModule() = default;
  virtual Text Lines(std::int32_t lStart, std::int32_t lCount) const = 0;
  virtual std::int32_t CountOfLines() const = 0;
  virtual std::int32_t CountOfDeclarationLines() const = 0;
  virtual std::int32_t ProcStartLine(TextView sName, ProcKind nKind) const = 0;
  virtual std::int32_t ProcBodyLine(TextView sName, ProcKind nKind) const = 0;
  virtual std::int32_t ProcCountLines(TextView sName, ProcKind nKind) const = 0;
  virtual void DeleteLines(std::int32_t lStart, std::int32_t lCount = 1) = 0;
  /// Puts text ahead of lLine (beyond the end: behind the last line). sText may span many lines;
  /// a line end at its end leaves one more empty line.
  virtual void InsertLines(std::int32_t lLine, TextView sText) = 0;
  virtual ::Members& Members() = 0;
  virtual VBComponent& Parent() const = 0;
};
