// Holds a lock file exclusively for the life of the object; other programs wait. The file stays,
// since removing it could take it away from under another program.
#pragma once

#include <string>

class FileLock {
 public:
  /// Waits so many milliseconds at most (the default is a choice, far longer than a save takes);
  /// then, or when the file can't be made, a Failure with the path.
  explicit FileLock(const std::string& path, int milliseconds = 10000);
  ~FileLock();
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;

 private:
  int mFile;
};
