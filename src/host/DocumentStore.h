// The source files of the open group. A file has one document, however many components name it.
// It is read when its document is first asked for, and written by Save only when it changed.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "Failure.h"
#include "FileStamp.h"
#include "IFileOps.h"
#include "ProjectConstants.h"
#include "SourceDocument.h"
#include "WriteRoots.h"

class RunJournal;

/// How files are read: their code page when they aren't UTF-8, or always; and which may be written.
struct ReadSettings {
  const CodePage* poAnsi = nullptr;
  bool bForcePage = false;
  IFileOps* poFiles = nullptr;
  const WriteRoots* roots = nullptr;  ///< null: all
};

class StoredDocument {
 public:
  /// realPath: the path with links resolved.
  StoredDocument(std::string sPath, std::string realPath, const ReadSettings& oSettings)
      : msPath(std::move(sPath)), mRealPath(std::move(realPath)), moSettings(oSettings) {}

  const std::string& Path() const { return msPath; }
  const std::string& RealPath() const { return mRealPath; }
  /// Why the file is read and not written; empty for one that is.
  Text ReadOnlyReason() const;
  WriteRefusal Refusal() const;
  bool IsThere() const;
  /// The real path as it is now, to be written at once. Failure 75 when it mustn't be: links may
  /// have changed since the group was read.
  std::string PathToWrite() const;
  /// A project names the file. All of them do so before the file is first read.
  void AddOwner(ProjectConstants::Owner owner) { mConstants.Add(std::move(owner)); }
  const ProjectConstants& Constants() const { return mConstants; }
  /// Reads the file at the first call. Failure 53, 70, 75, 76 or 321 with the path; once it failed
  /// it fails for good, so that a group looks the same throughout.
  SourceDocument& Get();
  bool IsChanged() const { return mpDocument && mpDocument->IsChanged(); }
  /// Only after a Get that succeeded.
  SourceDocument& Document() const { return *mpDocument; }
  /// True when the file on disk holds the present bytes already. Failure when it doesn't hold those
  /// that were read any more.
  bool IsOnDisk() const;
  /// The present bytes are those on disk from now on. stamp: of the file that holds them, taken
  /// before other programs could find it under this name.
  void MarkSaved(const FileStamp& stamp);

  enum class Disk { Same, Reread, Conflict };
  /// Looks at the file again. Reread: another program had changed it, or it can be read only now,
  /// and there is a new document in place of the old one. Conflict: it was changed or removed, and
  /// there are unsaved changes, which stay.
  Disk Refresh();
  /// Another number whenever Get gives another document than before.
  int Version() const { return mlVersion; }

 private:
  void Read();
  std::unique_ptr<SourceDocument> MakeDocument() const;

  std::string msPath, mRealPath;
  ProjectConstants mConstants;
  const ReadSettings& moSettings;
  std::unique_ptr<SourceDocument> mpDocument;
  int mlVersion = 0;
  std::optional<Failure> moFailure;
  FileStamp mStamp;  // ahead of the read, so that a change during it shows
};

class DocumentStore {
 public:
  explicit DocumentStore(ReadSettings oSettings) : moSettings(oSettings) {}
  DocumentStore(const DocumentStore&) = delete;
  DocumentStore& operator=(const DocumentStore&) = delete;

  /// The document of a file; sIdentity is its path with links resolved.
  StoredDocument& Add(const std::string& sIdentity, const std::string& sPath,
                      ProjectConstants::Owner owner);
  /// In the order in which they were added; those that differ from their files.
  std::vector<StoredDocument*> Changed() const;
  struct Saved {
    const StoredDocument* document;
    std::optional<Failure> failure;  ///< the file is as it was; its changes stay in memory
  };
  /// Replaces the files of all changed documents, in few flushes; one that can't be replaced
  /// doesn't keep the others from it. In the order in which they were added.
  /// journal: null, or where the run is recorded; Failure as of DocumentSave.
  std::vector<Saved> Save(RunJournal* journal);
  /// In the order in which they were added.
  const std::vector<std::unique_ptr<StoredDocument>>& All() const { return moDocuments; }
  /// The changed document of that path, or null.
  const StoredDocument* Changed(const std::string& sPath) const;

 private:
  void SweepNewFiles();

  ReadSettings moSettings;
  std::vector<std::unique_ptr<StoredDocument>> moDocuments;
  std::unordered_map<std::string, StoredDocument*> moByIdentity;
};
