#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>

#include "FileLock.h"

namespace {

int Descriptor(std::intptr_t file) {
  return static_cast<int>(file);
}

}  // namespace

int FileLock::Open(const std::string& path) {
  mFile = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
  return mFile < 0 ? errno : 0;
}

bool FileLock::TryTake() {
  return flock(Descriptor(mFile), LOCK_EX | LOCK_NB) == 0;
}

// Nothing depends on the text, so a failure counts for nothing.
void FileLock::Note(std::string_view text) {
  if (ftruncate(Descriptor(mFile), 0) != 0) return;
  [[maybe_unused]] const ssize_t written = pwrite(Descriptor(mFile), text.data(), text.size(), 0);
}

FileLock::~FileLock() {
  close(Descriptor(mFile));
}
