// The choices of the system as types: the values of the six properties, what the IDE reports about
// projects, components and members, and what is to be done with line numbers. Their numbers are
// fixed; new ones are only appended. Unset is "not set", or "mixed" in a selection.
//
// Numbers stand only where they travel: in the registry and the settings file, as data of lists,
// in a signature, in JSON, and at the IDE. There ToNumber and FromNumber lead out and in:
//
//   MQuillon::ToNumber(MQuillon::Boundary::Firewall)      // 3
//   MQuillon::FromNumber<MQuillon::Severity>(stored)
#pragma once

#include <array>
#include <cstdint>

namespace MQuillon {

enum class Boundary : std::int32_t { Unset, None, VB, Firewall, ActiveX };
enum class Severity : std::int32_t { Unset, Cosmetic, Normal, Fatal };
enum class Retry : std::int32_t { Unset, Line, Procedure, None };
/// Trace and Locked.
enum class TriState : std::int32_t { Unset, False, True };

/// Kinds of procedures; Method is a Sub or Function, Declarations a component's declarations
/// section.
enum class ProcKind : std::uint8_t { Method, Let, Set, Get, Declarations = 9 };
/// Those that a name can stand for in a code module, in the order of their numbers.
inline constexpr std::array CodeKinds = {ProcKind::Method, ProcKind::Let, ProcKind::Set,
                                         ProcKind::Get};

enum class LineNumAction : std::int32_t { AsRule = -1, Insert, Leave, Remove };
/// Which lines get a number: every statement, every n-th one, or statements of logic.
enum class LineNumWhat : std::int32_t { EveryStatement, EveryNth, LogicStatements };

enum class ComponentType : std::int32_t {
  Unknown,
  StdModule,
  Class,
  MSForm,
  ResFile,
  VBForm,
  MDIForm,
  PropPage,
  UserControl,
  UserDocument,
  RelatedDocument,
  Designer,
  MDIChild = 15
};
enum class ProjectType : std::int32_t { StandardExe, ActiveXExe, ActiveXDll, ActiveXControl };
/// Unset: a declarations section, which has no scope.
enum class MemberScope : std::uint8_t { Unset, Private, Public, Friend };

template <class Choice>
constexpr std::int32_t ToNumber(Choice choice) {
  return static_cast<std::int32_t>(choice);
}

/// A number outside the set stays what it is, so that a damaged or newer setting isn't lost when
/// it is written back: it has no name, fits no row of a lookup and equals none of the values.
template <class Choice>
constexpr Choice FromNumber(std::int32_t number) {
  return static_cast<Choice>(number);
}

}  // namespace MQuillon
