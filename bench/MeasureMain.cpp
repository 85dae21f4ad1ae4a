// quillon-bench-measure COMMAND ARGUMENT...: runs a program with its output thrown away and prints
// the processor time that it took, user and system, in seconds, its peak memory in KB, and the
// seconds of the clock. The exit status is the program's.
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>

namespace {

double Seconds(const timeval& oTime) {
  return static_cast<double>(oTime.tv_sec) + static_cast<double>(oTime.tv_usec) / 1e6;
}

[[noreturn]] void RunChild(char** argv) {
  const int lNull = open("/dev/null", O_WRONLY | O_CLOEXEC);
  if (lNull >= 0) dup2(lNull, STDOUT_FILENO);
  execvp(argv[1], argv + 1);
  std::perror(argv[1]);
  _exit(127);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::fputs("Usage: quillon-bench-measure COMMAND ARGUMENT...\n", stderr);
    return 2;
  }
  const auto start = std::chrono::steady_clock::now();
  const pid_t lChild = fork();
  if (lChild == 0) RunChild(argv);
  int lStatus = 0;
  rusage oUsage{};
  if (lChild < 0 || wait4(lChild, &lStatus, 0, &oUsage) < 0) {
    std::perror("quillon-bench-measure");
    return 1;
  }
  const std::chrono::duration<double> clock = std::chrono::steady_clock::now() - start;
  std::printf("%.4f %ld %.4f\n", Seconds(oUsage.ru_utime) + Seconds(oUsage.ru_stime),
              oUsage.ru_maxrss, clock.count());
  return WIFEXITED(lStatus) ? WEXITSTATUS(lStatus) : 128 + WTERMSIG(lStatus);
}
