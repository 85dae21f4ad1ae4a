#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "AtomicFile.h"
#include "DocumentFiles.h"
#include "Failure.h"
#include "PathText.h"

namespace Paper {

namespace {

namespace fs = std::filesystem;

/// A temporary file that only this user may read; removed with the object.
class TemporaryFile {
 public:
  TemporaryFile() {
    std::error_code oError;
    fs::path oFolder = fs::temp_directory_path(oError);
    if (oError) oFolder = "/tmp";
    msPath = (oFolder / "print-XXXXXX").string();
    const int hFile = mkstemp(msPath.data());
    if (hFile < 0) {
      throw Failure(75, FailureText(75) + u": " + TextOfPath(msPath) +
                            u" can't be made to hold the document (" +
                            FromUtf8(std::strerror(errno)) + u")");
    }
    close(hFile);
  }
  ~TemporaryFile() { unlink(msPath.c_str()); }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  const std::string& Path() const { return msPath; }

 private:
  std::string msPath;
};

}  // namespace

QueueDevice::QueueDevice(IPrintQueues& oQueues, std::string sQueue)
    : PdfDevice([this](const std::string& sBytes) { Submit(sBytes); }),
      moQueues(oQueues),
      msQueue(std::move(sQueue)) {}

std::int32_t QueueDevice::LoadedPaper() {
  const std::int32_t eSize = moQueues.PaperSizeOf(msQueue);
  return eSize != 0 ? eSize : UsualPaperSize();
}

Strips QueueDevice::Unprintable(const Sheet& oSheet) {
  const Strips oUpright = moQueues.StripsOf(msQueue, oSheet.ePaperSize);
  if (oSheet.eOrientation == Portrait) return oUpright;
  // The device may turn the sheet in either direction, so the widest strip is kept free on all
  // sides.
  const std::int32_t lWidest =
      std::max({oUpright.lLeft, oUpright.lTop, oUpright.lRight, oUpright.lBottom});
  return {lWidest, lWidest, lWidest, lWidest};
}

void QueueDevice::StartDocument(TextView sTitle) {
  msTitle = sTitle;
  PdfDevice::StartDocument(sTitle);
}

void QueueDevice::StartPage(const Sheet& oSheet) {
  mePaperSize = oSheet.ePaperSize;
  PdfDevice::StartPage(oSheet);
}

void QueueDevice::Submit(const std::string& sBytes) {
  const TemporaryFile oFile;
  AtomicFile::Replace(oFile.Path(), sBytes);
  moQueues.Submit(msQueue, oFile.Path(), msTitle, mePaperSize);
}

std::unique_ptr<IPrintDevice> IPrintQueues::DeviceOf(const std::string& sQueue) {
  return std::make_unique<QueueDevice>(*this, sQueue);
}

}  // namespace Paper
