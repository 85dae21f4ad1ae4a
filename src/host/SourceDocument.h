// One source file in memory: its bytes, its lines, and the index of its procedures. Shared by all
// components that name the file. Header block and attribute lines are kept but not shown: visible
// lines count from 1 behind them.
//
// Edits keep every byte that they don't change. Lines that are deleted and inserted again right
// away at the same place (as a rewrite of a procedure does) keep their own bytes, their own line
// end and the attribute lines behind them; a line that is really new takes the file's line end.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "CodeModule.h"
#include "CodePage.h"
#include "Text.h"

/// A conditional-compilation constant of the project, name in lower case.
struct CondConstant {
  Text sName;
  std::int32_t lValue = 0;
};

/// One Begin block of the designer header, the root first.
struct DesignerBlock {
  Text sClass;  ///< VB.Form, VB.TextBox, {CLSID} ...
  Text sName;
  int nDepth = 0;  ///< 0 the root
};

class SourceDocument {
 public:
  /// sBytes: the whole file. oAnsi is used unless the file is UTF-8 (bForcePage: oAnsi always).
  /// Never fails on bad contents: what isn't VB code is kept and has no procedures.
  SourceDocument(std::string sBytes, const CodePage& oAnsi, bool bForcePage,
                 std::vector<CondConstant> oConstants);
  ~SourceDocument();
  SourceDocument(const SourceDocument&) = delete;
  SourceDocument& operator=(const SourceDocument&) = delete;

  // The header.
  /// True when its block is never closed, so that nothing of the file could be told to be code.
  bool IsHeaderOpen() const;
  const std::vector<DesignerBlock>& Blocks() const;
  /// Value of a property of the root block, trimmed, comment cut; empty when missing.
  Text RootProperty(TextView sName) const;
  /// Value of a module attribute such as VB_Name, unquoted; empty when missing.
  Text ModuleAttribute(TextView sName) const;

  // The code; the operations of CodeModule.
  Text Lines(std::int32_t lStart, std::int32_t lCount) const;
  std::int32_t CountOfLines() const;
  /// Line in the file, from 1, of a visible line: header block and hidden lines counted.
  std::int32_t FileLine(std::int32_t lLine) const;
  std::int32_t CountOfDeclarationLines() const;
  /// Procedures in branches of conditional compilation that aren't active: no member shows them.
  std::int32_t HiddenProcedures() const;
  bool HasProcedure(TextView name, ProcKind kind) const;
  std::int32_t ProcStartLine(TextView sName, ProcKind nKind) const;
  std::int32_t ProcBodyLine(TextView sName, ProcKind nKind) const;
  std::int32_t ProcCountLines(TextView sName, ProcKind nKind) const;
  void DeleteLines(std::int32_t lStart, std::int32_t lCount);
  void InsertLines(std::int32_t lLine, TextView sText);

  /// What Members shows, in file order: one entry per name (a property once for all its kinds).
  struct MemberInfo {
    Text sName;
    MemberType nType = MemberType::Method;
    MemberScope nScope = MemberScope::Unset;
    std::int32_t lLine = 0;  ///< visible line of the declaration, from 1
  };
  std::int32_t MemberCount() const;
  /// lIndex from 1. Members keep their index when a procedure is rewritten.
  MemberInfo MemberAt(std::int32_t lIndex) const;
  /// Another number whenever members may stand at other indices.
  std::uint32_t MembersVersion() const;
  /// True when the member at lIndex (any number) has that name, in that case, and type.
  bool IsMember(std::int32_t lIndex, TextView sName, MemberType nType) const;
  AttributeValue Attribute(std::int32_t lMember, MemberAttribute eAttribute) const;
  void SetAttribute(std::int32_t lMember, MemberAttribute eAttribute, const AttributeValue& oValue);

  /// True when Bytes() differs from the bytes that were read or last saved.
  bool IsChanged() const;
  /// The whole file as it has to be written.
  std::string Bytes() const;
  std::string SavedBytes() const;
  /// The present bytes are on disk now.
  void MarkSaved();
  const CodePage& Page() const;

 private:
  struct Impl;
  std::unique_ptr<Impl> mpImpl;
};
