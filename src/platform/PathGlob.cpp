#include "PathGlob.h"

#include <algorithm>
#include <vector>

namespace {

using Names = std::vector<std::string_view>;
constexpr std::string_view AnyFolders = "**";

Names Split(std::string_view path) {
  Names names;
  for (std::size_t start = 0, end; start <= path.size(); start = end + 1) {
    end = std::min(path.find('/', start), path.size());
    const std::string_view name = path.substr(start, end - start);
    if (!name.empty() && name != ".") names.push_back(name);
  }
  return names;
}

char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

/// Matching with one way back, to the last star: what came ahead of it needs no second look.
template <class Pattern, class Subject, class IsStar, class Fits>
bool MatchStars(const Pattern& pattern, const Subject& subject, IsStar isStar, Fits fits) {
  constexpr std::size_t None = static_cast<std::size_t>(-1);
  std::size_t at = 0, star = None, taken = 0, i = 0;
  while (i < subject.size()) {
    if (at < pattern.size() && isStar(pattern[at])) {
      star = at++;
      taken = i;
    } else if (at < pattern.size() && fits(pattern[at], subject[i])) {
      ++at, ++i;
    } else if (star != None) {
      at = star + 1;
      i = ++taken;
    } else {
      return false;
    }
  }
  while (at < pattern.size() && isStar(pattern[at])) ++at;
  return at == pattern.size();
}

bool NameFits(std::string_view pattern, std::string_view name) {
  return MatchStars(
      pattern, name, [](char c) { return c == '*'; },
      [](char wanted, char c) { return wanted == '?' || Lower(wanted) == Lower(c); });
}

}  // namespace

bool GlobFits(std::string_view pattern, std::string_view path) {
  Names wanted = Split(pattern);
  if (wanted.empty()) return false;
  const bool begins = pattern.find('/') < pattern.size() - 1;
  if (!begins) wanted.insert(wanted.begin(), AnyFolders);
  wanted.push_back(AnyFolders);
  return MatchStars(
      wanted, Split(path), [](std::string_view name) { return name == AnyFolders; }, NameFits);
}
