#include "GroupReader.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>

#include "CodePage.h"
#include "PathText.h"
#include "SourceFile.h"

namespace {

bool HasExtension(const std::string& sPath, TextView sExtension) {
  if (sPath.size() < sExtension.size()) return false;
  return EqualNoCase(FromUtf8(std::string_view(sPath).substr(sPath.size() - sExtension.size())),
                     sExtension);
}

// The folder's links are resolved, so that `..` in a project means what it meant where the project
// was made; a linked project file itself counts where it stands.
std::string Absolute(const std::string& sPath) {
  std::error_code oError;
  std::filesystem::path oPath = std::filesystem::absolute(sPath, oError).lexically_normal();
  if (!oPath.has_filename()) oPath = oPath.parent_path();
  std::filesystem::path oFolder = std::filesystem::canonical(oPath.parent_path(), oError);
  return oError ? oPath.generic_string() : (oFolder / oPath.filename()).generic_string();
}

[[noreturn]] void Reject(TextView sWhy, const std::string& sPath) {
  throw Failure(321, Text(sWhy) + u": " + TextOfPath(sPath), u"host");
}

}  // namespace

void GroupReader::AddNote(const std::string& sFile, std::size_t lLine, Text sMessage,
                          bool bUnreadable) {
  moNotes.push_back({TextOfPath(sFile), lLine, std::move(sMessage), bUnreadable});
}

Text GroupReader::ReadText(const std::string& sPath) {
  IFileOps::Stat oStat;
  moSettings.poFiles->GetStat(sPath, oStat);
  std::string sBytes = ReadSource(sPath, *moSettings.poFiles);
  moSources.push_back({sPath, sBytes, oStat});
  if (sBytes.starts_with("\xEF\xBB\xBF") && !moSettings.bForcePage) sBytes.erase(0, 3);
  const CodePage& oPage =
      moSettings.bForcePage ? *moSettings.poAnsi : CodePage::Detect(sBytes, *moSettings.poAnsi);
  return oPage.Decode(sBytes);
}

void GroupReader::Read(const std::string& sPath) {
  std::string sAbsolute = Absolute(sPath);
  std::size_t lSeen = moSeen.size(), lNotes = moNotes.size();
  bool bAgain = moSeen.contains(moFinder.Identity(sAbsolute));
  IFileOps::Stat oStat;
  bool bFolder = moSettings.poFiles->GetStat(sAbsolute, oStat) == 0 && oStat.bDirectory;
  mFolders.push_back(bFolder ? RealPath(sAbsolute) : PathFinder::FolderOf(sAbsolute));
  bFolder ? ReadFolder(sAbsolute) : ReadFile(sAbsolute);
  if (moSeen.size() > lSeen || bAgain || !moProjects.empty()) return;
  Text sWhy = u"None of its projects can be opened";
  if (moNotes.size() > lNotes) sWhy = sWhy + u" (" + moNotes.back().sMessage + u")";
  Reject(sWhy, sAbsolute);
}

void GroupReader::ReadFolder(const std::string& sPath) {
  std::vector<std::string> asName;
  if (int nError = moSettings.poFiles->ListFolder(sPath, asName); nError != 0)
    throw Failure(nError == EACCES || nError == EPERM ? 70 : 76,
                  u"The folder can't be read: " + TextOfPath(sPath), u"host");
  std::ranges::sort(asName);
  std::ranges::stable_sort(asName, {},
                           [](const std::string& sName) { return LowerCase(TextOfPath(sName)); });
  for (TextView sExtension : {u".vbg", u".vbp"}) {
    std::vector<std::string> asFound;
    std::ranges::copy_if(asName, std::back_inserter(asFound),
                         [&](const std::string& sName) { return HasExtension(sName, sExtension); });
    for (const std::string& sName : asFound) try {
        ReadFile(sPath + (sPath.ends_with('/') ? "" : "/") + sName);
      } catch (const Failure& oFailure) {
        AddNote(sPath + '/' + sName, 0, oFailure.Description(), true);
      }
    if (!asFound.empty()) return;
  }
  Reject(
      u"The folder holds no project group (.vbg) and no project (.vbp); name the folder or file "
      u"that does",
      sPath);
}

void GroupReader::ReadFile(const std::string& sPath) {
  if (HasExtension(sPath, u".vbg")) return ReadGroup(sPath);
  if (HasExtension(sPath, u".vbp")) return ReadProject(sPath);
  IFileOps::Stat oStat;
  if (moSettings.poFiles->GetStat(sPath, oStat) != 0) ReadSource(sPath, *moSettings.poFiles);
  Reject(u"Neither a project group (.vbg) nor a project (.vbp) nor a folder that holds them",
         sPath);
}

void GroupReader::ReadGroup(const std::string& sPath) {
  GroupFile oGroup = GroupFile::Parse(ReadText(sPath));
  for (LineNote& oNote : oGroup.oNotes) AddNote(sPath, oNote.lLine, std::move(oNote.sMessage));
  for (const GroupFile::Entry& oEntry : oGroup.oProjects) ReadEntry(sPath, oEntry);
}

void GroupReader::ReadEntry(const std::string& sGroup, const GroupFile::Entry& oEntry) {
  std::string sProject = moFinder.Find(PathFinder::FolderOf(sGroup), oEntry.sPath).sPath;
  if (HasExtension(sProject, u".vbg"))
    return AddNote(sGroup, oEntry.lLine,
                   u"A group can't hold a group; name both instead: " + oEntry.sPath);
  std::size_t lSeen = moSeen.size();
  try {
    ReadProject(sProject);
    if (moSeen.size() == lSeen)
      AddNote(sGroup, oEntry.lLine, u"The project is open already: " + oEntry.sPath);
  } catch (const Failure& oFailure) {
    AddNote(sGroup, oEntry.lLine, oFailure.Description(), true);
  }
}

void GroupReader::ReadProject(const std::string& sPath) {
  std::string sIdentity = moFinder.Identity(sPath);
  if (moSeen.contains(sIdentity)) return;
  ProjectFile oFile = ProjectFile::Parse(ReadText(sPath));
  if (!oFile.bProject)
    Reject(u"The file has no Type and no component line, so it isn't a Visual Basic project",
           sPath);
  moSeen.insert(std::move(sIdentity));
  moProjects.push_back({sPath, std::move(oFile)});
}
