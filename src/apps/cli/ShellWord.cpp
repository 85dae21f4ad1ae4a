#include "ShellWord.h"

std::string ShellWord(const std::string& word) {
  constexpr const char* Plain =
      "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_-./+,:@%";
  if (!word.empty() && word.find_first_not_of(Plain) == std::string::npos) return word;
  std::string quoted = "'";
  for (const char c : word) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + '\'';
}
