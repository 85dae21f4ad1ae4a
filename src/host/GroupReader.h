// Reads what a user names (groups, projects, folders) into the list of projects to open. Each
// project counts once, whichever of its paths names it.
#pragma once

#include <string>
#include <unordered_set>
#include <vector>

#include "DiskIDE.h"
#include "DocumentStore.h"
#include "PathFinder.h"
#include "ProjectFile.h"

class GroupReader {
 public:
  struct Project {
    std::string sPath;  ///< absolute; links in its folder resolved
    ProjectFile oFile;
  };

  /// A group or project file as it was read.
  struct Source {
    std::string sPath;
    std::string sBytes;
    IFileOps::Stat oStat;  ///< ahead of the read, so that a change during it shows
  };

  GroupReader(PathFinder& oFinder, const ReadSettings& oSettings)
      : moFinder(oFinder), moSettings(oSettings) {}
  /// Failure 53, 70, 75, 76 or 321 when the path can't be opened or gives no project. What is
  /// missing below it is a note.
  void Read(const std::string& sPath);

  std::vector<Project>& Projects() { return moProjects; }
  std::vector<DiskIDE::Note>& Notes() { return moNotes; }
  std::vector<Source>& Sources() { return moSources; }
  /// The folder of each path that was read, links resolved.
  const std::vector<std::string>& Folders() const { return mFolders; }

 private:
  void ReadFolder(const std::string& sPath);
  void ReadFile(const std::string& sPath);
  void ReadGroup(const std::string& sPath);
  void ReadEntry(const std::string& sGroup, const GroupFile::Entry& oEntry);
  void ReadProject(const std::string& sPath);
  Text ReadText(const std::string& sPath);
  void AddNote(const std::string& sFile, std::size_t lLine, Text sMessage,
               bool bUnreadable = false);

  PathFinder& moFinder;
  const ReadSettings& moSettings;
  std::unordered_set<std::string> moSeen;  // identities of the projects
  std::vector<Project> moProjects;
  std::vector<DiskIDE::Note> moNotes;
  std::vector<Source> moSources;
  std::vector<std::string> mFolders;
};
