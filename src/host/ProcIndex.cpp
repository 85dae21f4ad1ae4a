// The parts in order: places of scopes and their moves; edits; scans of one scope; the scan of
// the whole module and what is stored of it; questions.
#include "ProcIndex.h"

#include <algorithm>

namespace {

std::uint32_t HashOf(TextView sName) {
  std::uint32_t lHash = 2166136261U;
  for (const char16_t c : sName) lHash = (lHash ^ LowerCase(c)) * 16777619U;
  return lHash;
}

int Width(Access eAccess) {
  return eAccess == Access::Public ? 2 : eAccess == Access::Friend ? 1 : 0;
}

std::size_t Index(ProcKind nKind) {
  return static_cast<std::size_t>(nKind);
}

std::size_t Index(std::int32_t l) {
  return static_cast<std::size_t>(l);
}

}  // namespace

ProcIndex::ProcIndex(const LineTable& oLines, const CodePage& oPage,
                     const std::vector<CondConstant>& oConstants)
    : moLines(oLines),
      moPage(oPage),
      moScan(oLines, oPage),
      moConditions(oConstants, oPage),
      moModule(oLines, moScan, moConditions),
      moScopes(1) {}

std::int32_t ProcIndex::Start(std::int32_t lScope) const {
  return moScopes[Index(lScope)].lStart + (lScope > mlMoved ? mlShift : 0);
}

// The first line behind a scope.
std::int32_t ProcIndex::Behind(std::int32_t lScope) const {
  const bool bLast = Index(lScope) + 1 == moScopes.size();
  return bLast ? moLines.Count() + 1 : Start(lScope + 1);
}

// Makes lScope the last one that needs no shift.
void ProcIndex::MoveShift(std::int32_t lScope) {
  for (; mlMoved < lScope; ++mlMoved) moScopes[Index(mlMoved) + 1].lStart += mlShift;
  for (; mlMoved > lScope; --mlMoved) moScopes[Index(mlMoved)].lStart -= mlShift;
}

// Scopes that hold no line share their start with the next one; that one is given.
std::int32_t ProcIndex::ScopeOf(std::int32_t lLine) const {
  std::int32_t lLow = 0;
  auto lHigh = static_cast<std::int32_t>(moScopes.size()) - 1;
  while (lLow < lHigh) {
    const std::int32_t lMiddle = lLow + (lHigh - lLow + 1) / 2;
    if (Start(lMiddle) <= lLine)
      lLow = lMiddle;
    else
      lHigh = lMiddle - 1;
  }
  return lLow;
}

void ProcIndex::NoteEdit(std::int32_t lLine, std::int32_t lRemoved, std::int32_t lAdded) {
  if (mbAllDirty) return;
  const std::int32_t lDelta = lAdded - lRemoved;
  const std::int32_t lLast = lLine + std::max(lRemoved, 1) - 1;
  // The line table has changed already: the last scope ended lDelta lines away from where it does.
  const auto fEnd = [&](std::int32_t lScope) {
    const bool bLast = Index(lScope) + 1 == moScopes.size();
    return Behind(lScope) - (bLast ? lDelta : 0);
  };
  std::int32_t lScope = mlDirty;
  const bool bDirty = lScope >= 0 && lLine >= Start(lScope) && lLine <= fEnd(lScope);
  if (!bDirty) lScope = ScopeOf(lLine);
  if ((mlDirty >= 0 && mlDirty != lScope) || (lRemoved > 0 && lLast >= fEnd(lScope))) {
    mbAllDirty = true;
    return;
  }
  MoveShift(lScope);
  mlShift += lDelta;
  mnEdits = mlDirty < 0 ? 1 : mnEdits + 1;
  mlDirty = lScope;
}

void ProcIndex::NotePlain(std::int32_t lFirst) {
  if (mbAllDirty || mbFaulty || mlDirty < 1 || mnEdits != 2) return;
  if (moScopes[Index(mlDirty)].bStray) return;
  if (moConditions.Mode() != ConditionalCode::Reading::Values) return;
  if (lFirst > Start(mlDirty) + moScopes[Index(mlDirty)].lBody) mlDirty = -1;
}

void ProcIndex::Update() {
  if (!mbAllDirty && mlDirty < 0) return;
  if (mbAllDirty || !ScanScope(mlDirty)) ScanAll();
  mbAllDirty = false;
  mlDirty = -1;
}

// Only the reading by values is sure to stay the right one, and only behind an end that was found
// the lines of the next procedure can be told without a look at those before.
bool ProcIndex::ScanScope(std::int32_t lScope) {
  if (mbFaulty || moConditions.Mode() != ConditionalCode::Reading::Values) return false;
  moConditions.SetState(moScopes[Index(lScope)].lState);
  const bool bFits = lScope == 0 ? ScanDeclarations() : ScanProcedure(lScope);
  return !moConditions.TakeConstSeen() && bFits;
}

bool ProcIndex::EndsAsBefore(std::int32_t lScope, const ScanResult& oResult) {
  if (oResult.lFaults > 0 || oResult.bInside || oResult.bOverrun) return false;
  if (Index(lScope) + 1 == moScopes.size()) return moConditions.IsSound();
  if (moConditions.HasOrphan()) return false;
  return oResult.lBorder == 0 && moConditions.State() == moScopes[Index(lScope) + 1].lState;
}

bool ProcIndex::ScanDeclarations() {
  const ScanResult& oResult = moModule.Run(1, Behind(0) - 1, true, 1);
  if (!oResult.oProcedures.empty() || !EndsAsBefore(0, oResult)) return false;
  if (!SameMembers(oResult)) StoreDeclarations(oResult);
  return true;
}

bool ProcIndex::ScanProcedure(std::int32_t lScope) {
  const std::int32_t lStart = Start(lScope);
  const bool bBehindNothing = lScope == 1 && lStart == 1;
  const ScanResult& oResult =
      moModule.Run(lStart, Behind(lScope) - 1, lScope == 1, bBehindNothing ? 1 : 0);
  if (!EndsAsBefore(lScope, oResult) || oResult.bStatements) return false;
  if (oResult.oProcedures.size() != 1) return false;
  const ScannedProcedure& oNew = oResult.oProcedures.front();
  Scope& oScope = moScopes[Index(lScope)];
  if (oScope.bStray || oScope.lMember < 0 || oNew.nKind != oScope.nKind ||
      oNew.eAccess != oScope.eAccess) {
    return false;
  }
  msName.clear();
  moPage.Decode(oNew.sName, msName);
  if (!Same(msName, NameOf(moMembers[Index(oScope.lMember)]))) return false;
  // New comments at the top may belong to the scope above.
  oScope.lStart += oNew.lStart - lStart;
  oScope.lBody = oNew.lBody - oNew.lStart;
  oScope.lState = oNew.lState;
  return true;
}

const ScanResult& ProcIndex::ScanBy(ConditionalCode::Reading eReading) {
  moConditions.Reset(eReading);
  return moModule.Run(1, moLines.Count(), true, 1);
}

// The values of the constants decide, unless they leave heads without ends where another reading
// doesn't. Directives that don't pair say nothing: then all lines count.
void ProcIndex::ScanAll() {
  using Reading = ConditionalCode::Reading;
  std::int32_t lFaults = ScanBy(Reading::Values).lFaults;
  if (!moConditions.IsSound()) {
    ScanBy(Reading::All);
  } else if (lFaults > 0 && ScanBy(Reading::FirstBranch).lFaults > 0) {
    ScanBy(Reading::Values);
  }
  moConditions.TakeConstSeen();
  mbFaulty = moModule.Result().lFaults > 0;
  Store(moModule.Result());
  moModule.Release();
}

ProcIndex::Member ProcIndex::MadeOf(const ScannedMember& oScanned) {
  Member oMember;
  oMember.lName = static_cast<std::uint32_t>(msNames.size());
  moPage.Decode(oScanned.sName, msNames);
  oMember.lNameLength = static_cast<std::uint32_t>(msNames.size()) - oMember.lName;
  oMember.lHash = HashOf(NameOf(oMember));
  oMember.nType = oScanned.nType;
  oMember.eAccess = oScanned.eAccess;
  oMember.bDeclare = oScanned.bDeclare;
  return oMember;
}

void ProcIndex::Store(const ScanResult& oResult) {
  ++mlMembersVersion;
  mHidden = oResult.hidden;
  moScopes.assign(1, Scope());
  for (const ScannedProcedure& o : oResult.oProcedures) {
    moScopes.push_back({o.lStart, o.lBody - o.lStart, o.lState, -1, o.eAccess, o.nKind});
  }
  mlMoved = static_cast<std::int32_t>(oResult.oProcedures.size());
  mlShift = 0;
  msNames.clear();
  moMembers.clear();
  malTable.assign(16, -1);
  for (const ScannedMember& oScanned : oResult.oMembers) StoreMember(oScanned);
  moMembers.shrink_to_fit();
  moScopes.shrink_to_fit();
}

// A second procedure of one name and kind can't be reached by its name, so it is no member.
void ProcIndex::StoreMember(const ScannedMember& oScanned) {
  Member oNew = MadeOf(oScanned);
  const bool bDeclaration = oScanned.lProcedure < 0;
  const std::int32_t lScope = bDeclaration ? ScopeOf(oScanned.lLine) : oScanned.lProcedure + 1;
  oNew.lScope = lScope;
  oNew.lLine = oScanned.lLine - Start(lScope);
  std::int32_t lMember = -1;
  if (!bDeclaration) lMember = FindMember(NameOf(oNew), oNew.lHash, oNew.nType);
  if (lMember < 0) {
    lMember = static_cast<std::int32_t>(moMembers.size());
    moMembers.push_back(oNew);
    Enter(lMember);
  }
  if (bDeclaration) {
    moScopes[Index(lScope)].bStray = true;
    return;
  }
  Scope& oScope = moScopes[Index(lScope)];
  Member& oMember = moMembers[Index(lMember)];
  std::int32_t& lKnown = oMember.alScope[Index(oScope.nKind)];
  if (lKnown != 0 || oMember.bDeclare) return;
  lKnown = lScope;
  oScope.lMember = lMember;
  if (Width(oScope.eAccess) > Width(oMember.eAccess)) oMember.eAccess = oScope.eAccess;
}

// New declarations in the place of the old ones, which stand first of all members.
void ProcIndex::StoreDeclarations(const ScanResult& oResult) {
  ++mlMembersVersion;
  std::vector<Member> oNew;
  for (const ScannedMember& oScanned : oResult.oMembers) {
    oNew.push_back(MadeOf(oScanned));
    oNew.back().lLine = oScanned.lLine - 1;
  }
  const auto pEnd = std::find_if(moMembers.begin(), moMembers.end(),
                                 [](const Member& o) { return o.lScope != 0; });
  const std::ptrdiff_t lDelta = std::ssize(oNew) - (pEnd - moMembers.begin());
  moMembers.insert(moMembers.erase(moMembers.begin(), pEnd), oNew.begin(), oNew.end());
  for (Scope& oScope : moScopes) {
    if (oScope.lMember >= 0) oScope.lMember += static_cast<std::int32_t>(lDelta);
  }
  FillTable(malTable.size());
}

// The usual case behind a rewrite of the declarations: only lines have moved.
bool ProcIndex::SameMembers(const ScanResult& oResult) {
  const std::size_t lCount = oResult.oMembers.size();
  if (lCount < moMembers.size() ? moMembers[lCount].lScope == 0 : lCount > moMembers.size()) {
    return false;
  }
  for (std::size_t l = 0; l < lCount; ++l) {
    const ScannedMember& oNew = oResult.oMembers[l];
    const Member& oOld = moMembers[l];
    msName.clear();
    moPage.Decode(oNew.sName, msName);
    if (oOld.lScope != 0 || !Same(msName, NameOf(oOld)) || oNew.nType != oOld.nType ||
        oNew.eAccess != oOld.eAccess || oNew.bDeclare != oOld.bDeclare) {
      return false;
    }
  }
  for (std::size_t l = 0; l < lCount; ++l) moMembers[l].lLine = oResult.oMembers[l].lLine - 1;
  return true;
}

void ProcIndex::Enter(std::int32_t lMember) {
  if (2 * Index(lMember) + 2 > malTable.size()) return FillTable(2 * malTable.size());
  std::size_t l = moMembers[Index(lMember)].lHash;
  while (malTable[l & (malTable.size() - 1)] >= 0) ++l;
  malTable[l & (malTable.size() - 1)] = lMember;
}

void ProcIndex::FillTable(std::size_t lSize) {
  while (lSize < 2 * moMembers.size()) lSize *= 2;
  malTable.assign(lSize, -1);
  for (std::size_t l = 0; l < moMembers.size(); ++l) Enter(static_cast<std::int32_t>(l));
}

std::int32_t ProcIndex::FindMember(TextView sName, std::uint32_t lHash, MemberType nType) const {
  const std::size_t lMask = malTable.size() - 1;
  for (std::size_t l = lHash; malTable[l & lMask] >= 0; ++l) {
    const std::int32_t lMember = malTable[l & lMask];
    const Member& o = moMembers[Index(lMember)];
    if (o.lHash == lHash && o.nType == nType && EqualNoCase(NameOf(o), sName)) return lMember;
  }
  return -1;
}

// A caller asks for the start, the head and the length of one procedure behind one another.
std::int32_t ProcIndex::LookUp(TextView sName, bool bProperty) {
  Update();
  if (moLast.lVersion != mlMembersVersion || moLast.bProperty != bProperty ||
      !Same(moLast.sName, sName)) {
    const std::int32_t lMember =
        FindMember(sName, HashOf(sName), bProperty ? MemberType::Property : MemberType::Method);
    moLast = {Text(sName), lMember, mlMembersVersion, bProperty};
  }
  return moLast.lMember;
}

std::int32_t ProcIndex::Find(TextView sName, ProcKind nKind) {
  if (nKind > ProcKind::Get) return 0;
  const std::int32_t lMember = LookUp(sName, nKind != ProcKind::Method);
  return lMember < 0 ? 0 : moMembers[Index(lMember)].alScope[Index(nKind)];
}

bool ProcIndex::IsDeclare(TextView sName) {
  const std::int32_t lMember = LookUp(sName, false);
  return lMember >= 0 && moMembers[Index(lMember)].bDeclare;
}

std::int32_t ProcIndex::StartLine(std::int32_t lScope) {
  Update();
  return Start(lScope);
}

std::int32_t ProcIndex::BodyLine(std::int32_t lScope) {
  return StartLine(lScope) + moScopes[Index(lScope)].lBody;
}

std::int32_t ProcIndex::LineCount(std::int32_t lScope) {
  Update();
  return Behind(lScope) - Start(lScope);
}

std::uint32_t ProcIndex::MembersVersion() {
  Update();
  return mlMembersVersion;
}

std::int32_t ProcIndex::HiddenProcedures() {
  Update();
  return mHidden;
}

std::int32_t ProcIndex::MemberCount() {
  Update();
  return static_cast<std::int32_t>(moMembers.size());
}

SourceDocument::MemberInfo ProcIndex::MemberAt(std::int32_t lMember) {
  Update();
  const Member& o = moMembers[Index(lMember) - 1];
  return {Text(NameOf(o)), o.nType, static_cast<MemberScope>(o.eAccess),
          DeclarationsOf(lMember).begin()->lLine};
}

bool ProcIndex::IsMember(std::int32_t lMember, TextView sName, MemberType nType) {
  if (lMember < 1 || lMember > MemberCount()) return false;
  const Member& o = moMembers[Index(lMember) - 1];
  return o.nType == nType && Same(NameOf(o), sName);
}

ProcIndex::Declarations ProcIndex::DeclarationsOf(std::int32_t lMember) {
  Update();
  const Member& o = moMembers[Index(lMember) - 1];
  Declarations oFound;
  const auto fPut = [&](const Declaration& oNew) {
    std::size_t l = oFound.lCount++;
    for (; l > 0 && oFound.aoPlace[l - 1].lLine > oNew.lLine; --l) {
      oFound.aoPlace[l] = oFound.aoPlace[l - 1];
    }
    oFound.aoPlace[l] = oNew;
  };
  for (const ProcKind nKind : MQuillon::CodeKinds) {
    const std::int32_t lScope = o.alScope[Index(nKind)];
    if (lScope > 0) fPut({BodyLine(lScope), nKind});
  }
  if (oFound.lCount == 0) fPut({Start(o.lScope) + o.lLine, ProcKind::Method});
  for (std::size_t l = 0; l < oFound.lCount; ++l) {
    if (oFound.aoPlace[l].nKind == ProcKind::Get) oFound.lGet = l;
  }
  return oFound;
}
