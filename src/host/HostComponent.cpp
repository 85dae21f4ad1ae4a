#include "HostComponent.h"

#include <algorithm>

#include "PathText.h"

namespace {

// What a root of a designer header is, whatever kind of entry names the file.
struct RootKind {
  TextView sClass;
  ComponentType nType;
  TextView sDesignerID;
};
constexpr RootKind RootKinds[] = {
    {u"VB.Form", ComponentType::VBForm, u"VB.Form"},
    {u"VB.MDIForm", ComponentType::MDIForm, u"VB.MDIForm"},
    {u"VB.UserControl", ComponentType::UserControl, u""},
    {u"VB.PropertyPage", ComponentType::PropPage, u""},
    {u"VB.UserDocument", ComponentType::UserDocument, u""},
    {u"Form", ComponentType::VBForm, u"VB.Form"},
    {u"MDIForm", ComponentType::MDIForm, u"VB.MDIForm"},
    {u"{C0E45035-5775-11D0-B388-00A0C9055D8E}", ComponentType::Designer, u"DataEnvironment"},
    {u"{78E93846-85FD-11D0-8487-00A0C90DC8A9}", ComponentType::Designer, u"DataReport"},
    {u"{17016CEE-E118-11D0-94B8-00A0C91110ED}", ComponentType::Designer, u"WebClass"},
    {u"{90290CCD-F27D-11D0-8031-00C04FB6C701}", ComponentType::Designer, u"DHTMLPage"},
    {u"{AC0714F6-3D04-11D1-AE7D-00A0C90F26F4}", ComponentType::Designer, u"AddinInstance"},
    {u"{BD4B4E61-F7B8-11D0-964D-00A0C9273C2A}", ComponentType::Designer, u"Report"},
    {u"{C62A69F0-16DC-11CE-9E98-00AA00574A4F}", ComponentType::MSForm, u"UserForm"},
};

const RootKind* FindRoot(TextView sClass) {
  auto it = std::ranges::find_if(
      RootKinds, [&](const RootKind& oKind) { return EqualNoCase(oKind.sClass, sClass); });
  return it == std::end(RootKinds) ? nullptr : it;
}

bool HasDesigner(ComponentType nEntryType) {
  return nEntryType == ComponentType::VBForm || nEntryType == ComponentType::PropPage ||
         nEntryType == ComponentType::UserControl || nEntryType == ComponentType::UserDocument ||
         nEntryType == ComponentType::Designer;
}

TextView CompanionExtension(ComponentType nEntryType) {
  switch (nEntryType) {
    case ComponentType::VBForm:
      return u".frx";
    case ComponentType::UserControl:
      return u".ctx";
    case ComponentType::PropPage:
      return u".pgx";
    case ComponentType::UserDocument:
      return u".dox";
    case ComponentType::Designer:
      return u".dsx";
    default:
      return {};
  }
}

std::size_t NameStart(const std::string& sPath) {
  return sPath.find_last_of("/\\") + 1;
}

std::string WithoutExtension(const std::string& sPath) {
  std::size_t lDot = sPath.rfind('.');
  return lDot == std::string::npos || lDot <= NameStart(sPath) ? sPath : sPath.substr(0, lDot);
}

bool IsTrue(TextView sValue) {
  return EqualNoCase(sValue, u"True") || sValue == u"-1";
}

// Private classes are saved as creatable and global, too; so the first question is exposed or not.
std::int32_t InstancingOf(const SourceDocument& oDocument) {
  if (!IsTrue(oDocument.ModuleAttribute(u"VB_Exposed"))) return 1;
  if (!IsTrue(oDocument.ModuleAttribute(u"VB_Creatable"))) return 2;
  bool bGlobal = IsTrue(oDocument.ModuleAttribute(u"VB_GlobalNameSpace"));
  bool bSingle = oDocument.RootProperty(u"MultiUse") == u"0";
  return (bSingle ? 3 : 5) + (bGlobal ? 1 : 0);
}

}  // namespace

const SourceDocument* HostComponent::Readable() const {
  if (!mpoDocument) return nullptr;
  try {
    return &mpoDocument->Get();
  } catch (const Failure&) {
    return nullptr;  // it is told where the code is asked for
  }
}

Text HostComponent::RootClass() const {
  const SourceDocument* poDocument = HasDesigner(moEntry.nType) ? Readable() : nullptr;
  return poDocument && !poDocument->Blocks().empty() ? poDocument->Blocks().front().sClass : Text();
}

Text HostComponent::Name() const {
  if (const SourceDocument* poDocument = Readable()) {
    Text sName = poDocument->ModuleAttribute(u"VB_Name");
    if (sName.empty() && HasDesigner(moEntry.nType) && !poDocument->Blocks().empty())
      sName = poDocument->Blocks().front().sName;
    if (!sName.empty()) return sName;
  }
  if (!moEntry.sName.empty()) return moEntry.sName;
  return TextOfPath(mpoDocument ? WithoutExtension(msPath).substr(NameStart(msPath))
                                : msPath.substr(NameStart(msPath)));
}

ComponentType HostComponent::Type() const {
  const RootKind* poRoot = FindRoot(RootClass());
  ComponentType nType = poRoot ? poRoot->nType : moEntry.nType;
  if (nType != ComponentType::VBForm || !poRoot) return nType;
  return Readable()->RootProperty(u"MDIChild") == u"-1" ? ComponentType::MDIChild
                                                        : ComponentType::VBForm;
}

std::string HostComponent::Companion() const {
  std::string sBase = WithoutExtension(msPath);
  std::size_t lName = NameStart(sBase);
  TextView sExtension = CompanionExtension(moEntry.nType);
  if (sExtension.empty() || lName == 0) return {};
  Text sName = TextOfPath(sBase.substr(lName));
  for (TextView sTry : {sExtension, sExtension == u".dsx" ? TextView(u".dca") : sExtension}) {
    auto oFound =
        moFinder.Find(sBase.substr(0, std::max<std::size_t>(lName - 1, 1)), sName + Text(sTry));
    if (oFound.bExists) return oFound.sPath;
  }
  return {};
}

std::int32_t HostComponent::FileCount() const {
  return Companion().empty() ? 1 : 2;
}

Text HostComponent::FileNames(std::int32_t nIndex) const {
  if (nIndex == 1) return TextOfPath(msPath);
  std::string sCompanion = nIndex == 2 ? Companion() : std::string();
  if (sCompanion.empty()) throw Failure(9);
  return TextOfPath(sCompanion);
}

SourceDocument& HostComponent::Document() {
  if (mpoDocument->Version() != mlVersion) {
    moModule.reset();
    moControls.reset();
    mlVersion = mpoDocument->Version();
  }
  return mpoDocument->Get();
}

::CodeModule* HostComponent::CodeModule() {
  if (!mpoDocument) return nullptr;
  SourceDocument& oDocument = Document();
  if (!moModule) moModule.emplace(*this, oDocument);
  return &*moModule;
}

VBControls* HostComponent::DesignerControls() {
  if (!mpoDocument || !HasDesigner(moEntry.nType)) return nullptr;
  const SourceDocument& oDocument = Document();
  if (oDocument.Blocks().empty())
    throw Failure(
        321,
        u"The file has no designer header, so it isn't a form or designer: " + TextOfPath(msPath),
        u"host");
  if (!moControls) moControls.emplace(oDocument);
  return &*moControls;
}

std::int32_t HostComponent::Property(TextView sName) {
  if (moEntry.nType != ComponentType::Class || !EqualNoCase(sName, u"Instancing"))
    throw Failure(380);
  // A class that came from a library project keeps its attributes; an EXE shows none to others.
  return moParent.Type() == ProjectType::StandardExe ? 1 : InstancingOf(mpoDocument->Get());
}

Text HostComponent::DesignerID() const {
  Text sClass = RootClass();
  if (const RootKind* poRoot = FindRoot(sClass)) return Text(poRoot->sDesignerID);
  bool bForm = moEntry.nType == ComponentType::VBForm;
  if (sClass.empty() || sClass.starts_with(u'{')) return bForm ? Text(u"VB.Form") : Text();
  return moEntry.nType == ComponentType::Designer || bForm ? sClass : Text();
}
