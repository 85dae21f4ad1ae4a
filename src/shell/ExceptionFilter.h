// The last word of a program that crashes: an exception that nobody catches and the signals
// SIGSEGV, SIGBUS, SIGFPE, SIGILL and SIGABRT go as a record to the error run-time, which writes it
// to its log; then the program ends as the system has it end.
#pragma once

namespace ExceptionFilter {

/// For the whole process. May be called again.
void Install();

}  // namespace ExceptionFilter
