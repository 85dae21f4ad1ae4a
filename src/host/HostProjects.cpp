#include "HostProjects.h"

#include <unordered_map>

#include "CodePage.h"

HostProject::HostProject(ProjectFile oFile, std::string sPath, PathFinder& oFinder,
                         DocumentStore& oStore)
    : moFile(std::move(oFile)), msPath(std::move(sPath)) {
  std::string sFolder = PathFinder::FolderOf(msPath);
  std::unordered_map<std::string, std::size_t> oLines;
  for (const ProjectFile::Entry& oEntry : moFile.oComponents) {
    std::string sFile = oFinder.Find(sFolder, oEntry.sPath).sPath;
    std::string sIdentity = oFinder.Identity(sFile);
    auto [it, bNew] = oLines.try_emplace(sIdentity, oEntry.lLine);
    if (!bNew) {
      moFile.oNotes.push_back({oEntry.lLine, oEntry.sPath + u" stands in line " +
                                                 ToText(static_cast<long long>(it->second)) +
                                                 u" already; this entry is left out."});
      continue;
    }
    bool bCode = oEntry.nType != ComponentRelatedDocument && oEntry.nType != ComponentResFile;
    StoredDocument* poDocument = bCode ? &oStore.Add(sIdentity, sFile, moFile.oConstants) : nullptr;
    moComponents.push_back(
        std::make_unique<HostComponent>(*this, oEntry, std::move(sFile), poDocument, oFinder));
  }
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
