// A log file of lines that several programs may write at once, kept small by rotation: when a line
// would lead past the limit, <file> becomes <file>.1, that one <file>.2 and so on, and the oldest
// goes. Nothing here throws. What isn't an ordinary file (a terminal, a pipe) is never rotated.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

class ErrorLog {
 public:
  /// Choices: at most four files of one megabyte.
  static constexpr std::size_t lUsualBytes = 1 << 20;
  static constexpr int lUsualKept = 3;

  /// lKept: how many old files are kept beside the one in use. Doesn't open the file.
  explicit ErrorLog(std::string sPath, std::size_t lMaxBytes = lUsualBytes, int lKept = lUsualKept);
  ~ErrorLog();
  ErrorLog(const ErrorLog&) = delete;
  ErrorLog& operator=(const ErrorLog&) = delete;

  const std::string& Path() const { return msPath; }
  /// Opens the file, and makes its folder if need be. False: see Problem.
  bool Open() noexcept;
  /// Appends a line (without its end) in one write, so that lines of two programs never mix.
  bool Write(std::string_view sLine) noexcept;
  /// For the handler of a fatal signal: no rotation, no allocation.
  bool WriteUnsafe(std::string_view sLineWithEnd) noexcept;
  /// The system's error number of the last call that gave false.
  int Problem() const { return mlProblem; }

 private:
  bool Fails(int problem) noexcept;
  bool MakeFolder() noexcept;
  /// By the system's own calls.
  bool OpenFile() noexcept;
  bool WriteFile(std::string_view bytes) noexcept;
  void Close() noexcept;
  bool MakeRoom(std::size_t lBytes) noexcept;
  void ShiftFiles() const;

  std::string msPath;
  std::size_t mlMaxBytes;
  int mlKept;
  std::intptr_t mhFile = -1;
  int mlProblem = 0;
  std::string msBuffer;
};

/// $XDG_STATE_HOME/tarvane-quillon/quillon.log, or under ~/.local/state; on Windows
/// tarvane-quillon\quillon.log in the user's folder for local data, unless XDG_STATE_HOME is set.
/// Empty without a home.
std::string DefaultLogPath();
/// The beginning of a log line: time in UTC with milliseconds, a tab, the process id, a tab.
/// Written to acBuffer, which has at least 64 bytes; gives the length. Safe in a signal handler.
std::size_t LogLineStart(char* acBuffer);
