#include <signal.h>
#include <unistd.h>

#include <cerrno>

#include "Process.h"

std::int32_t ProcessNumber() {
  return getpid();
}

bool IsProcessGone(std::int64_t number) {
  return number > 0 && kill(static_cast<pid_t>(number), 0) != 0 && errno == ESRCH;
}
