#include "ErrorLog.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <filesystem>

namespace {

char* PutNumber(char* pcAt, unsigned long lNumber, int lDigits) {
  for (int i = lDigits - 1; i >= 0; --i, lNumber /= 10) {
    pcAt[i] = static_cast<char>('0' + lNumber % 10);
  }
  return pcAt + lDigits;
}

int DigitsOf(unsigned long lNumber) {
  int lDigits = 1;
  while (lNumber /= 10) ++lDigits;
  return lDigits;
}

bool SameFile(const struct stat& oLeft, const struct stat& oRight) {
  return oLeft.st_dev == oRight.st_dev && oLeft.st_ino == oRight.st_ino;
}

}  // namespace

ErrorLog::ErrorLog(std::string sPath, std::size_t lMaxBytes, int lKept)
    : msPath(std::move(sPath)), mlMaxBytes(lMaxBytes), mlKept(lKept) {}

ErrorLog::~ErrorLog() {
  Close();
}

bool ErrorLog::Fails() noexcept {
  mlProblem = errno;
  return false;
}

void ErrorLog::Close() noexcept {
  if (mhFile >= 0) close(mhFile);
  mhFile = -1;
}

bool ErrorLog::Open() noexcept {
  if (mhFile >= 0) return true;
  try {
    std::error_code oIgnored;
    const auto oFolder = std::filesystem::path(msPath).parent_path();
    if (!oFolder.empty()) std::filesystem::create_directories(oFolder, oIgnored);
  } catch (...) {
    errno = ENOMEM;
    return Fails();
  }
  // O_NONBLOCK: a pipe without a reader is a problem to tell, not one to hang on.
  mhFile = open(msPath.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0600);
  return mhFile >= 0 || Fails();
}

bool ErrorLog::Write(std::string_view sLine) noexcept {
  try {
    msBuffer.assign(sLine).push_back('\n');
  } catch (...) {
    errno = ENOMEM;
    return Fails();
  }
  return Open() && MakeRoom(msBuffer.size()) && WriteUnsafe(msBuffer);
}

bool ErrorLog::WriteUnsafe(std::string_view sLineWithEnd) noexcept {
  if (mhFile < 0) {
    mhFile = open(msPath.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0600);
  }
  while (!sLineWithEnd.empty()) {
    const ssize_t lWritten = write(mhFile, sLineWithEnd.data(), sLineWithEnd.size());
    if (lWritten < 0 && errno == EINTR) continue;
    if (lWritten <= 0) return Fails();
    sLineWithEnd.remove_prefix(static_cast<std::size_t>(lWritten));
  }
  return true;
}

bool ErrorLog::MakeRoom(std::size_t lBytes) noexcept {
  struct stat oOpen = {}, oNamed = {};
  if (fstat(mhFile, &oOpen) != 0) return Fails();
  const auto lSize = static_cast<std::size_t>(oOpen.st_size);
  if (!S_ISREG(oOpen.st_mode) || lSize == 0 || lSize + lBytes <= mlMaxBytes) return true;
  // Only the program that holds the lock renames the files. A program that waited for the lock sees
  // that its open file isn't the named one any more, and opens the new one.
  flock(mhFile, LOCK_EX);
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

std::size_t LogLineStart(char* acBuffer) {
  using namespace std::chrono;
  const auto oNow = floor<milliseconds>(system_clock::now());
  const auto oDay = floor<days>(oNow);
  const year_month_day oDate(oDay);
  const hh_mm_ss oTime(oNow - oDay);
  char* pcAt = acBuffer;
  const auto put = [&](auto lNumber, int lDigits, char cBehind) {
    pcAt = PutNumber(pcAt, static_cast<unsigned long>(lNumber), lDigits);
    *pcAt++ = cBehind;
  };
  put(static_cast<int>(oDate.year()), 4, '-');
  put(static_cast<unsigned>(oDate.month()), 2, '-');
  put(static_cast<unsigned>(oDate.day()), 2, 'T');
  put(oTime.hours().count(), 2, ':');
  put(oTime.minutes().count(), 2, ':');
  put(oTime.seconds().count(), 2, '.');
  put(oTime.subseconds().count(), 3, 'Z');
  *pcAt++ = '\t';
  const auto lProcess = static_cast<unsigned long>(getpid());
  put(lProcess, DigitsOf(lProcess), '\t');
  return static_cast<std::size_t>(pcAt - acBuffer);
}
