#include "ModuleScan.h"

#include "ByteText.h"

const ScanResult& ModuleScan::Run(std::int32_t lFrom, std::int32_t lTo, bool bDeclarations,
                                  std::int32_t lBorder) {
  moResult.oProcedures.clear();
  moResult.oMembers.clear();
  moResult = {.oProcedures = std::move(moResult.oProcedures),
              .oMembers = std::move(moResult.oMembers),
              .lBorder = lBorder};
  mInactive.Forget();
  mePlace = bDeclarations ? Place::Declarations : Place::Between;
  mlBorderState = moConditions.State();
  mlUsedLine = lFrom - 1;
  std::int32_t l = lFrom;
  while (l <= lTo) l = Line(l) + 1;
  moResult.bOverrun = l > lTo + 1;
  moResult.bInside = !IsOutside();
  if (mePlace == Place::Procedure) ++moResult.lFaults;
  if (IsOutside()) {
    // Declarations that end in an inactive one hold it themselves: nothing follows that would not.
    const InactiveText::End& end = mInactive.AtOther();
    if (mePlace == Place::Between || end.heads > 0) LeaveOut(end);
  }
  return moResult;
}

void ModuleScan::SetBorder(std::int32_t lLine) {
  if (moResult.lBorder != 0) return;
  moResult.lBorder = lLine;
  mlBorderState = moConditions.State();
}

void ModuleScan::ForgetBorder() {
  moResult.lBorder = 0;
  mInactive.Forget();
}

// The lines from the border to the end of the inactive text become no procedure's.
void ModuleScan::LeaveOut(const InactiveText::End& end) {
  if (end.line == 0) return;
  moResult.hidden += end.heads;
  moResult.oProcedures.push_back(
      {{}, moResult.lBorder, moResult.lBorder, mlBorderState, ProcKind::Method, Access::None});
  moResult.lBorder = end.line;
  mlBorderState = end.state;
}

// Takes the logical line that begins at lLine and gives its last physical line.
std::int32_t ModuleScan::Line(std::int32_t lLine) {
  const std::string_view sLine = moLines.TextOf(lLine);
  const std::string_view sCode = SkipBlanks(sLine);
  if (!sCode.empty() && sCode[0] == '#') return Directive(lLine, sLine.size() - sCode.size());
  if (!moConditions.IsActive()) return InactiveLine(lLine, sCode);
  if (IsOutside()) return OutsideLine(lLine, sCode);
  return MayEndBody(sLine, sCode) ? Statements(lLine) : lLine;
}

std::int32_t ModuleScan::Directive(std::int32_t lLine, std::size_t lColumn) {
  const DirectiveKind kind = DirectiveOf(moLines.TextOf(lLine).substr(lColumn));
  if (!IsOutside()) return moConditions.Directive(moScan, kind, lLine, lColumn);
  SetBorder(lLine);
  const std::int32_t state = moConditions.State();
  const bool wasActive = moConditions.IsActive();
  const std::int32_t last = moConditions.Directive(moScan, kind, lLine, lColumn);
  mInactive.Take(kind, wasActive, moConditions.IsActive(), {lLine, state});
  return last;
}

std::int32_t ModuleScan::InactiveLine(std::int32_t lLine, std::string_view sCode) {
  moScan.Start(lLine);
  if (!IsOutside()) return moScan.LastLine();
  if (!sCode.empty()) mInactive.TakeLine();
  while (moScan.NextStatement()) mInactive.Take(ReadStatement(moScan));
  return moScan.LastLine();
}

std::int32_t ModuleScan::OutsideLine(std::int32_t lLine, std::string_view sCode) {
  if (sCode.empty()) {
    SetBorder(lLine);
    return lLine;
  }
  return Statements(lLine);
}

std::int32_t ModuleScan::Statements(std::int32_t lLine) {
  moScan.Start(lLine);
  while (moScan.NextStatement()) Take(ReadStatement(moScan), lLine);
  return moScan.LastLine();
}

void ModuleScan::Take(const Statement& oStatement, std::int32_t lLine) {
  if (oStatement.eKind == StatementKind::Procedure) return Head(oStatement, lLine);
  if (mePlace == Place::Procedure) {
    if (oStatement.eKind != StatementKind::EndProcedure) return;
    if (oStatement.cWord != mcWord) ++moResult.lFaults;
    return End(lLine);
  }
  if (IsOutside()) return TakeOutside(oStatement, lLine);
  const bool bType = meBlock == StatementKind::Type;
  if (oStatement.eKind == (bType ? StatementKind::EndType : StatementKind::EndEnum)) {
    mePlace = meAround;
  }
}

void ModuleScan::TakeOutside(const Statement& oStatement, std::int32_t lLine) {
  moResult.bStatements = true;
  if (mePlace == Place::Declarations)
    ForgetBorder();
  else
    SetBorder(lLine);
  mInactive.AtOther();
  switch (oStatement.eKind) {
    case StatementKind::Type:
    case StatementKind::Enum:
      meBlock = oStatement.eKind;
      meAround = mePlace;
      mePlace = Place::Block;
      break;
    case StatementKind::Declare:
      AddMember(oStatement, MemberType::Method, lLine);
      break;
    case StatementKind::Variables:
      AddNames(oStatement, MemberType::Variable, lLine);
      break;
    case StatementKind::Event:
      AddMember(oStatement, MemberType::Event, lLine);
      break;
    case StatementKind::Constants:
      AddNames(oStatement, MemberType::Constant, lLine);
      break;
    case StatementKind::EndProcedure:
      ++moResult.lFaults;
      break;
    default:
      break;
  }
}

// Of two procedures that share a line the second is passed over: it has no lines of its own.
void ModuleScan::Head(const Statement& oStatement, std::int32_t lLine) {
  if (!IsOutside()) {
    ++moResult.lFaults;
    ForgetBorder();
  }
  mePlace = Place::Procedure;
  mcWord = oStatement.cWord;
  mbListed = lLine > mlUsedLine;
  if (!mbListed) {
    ++moResult.lFaults;
    ForgetBorder();
    SetBorder(lLine + 1);
    return;
  }
  SetBorder(lLine);
  LeaveOut(mInactive.AtHead());
  mInactive.Forget();
  mlUsedLine = lLine;
  const bool bMethod = oStatement.nProcKind == ProcKind::Method;
  AddMember(oStatement, bMethod ? MemberType::Method : MemberType::Property, lLine);
  moResult.oMembers.back().lProcedure = static_cast<std::int32_t>(moResult.oProcedures.size());
  moResult.oProcedures.push_back({oStatement.oName.sText, moResult.lBorder, lLine, mlBorderState,
                                  oStatement.nProcKind, moResult.oMembers.back().eAccess});
}

void ModuleScan::End(std::int32_t lLine) {
  mePlace = Place::Between;
  if (!mbListed) return;
  mlUsedLine = lLine;
  ForgetBorder();
}

void ModuleScan::AddMember(const Statement& oStatement, MemberType nType, std::int32_t lLine) {
  const bool bPrivate =
      oStatement.eKind == StatementKind::Constants || oStatement.eKind == StatementKind::Variables;
  Access eAccess = oStatement.eAccess;
  if (eAccess == Access::None) eAccess = bPrivate ? Access::Private : Access::Public;
  moResult.oMembers.push_back({oStatement.oName.sText, lLine, -1, nType, eAccess,
                               oStatement.eKind == StatementKind::Declare});
}

void ModuleScan::AddNames(const Statement& oStatement, MemberType nType, std::int32_t lLine) {
  Statement oNext = oStatement;
  do {
    AddMember(oNext, nType, lLine);
  } while (NextName(moScan, oNext.oName));
}
