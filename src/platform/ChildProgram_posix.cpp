#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>

#include "ChildProgram.h"

extern char** environ;

namespace {

class Streams {
 public:
  explicit Streams(const std::array<int, 2>& output) {
    posix_spawn_file_actions_init(&mActions);
    posix_spawn_file_actions_addopen(&mActions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&mActions, output[1], STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&mActions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  }
  ~Streams() { posix_spawn_file_actions_destroy(&mActions); }
  Streams(const Streams&) = delete;
  Streams& operator=(const Streams&) = delete;
  const posix_spawn_file_actions_t* Get() const { return &mActions; }

 private:
  posix_spawn_file_actions_t mActions;
};

std::string ReadAll(int stream) {
  std::string text;
  std::array<char, 1 << 16> piece;
  for (;;) {
    const ssize_t count = read(stream, piece.data(), piece.size());
    if (count > 0) text.append(piece.data(), static_cast<std::size_t>(count));
    if (count == 0 || (count < 0 && errno != EINTR)) return text;
  }
}

int StatusOf(pid_t child) {
  int status = 0;
  while (waitpid(child, &status, 0) < 0)
    if (errno != EINTR) return -1;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace

std::optional<std::string> OutputOfProgram(const std::vector<std::string>& arguments) {
  std::vector<char*> words;
  for (const std::string& argument : arguments)
    words.push_back(const_cast<char*>(argument.c_str()));
  words.push_back(nullptr);
  std::array<int, 2> output;
  if (pipe2(output.data(), O_CLOEXEC) != 0) return std::nullopt;
  pid_t child = 0;
  const Streams streams(output);
  const int failed = posix_spawnp(&child, words[0], streams.Get(), nullptr, words.data(), environ);
  close(output[1]);
  const std::string text = failed == 0 ? ReadAll(output[0]) : std::string();
  close(output[0]);
  if (failed != 0 || StatusOf(child) != 0) return std::nullopt;
  return text;
}
