#include "ProgramStart.h"

#include <fcntl.h>
#include <io.h>
#include <windows.h>
// Behind windows.h, whose types it uses.
#include <shellapi.h>

#include <cstdio>
#include <cstdlib>

#include "IErrorRuntime.h"
#include "Utf8.h"

namespace {

UINT pageBefore = 0;

void PutConsoleBack() {
  SetConsoleOutputCP(pageBefore);
}

/// The progress line is erased by a sequence of the kind that terminals know.
void TakeSequences(DWORD stream) {
  constexpr DWORD ProcessesSequences = 4;
  const HANDLE console = GetStdHandle(stream);
  DWORD mode = 0;
  if (GetConsoleMode(console, &mode)) SetConsoleMode(console, mode | ProcessesSequences);
}

LONG WINAPI OnException(EXCEPTION_POINTERS* exception) {
  constexpr char16_t Digits[] = u"0123456789ABCDEF";
  std::u16string record = u"Exception ";
  for (int shift = 28; shift >= 0; shift -= 4)
    record += Digits[exception->ExceptionRecord->ExceptionCode >> shift & 15];
  return goError->HandleException(record);
}

}  // namespace

void PrepareStreams() {
  for (std::FILE* const stream : {stdin, stdout, stderr}) _setmode(_fileno(stream), _O_BINARY);
  pageBefore = GetConsoleOutputCP();
  if (pageBefore == 0) return;
  SetConsoleOutputCP(CP_UTF8);
  std::atexit(PutConsoleBack);
  TakeSequences(STD_OUTPUT_HANDLE);
  TakeSequences(STD_ERROR_HANDLE);
}

void InstallExceptionFilter() {
  SetUnhandledExceptionFilter(OnException);
}

std::vector<std::string> ProgramArguments(int argc, char** argv) {
  int count = 0;
  wchar_t** const wide = CommandLineToArgvW(GetCommandLineW(), &count);
  if (wide == nullptr) return {argv, argv + argc};
  std::vector<std::string> arguments;
  for (int i = 0; i < count; ++i) {
    const std::wstring_view one = wide[i];
    arguments.push_back(ToUtf8(std::u16string(one.begin(), one.end())));
  }
  LocalFree(wide);
  return arguments;
}
