#include <windows.h>

#include <array>

#include "ChildProgram.h"
#include "Text.h"

namespace {

class Handle {
 public:
  Handle() = default;
  explicit Handle(HANDLE handle) : mHandle(handle) {}
  ~Handle() { Close(); }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  void Close() {
    if (mHandle && mHandle != INVALID_HANDLE_VALUE) CloseHandle(mHandle);
    mHandle = nullptr;
  }
  HANDLE Get() const { return mHandle; }
  HANDLE* Place() { return &mHandle; }

 private:
  HANDLE mHandle = nullptr;
};

/// An argument in quotes, as the run-time of C programs takes a command line apart: backslashes
/// count only ahead of a quote.
std::string Quoted(const std::string& argument) {
  std::string quoted = "\"";
  std::size_t slashes = 0;
  for (const char c : argument) {
    if (c == '"') quoted.append(slashes + 1, '\\');
    slashes = c == '\\' ? slashes + 1 : 0;
    quoted += c;
  }
  return quoted.append(slashes, '\\').append("\"");
}

std::wstring CommandLine(const std::vector<std::string>& arguments) {
  std::string line;
  for (const std::string& argument : arguments)
    line.append(line.empty() ? "" : " ").append(Quoted(argument));
  const Text text = FromUtf8(line);
  return {text.begin(), text.end()};
}

std::string ReadAll(HANDLE stream) {
  std::string text;
  std::array<char, 1 << 16> piece;
  for (DWORD count = 0;
       ReadFile(stream, piece.data(), static_cast<DWORD>(piece.size()), &count, nullptr) && count;)
    text.append(piece.data(), count);
  return text;
}

}  // namespace

std::optional<std::string> OutputOfProgram(const std::vector<std::string>& arguments) {
  SECURITY_ATTRIBUTES inherited = {sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
  Handle output, written;
  if (!CreatePipe(output.Place(), written.Place(), &inherited, 0)) return std::nullopt;
  SetHandleInformation(output.Get(), HANDLE_FLAG_INHERIT, 0);
  const Handle nothing(CreateFileW(L"NUL", GENERIC_READ | GENERIC_WRITE,
                                   FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, OPEN_EXISTING, 0,
                                   nullptr));
  STARTUPINFOW start = {};
  start.cb = sizeof(start);
  start.dwFlags = STARTF_USESTDHANDLES;
  start.hStdInput = start.hStdError = nothing.Get();
  start.hStdOutput = written.Get();
  PROCESS_INFORMATION started = {};
  std::wstring line = CommandLine(arguments);
  if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW, nullptr,
                      nullptr, &start, &started))
    return std::nullopt;
  const Handle process(started.hProcess), thread(started.hThread);
  written.Close();
  std::string text = ReadAll(output.Get());
  WaitForSingleObject(process.Get(), INFINITE);
  DWORD status = 1;
  if (!GetExitCodeProcess(process.Get(), &status) || status != 0) return std::nullopt;
  return text;
}
