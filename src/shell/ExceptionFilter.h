// What is logged when the program crashes: an exception that nobody catches and the signals
// SIGSEGV, SIGBUS, SIGFPE, SIGILL and SIGABRT (on Windows the system's exceptions) go as a record
// to the error run-time, which writes it to its log; then the program ends by the system's default
// handling.
#pragma once

namespace ExceptionFilter {

/// For the whole process. May be called again.
void Install();
/// Puts back what was there before, for a library that leaves its process. Nothing without Install.
void Remove();

}  // namespace ExceptionFilter
