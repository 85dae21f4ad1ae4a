#include "MQuillon.h"

#include <iterator>
#include <utility>

namespace MQuillon {

TextArray asFolderName;
TextArray asFolderItemName;
std::vector<std::int16_t> aiFolderOfType;
std::unique_ptr<CXLookup> oLookupBoundary, oLookupSeverity, oLookupRetry, oLookupTrace,
    oLookupLocked, oLookupModTemplate, oLookupProcTemplate;

}  // namespace MQuillon

namespace {

struct Word {
  std::int32_t id;
  TextView text;
};

constexpr Word ComponentTypes[] = {
    {1, u"Standard Module"},   {2, u"Class Module"},     {3, u"Microsoft Form"},
    {4, u"Resource File"},     {5, u"Form Module"},      {6, u"MDIForm"},
    {7, u"Property Page"},     {8, u"User Control"},     {9, u"User Document"},
    {10, u"Related Document"}, {11, u"Active Designer"}, {15, u"MDIChild"}};
constexpr Word ProjectTypes[] = {
    {0, u"Standard EXE"}, {1, u"ActiveX EXE"}, {2, u"ActiveX DLL"}, {3, u"ActiveX Control"}};
constexpr Word Instancings[] = {{1, u"Private"},   {2, u"PublicNotCreatable"},
                                {3, u"SingleUse"}, {4, u"GlobalSingleUse"},
                                {5, u"MultiUse"},  {6, u"GlobalMultiUse"}};
constexpr Word Scopes[] = {{1, u"Private"}, {2, u"Public"}, {3, u"Friend"}};

// The constants that generated code carries, ids from 1 without a gap.
constexpr TextView Boundaries[] = {u"tvnBoundaryNone", u"tvnBoundaryVB", u"tvnBoundaryFirewall",
                                   u"tvnBoundaryActiveX"};
constexpr TextView Severities[] = {u"tvnSeverityCosmetic", u"tvnSeverityNormal",
                                   u"tvnSeverityFatal"};
constexpr TextView Retries[] = {u"tvnRetryLine", u"tvnRetryProcedure", u"tvnRetryNone"};

constexpr Word Strings[] = {
    {100, u"Forms"},
    {101, u"Modules"},
    {102, u"Class Modules"},
    {103, u"User Controls"},
    {104, u"Property Pages"},
    {105, u"User Documents"},
    {106, u"Designers"},
    {107, u"Related Documents"},
    {201, u"The Property changes which are Pending application to the Project Code."},
    {202, u"The Property values which are currently present in the Project Code."},
    {203,
     u"The Property values which the Quillon Suggests for the Project Code, based on its own "
     u"Expert Analysis and your defined Property Rules."},
    {211, u"Returns/sets the name of a Tarvane Template for the Procedure."},
    {212, u"Returns/sets a value that determines whether the Procedure can be changed by Quillon."},
    {213,
     u"Returns/sets a Boundary Type value that determines how Errors will be propagated by "
     u"Tarvane."},
    {214,
     u"Returns/sets a Severity Type value that determines how Errors will be handled by "
     u"Tarvane."},
    {215, u"Returns/sets a Retry Type value that determines how Tarvane will Retry Errors."},
    {216, u"Returns/sets a value that determines whether Quillon will insert Tracing code."}};

constexpr TextView FolderItems[] = {
    u"Form",          u"Module",        u"Class",           u"User Control",
    u"Property Page", u"User Document", u"Active Designer", u"Related Document"};
// Types 1 to 15; 12 to 14 don't exist.
constexpr std::int16_t FolderOfType[] = {2, 3, 1, 8, 1, 1, 5, 4, 6, 8, 7, 0, 0, 0, 1};
constexpr std::int32_t FirstFolderString = 100;

template <std::size_t n>
Text TextOf(const Word (&words)[n], std::int32_t id) {
  for (const Word& word : words) {
    if (word.id == id) return Text(word.text);
  }
  return {};
}

template <std::size_t n, class Choice>
TextView NameOf(const TextView (&names)[n], Choice value) {
  const std::int32_t id = MQuillon::ToNumber(value);
  if (id < 1 || id > static_cast<std::int32_t>(n)) return {};
  return names[static_cast<std::size_t>(id) - 1];
}

// The caller has folded the text already: a name that isn't in lower case is no name.
template <class Choice, std::size_t n>
Choice ValueOf(const TextView (&names)[n], TextView lower) {
  for (std::size_t i = 0; i < n; ++i) {
    if (LowerCase(names[i]) == lower) {
      return MQuillon::FromNumber<Choice>(static_cast<std::int32_t>(i) + 1);
    }
  }
  return Choice::Unset;
}

struct Entry {
  template <class Choice>
  Entry(TextView name, Choice value, TextView shown = {})
      : item(name), itemData(MQuillon::ToNumber(value)), displayName(shown) {}
  TextView item;
  std::int32_t itemData;
  TextView displayName;
};

std::unique_ptr<CXLookup> MakeLookup(std::initializer_list<Entry> entries) {
  auto lookup = std::make_unique<CXLookup>();
  for (const Entry& entry : entries) {
    lookup->Add(entry.item, entry.itemData, entry.displayName);
  }
  return lookup;
}

std::unique_ptr<CXLookup> MakeTemplateLookup(const TextArray& names) {
  auto lookup = MakeLookup({{MQuillon::NoneName, 0}});
  for (std::size_t i = 1; i < names.size(); ++i) {
    if (!names[i].empty()) lookup->Add(names[i], lookup->Count(), names[i]);
  }
  return lookup;
}

}  // namespace

namespace MQuillon {

Text VBComponentTypeName(ComponentType nType) {
  return TextOf(ComponentTypes, ToNumber(nType));
}
Text VBProjectTypeName(ProjectType nType) {
  return TextOf(ProjectTypes, ToNumber(nType));
}
Text InstancingTypeName(std::int32_t lInstancing) {
  return TextOf(Instancings, lInstancing);
}
Text ScopeTypeName(MemberScope nScope) {
  return TextOf(Scopes, ToNumber(nScope));
}

TextView BoundaryName(Boundary eBoundary) {
  return NameOf(Boundaries, eBoundary);
}
TextView SeverityName(Severity eSeverity) {
  return NameOf(Severities, eSeverity);
}
TextView RetryName(Retry eRetry) {
  return NameOf(Retries, eRetry);
}
Boundary BoundaryId(TextView sName) {
  return ValueOf<Boundary>(Boundaries, sName);
}
Severity SeverityId(TextView sName) {
  return ValueOf<Severity>(Severities, sName);
}
Retry RetryId(TextView sName) {
  return ValueOf<Retry>(Retries, sName);
}

Text ProcTypeName(Text& sLine) {
  static constexpr TextView Kinds[] = {u" Function ", u" Sub ", u" Property Get ",
                                       u" Property Set ", u" Property Let "};
  sLine.insert(sLine.begin(), u' ');
  for (const TextView kind : Kinds) {
    if (sLine.find(kind) != Text::npos) return Text(Trim(kind));
  }
  return {};
}

Text StringResource(std::int32_t id) {
  return TextOf(Strings, id);
}

void Initialize() {
  asFolderName.assign(1, {});
  asFolderItemName.assign(1, {});
  for (std::size_t i = 0; i < std::size(FolderItems); ++i) {
    asFolderName.push_back(StringResource(FirstFolderString + static_cast<std::int32_t>(i)));
    asFolderItemName.emplace_back(FolderItems[i]);
  }
  aiFolderOfType.assign(1, 0);
  aiFolderOfType.insert(aiFolderOfType.end(), std::begin(FolderOfType), std::end(FolderOfType));
}

void LoadLookups(const TextArray& modTemplates, const TextArray& procTemplates) {
  oLookupModTemplate = MakeTemplateLookup(modTemplates);
  oLookupProcTemplate = MakeTemplateLookup(procTemplates);
  oLookupBoundary = MakeLookup({{u"None", Boundary::None},
                                {u"VB", Boundary::VB},
                                {u"Firewall", Boundary::Firewall},
                                {u"ActiveX", Boundary::ActiveX}});
  oLookupSeverity = MakeLookup({{u"Cosmetic", Severity::Cosmetic},
                                {u"Normal", Severity::Normal},
                                {u"Fatal", Severity::Fatal}});
  oLookupRetry = MakeLookup(
      {{u"Line", Retry::Line}, {u"Procedure", Retry::Procedure}, {u"None", Retry::None}});
  oLookupTrace = MakeLookup({{u"True", TriState::True, u"Trace"}, {u"False", TriState::False}});
  oLookupLocked = MakeLookup({{u"True", TriState::True, u"Locked"}, {u"False", TriState::False}});
}

void ReleaseLookups() {
  for (auto* const lookup : {&oLookupModTemplate, &oLookupProcTemplate, &oLookupBoundary,
                             &oLookupSeverity, &oLookupRetry, &oLookupTrace, &oLookupLocked}) {
    lookup->reset();
  }
}

}  // namespace MQuillon
