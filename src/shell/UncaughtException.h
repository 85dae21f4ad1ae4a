// The record of an exception of C++ that nobody catches.
#pragma once

/// From now on such an exception goes as a record to the error run-time ahead of the program's end.
void LogUncaughtExceptions();
