// Turns one component into procedure records: event sources, foreign interfaces, declarations,
// methods and properties, each with the settings that its code holds.
#include <algorithm>
#include <unordered_map>

#include "CIDEHandler.h"
#include "HandlerGuard.h"
#include "LoadFailure.h"
#include "MQuillon.h"
#include "MXStringVB.h"
#include "SteppedIDE.h"

using namespace HandlerGuard;

namespace {

constexpr std::int32_t NoSuchProcedure = 35;
constexpr TextView TerminateMethod = u"Class_Terminate";
constexpr TextView ImplementsWord = u"implements ";

/// Folders whose components have a designer with controls: forms, user controls, property pages.
bool HasControls(std::int32_t lFolderType) {
  return lFolderType == 1 || lFolderType == 4 || lFolderType == 5;
}

/// The interface that a line of declarations names, in lower case; empty for any other line.
Text ImplementedInterface(TextView sLine) {
  const TextView sCode = Trim(MXStringVB::TrimVBComments(Trim(sLine)));
  if (sCode.size() <= ImplementsWord.size() ||
      !EqualNoCase(sCode.substr(0, ImplementsWord.size()), ImplementsWord)) {
    return {};
  }
  return LowerCase(Trim(sCode.substr(ImplementsWord.size())));
}

/// The first word of sLine, which becomes what follows; empty behind the last.
TextView TakeWord(TextView& sLine) {
  constexpr TextView sBlanks = u" \t";
  sLine.remove_prefix(std::min(sLine.find_first_not_of(sBlanks), sLine.size()));
  const TextView sWord = sLine.substr(0, sLine.find_first_of(sBlanks));
  sLine.remove_prefix(sWord.size());
  return sWord;
}

/// The words of sLine up to the name that it declares, in the letters of the editor, onto sHead.
/// True when the head goes on in the next line.
bool AddHeadWords(TextView sLine, Text& sHead) {
  static constexpr TextView asWord[] = {u"Public", u"Private", u"Friend",   u"Global",
                                        u"Static", u"Sub",     u"Function", u"Property",
                                        u"Get",    u"Set",     u"Let"};
  for (TextView sWord = TakeWord(sLine); !sWord.empty(); sWord = TakeWord(sLine)) {
    if (sWord == u"_") return true;
    const auto pKnown = std::find_if(std::begin(asWord), std::end(asWord),
                                     [&](TextView s) { return EqualNoCase(s, sWord); });
    if (pKnown == std::end(asWord)) break;
    sHead.append(*pKnown).append(u" ");
  }
  return false;
}

/// The kind of the procedure whose head begins in lLine; empty when there is none. Files hold heads
/// that no editor has tidied: in other letter case, with tabs and many blanks, over several lines.
Text HeadType(const SteppedModule& oModule, std::int32_t lLine) {
  Text sLine = oModule.Lines(lLine, 1);
  const Text sType = MQuillon::ProcTypeName(sLine);
  if (!sType.empty()) return sType;
  const auto lCount = oModule.CountOfLines();
  Text sHead;
  while (AddHeadWords(sLine, sHead) && ++lLine <= lCount) sLine = oModule.Lines(lLine, 1);
  return MQuillon::ProcTypeName(sHead);
}

template <class Visit>
void ForEachLine(TextView sText, Visit&& oVisit) {
  for (std::size_t lStart = 0; lStart < sText.size();) {
    const std::size_t lEnd = std::min(sText.find(CrLf, lStart), sText.size());
    oVisit(sText.substr(lStart, lEnd - lStart));
    lStart = lEnd + CrLf.size();
  }
}

template <class Choice>
void InheritId(Choice eOwn, Choice eModule, CProcSettings& oFresh,
               void (CProcSettings::*Set)(Choice), bool& bInherited) {
  if (eOwn != Choice::Unset) return;
  (oFresh.*Set)(eModule);
  bInherited = eModule != Choice::Unset;
}

}  // namespace

/// What one load needs beside the records.
struct CIDEHandler::Loading {
  GuardScope& oScope;
  ComponentHandle hComponent;
  ComponentRecord& oRecord;
  CodeModule& oModule;
  std::int32_t lDeclarationLines = 0;
  /// Places of the members that have a record, so that none is read twice.
  std::unordered_set<std::int32_t> oLocations;
  /// The event sources by name, the first of each; views into the model's list.
  std::unordered_map<TextView, std::int32_t> oSources;
};

void CIDEHandler::LoadComponent(ComponentHandle hComponent) {
  const Routine oRoutine{u"CIDEHandler", u"LoadComponent", ErrorIds::BoundaryFirewall};
  Guard(oRoutine, [&](GuardScope& oScope) {
    ComponentRecord& oRecord = ComponentAt(hComponent);
    if (oRecord.bLoaded || oRecord.bLoadError) return;
    const bool bOwnsProgress = TakesProgress(oRecord);
    std::exception_ptr pFailure;
    try {
      AnalyseComponent(oScope, hComponent);
    } catch (...) {
      // The procedures read so far stay. Marked, so that the component is shown as one that
      // can't be read in full, and never read a second time.
      pFailure = std::current_exception();
      LoadFailure::KeepCurrent(oRecord.oError);
      LoadFailure::Mark(oRecord, u"Procedures of CodeModule Object");
    }
    oRecord.bLoaded = true;
    if (bOwnsProgress) RaiseProgressEnd();
    if (pFailure) std::rethrow_exception(pFailure);
  });
}

void CIDEHandler::AnalyseComponent(GuardScope& oScope, ComponentHandle hComponent) {
  ComponentRecord& oRecord = ComponentAt(hComponent);
  if (!oRecord.sDesignerName.empty()) AddEventSource(hComponent, oRecord.sDesignerName);
  if (HasControls(oRecord.lFolderType)) AddControlSources(oScope, hComponent);
  CodeModule* poModule = LoadFailure::FindModule(*oRecord.oComponent, oRecord.oError);
  if (!poModule) {
    LoadFailure::Mark(oRecord, u"CodeModule Property of VBComponent Object");
    return;
  }
  Loading oLoading{oScope, hComponent, oRecord, *poModule, 0, {}, {}};
  AddForeignInterfaces(oLoading);
  AddVariableSources(oLoading);
  LoadDeclarations(oLoading);
  LoadMembers(oLoading);
}

void CIDEHandler::AddEventSource(ComponentHandle hComponent, TextView sName) {
  const auto lIndex = static_cast<std::int32_t>(moEventSources.size());
  moEventSources.push_back({hComponent, Text(sName)});
  ComponentRecord& oRecord = ComponentAt(hComponent);
  if (oRecord.lFirstEventSource == -1) oRecord.lFirstEventSource = lIndex;
  oRecord.lLastEventSource = lIndex;
}

void CIDEHandler::AddControlSources(GuardScope& oScope, ComponentHandle hComponent) {
  ComponentRecord& oRecord = ComponentAt(hComponent);
  VBControls* poControls = nullptr;
  try {
    poControls = oRecord.oComponent->DesignerControls();
  } catch (...) {
    LoadFailure::KeepCurrent(oRecord.oError);
  }
  if (!poControls) {
    LoadFailure::Mark(oRecord, u"VBControls Property of VBComponent Object");
    return;
  }
  const auto lCount = SteppedControls(oScope, *poControls).Count();
  for (std::int32_t i = 1; i <= lCount; ++i) {
    oScope.Step([&] { AddEventSource(hComponent, poControls->ItemName(i)); });
  }
}

void CIDEHandler::AddForeignInterfaces(Loading& oLoading) {
  const SteppedModule oModule(oLoading.oScope, oLoading.oModule);
  oLoading.lDeclarationLines = oModule.CountOfDeclarationLines();
  if (oLoading.lDeclarationLines < 1) return;
  const Text sLines = oModule.Lines(1, oLoading.lDeclarationLines);
  ForEachLine(sLines, [&](TextView sLine) {
    Text sName = ImplementedInterface(sLine);
    if (sName.empty() || moComponentNames.contains(sName)) return;
    const auto lIndex = static_cast<std::int32_t>(moForeignInterfaces.size());
    moForeignInterfaces.push_back(std::move(sName));
    if (oLoading.oRecord.lFirstInterface == -1) oLoading.oRecord.lFirstInterface = lIndex;
    oLoading.oRecord.lLastInterface = lIndex;
  });
}

void CIDEHandler::AddVariableSources(Loading& oLoading) {
  const SteppedMembers oMembers(oLoading.oScope, oLoading.oModule.Members());
  const auto lCount = oMembers.Count();
  for (std::int32_t i = 1; i <= lCount; ++i) {
    Member& oMember = oMembers.Item(i);
    const SteppedMember oStepped(oLoading.oScope, oMember);
    const auto nType = oStepped.Type();
    if (nType < MemberType::Variable || nType > MemberType::Constant) continue;
    RaiseProgress(*oLoading.oRecord.oComponent, oMember);
    if (nType != MemberType::Variable) continue;
    oLoading.oScope.Step([&] {
      const auto lLine = oMember.CodeLocation();
      if (lLine < 1) return;
      if (oLoading.oModule.Lines(lLine, 1).find(u" WithEvents ") == Text::npos) return;
      AddEventSource(oLoading.hComponent, oMember.Name());
    });
  }
}

void CIDEHandler::LoadMembers(Loading& oLoading) {
  const SteppedMembers oMembers(oLoading.oScope, oLoading.oModule.Members());
  const auto lCount = oMembers.Count();
  for (std::int32_t i = 1; i <= lCount; ++i) {
    Member& oMember = oMembers.Item(i);
    const SteppedMember oStepped(oLoading.oScope, oMember);
    const auto nType = oStepped.Type();
    if (nType != MemberType::Method && nType != MemberType::Property) continue;
    const auto lLocation = oStepped.CodeLocation();
    if (oLoading.oLocations.contains(lLocation)) continue;
    RaiseProgress(*oLoading.oRecord.oComponent, oMember);
    if (nType == MemberType::Method) {
      LoadMethod(oLoading, oMember, lLocation);
    } else {
      LoadProperty(oLoading, oMember, MQuillon::ProcKind::Let);
      LoadProperty(oLoading, oMember, MQuillon::ProcKind::Set);
      LoadProperty(oLoading, oMember, MQuillon::ProcKind::Get);
    }
  }
}

void CIDEHandler::LoadDeclarations(Loading& oLoading) {
  Guard(Named(u"LoadDeclarations"), [&](GuardScope& oScope) {
    ProcedureRecord oRecord{.hComponent = oLoading.hComponent,
                            .nKind = MQuillon::ProcKind::Declarations};
    ReadProcedure(oScope, oRecord, {});
    SuggestDeclarationsSettings(oLoading.hComponent, oRecord);
    AddProcedure(oLoading, oRecord);
    oLoading.oRecord.hDeclarations = LastProcedure();
  });
}

void CIDEHandler::LoadMethod(Loading& oLoading, Member& oMember, std::int32_t lLocation) {
  Guard(Named(u"LoadMethod"), [&](GuardScope& oScope) {
    ProcedureRecord oRecord{.hComponent = oLoading.hComponent, .oMember = &oMember};
    const Text sName = NameOf(oScope, oRecord);
    const SteppedModule oModule(oScope, oLoading.oModule);
    const auto lBody = oModule.ProcBodyLine(sName, oRecord.nKind);
    // An external function is a method too; its place is given as line 1, whatever stands there.
    if (lBody <= oLoading.lDeclarationLines || lBody < lLocation) return;
    const Text sType = HeadType(oModule, lBody);
    if (sType.empty()) return;
    ReadProcedure(oScope, oRecord, sType);
    if (oLoading.oRecord.lFirstEventSource != -1 && sType == u"Sub") {
      const Text sEvent = EventHandlerType(oLoading, sName);
      oRecord.bEventHandler = !sEvent.empty();
      if (oRecord.bEventHandler) oRecord.sProcType = TypeName(sEvent);
    }
    SuggestMethodSettings(oLoading.hComponent, oRecord);
    AddProcedure(oLoading, oRecord);
  });
}

void CIDEHandler::LoadProperty(Loading& oLoading, Member& oMember, ProcKind nKind) {
  Guard(Named(u"LoadProperty"), [&](GuardScope& oScope) {
    ProcedureRecord oRecord{.hComponent = oLoading.hComponent, .oMember = &oMember, .nKind = nKind};
    if (!SteppedMember(oScope, oMember).MayHave(nKind)) return;
    const Text sName = NameOf(oScope, oRecord);
    std::int32_t lBody = 0;
    try {
      lBody = oLoading.oModule.ProcBodyLine(sName, nKind);
    } catch (const Failure& oFailure) {
      if (oFailure.Number() != NoSuchProcedure) throw;
      return;
    }
    if (lBody < 2) return;
    const Text sType = HeadType(SteppedModule(oScope, oLoading.oModule), lBody);
    if (sType.empty()) return;
    ReadProcedure(oScope, oRecord, sType);
    SuggestPropertySettings(oLoading.hComponent, oRecord);
    AddProcedure(oLoading, oRecord);
  });
}

void CIDEHandler::ReadProcedure(GuardScope& oScope, ProcedureRecord& oRecord, TextView sType) {
  oRecord.sProcType = oRecord.sDeclType = TypeName(sType);
  std::int32_t lBodyStart = 0;
  Template().ExtractProcSettings(ReadProcCode(oScope, oRecord, lBodyStart), oRecord.oCurrent);
  InheritFromModule(oRecord, oRecord.oCurrent);
  oRecord.oPending.CopyFrom(oRecord.oCurrent);
}

void CIDEHandler::InheritFromModule(const ProcedureRecord& oRecord, CProcSettings& oFresh) const {
  if (oRecord.nKind == MQuillon::ProcKind::Declarations) return;
  const CProcSettings& oModule = Procedure(Component(oRecord.hComponent).hDeclarations).oCurrent;
  InheritId(oFresh.eBoundary(), oModule.eBoundary(), oFresh, &CProcSettings::SeteBoundary,
            oFresh.BoundaryInherited);
  InheritId(oFresh.eSeverity(), oModule.eSeverity(), oFresh, &CProcSettings::SeteSeverity,
            oFresh.SeverityInherited);
  InheritId(oFresh.eRetry(), oModule.eRetry(), oFresh, &CProcSettings::SeteRetry,
            oFresh.RetryInherited);
}

void CIDEHandler::AddProcedure(Loading& oLoading, ProcedureRecord& oRecord) {
  if (oRecord.oMember) {
    oLoading.oLocations.insert(SteppedMember(oLoading.oScope, *oRecord.oMember).CodeLocation());
  }
  moProcedures.push_back(oRecord);
  ComponentRecord& oComponent = oLoading.oRecord;
  if (!oComponent.lFirstProcedure) oComponent.lFirstProcedure = LastProcedure();
  oComponent.lLastProcedure = LastProcedure();
}

Text CIDEHandler::EventHandlerType(Loading& oLoading, TextView sName) {
  return Result(u"EventHandlerType", [&](GuardScope&) -> Text {
    const ComponentRecord& oRecord = oLoading.oRecord;
    if (oLoading.oSources.empty()) {
      for (auto i = oRecord.lFirstEventSource; i != -1 && i <= oRecord.lLastEventSource; ++i) {
        oLoading.oSources.emplace(moEventSources[static_cast<std::size_t>(i)].sName, i);
      }
    }
    // Of all sources whose name and "_" begin the handler's name and leave something, the first
    // in the list counts: one look-up for each underscore instead of one test for each source.
    TextView sEvent;
    std::int32_t lFirst = 0;
    for (auto i = sName.find(u'_'); i != TextView::npos; i = sName.find(u'_', i + 1)) {
      const auto oFound = oLoading.oSources.find(sName.substr(0, i));
      if (oFound == oLoading.oSources.end() || i + 1 == sName.size()) continue;
      if (lFirst != 0 && lFirst < oFound->second) continue;
      lFirst = oFound->second;
      sEvent = sName.substr(i + 1);
    }
    return Text(sName == TerminateMethod ? TextView(u"Terminate") : sEvent);
  });
}

TextView CIDEHandler::TypeName(TextView sType) {
  if (sType.empty()) return {};
  auto oFound = moTypeNames.find(sType);
  if (oFound == moTypeNames.end()) oFound = moTypeNames.emplace(sType).first;
  return *oFound;
}
