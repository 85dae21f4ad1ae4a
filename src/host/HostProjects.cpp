#include "HostProjects.h"

#include <unordered_map>

#include "PathText.h"

HostProject::HostProject(ProjectFile oFile, std::string sPath, PathFinder& oFinder,
                         DocumentStore& oStore, bool inScope)
    : moFile(std::move(oFile)), msPath(std::move(sPath)) {
  std::string sFolder = PathFinder::FolderOf(msPath);
  std::unordered_map<std::string, std::size_t> oCodeLines, oOtherLines;
  for (const ProjectFile::Entry& oEntry : moFile.oComponents) {
    bool bCode =
        oEntry.nType != ComponentType::RelatedDocument && oEntry.nType != ComponentType::ResFile;
    std::string sFile = oFinder.Find(sFolder, oEntry.sPath).sPath;
    std::string sIdentity = oFinder.Identity(sFile);
    // A source may be listed as a document, too; that must not hide its code.
    auto [it, bNew] = (bCode ? oCodeLines : oOtherLines).try_emplace(sIdentity, oEntry.lLine);
    if (!bNew) {
      NoteSecond(oEntry, it->second);
      continue;
    }
    StoredDocument* poDocument =
        bCode ? &oStore.Add(sIdentity, sFile, {moFile.sName, moFile.oConstants, inScope}) : nullptr;
    moComponents.push_back(
        std::make_unique<HostComponent>(*this, oEntry, std::move(sFile), poDocument, oFinder));
  }
}

void HostProject::NoteSecond(const ProjectFile::Entry& oEntry, std::size_t lFirstLine) {
  moFile.oNotes.push_back({oEntry.lLine, oEntry.sPath + u" stands in line " +
                                             ToText(static_cast<long long>(lFirstLine)) +
                                             u" already; this entry is left out."});
}

Text HostProject::FileName() const {
  return TextOfPath(msPath);
}

VBComponent& HostProject::Item(std::int32_t lIndex) {
  if (lIndex < 1 || lIndex > Count()) throw Failure(9);
  return *moComponents[static_cast<std::size_t>(lIndex) - 1];
}

VBProject& HostProjects::Item(std::int32_t lIndex) {
  if (lIndex < 1 || lIndex > Count()) throw Failure(9);
  return *moProjects[static_cast<std::size_t>(lIndex) - 1];
}

HostProject& HostProjects::Add(std::unique_ptr<HostProject> pProject) {
  moProjects.push_back(std::move(pProject));
  return *moProjects.back();
}
