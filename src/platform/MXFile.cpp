#include "MXFile.h"

#include "AtomicFile.h"
#include "IFileOps.h"
#include "PathText.h"

namespace {

bool GetState(TextView sFile, IFileOps::Stat& oStat) {
  return SystemFileOps().GetStat(PathOfText(sFile), oStat) == 0;
}

}  // namespace

namespace MXFile {

bool FileExists(TextView sFile) {
  IFileOps::Stat oStat;
  return GetState(sFile, oStat) && !oStat.bDirectory;
}

bool PathExists(TextView sPath) {
  IFileOps::Stat oStat;
  return GetState(sPath, oStat) && oStat.bDirectory;
}

bool FileReadOnly(TextView sFile) {
  IFileOps::Stat oStat;
  return GetState(sFile, oStat) && !oStat.bDirectory && oStat.bReadOnly;
}

void FileBinaryRead(TextView sFile, std::string& sContents) {
  sContents = AtomicFile::Read(PathOfText(sFile));
}

}  // namespace MXFile
