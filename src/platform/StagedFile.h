// A new file that waits beside the one whose place it is to take. Until it is committed the old one
// is whole; what isn't committed is gone with its object, at the latest.
//
//   StagedFile file("/src/a.bas", bytes, files);   // written, with mode and owner of the old one
//   file.Flush();                                   // on the disk
//   file.Commit();                                  // renamed over the old one
//   // that the rename is on the disk as well is up to a flush of the folder: StagedFiles
//
// A symbolic link stays a link: the file that it leads to is replaced. Owner, mode, access list and
// extended attributes stay, or the file isn't replaced. A file without write permission for its
// owner is refused with 75, as it would be in an editor, and so is one with several hard links,
// which a replacement would part. Each Failure names the path that was asked for and what to do
// (FileFailure.h), and leaves nothing of the new file behind.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "IFileOps.h"

class StagedFile {
 public:
  /// Writes the whole new file and leaves it open. files outlives this object.
  StagedFile(const std::string& path, std::string_view bytes, IFileOps& files);
  ~StagedFile() { Discard(); }
  StagedFile(const StagedFile&) = delete;
  StagedFile& operator=(const StagedFile&) = delete;

  /// Removes what programs that are dead have left in a folder. Never fails.
  static void Sweep(const std::string& folder, IFileOps& files);

  /// The new file: ".<name>.<process id>.quillon-new" beside the target. One that a killed program
  /// left is overwritten or ignored, never taken for a source.
  const std::string& Path() const { return mPath; }
  /// The file that it becomes, links resolved.
  const std::string& Target() const { return mTarget; }

  /// The one that the new file is on; nothing where it can't be flushed as a whole.
  std::optional<std::uint64_t> FileSystem() const { return mFileSystem; }

  /// Begins to bring the bytes to the disk, without waiting for it.
  void StartFlush();
  /// Waits until the disk took the bytes: those of an open file. A flush is to follow.
  void FlushBytes();
  /// Flushes the whole file system by the handle of this file; the system's error number.
  int FlushFileSystem();
  /// Waits until the file is on the disk, and closes.
  void Flush();
  /// Closes a file that is flushed in another way.
  void Close();
  /// To be called when the file is on the disk.
  void Commit();
  /// Removes the new file unless it was committed. Never fails.
  void Discard();

 private:
  int Create(std::uint32_t mode);
  int TakeRights(const IFileOps::Stat& old);
  int Write(std::string_view bytes, const IFileOps::Stat* old);
  int CloseHandle();
  [[noreturn]] void Fail(int error);

  IFileOps& mFiles;
  std::string mPath, mTarget;
  int mHandle = -1;
  bool mIsThere = false;
  std::optional<std::uint64_t> mFileSystem;
};
