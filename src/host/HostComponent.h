// A component of a project on disk. What the project file tells of it (its place, its files) is
// known at once; name, type, designer and code come from its file, which is read when one of them
// is asked for. A file that can't be read leaves what the project file tells, and fails the code.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "DocumentStore.h"
#include "HostCodeModule.h"
#include "PathFinder.h"
#include "ProjectFile.h"
#include "VBProject.h"

class HostComponent : public VBComponent {
 public:
  /// poDocument: null for related documents and resource files, which have no code.
  HostComponent(VBProject& oParent, const ProjectFile::Entry& oEntry, std::string sPath,
                StoredDocument* poDocument, PathFinder& oFinder)
      : moParent(oParent),
        moEntry(oEntry),
        msPath(std::move(sPath)),
        mpoDocument(poDocument),
        moFinder(oFinder) {}
  Text Name() const override;
  ComponentType Type() const override;
  std::int32_t FileCount() const override;
  Text FileNames(std::int32_t nIndex) const override;
  ::CodeModule* CodeModule() override;
  VBControls* DesignerControls() override;
  std::int32_t Property(TextView sName) override;
  Text DesignerID() const override;
  VBProject& Parent() const override { return moParent; }
  Text ReadOnlyReason() const override {
    return mpoDocument ? mpoDocument->ReadOnlyReason() : Text();
  }

 private:
  const SourceDocument* Readable() const;
  /// The document; module and controls of an earlier version of it are dropped.
  SourceDocument& Document();
  Text RootClass() const;
  std::string Companion() const;

  VBProject& moParent;
  const ProjectFile::Entry& moEntry;
  std::string msPath;
  StoredDocument* mpoDocument;
  PathFinder& moFinder;
  int mlVersion = 0;  ///< of the document that module and controls belong to
  std::optional<HostCodeModule> moModule;
  std::optional<HostVBControls> moControls;
};
