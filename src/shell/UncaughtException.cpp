#include "UncaughtException.h"

#include <csignal>
#include <cstdlib>
#include <exception>

#include "IErrorRuntime.h"
#include "Utf8.h"

namespace {

[[noreturn]] void OnTerminate() {
  std::u16string sRecord = u"Unhandled exception";
  if (const std::exception_ptr pException = std::current_exception()) {
    try {
      std::rethrow_exception(pException);
    } catch (const std::exception& oException) {
      sRecord += u": " + FromUtf8(oException.what());
    } catch (...) {
    }
  }
  goError->HandleException(sRecord);
  signal(SIGABRT, SIG_DFL);  // the record is written; abort must not write another one
  std::abort();
}

}  // namespace

void LogUncaughtExceptions() {
  std::set_terminate(OnTerminate);
}
