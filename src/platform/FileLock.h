// Holds a lock file exclusively for the life of the object; other programs wait. The file stays,
// since removing it could take it away from under another program.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

class FileLock {
 public:
  /// Waits so many milliseconds at most (the default is a choice, far longer than a save takes);
  /// then, or when the file can't be made, a Failure with the path.
  explicit FileLock(const std::string& path, int milliseconds = 10000);
  /// Null when another program holds it all this time.
  static std::unique_ptr<FileLock> Try(const std::string& path, int milliseconds);
  ~FileLock();
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;

  /// Puts a text into the file for those who wait. It stays there when the lock is gone.
  void Note(std::string_view text);

 private:
  struct Opened {};
  FileLock(Opened, const std::string& path);
  bool Take(int milliseconds);
  /// By the system's own calls. Open gives its error number, errno's; TryTake doesn't wait.
  int Open(const std::string& path);
  bool TryTake();

  std::intptr_t mFile = -1;
};
