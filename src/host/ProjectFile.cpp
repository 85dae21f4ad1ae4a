#include "ProjectFile.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <unordered_map>

namespace {

constexpr TextView Blanks = u" \t\r\v\f";

TextView TrimAll(TextView sText) {
  std::size_t lFirst = sText.find_first_not_of(Blanks);
  if (lFirst == TextView::npos) return {};
  return sText.substr(lFirst, sText.find_last_not_of(Blanks) - lFirst + 1);
}

// Some values stand between exclamation marks in the place of quotes. Only the outer pair goes:
// inner quotes are not doubled in these files.
TextView Unquote(TextView sValue) {
  bool bPair = sValue.size() >= 2 && sValue.front() == sValue.back() &&
               (sValue.front() == u'"' || sValue.front() == u'!');
  return bPair ? TrimAll(sValue.substr(1, sValue.size() - 2)) : sValue;
}

struct KeyLine {
  std::size_t lLine = 0;
  TextView sKey, sValue;  // of the text that is read
};

// Hands out the lines of the main part that have a key and a value.
class KeyLines {
 public:
  explicit KeyLines(TextView sText) : msRest(sText) {
    if (msRest.starts_with(u'\uFEFF')) msRest.remove_prefix(1);
  }

  std::optional<KeyLine> Next() {
    while (!msRest.empty()) {
      TextView sLine = TrimAll(TakeLine());
      if (sLine.starts_with(u'[')) break;
      std::size_t lEqual = sLine.find(u'=');
      if (lEqual == TextView::npos) continue;
      return KeyLine{mlLine, TrimAll(sLine.substr(0, lEqual)), TrimAll(sLine.substr(lEqual + 1))};
    }
    return std::nullopt;
  }

 private:
  TextView TakeLine() {
    ++mlLine;
    std::size_t lEnd = msRest.find(u'\n');
    TextView sLine = msRest.substr(0, lEnd);
    msRest.remove_prefix(lEnd == TextView::npos ? msRest.size() : lEnd + 1);
    return sLine;
  }

  TextView msRest;
  std::size_t mlLine = 0;
};

// The system ends a path at a NUL, so that another file than the one shown would be opened.
bool IsUsablePath(TextView sPath) {
  return !sPath.empty() && sPath.find(u'\0') == TextView::npos;
}

struct ComponentKey {
  TextView sKey;
  ComponentType nType;
};
constexpr ComponentKey ComponentKeys[] = {
    {u"Module", ComponentType::StdModule},      {u"Class", ComponentType::Class},
    {u"Form", ComponentType::VBForm},           {u"UserControl", ComponentType::UserControl},
    {u"PropertyPage", ComponentType::PropPage}, {u"UserDocument", ComponentType::UserDocument},
    {u"Designer", ComponentType::Designer},     {u"RelatedDoc", ComponentType::RelatedDocument},
    {u"ResFile32", ComponentType::ResFile},
};
constexpr TextView ProjectTypes[] = {u"Exe", u"OleExe", u"OleDll", u"Control"};

std::optional<std::int32_t> NumberOf(TextView sText) {
  if (EqualNoCase(sText, u"True")) return -1;
  if (EqualNoCase(sText, u"False")) return 0;
  int nBase = EqualNoCase(sText.substr(0, 2), u"&H") ? 16 : 10;
  if (nBase == 16) sText.remove_prefix(2);
  if (nBase == 16 && sText.ends_with(u'&')) sText.remove_suffix(1);
  std::string sDigits = ToUtf8(sText);
  std::int64_t lValue = 0;
  auto [pEnd, eError] =
      std::from_chars(sDigits.data(), sDigits.data() + sDigits.size(), lValue, nBase);
  bool bGood = eError == std::errc() && pEnd == sDigits.data() + sDigits.size() &&
               lValue >= INT32_MIN && lValue <= (nBase == 16 ? INT64_C(0xFFFFFFFF) : INT32_MAX);
  return bGood ? std::optional(static_cast<std::int32_t>(lValue)) : std::nullopt;
}

class ProjectParser {
 public:
  ProjectFile Parse(TextView sText) {
    KeyLines oLines(sText);
    while (auto oLine = oLines.Next()) Take(*oLine);
    if (!mbType && moFile.bProject)
      Note(0, u"The project has no Type line; it is taken as a Standard EXE.");
    return std::move(moFile);
  }

 private:
  void Note(std::size_t lLine, Text sMessage) {
    moFile.oNotes.push_back({lLine, std::move(sMessage)});
  }

  void Take(const KeyLine& oLine) {
    if (EqualNoCase(oLine.sKey, u"Type")) return TakeType(oLine);
    if (EqualNoCase(oLine.sKey, u"Name")) return TakeName(oLine);
    if (EqualNoCase(oLine.sKey, u"CondComp")) return TakeConstants(oLine);
    for (const ComponentKey& oKey : ComponentKeys)
      if (EqualNoCase(oLine.sKey, oKey.sKey)) return TakeComponent(oLine, oKey.nType);
  }

  void TakeType(const KeyLine& oLine) {
    auto sType = std::ranges::find_if(
        ProjectTypes, [&](TextView sName) { return EqualNoCase(sName, Unquote(oLine.sValue)); });
    if (sType == std::end(ProjectTypes))
      return Note(oLine.lLine, u"Unknown project type: " + Text(oLine.sValue));
    moFile.nType = static_cast<ProjectType>(sType - ProjectTypes);
    moFile.bProject = mbType = true;
  }

  void TakeName(const KeyLine& oLine) {
    TextView sName = Unquote(oLine.sValue);
    if (!sName.empty()) moFile.sName = sName;
  }

  void TakeConstants(const KeyLine& oLine) {
    TextView sRest = Unquote(oLine.sValue);
    while (!sRest.empty()) {
      std::size_t lEnd = std::min(sRest.find(u':'), sRest.size());
      TakeConstant(TrimAll(sRest.substr(0, lEnd)), oLine.lLine);
      sRest.remove_prefix(std::min(lEnd + 1, sRest.size()));
    }
  }

  void TakeConstant(TextView sPiece, std::size_t lLine) {
    if (sPiece.empty()) return;
    if (auto constant = ConstantOf(sPiece)) {
      moFile.oConstants.push_back(std::move(*constant));
    } else {
      Note(lLine, u"Not a conditional compilation constant: " + Text(sPiece));
    }
  }

  void TakeComponent(const KeyLine& oLine, ComponentType nType) {
    ProjectFile::Entry oEntry{nType, {}, {}, oLine.lLine};
    TextView sPath = Unquote(oLine.sValue);
    std::size_t lSemicolon = sPath.find(u';');
    bool bNamed = nType == ComponentType::StdModule || nType == ComponentType::Class;
    if (bNamed && lSemicolon != TextView::npos) {
      oEntry.sName = TrimAll(sPath.substr(0, lSemicolon));
      sPath = Unquote(TrimAll(sPath.substr(lSemicolon + 1)));
    }
    moFile.bProject = true;
    if (!IsUsablePath(sPath))
      return Note(oLine.lLine, u"The entry names no file and is left out: " + Text(oLine.sKey));
    if (const auto* poFirst = SameName(oEntry)) return NoteSecond(oEntry, *poFirst);
    oEntry.sPath = sPath;
    moFile.oComponents.push_back(std::move(oEntry));
  }

  const ProjectFile::Entry* SameName(const ProjectFile::Entry& oEntry) {
    bool bResource = oEntry.nType == ComponentType::ResFile;
    if (oEntry.sName.empty() && !bResource) return nullptr;
    Text sKey = bResource ? Text(u";") : LowerCase(oEntry.sName);
    auto [it, bNew] = moIndex.try_emplace(std::move(sKey), moFile.oComponents.size());
    return bNew ? nullptr : &moFile.oComponents[it->second];
  }

  void NoteSecond(const ProjectFile::Entry& oEntry, const ProjectFile::Entry& oFirst) {
    Text sWhat = oEntry.sName.empty() ? Text(u"A resource file") : u"A component " + oEntry.sName;
    Note(oEntry.lLine, sWhat + u" stands in line " + ToText(static_cast<long long>(oFirst.lLine)) +
                           u" already; this entry is left out.");
  }

  ProjectFile moFile;
  bool mbType = false;
  std::unordered_map<Text, std::size_t> moIndex;  // names in lower case; ";" is the resource file
};

}  // namespace

std::optional<CondConstant> ConstantOf(TextView text) {
  const std::size_t equal = text.find(u'=');
  if (equal == TextView::npos) return std::nullopt;
  const TextView name = TrimAll(text.substr(0, equal));
  const auto value = NumberOf(TrimAll(text.substr(equal + 1)));
  if (name.empty() || !value) return std::nullopt;
  return CondConstant{LowerCase(name), *value};
}

GroupFile GroupFile::Parse(TextView sText) {
  GroupFile oGroup;
  KeyLines oLines(sText);
  while (auto oLine = oLines.Next()) {
    // The start project stands in its place in the list; it is not named a second time.
    if (!EqualNoCase(oLine->sKey, u"Project") && !EqualNoCase(oLine->sKey, u"StartupProject"))
      continue;
    TextView sPath = Unquote(oLine->sValue);
    if (IsUsablePath(sPath))
      oGroup.oProjects.push_back({Text(sPath), oLine->lLine});
    else
      oGroup.oNotes.push_back({oLine->lLine, u"The entry names no project and is left out."});
  }
  return oGroup;
}

ProjectFile ProjectFile::Parse(TextView sText) {
  return ProjectParser().Parse(sText);
}
