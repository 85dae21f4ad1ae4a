#include "FileLock.h"

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

FileLock::FileLock(Opened, const std::string& path) {
  if (const int error = Open(path)) {
    const std::int32_t number = NumberOf(error);
    throw Failure(number,
                  FailureText(number) + u": " + TextOfPath(path) + u" can't be opened (" +
                      FromUtf8(std::strerror(error)) + u"); make its folder writable",
                  u"FileLock");
  }
}

FileLock::FileLock(const std::string& path, int milliseconds) : FileLock(Opened(), path) {
  if (Take(milliseconds)) return;
  throw Failure(70,
                FailureText(70) + u": " + TextOfPath(path) +
                    u" is held by another program; wait for it or end it",
                u"FileLock");
}

std::unique_ptr<FileLock> FileLock::Try(const std::string& path, int milliseconds) {
  std::unique_ptr<FileLock> lock(new FileLock(Opened(), path));
  return lock->Take(milliseconds) ? std::move(lock) : nullptr;
}

bool FileLock::Take(int milliseconds) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
  while (!TryTake()) {
    if (std::chrono::steady_clock::now() >= end) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  return true;
}
