// The IDE's object model over project files on disk: a .vbg, a .vbp, or a folder that holds them.
//
//   auto pIDE = DiskIDE::Open("/src/Orders/Orders.vbg", {});
//   CIDEHandler oHandler; oHandler.LoadProjects(pIDE->Root()); ...
//   pIDE->Save();
//
// A file that is missing or unreadable doesn't stop the rest: the component stays in the model and
// fails when its code is asked for, with its path in the message. One file that stands in several
// projects is one document. Nothing on disk changes before Save.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "ProjectConstants.h"
#include "VBE.h"

class HostCommandBars;
class IFileOps;
class RunJournal;

class DiskIDE {
 public:
  struct Options {
    /// Name of the ANSI code page (CodePage::Get); empty: 1252, or UTF-8 where a file is UTF-8.
    std::string sCodePage{};
    IFileOps* poFiles = nullptr;  ///< null: the system's
    /// Folders below which components may be written, besides the work trees of the paths (the
    /// nearest folder upwards that holds .git, else the folder of the path). What lies elsewhere
    /// is read only, and its component tells why.
    std::vector<std::string> roots{};
    /// Absolute, links resolved: of the work trees, only what is below one of these is written;
    /// empty: all of them.
    std::vector<std::string> within = {};
    /// Of conditional compilation, ahead of those of the projects.
    std::vector<CondConstant> constants = {};
    /// Whether a file of several projects may be read with this one's constants; null: with those
    /// of the first.
    std::function<bool(TextView project)> isInScope = {};
  };

  /// Something that was found while reading and doesn't stop it.
  struct Note {
    Text sFile;
    std::size_t lLine = 0;  ///< from 1; 0: the file as a whole
    Text sMessage;
    bool bUnreadable = false;  ///< a project is left out because it can't be read
  };

  /// A source file with unsaved changes. Bytes are the whole file's.
  struct Change {
    std::string sPath;
    std::string sOldBytes;
    std::string sNewBytes;
  };

  /// Failure 53, 70, 75, 76 or 321 when the path itself can't be opened or holds no project.
  /// A folder: its .vbg files if it has any, else its .vbp files, in alphabetical order; projects
  /// named twice count once.
  static std::unique_ptr<DiskIDE> Open(const std::string& sPath, const Options& oOptions);
  /// Several paths as one group.
  static std::unique_ptr<DiskIDE> Open(const std::vector<std::string>& asPath,
                                       const Options& oOptions);
  virtual ~DiskIDE() = default;

  virtual VBE& Root() = 0;
  virtual const std::vector<Note>& Notes() const = 0;
  /// The documents that differ from their files, in the order of the model.
  virtual std::vector<Change> Changes() const = 0;
  /// For files that should be shown without keeping all new bytes at once.
  virtual std::vector<std::string> ChangedPaths() const = 0;
  virtual Change ChangeOf(const std::string& sPath) const = 0;

  /// The folders of the components that are read only because another root is missing, in
  /// alphabetical order.
  virtual std::vector<std::string> FoldersOutside() const = 0;

  /// Line in its file, from 1, of a line that a module of this host shows.
  virtual std::int32_t FileLine(const ::CodeModule& oModule, std::int32_t lLine) const = 0;

  /// Procedures that a module of this host doesn't show: in branches of conditional compilation
  /// that the constants leave inactive.
  virtual std::int32_t HiddenProcedures(const ::CodeModule& module) const = 0;
  /// Files that two projects in scope read differently, each once: at its first directive that asks
  /// for a constant on which they disagree. A file that can't be read is left out.
  virtual std::vector<ConstantConflict> ConstantConflicts() const = 0;

  struct SaveResult {
    std::vector<std::string> asSaved;
    std::vector<Note> oFailed;  ///< these files are as they were; their changes stay in memory
  };
  /// Replaces every changed file atomically, all of them in few flushes. A file that changed on
  /// disk since it was read is not overwritten: it counts as failed, with what to do in the
  /// message.
  /// What killed programs left in the folders of the group is removed.
  /// journal: null, or where the run is recorded. A journal that can't be written is a Failure, and
  /// nothing was saved; so is a signal that is held back (SignalHold.h).
  virtual SaveResult Save(RunJournal* journal = nullptr) = 0;

  struct Refreshed {
    std::vector<std::string> asReread, asConflict;
    std::vector<std::string> asProject;  ///< group and project files, each once a change
  };
  /// Reads again what another program has changed on disk since it was read. Code modules, members
  /// and designer controls of those files must not be used any more: their components give new
  /// ones. Files with unsaved changes are conflicts: they keep these in memory, and Save refuses
  /// them. Groups and projects that changed are told and not read again: that is Open's business.
  virtual Refreshed Refresh() = 0;

  /// A click on a command bar control, as a person would (tests and the desktop program).
  virtual void Click(CommandBarControl& oControl) = 0;
  /// The command bars as a window shows them: their list, the faces, the clipboard behind
  /// PasteFace.
  virtual HostCommandBars& Bars() = 0;
  /// Brings a component's code to the front, as a person would; null: none is on show.
  virtual void ShowCode(VBComponent* poComponent) = 0;
};
