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

int NumberOf(int error) {
  if (error == ENOSPC || error == EDQUOT) return 61;
  if (error == ENOENT || error == ENOTDIR) return 76;
  return error == EROFS || error == EISDIR ? 75 : 70;
}

}  // namespace

FileLock::FileLock(const std::string& path, int milliseconds)
    : mFile(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666)) {
  if (mFile < 0) {
    const int error = errno;
    const std::int32_t number = NumberOf(error);
    throw Failure(number,
                  FailureText(number) + u": " + TextOfPath(path) + u" can't be opened (" +
                      FromUtf8(std::strerror(error)) + u"); make its folder writable",
                  u"FileLock");
  }
  const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
  while (flock(mFile, LOCK_EX | LOCK_NB) != 0) {
    if (std::chrono::steady_clock::now() > end) {
      close(mFile);
      throw Failure(70,
                    FailureText(70) + u": " + TextOfPath(path) +
                        u" is held by another program; wait for it or end it",
                    u"FileLock");
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
}

FileLock::~FileLock() {
  close(mFile);
}
