// The projects of the open group and their components.
#pragma once

#include <memory>
#include <vector>

#include "HostComponent.h"
#include "ProjectFile.h"
#include "VBProject.h"

class HostProject : public VBProject, public ::VBComponents {
 public:
  /// Finds the files of the components and gives each its document in oStore. An entry that names
  /// the file of an earlier entry is left out, with a note in oFile. inScope: shared files may be
  /// read with this project's constants.
  HostProject(ProjectFile oFile, std::string sPath, PathFinder& oFinder, DocumentStore& oStore,
              bool inScope);
  HostProject(const HostProject&) = delete;
  HostProject& operator=(const HostProject&) = delete;

  Text Name() const override { return moFile.sName; }
  Text FileName() const override;
  ProjectType Type() const override { return moFile.nType; }
  ::VBComponents& VBComponents() override { return *this; }

  std::int32_t Count() const override { return static_cast<std::int32_t>(moComponents.size()); }
  VBComponent& Item(std::int32_t lIndex) override;

  const std::vector<LineNote>& Notes() const { return moFile.oNotes; }
  const std::string& Path() const { return msPath; }

 private:
  void NoteSecond(const ProjectFile::Entry& oEntry, std::size_t lFirstLine);

  ProjectFile moFile;  // documents and components refer to its constants and entries
  std::string msPath;
  std::vector<std::unique_ptr<HostComponent>> moComponents;
};

class HostProjects : public VBProjects {
 public:
  std::int32_t Count() const override { return static_cast<std::int32_t>(moProjects.size()); }
  VBProject& Item(std::int32_t lIndex) override;
  HostProject& Add(std::unique_ptr<HostProject> pProject);

 private:
  std::vector<std::unique_ptr<HostProject>> moProjects;
};
