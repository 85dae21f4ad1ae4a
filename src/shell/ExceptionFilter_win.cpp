#include <windows.h>

#include <string>

#include "ExceptionFilter.h"
#include "IErrorRuntime.h"
#include "UncaughtException.h"

namespace {

LPTOP_LEVEL_EXCEPTION_FILTER before = nullptr;
bool isInstalled = false;

/// "Exception C0000005 at 00401234": eight hex digits each, as the system's own messages have them.
std::u16string Hex(std::uintptr_t number) {
  std::u16string digits(8, u'0');
  for (std::size_t i = digits.size(); i-- > 0; number >>= 4)
    digits[i] = u"0123456789ABCDEF"[number & 15];
  return digits;
}

std::u16string RecordText(const EXCEPTION_RECORD& record) {
  std::u16string text = u"Exception " + Hex(record.ExceptionCode) + u" at " +
                        Hex(reinterpret_cast<std::uintptr_t>(record.ExceptionAddress));
  for (DWORD i = 0; i < record.NumberParameters && i < EXCEPTION_MAXIMUM_PARAMETERS; ++i)
    text += u' ' + Hex(record.ExceptionInformation[i]);
  return text;
}

/// The error run-time's result is the filter's; 0 goes on with the search for who handles it.
LONG WINAPI OnException(EXCEPTION_POINTERS* exception) {
  const LONG result = goError->HandleException(RecordText(*exception->ExceptionRecord));
  return result == EXCEPTION_CONTINUE_SEARCH && before != nullptr ? before(exception) : result;
}

}  // namespace

void ExceptionFilter::Install() {
  if (isInstalled) return;
  LogUncaughtExceptions();
  before = SetUnhandledExceptionFilter(OnException);
  isInstalled = true;
}

void ExceptionFilter::Remove() {
  if (!isInstalled) return;
  SetUnhandledExceptionFilter(before);
  isInstalled = false;
}
