#include "NearWord.h"

#include <algorithm>
#include <numeric>

namespace {

char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

/// Signs put in, left out, replaced, or exchanged with their neighbour.
std::size_t Distance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> beforeLast, last(b.size() + 1), row(b.size() + 1);
  std::iota(last.begin(), last.end(), 0u);
  const auto same = [&](std::size_t i, std::size_t j) { return Lower(a[i]) == Lower(b[j]); };
  for (std::size_t i = 0; i < a.size(); ++i) {
    row[0] = i + 1;
    for (std::size_t j = 0; j < b.size(); ++j) {
      row[j + 1] = std::min({last[j + 1] + 1, row[j] + 1, last[j] + (same(i, j) ? 0 : 1)});
      if (i > 0 && j > 0 && same(i, j - 1) && same(i - 1, j))
        row[j + 1] = std::min(row[j + 1], beforeLast[j - 1] + 1);
    }
    beforeLast = last;
    last = row;
  }
  return last.back();
}

}  // namespace

std::string NearestWord(std::string_view word, const std::vector<std::string>& known) {
  constexpr std::size_t Longest = 100;  // what is longer is no word that was mistyped
  if (word.size() > Longest) return {};
  const std::size_t limit = std::max<std::size_t>(word.size() / 3, 1);
  std::string nearest;
  std::size_t least = limit + 1;
  for (const std::string& candidate : known) {
    const std::size_t distance = Distance(word, candidate);
    if (distance >= least || distance >= candidate.size()) continue;
    least = distance;
    nearest = candidate;
  }
  return nearest;
}

std::string DidYouMean(std::string_view word, const std::vector<std::string>& known) {
  const std::string nearest = NearestWord(word, known);
  return nearest.empty() ? nearest : " (did you mean " + nearest + "?)";
}
