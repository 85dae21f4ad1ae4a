#include "DiskIDE.h"

#include <optional>
#include <set>
#include <utility>

#include "CodePage.h"
#include "GroupReader.h"
#include "HostCommandBars.h"
#include "HostProjects.h"
#include "PathText.h"

namespace {

ReadSettings SettingsOf(const DiskIDE::Options& oOptions, const WriteRoots& roots) {
  bool bForce = !oOptions.sCodePage.empty();
  return {&CodePage::Get(bForce ? oOptions.sCodePage : "1252"), bForce,
          oOptions.poFiles ? oOptions.poFiles : &SystemFileOps(), &roots};
}

DiskIDE::Change ChangeIn(const StoredDocument& oDocument) {
  return {oDocument.Path(), oDocument.Document().SavedBytes(), oDocument.Document().Bytes()};
}

// There is no list of add-ins on disk that could have changed.
class HostAddins : public Addins {
 public:
  void Update() override {}
};

class FileIDE : public DiskIDE, public VBE {
 public:
  FileIDE(const std::vector<std::string>& asPath, const Options& oOptions)
      : moSettings(SettingsOf(oOptions, mRoots)),
        moFinder(*moSettings.poFiles),
        moStore(moSettings) {
    GroupReader oReader(moFinder, moSettings);
    for (const std::string& sPath : asPath) oReader.Read(sPath);
    moNotes = std::move(oReader.Notes());
    moSources = std::move(oReader.Sources());
    for (const std::string& folder : oOptions.roots) mRoots.Add(RealPath(folder));
    for (const std::string& folder : oReader.Folders())
      for (const std::string& root :
           NarrowedRoots(WorkTreeOf(folder, *moSettings.poFiles), oOptions.within))
        mRoots.Add(root);
    for (GroupReader::Project& oProject : oReader.Projects()) AddProject(oProject, oOptions);
  }

  VBE& Root() override { return *this; }
  const std::vector<Note>& Notes() const override { return moNotes; }

  std::vector<Change> Changes() const override {
    std::vector<Change> oChanges;
    for (const StoredDocument* poDocument : moStore.Changed())
      oChanges.push_back(ChangeIn(*poDocument));
    return oChanges;
  }

  std::vector<std::string> ChangedPaths() const override {
    std::vector<std::string> asPath;
    for (const StoredDocument* poDocument : moStore.Changed()) asPath.push_back(poDocument->Path());
    return asPath;
  }

  Change ChangeOf(const std::string& sPath) const override {
    if (const StoredDocument* poDocument = moStore.Changed(sPath)) return ChangeIn(*poDocument);
    throw Failure(5, u"The file has no changes: " + TextOfPath(sPath), u"host");
  }

  std::int32_t FileLine(const ::CodeModule& oModule, std::int32_t lLine) const override {
    return static_cast<const HostCodeModule&>(oModule).Document().FileLine(lLine);
  }

  std::vector<std::string> FoldersOutside() const override {
    std::set<std::string> folders;
    for (const auto& document : moStore.All())
      if (document->Refusal() == WriteRefusal::Outside && document->IsThere())
        folders.insert(PathFinder::FolderOf(document->RealPath()));
    return {folders.begin(), folders.end()};
  }

  std::int32_t HiddenProcedures(const ::CodeModule& module) const override {
    return static_cast<const HostCodeModule&>(module).Document().HiddenProcedures();
  }

  std::vector<ConstantConflict> ConstantConflicts() const override {
    std::vector<ConstantConflict> conflicts;
    for (const auto& document : moStore.All()) try {
        if (!document->Constants().IsShared()) continue;
        auto conflict = document->Constants().FirstConflict(document->Get());
        if (!conflict) continue;
        conflict->file = TextOfPath(document->Path());
        conflicts.push_back(std::move(*conflict));
      } catch (const Failure&) {
        continue;  // it is told where the code is asked for
      }
    return conflicts;
  }

  SaveResult Save(RunJournal* journal) override {
    SaveResult oResult;
    for (const auto& [document, failure] : moStore.Save(journal)) {
      if (failure)
        oResult.oFailed.push_back({TextOfPath(document->Path()), 0, failure->Description()});
      else
        oResult.asSaved.push_back(document->Path());
    }
    return oResult;
  }

  Refreshed Refresh() override {
    Refreshed oResult;
    VBComponent* const poShown = moPane ? &moPane->CodeModule().Parent() : nullptr;
    for (const auto& pDocument : moStore.All()) {
      const StoredDocument::Disk eDisk = pDocument->Refresh();
      if (eDisk == StoredDocument::Disk::Reread) oResult.asReread.push_back(pDocument->Path());
      if (eDisk == StoredDocument::Disk::Conflict) oResult.asConflict.push_back(pDocument->Path());
    }
    for (GroupReader::Source& oSource : moSources)
      if (IsAnother(oSource)) oResult.asProject.push_back(oSource.sPath);
    if (poShown) ShowCode(poShown);
    return oResult;
  }

  void Click(CommandBarControl& oControl) override { moBars.Click(oControl); }
  HostCommandBars& Bars() override { return moBars; }

  void ShowCode(VBComponent* poComponent) override {
    ::CodeModule* poModule = poComponent ? poComponent->CodeModule() : nullptr;
    moPane.reset();
    if (poModule) moPane.emplace(*poModule);
  }

  ::VBProjects& VBProjects() override { return moProjects; }
  ::CommandBars& CommandBars() override { return moBars; }
  ::Events& Events() override { return moBars; }
  ::Addins& Addins() override { return moAddins; }
  CodePane* ActiveCodePane() override { return moPane ? &*moPane : nullptr; }

 private:
  /// True when the file holds something else than it did when it was last looked at, or is gone.
  bool IsAnother(GroupReader::Source& o) {
    IFileOps::Stat oNow;
    const bool bThere = moSettings.poFiles->GetStat(o.sPath, oNow) == 0;
    if (bThere && oNow.lSize == o.oStat.lSize && oNow.lModified == o.oStat.lModified) return false;
    std::string sNow;
    if (bThere && moSettings.poFiles->ReadAll(o.sPath, sNow) != 0) return false;
    o.oStat = oNow;
    return std::exchange(o.sBytes, sNow) != sNow;
  }
  void AddProject(GroupReader::Project& oRead, const Options& options) {
    std::vector<CondConstant>& constants = oRead.oFile.oConstants;
    constants.insert(constants.end(), options.constants.begin(), options.constants.end());
    const bool inScope = !options.isInScope || options.isInScope(oRead.oFile.sName);
    HostProject& oProject = moProjects.Add(std::make_unique<HostProject>(
        std::move(oRead.oFile), std::move(oRead.sPath), moFinder, moStore, inScope));
    for (const LineNote& oNote : oProject.Notes())
      moNotes.push_back({oProject.FileName(), oNote.lLine, oNote.sMessage, false});
  }

  // In the order of who refers to whom: projects to documents, documents to settings and roots.
  WriteRoots mRoots;
  ReadSettings moSettings;
  PathFinder moFinder;
  DocumentStore moStore;
  HostProjects moProjects;
  HostCommandBars moBars;
  HostAddins moAddins;
  std::optional<HostCodePane> moPane;
  std::vector<Note> moNotes;
  std::vector<GroupReader::Source> moSources;
};

}  // namespace

std::unique_ptr<DiskIDE> DiskIDE::Open(const std::string& sPath, const Options& oOptions) {
  return Open(std::vector{sPath}, oOptions);
}

std::unique_ptr<DiskIDE> DiskIDE::Open(const std::vector<std::string>& asPath,
                                       const Options& oOptions) {
  return std::make_unique<FileIDE>(asPath, oOptions);
}
