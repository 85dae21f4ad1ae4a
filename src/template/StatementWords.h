// The words of a statement, for questions that a pattern of its text can't answer.
#pragma once

#include <span>
#include <vector>

#include "LogicalLine.h"
#include "ProcText.h"
#include "Text.h"

/// Words and single signs of a statement as LogicalLines gives it: in lower case, without literals
/// and comment. Views into it.
std::vector<TextView> Words(TextView statement);
/// True when the word can be a name: it begins with a letter.
bool IsNameWord(TextView word);

/// False behind the last word as well.
inline bool Is(std::span<const TextView> words, std::size_t i, TextView word) {
  return i < words.size() && words[i] == word;
}

inline bool IsMember(std::span<const TextView> words, std::size_t i) {
  return i > 0 && (words[i - 1] == u"." || words[i - 1] == u"!");
}

/// Calls take(words, line) for each statement of lines first up to and not including end, until
/// it gives true; then true.
template <class Take>
bool AnyStatement(const ProcText& code, std::size_t first, std::size_t end, Take&& take) {
  std::vector<TextView> lines;
  for (std::size_t i = first; i < end; ++i) lines.push_back(code.Line(i));
  LogicalLines logical(lines);
  while (logical.Next()) {
    const std::vector<TextView> words = Words(logical.Statement());
    for (std::size_t from = 0; from < words.size();) {
      std::size_t to = from;
      // A named argument's := is no separator.
      while (to < words.size() &&
             (words[to] != u":" || (to + 1 < words.size() && words[to + 1] == u"="))) {
        ++to;
      }
      const auto statement = std::span(words).subspan(from, to - from);
      if (!statement.empty() && take(statement, first + logical.First())) return true;
      from = to + 1;
    }
  }
  return false;
}
