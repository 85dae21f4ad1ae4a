#include "DocumentFiles.h"

#include <filesystem>
#include <fstream>

#include "AtomicFile.h"
#include "Failure.h"
#include "PathText.h"

namespace Paper {

namespace {

/// A pipe or a device can't be replaced by a file, and must not be.
bool IsSpecial(const std::string& sPath) {
  IFileOps::Stat oState;
  return SystemFileOps().GetStat(sPath, oState) == 0 && oState.bSpecial;
}

void WriteStraight(const std::string& sPath, const std::string& sBytes) {
  std::ofstream oFile(std::filesystem::path(sPath), std::ios::binary | std::ios::app);
  oFile.write(sBytes.data(), std::ssize(sBytes));
  oFile.flush();
  if (!oFile) throw Failure(57, FailureText(57) + u": " + TextOfPath(sPath) + u" can't be written");
}

}  // namespace

void WriteDocument(const std::string& sPath, const std::string& sBytes) {
  if (IsSpecial(sPath)) return WriteStraight(sPath, sBytes);
  AtomicFile::Replace(sPath, sBytes);
}

FileDevice::FileDevice(AskFileName fnAsk)
    : PdfDevice([this](const std::string& sBytes) {
        if (moPath) WriteDocument(PathOfText(*moPath), sBytes);
      }),
      mfnAsk(std::move(fnAsk)) {}

void FileDevice::StartDocument(TextView sTitle) {
  moPath = mfnAsk ? mfnAsk(sTitle) : std::nullopt;
  PdfDevice::StartDocument(sTitle);
}

}  // namespace Paper
