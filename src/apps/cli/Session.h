// What a command works with, opened in the order in which each needs the one before: template,
// lookups, default templates, project group, model. Everything below it reports through Console.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "Arguments.h"
#include "CIDEHandler.h"
#include "CTemplate.h"
#include "Console.h"
#include "DiskIDE.h"
#include "FileScope.h"
#include "GivenPaths.h"
#include "GroupCheck.h"
#include "Output.h"
#include "PathText.h"
#include "Scope.h"
#include "WritingRun.h"

class Session : public IFilePlaces {
 public:
  /// What a command does with the components of its scope.
  enum class Use {
    Show,     ///< all of them
    Rewrite,  ///< but those in files that are read-only, or that an earlier component has
    Check     ///< the same; what can't be read or is passed over is kept and not told
  };

  Session(const Arguments& arguments, Console& console, Output& output);

  /// The path of the template file by options, group and recent list. Stop when there is none.
  std::string FindTemplate();
  /// Loads the template and fills the lookups. Stop when there is none or it has errors.
  void OpenTemplate();
  /// The same, but goes on where there is no template file: then all handlers are hand-written.
  void OpenAnyTemplate();
  /// Opens the template if that isn't done, then reads the group. Stop when a path holds no
  /// project. A command that rewrites has the group to itself from here on, and what a killed run
  /// left in it is taken back first; any other tells of it.
  void OpenGroup(Use use);
  /// Loads the components of the scope and tells of those that can't be read, each file once; then
  /// Procedures() holds the procedures of the scope. Stop for a scope in which nothing stands,
  /// unless it is for show.
  void LoadScope();

  /// Null when nothing is recorded.
  RunJournal* Journal() { return mRun ? mRun->Journal() : nullptr; }
  /// Lets others have the group. To be called when all is written.
  void EndRun() { mRun.reset(); }

  /// Ascending.
  const std::vector<ProcedureHandle>& Procedures() const { return mProcedures; }
  bool IsWholeGroup() const { return mScope.IsWholeGroup() && mFiles.IsWhole(); }
  /// The same, but for what --exclude leaves out.
  bool IsWholeScope() const { return mScope.IsWholeGroup() && mFiles.IsWholeButExcluded(); }
  /// The groups, projects and folders that the PATHs stand for; empty without a PATH.
  const std::vector<std::string>& Groups();
  /// Components of the scope whose code can't be read.
  const std::vector<ComponentHandle>& Unreadable() const { return mUnreadable; }
  /// Components of the scope in files that are read-only.
  const std::vector<ComponentHandle>& ReadOnly() const { return mReadOnly; }
  /// How many components were passed over, since an earlier project has their files.
  std::size_t Shared() const { return mShared; }
  /// The component of the scope that has the file; none for a file that isn't in it.
  ComponentHandle ComponentWith(const Text& file) const;
  /// Procedures of the scope's components that conditional compilation leaves out.
  std::size_t Inactive() const { return mInactive; }
  /// Projects that can't be read, and may belong to the scope.
  const std::vector<DiskIDE::Note>& MissingProjects() const { return mMissingProjects; }
  /// False when a component of the scope can't be read, or a project that may belong to it.
  bool IsScopeRead() const { return mUnreadable.empty() && mMissingProjects.empty(); }
  const std::vector<Text>& ModuleTemplates() const { return mModuleTemplates; }
  const std::vector<Text>& ProcedureTemplates() const { return mProcedureTemplates; }
  /// Path of the template file as it is shown.
  std::string TemplateFile() const { return ShownPath(mTemplateFile); }

  /// Path of a component's first file as it is shown; empty when it has none.
  std::string FileOf(ComponentHandle component) override;
  /// Why a component can't be read; never empty.
  std::string ReasonOf(ComponentHandle component) const;
  /// Line in its file, from 1: of the head, or of the first of its text with the comments above.
  std::int32_t HeadLine(ProcedureHandle procedure) { return FileLine(procedure, true); }
  /// Line in its file of a line of the procedure's text, from 1; of the head for 0.
  std::int32_t LineOf(ProcedureHandle procedure, std::size_t textLine) override;
  std::int32_t FirstLine(ProcedureHandle procedure) { return FileLine(procedure, false); }

  /// "Component.Procedure", as the batch account names it.
  std::string NameOf(ProcedureHandle procedure);
  bool IsDeclarations(ProcedureHandle procedure) const;
  /// True when colours are wanted on standard output.
  bool IsColored() const;

  const Arguments& oArguments;
  Console& oConsole;
  Output& oOutput;
  CTemplate oTemplate;
  CIDEHandler oHandler;
  std::unique_ptr<DiskIDE> pIDE;

 private:
  /// Empty when there is none.
  std::string TemplateOrNone();
  void TakeTemplateNames();
  void BeginRun();
  void TellNotes();
  bool IsPassed(const ComponentRecord& record, const Text& file);
  void TakeProcedures(ComponentHandle component);
  void TellUnreadable(ComponentHandle component);
  std::int32_t FileLine(ProcedureHandle procedure, bool isHead);

  std::optional<WritingRun> mRun;
  Scope mScope;
  std::optional<GivenPaths> mPaths;
  FileScope mFiles;
  std::string mTemplateFile;
  std::vector<Text> mModuleTemplates, mProcedureTemplates;
  std::vector<ProcedureHandle> mProcedures;
  std::vector<ComponentHandle> mUnreadable;
  Use mUse = Use::Show;
  std::unordered_map<Text, ComponentHandle> mTaken;  // by file
  std::unordered_set<Text> mToldUnreadable;          // files
  std::size_t mInactive = 0;
  std::vector<ComponentHandle> mReadOnly;
  std::size_t mShared = 0;
  std::vector<DiskIDE::Note> mMissingProjects;
};

/// Template.dat of that folder, or of the one that holds the file, in any letter case; the first by
/// name when there are several. Empty when there is none.
std::string TemplateBeside(const std::string& path);

/// The path if it is a folder, else the folder that holds it; links resolved.
std::string FolderOfPath(const std::string& path);

/// A file of the group as it is shown: relative to the current folder.
std::string ShownFile(const std::string& path);

/// "file: message" or "file:line: message", as editors and build servers read it.
std::string Placed(const std::string& file, std::int64_t line, const std::string& message);
