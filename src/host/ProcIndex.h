// The index of a module: which visible lines belong to which procedure, and the members. Scope 0
// is the declarations section, scope n the n-th procedure or a stretch of lines that no procedure
// has; together they hold every line.
//
// An edit inside one scope costs a new look at that scope alone, and only when something is asked
// next: a delete with an insert behind it counts as one edit. When the new lines don't make the
// same procedure again, the module is scanned anew.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "ModuleScan.h"
#include "SourceDocument.h"

class ProcIndex {
 public:
  ProcIndex(const LineTable& oLines, const CodePage& oPage,
            const std::vector<CondConstant>& oConstants);

  /// To be called for each change of lines, behind it: lRemoved lines from lLine on went, then
  /// lAdded lines were put in ahead of lLine.
  void NoteEdit(std::int32_t lLine, std::int32_t lRemoved, std::int32_t lAdded);

  /// To be called behind NoteEdit for lines that were put in where others had just gone: from
  /// lFirst on they differ in plain lines alone, and not in the last one. Inside a procedure such
  /// an edit costs no new look.
  void NotePlain(std::int32_t lFirst);

  /// Scope of a procedure; 0 when there is none of that name and kind.
  std::int32_t Find(TextView sName, ProcKind nKind);
  bool IsDeclare(TextView sName);
  std::int32_t StartLine(std::int32_t lScope);
  std::int32_t BodyLine(std::int32_t lScope);
  std::int32_t LineCount(std::int32_t lScope);

  std::int32_t MemberCount();
  /// Another number whenever members may stand at other indices.
  std::uint32_t MembersVersion();
  /// lMember from 1.
  SourceDocument::MemberInfo MemberAt(std::int32_t lMember);
  bool IsMember(std::int32_t lMember, TextView sName, MemberType nType);
  struct Declaration {
    std::int32_t lLine = 0;
    ProcKind nKind = ProcKind::Method;
  };
  /// Where a member is declared, in file order: of a property one place for each accessor.
  struct Declarations {
    std::array<Declaration, 4> aoPlace;
    std::size_t lCount = 0;
    std::size_t lGet = 0;  ///< index of the Property Get, or 0
    const Declaration* begin() const { return aoPlace.data(); }
    const Declaration* end() const { return aoPlace.data() + lCount; }
  };
  Declarations DeclarationsOf(std::int32_t lMember);
  /// Procedures in inactive branches: no lines of any scope that can be found.
  std::int32_t HiddenProcedures();
  LexicalScan& Scan() { return moScan; }

 private:
  struct Scope {
    std::int32_t lStart = 1;  // of scopes behind mlMoved: without mlShift
    std::int32_t lBody = 0;   // lines from lStart to the head
    std::int32_t lState = 0;  // of conditional compilation at lStart
    std::int32_t lMember = -1;
    Access eAccess = Access::None;
    ProcKind nKind = ProcKind::Method;
    bool bStray = false;  // declarations stand among its lines
  };
  struct Member {
    std::uint32_t lName = 0;  // in msNames
    std::uint32_t lNameLength = 0;
    std::uint32_t lHash = 0;
    std::int32_t lScope = 0;
    std::int32_t lLine = 0;        // from the first line of the scope, 0 being that line
    std::int32_t alScope[4] = {};  // of its procedures, by ProcKind; 0 none
    MemberType nType = MemberType::Method;
    Access eAccess = Access::None;
    bool bDeclare = false;
  };

  void Update();
  void ScanAll();
  const ScanResult& ScanBy(ConditionalCode::Reading eReading);
  bool ScanScope(std::int32_t lScope);
  bool ScanDeclarations();
  bool ScanProcedure(std::int32_t lScope);
  bool EndsAsBefore(std::int32_t lScope, const ScanResult& oResult);
  void Store(const ScanResult& oResult);
  void StoreMember(const ScannedMember& oScanned);
  void StoreDeclarations(const ScanResult& oResult);
  Member MadeOf(const ScannedMember& oScanned);
  bool SameMembers(const ScanResult& oResult);
  void Enter(std::int32_t lMember);
  void FillTable(std::size_t lSize);
  std::int32_t FindMember(TextView sName, std::uint32_t lHash, MemberType nType) const;
  std::int32_t LookUp(TextView sName, bool bProperty);
  TextView NameOf(const Member& oMember) const {
    return TextView(msNames).substr(oMember.lName, oMember.lNameLength);
  }

  std::int32_t Start(std::int32_t lScope) const;
  std::int32_t Behind(std::int32_t lScope) const;
  void MoveShift(std::int32_t lScope);
  std::int32_t ScopeOf(std::int32_t lLine) const;

  const LineTable& moLines;
  const CodePage& moPage;
  LexicalScan moScan;
  ConditionalCode moConditions;
  ModuleScan moModule;

  std::vector<Scope> moScopes;
  std::vector<Member> moMembers;
  std::vector<std::int32_t> malTable;  // members by hash of the name, open addressing; -1 free
  Text msNames;
  Text msName;  // reused
  // Scopes behind mlMoved are moved by mlShift lines: an edit needn't touch all that follow.
  std::int32_t mlMoved = 0;
  std::int32_t mlShift = 0;
  std::int32_t mlDirty = -1;
  int mnEdits = 0;  // that made mlDirty dirty
  std::uint32_t mlMembersVersion = 1;
  struct {
    Text sName;
    std::int32_t lMember = -1;
    std::uint32_t lVersion = 0;
    bool bProperty = false;
  } moLast;                  // what Find found last
  std::int32_t mHidden = 0;  // procedures
  bool mbAllDirty = true;
  bool mbFaulty = false;  // heads and ends don't pair
};
