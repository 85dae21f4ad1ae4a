#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

#include "ErrorLog.h"

namespace {

bool SameFile(const struct stat& oLeft, const struct stat& oRight) {
  return oLeft.st_dev == oRight.st_dev && oLeft.st_ino == oRight.st_ino;
}

int Descriptor(std::intptr_t file) {
  return static_cast<int>(file);
}

}  // namespace

void ErrorLog::Close() noexcept {
  if (mhFile >= 0) close(Descriptor(mhFile));
  mhFile = -1;
}

// O_NONBLOCK: a pipe without a reader is a problem to tell, not one to hang on.
bool ErrorLog::OpenFile() noexcept {
  mhFile = open(msPath.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0600);
  return mhFile >= 0 || Fails(errno);
}

bool ErrorLog::WriteFile(std::string_view bytes) noexcept {
  while (!bytes.empty()) {
    const ssize_t lWritten = write(Descriptor(mhFile), bytes.data(), bytes.size());
    if (lWritten < 0 && errno == EINTR) continue;
    if (lWritten <= 0) return Fails(errno);
    bytes.remove_prefix(static_cast<std::size_t>(lWritten));
  }
  return true;
}

bool ErrorLog::MakeRoom(std::size_t lBytes) noexcept {
  struct stat oOpen = {}, oNamed = {};
  if (fstat(Descriptor(mhFile), &oOpen) != 0) return Fails(errno);
  const auto lSize = static_cast<std::size_t>(oOpen.st_size);
  if (!S_ISREG(oOpen.st_mode) || lSize == 0 || lSize + lBytes <= mlMaxBytes) return true;
  // Only the program that holds the lock renames the files. A program that waited for the lock sees
  // that its open file isn't the named one any more, and opens the new one.
  flock(Descriptor(mhFile), LOCK_EX);
  const bool bMine = stat(msPath.c_str(), &oNamed) == 0 && SameFile(oOpen, oNamed);
  if (bMine) {
    try {
      ShiftFiles();
    } catch (...) {
      mlProblem = ENOMEM;
    }
  }
  Close();
  return Open();
}

void ErrorLog::ShiftFiles() const {
  const auto name = [this](int i) { return i == 0 ? msPath : msPath + '.' + std::to_string(i); };
  if (mlKept == 0) unlink(msPath.c_str());
  for (int i = mlKept; i > 0; --i) std::rename(name(i - 1).c_str(), name(i).c_str());
}

std::string DefaultLogPath() {
  const char* pcState = std::getenv("XDG_STATE_HOME");
  const char* pcHome = std::getenv("HOME");
  const std::string sName = "/tarvane-quillon/quillon.log";
  if (pcState != nullptr && *pcState == '/') return pcState + sName;
  return pcHome != nullptr && *pcHome != '\0' ? pcHome + ("/.local/state" + sName) : std::string();
}
