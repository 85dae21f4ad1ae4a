#include "FileLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <thread>

#include "Failure.h"
#include "PathText.h"

namespace {

int NumberOf(int lError) {
  if (lError == ENOSPC || lError == EDQUOT) return 61;
  if (lError == ENOENT || lError == ENOTDIR) return 76;
  return lError == EROFS || lError == EISDIR ? 75 : 70;
}

}  // namespace

FileLock::FileLock(const std::string& sPath, int lMilliseconds)
    : mhFile(open(sPath.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666)) {
  if (mhFile < 0) {
    const int lError = errno;
    const std::int32_t lNumber = NumberOf(lError);
    throw Failure(lNumber,
                  FailureText(lNumber) + u": " + TextOfPath(sPath) + u" can't be opened (" +
                      FromUtf8(std::strerror(lError)) + u"); make its folder writable",
                  u"FileLock");
  }
  const auto oEnd = std::chrono::steady_clock::now() + std::chrono::milliseconds(lMilliseconds);
  while (flock(mhFile, LOCK_EX | LOCK_NB) != 0) {
    if (std::chrono::steady_clock::now() > oEnd) {
      close(mhFile);
      throw Failure(70,
                    FailureText(70) + u": " + TextOfPath(sPath) +
                        u" is held by another program; wait for it or end it",
                    u"FileLock");
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
}

FileLock::~FileLock() {
  close(mhFile);
}
