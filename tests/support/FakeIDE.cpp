#include "FakeIDE.h"

#include <algorithm>

#include "MXString.h"

namespace {

std::shared_ptr<SourceDocument> Document(TextView sCode) {
  const std::string sBytes = ToUtf8(MXString::StringReplace(sCode, u"\n", CrLf));
  return std::make_shared<SourceDocument>(sBytes, CodePage::Get("1252"), true,
                                          std::vector<CondConstant>());
}

}  // namespace

void FakeLog::Fail(const std::string& sOperation, int nCall, Half eHalf) {
  moFaults[sOperation] = {nCall, eHalf};
}

bool FakeLog::Ask(const std::string& sOperation) {
  ++moCounts[sOperation];
  const auto oFound = moFaults.find(sOperation);
  if (oFound == moFaults.end() || (oFound->second.first > 1 && oFound->second.first--)) {
    return false;
  }
  const auto [nCall, eHalf] = oFound->second;
  if (nCall == 1) moFaults.erase(oFound);
  if (eHalf == Half::Done) return true;
  throw Failure(70, FromUtf8(sOperation + " failed"), u"FakeIDE");
}

FakeMembers::FakeMembers(CodeModule& oParent, SourceDocument& oDocument, FakeLog& oLog)
    : HostMembers(oParent, oDocument) {
  for (std::int32_t i = 1; i <= Count(); ++i) moItems.emplace_back(*this, oDocument, i, oLog);
}

Member& FakeMembers::Item(std::int32_t lIndex) {
  return moItems.at(static_cast<std::size_t>(lIndex) - 1);
}

void FakeModule::DeleteLines(std::int32_t lStart, std::int32_t lCount) {
  const bool bHalf = moLog.Ask("DeleteLines");
  HostCodeModule::DeleteLines(lStart, bHalf ? 1 : lCount);
  if (bHalf) throw Failure(70, u"DeleteLines failed");
}

void FakeModule::InsertLines(std::int32_t lLine, TextView sText) {
  const bool bHalf = moLog.Ask("InsertLines");
  // IDEs differ in what they make of such a text: no caller may rely on any.
  if (sText.ends_with(CrLf)) throw Failure(5, u"Inserted text ends in a line end");
  HostCodeModule::InsertLines(lLine, bHalf ? sText.substr(0, sText.find(CrLf)) : sText);
  if (bHalf) throw Failure(70, u"InsertLines failed");
}

FakeComponent::FakeComponent(VBProject& oProject, FakeLog& oLog, Text sTheName,
                             ComponentType nTheType, std::shared_ptr<SourceDocument> pTheDocument)
    : sName(std::move(sTheName)),
      nType(nTheType),
      pDocument(std::move(pTheDocument)),
      moProject(oProject),
      moLog(oLog),
      moModule(*this, *pDocument, oLog) {}

Text FakeComponent::Code() const {
  const std::int32_t lCount = pDocument->CountOfLines();
  const Text sCode = lCount > 0 ? pDocument->Lines(1, lCount) : Text();
  return MXString::StringReplace(sCode, CrLf, u"\n");
}

void FakeComponent::SetCode(TextView sCode) {
  pDocument->DeleteLines(1, pDocument->CountOfLines());
  pDocument->InsertLines(1, MXString::StringReplace(sCode, u"\n", CrLf));
}

FakeProject& FakeIDE::AddProject(Text sName, ProjectType nType) {
  return moProjects.emplace_back(std::move(sName), nType);
}

FakeComponent& FakeIDE::Add(Text sName, ComponentType nType, TextView sCode) {
  if (moProjects.empty()) AddProject(u"Project1");
  FakeProject& oProject = moProjects.back();
  return oProject.oComponents.emplace_back(oProject, oLog, std::move(sName), nType,
                                           Document(sCode));
}

FakeComponent& FakeIDE::AddShared(Text sName, const FakeComponent& oFirst) {
  FakeProject& oProject = moProjects.back();
  return oProject.oComponents.emplace_back(oProject, oLog, std::move(sName), oFirst.nType,
                                           oFirst.pDocument);
}
