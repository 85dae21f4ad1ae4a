#include "MXFile.h"

#include "AtomicFile.h"
#include "Guard.h"
#include "IFileOps.h"
#include "PathText.h"

namespace {

bool GetState(TextView file, IFileOps::Stat& state) {
  return SystemFileOps().GetStat(PathOfText(file), state) == 0;
}

}  // namespace

namespace MXFile {

bool FileExists(TextView sFile) {
  IFileOps::Stat state;
  return GetState(sFile, state) && !state.bDirectory;
}

bool PathExists(TextView sPath) {
  IFileOps::Stat state;
  return GetState(sPath, state) && state.bDirectory;
}

bool FileReadOnly(TextView sFile) {
  IFileOps::Stat state;
  return GetState(sFile, state) && !state.bDirectory && state.bReadOnly;
}

std::optional<std::int64_t> FileModified(TextView file) {
  constexpr std::int64_t NanosecondsPerSecond = 1'000'000'000;
  IFileOps::Stat state;
  if (!GetState(file, state)) return std::nullopt;
  return state.lModified / NanosecondsPerSecond;
}

bool FileBinaryRead(TextView sFile, std::string& sContents) {
  bool isRead = false;
  Guard({u"MXFile", u"FileBinaryRead"}, [&](GuardScope& scope) {
    isRead = scope.Step([&] { sContents = AtomicFile::Read(PathOfText(sFile)); });
  });
  return isRead;
}

}  // namespace MXFile
