#include "Output.h"

#include <unistd.h>

#include <cerrno>

#include "VisibleText.h"

bool Output::IsTerminal() {
  return isatty(STDOUT_FILENO) != 0;
}

void Output::Flush() {
  std::string_view sBytes = msPending;
  while (!sBytes.empty() && mnError == 0 && !mbReaderGone) {
    ssize_t lWritten = write(STDOUT_FILENO, sBytes.data(), sBytes.size());
    if (lWritten >= 0) {
      sBytes.remove_prefix(static_cast<std::size_t>(lWritten));
    } else if (errno == EPIPE) {
      mbReaderGone = true;
    } else if (errno != EINTR) {
      mnError = errno;
    }
  }
  msPending.clear();
}

void DataOutput::Put(std::string_view text) {
  if (!Output::IsTerminal()) return mOutput.Put(text);
  mOutput.Put(VisibleLines(text));
}
