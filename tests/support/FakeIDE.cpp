#include "FakeIDE.h"

#include <algorithm>

#include "MXString.h"

namespace {

std::vector<Text> Split(TextView sText, TextView sMark) {
  std::vector<Text> asLine;
  if (sText.empty()) return asLine;
  for (std::size_t i = 0;;) {
    const std::size_t lEnd = sText.find(sMark, i);
    asLine.emplace_back(sText.substr(i, lEnd - i));
    if (lEnd == TextView::npos) return asLine;
    i = lEnd + sMark.size();
  }
}

Text Join(const std::vector<Text>& asLine, std::size_t lFirst, std::size_t lCount, TextView sMark) {
  Text sText;
  for (std::size_t i = lFirst; i < lFirst + lCount; ++i) {
    if (i > lFirst) sText.append(sMark);
    sText.append(asLine.at(i));
  }
  return sText;
}

/// What a line declares: type of the member, kind of the procedure, scope and name.
struct Declared {
  std::int32_t nType = 0, nKind = 0, nScope = 2;
  Text sName;
};

Declared Classify(TextView sLine) {
  Declared oFound;
  TextArray asWord;
  MXString::StringTokenize(MXString::FullTrim(sLine), asWord, u" ", true);
  std::size_t i = 1;
  const auto Is = [&](TextView sWord) { return i < asWord.size() && asWord[i] == sWord; };
  if (Is(u"Private") || Is(u"Public") || Is(u"Friend") || Is(u"Dim")) {
    oFound.nScope = Is(u"Public") ? 2 : Is(u"Friend") ? 3 : 1;
    oFound.nType = 3;
    ++i;
  }
  if (Is(u"Declare")) ++i, oFound.nKind = -1;
  if (Is(u"WithEvents")) ++i;
  if (Is(u"Const") || Is(u"Event")) {
    oFound.nType = Is(u"Const") ? 5 : 4;
    ++i;
  } else if (Is(u"Sub") || Is(u"Function")) {
    oFound.nType = 1;
    ++i;
  } else if (Is(u"Property")) {
    oFound.nType = 2;
    ++i;
    oFound.nKind = Is(u"Let") ? 1 : Is(u"Set") ? 2 : 3;
    ++i;
  }
  if (oFound.nType == 0 || i >= asWord.size()) return {};
  oFound.sName = asWord[i].substr(0, asWord[i].find(u'('));
  return oFound;
}

bool IsEnd(TextView sLine) {
  const Text sFolded = LowerCase(MXString::FullTrim(sLine));
  return sFolded.starts_with(u"end sub") || sFolded.starts_with(u"end function") ||
         sFolded.starts_with(u"end property");
}

std::string Numbers(std::int32_t lFirst, std::int32_t lSecond) {
  return std::to_string(lFirst) + "," + std::to_string(lSecond);
}

}  // namespace

void FakeLog::Fail(const std::string& sOperation, int nCall, std::int32_t lNumber, Half eHalf) {
  moFaults[sOperation] = {nCall, lNumber, eHalf};
}

bool FakeLog::Ask(const std::string& sOperation, const std::string& sDetail) {
  asAsked.push_back(sDetail.empty() ? sOperation : sOperation + " " + sDetail);
  const auto oFound = moFaults.find(sOperation);
  if (oFound == moFaults.end()) return false;
  const Fault oFault = oFound->second;
  if (oFault.nCall > 1) {
    --oFound->second.nCall;
    return false;
  }
  if (oFault.nCall == 1) moFaults.erase(oFound);
  if (oFault.eHalf == Half::Done) return true;
  throw Failure(oFault.lNumber, FromUtf8(sOperation + " failed"), u"FakeIDE");
}

int FakeLog::Count(const std::string& sStart) const {
  return static_cast<int>(std::count_if(asAsked.begin(), asAsked.end(),
                                        [&](const auto& s) { return s.starts_with(sStart); }));
}

std::vector<FakeSource::Proc> FakeSource::Procs() const {
  std::vector<Proc> oProcs;
  bool bInside = false;
  std::int32_t lStart = 0, lLine = 0;
  for (const Text& sLine : asLine) {
    ++lLine;
    const Declared oFound = Classify(sLine);
    if (!bInside && oFound.nKind >= 0 && (oFound.nType == 1 || oFound.nType == 2)) {
      // The declarations end at the last line with code; what follows leads the first procedure.
      if (oProcs.empty()) {
        lStart = lLine;
        while (lStart > 1 && asLine[static_cast<std::size_t>(lStart) - 2].starts_with(u'\'')) {
          --lStart;
        }
      }
      oProcs.push_back({oFound.sName, oFound.nKind, lStart, lLine, 0});
      bInside = true;
    }
    if (!bInside) continue;
    oProcs.back().lEnd = lLine;
    if (!IsEnd(sLine)) continue;
    bInside = false;
    lStart = lLine + 1;
  }
  if (!oProcs.empty()) oProcs.back().lEnd = lLine;
  return oProcs;
}

FakeSource::Proc FakeSource::Find(TextView sName, std::int32_t nKind) const {
  for (const Proc& oProc : Procs()) {
    if (oProc.sName == sName && oProc.nKind == nKind) return oProc;
  }
  throw Failure(35);
}

std::int32_t FakeMember::CodeLocation() const {
  std::int32_t lLine = 0;
  for (const Text& sLine : moModule.pSource->asLine) {
    ++lLine;
    if (Classify(sLine).sName == msName) return lLine;
  }
  return 0;
}

Members& FakeMember::Parent() const {
  return moModule.Members();
}

AttributeValue FakeMember::Attribute(MemberAttribute eAttribute) const {
  moModule.oLog.Ask("Attribute");
  const auto oFound = oAttributes.find(eAttribute);
  if (oFound == oAttributes.end()) throw Failure(380);
  return oFound->second;
}

void FakeMember::SetAttribute(MemberAttribute eAttribute, const AttributeValue& oValue) {
  moModule.oLog.Ask("SetAttribute", std::to_string(static_cast<int>(eAttribute)));
  oAttributes[eAttribute] = oValue;
}

Member& FakeMembers::Item(std::int32_t lIndex) {
  if (lIndex < 1 || lIndex > Count()) throw Failure(9);
  return oItems[static_cast<std::size_t>(lIndex) - 1];
}

CodeModule& FakeMembers::Parent() const {
  return moModule;
}

FakeModule::FakeModule(VBComponent& oOwner, FakeLog& oTheLog,
                       std::shared_ptr<FakeSource> pTheSource)
    : oLog(oTheLog), pSource(std::move(pTheSource)), moOwner(oOwner), moMembers(*this) {
  bool bInside = false;
  for (const Text& sLine : pSource->asLine) {
    const Declared oFound = Classify(sLine);
    if (!bInside && oFound.nType != 0) AddMember(oFound.sName, oFound.nType, oFound.nScope);
    const bool bHead = oFound.nKind >= 0 && (oFound.nType == 1 || oFound.nType == 2);
    bInside = (bInside || bHead) && !IsEnd(sLine);
  }
}

void FakeModule::AddMember(Text sName, std::int32_t nType, std::int32_t nScope) {
  for (const FakeMember& oMember : moMembers.oItems) {
    if (oMember.Name() == sName) return;
  }
  moMembers.oItems.emplace_back(*this, std::move(sName), nType, nScope);
}

Text FakeModule::Lines(std::int32_t lStart, std::int32_t lCount) const {
  oLog.Ask("Lines", Numbers(lStart, lCount));
  if (lStart < 1 || lCount < 1 || lStart + lCount - 1 > CountOfLines()) throw Failure(9);
  return Join(pSource->asLine, static_cast<std::size_t>(lStart) - 1,
              static_cast<std::size_t>(lCount), CrLf);
}

std::int32_t FakeModule::CountOfLines() const {
  oLog.Ask("CountOfLines");
  return static_cast<std::int32_t>(pSource->asLine.size());
}

std::int32_t FakeModule::CountOfDeclarationLines() const {
  oLog.Ask("CountOfDeclarationLines");
  const auto oProcs = pSource->Procs();
  return oProcs.empty() ? CountOfLines() : oProcs.front().lStart - 1;
}

std::int32_t FakeModule::ProcStartLine(TextView sName, ProcKind nKind) const {
  oLog.Ask("ProcStartLine");
  return pSource->Find(sName, nKind).lStart;
}

std::int32_t FakeModule::ProcBodyLine(TextView sName, ProcKind nKind) const {
  oLog.Ask("ProcBodyLine", ToUtf8(sName));
  for (const Text& sLine : pSource->asLine) {
    const Declared oFound = Classify(sLine);
    if (oFound.nKind == -1 && oFound.sName == sName && nKind == 0) return 1;
  }
  return pSource->Find(sName, nKind).lBody;
}

std::int32_t FakeModule::ProcCountLines(TextView sName, ProcKind nKind) const {
  oLog.Ask("ProcCountLines");
  const FakeSource::Proc oProc = pSource->Find(sName, nKind);
  return oProc.lEnd - oProc.lStart + 1;
}

void FakeModule::DeleteLines(std::int32_t lStart, std::int32_t lCount) {
  const bool bHalf = oLog.Ask("DeleteLines", Numbers(lStart, lCount));
  if (lStart < 1 || lStart + lCount - 1 > CountOfLines()) throw Failure(9);
  const auto oFirst = pSource->asLine.begin() + (lStart - 1);
  pSource->asLine.erase(oFirst, oFirst + (bHalf ? 1 : lCount));
  if (bHalf) throw Failure(70, u"DeleteLines failed", u"FakeIDE");
}

void FakeModule::InsertLines(std::int32_t lLine, TextView sText) {
  const bool bHalf = oLog.Ask("InsertLines", std::to_string(lLine));
  // IDEs differ in what they make of it: no caller may rely on any.
  if (sText.ends_with(CrLf)) throw Failure(5, u"Inserted text ends in a line end");
  std::vector<Text> asNew = Split(sText, CrLf);
  if (asNew.empty()) asNew.emplace_back();
  if (bHalf) asNew.resize(1);
  const auto lPlace = std::min(static_cast<std::ptrdiff_t>(lLine) - 1,
                               static_cast<std::ptrdiff_t>(pSource->asLine.size()));
  pSource->asLine.insert(pSource->asLine.begin() + lPlace, asNew.begin(), asNew.end());
  if (bHalf) throw Failure(70, u"InsertLines failed", u"FakeIDE");
}

Members& FakeModule::Members() {
  oLog.Ask("Members");
  return moMembers;
}

Text FakeModule::ItemName(std::int32_t lIndex) const {
  return asControl.at(static_cast<std::size_t>(lIndex) - 1);
}

FakeMember& FakeModule::MemberOf(TextView sName) {
  for (FakeMember& oMember : moMembers.oItems) {
    if (oMember.Name() == sName) return oMember;
  }
  throw Failure(9);
}

Text FakeComponent::FileNames(std::int32_t nIndex) const {
  return asFile.at(static_cast<std::size_t>(nIndex) - 1);
}

CodeModule* FakeComponent::CodeModule() {
  oModule.oLog.Ask("CodeModule", ToUtf8(sName));
  oModule.oLog.Ask("CodeModule of " + ToUtf8(sName));
  return &oModule;
}

VBControls* FakeComponent::DesignerControls() {
  oModule.oLog.Ask("DesignerControls");
  return &oModule;
}

Text FakeComponent::Code() const {
  return Join(oModule.pSource->asLine, 0, oModule.pSource->asLine.size(), u"\n");
}

void FakeComponent::SetCode(TextView sCode) {
  oModule.pSource->asLine = Split(sCode, u"\n");
}

VBComponent& FakeProject::Item(std::int32_t lIndex) {
  if (lIndex < 1 || lIndex > Count()) throw Failure(9);
  return oComponents[static_cast<std::size_t>(lIndex) - 1];
}

FakeProject& FakeIDE::AddProject(Text sName, std::int32_t nType) {
  return moProjects.emplace_back(std::move(sName), nType);
}

FakeComponent& FakeIDE::Add(Text sName, std::int32_t nType, TextView sCode) {
  if (moProjects.empty()) AddProject(u"Project1", 0);
  auto pSource = std::make_shared<FakeSource>();
  pSource->asLine = Split(sCode, u"\n");
  FakeProject& oProject = moProjects.back();
  return oProject.oComponents.emplace_back(oProject, oLog, std::move(sName), nType,
                                           std::move(pSource));
}

FakeComponent& FakeIDE::AddShared(Text sName, FakeComponent& oFirst) {
  FakeProject& oProject = moProjects.back();
  return oProject.oComponents.emplace_back(oProject, oLog, std::move(sName), oFirst.nType,
                                           oFirst.oModule.pSource);
}

VBProject& FakeIDE::Item(std::int32_t lIndex) {
  if (lIndex < 1 || lIndex > Count()) throw Failure(9);
  return moProjects[static_cast<std::size_t>(lIndex) - 1];
}
