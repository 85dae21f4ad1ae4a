// One pass over visible lines that finds procedures, members and the borders between the lines of
// one procedure and the next. A procedure's lines begin at the first blank, directive or
// declaration line behind the end of the one before it; comments glued to that end stay above.
// Where text of an inactive branch stands between them, that belongs to neither, and the lines of
// the next procedure begin at the directive that ends it.
#pragma once

#include <cstdint>
#include <vector>

#include "ConditionalCode.h"
#include "InactiveText.h"
#include "MemberScan.h"

/// Names are views into the bytes: good until the line table adds text. Without a name: lines that
/// are no procedure's.
struct ScannedProcedure {
  std::string_view sName;
  std::int32_t lStart = 0;
  std::int32_t lBody = 0;
  std::int32_t lState = 0;  ///< of conditional compilation, ahead of lStart
  ProcKind nKind = ProcKind::Method;
  Access eAccess = Access::Public;
};

struct ScannedMember {
  std::string_view sName;
  std::int32_t lLine = 0;
  std::int32_t lProcedure = -1;  ///< index of its procedure in the same result
  MemberType nType = MemberType::Method;
  Access eAccess = Access::Public;
  bool bDeclare = false;
};

struct ScanResult {
  std::vector<ScannedProcedure> oProcedures;
  std::vector<ScannedMember> oMembers;
  std::int32_t lFaults = 0;  ///< heads and ends that don't pair
  std::int32_t hidden = 0;   ///< procedures in inactive branches
  std::int32_t lBorder = 0;  ///< where the next procedure's lines would begin; 0: not yet met
  bool bInside = false;      ///< the range ends in a procedure or a block
  bool bStatements = false;  ///< code outside of procedures was met
  bool bOverrun = false;     ///< the last statement goes on behind the range
};

class ModuleScan {
 public:
  ModuleScan(const LineTable& oLines, LexicalScan& oScan, ConditionalCode& oConditions)
      : moLines(oLines), moScan(oScan), moConditions(oConditions) {}

  /// bDeclarations: the range begins in the declarations section, else behind a procedure.
  /// lBorder: as in ScanResult, at the start. The state of oConditions is taken as it is.
  const ScanResult& Run(std::int32_t lFrom, std::int32_t lTo, bool bDeclarations,
                        std::int32_t lBorder);
  const ScanResult& Result() const { return moResult; }
  /// Gives back the memory of a big result.
  void Release() { moResult = {}; }

 private:
  enum class Place { Declarations, Between, Procedure, Block };

  bool IsOutside() const { return mePlace == Place::Declarations || mePlace == Place::Between; }
  std::int32_t Line(std::int32_t lLine);
  std::int32_t Directive(std::int32_t lLine, std::size_t lColumn);
  std::int32_t InactiveLine(std::int32_t lLine, std::string_view sCode);
  std::int32_t Statements(std::int32_t lLine);
  std::int32_t OutsideLine(std::int32_t lLine, std::string_view sCode);
  void Take(const Statement& oStatement, std::int32_t lLine);
  void TakeOutside(const Statement& oStatement, std::int32_t lLine);
  void Head(const Statement& oStatement, std::int32_t lLine);
  void End(std::int32_t lLine);
  void SetBorder(std::int32_t lLine);
  void ForgetBorder();
  void LeaveOut(const InactiveText::End& end);
  void AddNames(const Statement& oStatement, MemberType nType, std::int32_t lLine);
  void AddMember(const Statement& oStatement, MemberType nType, std::int32_t lLine);

  const LineTable& moLines;
  LexicalScan& moScan;
  ConditionalCode& moConditions;
  ScanResult moResult;
  InactiveText mInactive;  // since the border
  Place mePlace = Place::Declarations;
  Place meAround = Place::Declarations;  // of the block that the scan is in
  StatementKind meBlock = StatementKind::Type;
  std::int32_t mlBorderState = 0;
  std::int32_t mlUsedLine = 0;  // where a procedure already begins or ends
  char mcWord = '\0';
  bool mbListed = true;
};
