#include "StatementWords.h"

namespace {

bool IsDigit(char16_t unit) {
  return unit >= u'0' && unit <= u'9';
}

bool IsWordUnit(char16_t unit) {
  return unit == u'_' || unit >= 0x80 || IsDigit(unit) || (unit >= u'a' && unit <= u'z');
}

}  // namespace

std::vector<TextView> Words(TextView statement) {
  std::vector<TextView> words;
  std::size_t i = 0;
  while (i < statement.size()) {
    if (statement[i] == u' ' || statement[i] == u'\t') {
      ++i;
      continue;
    }
    const std::size_t start = i++;
    if (IsWordUnit(statement[start])) {
      while (i < statement.size() && IsWordUnit(statement[i])) ++i;
    }
    words.push_back(statement.substr(start, i - start));
  }
  return words;
}

bool IsNameWord(TextView word) {
  return IsWordUnit(word.front()) && !IsDigit(word.front());
}
