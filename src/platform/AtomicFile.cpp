#include "AtomicFile.h"

#include "FileFailure.h"
#include "StagedFiles.h"

namespace AtomicFile {

void Replace(const std::string& path, std::string_view bytes, IFileOps& files) {
  StagedFiles staged(files);
  staged.Stage(path, bytes);
  staged.Flush();
  staged.Commit(0);
  staged.FlushFolders();
  if (const Failure* failure = staged.FailureOf(0)) throw Failure(*failure);
}

void RefuseSpecial(const std::string& target, IFileOps& files) {
  IFileOps::Stat state;
  if (files.GetStat(target, state) == 0 && state.bSpecial) FileFailure::ThrowSpecial(target);
}

std::string Read(const std::string& path, IFileOps& files) {
  std::string bytes;
  if (const int error = files.ReadAll(path, bytes)) FileFailure::ThrowRead(error, path, files);
  return bytes;
}

}  // namespace AtomicFile
