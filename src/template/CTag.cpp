#include "CTag.h"

#include "MXString.h"

namespace {

// One line in the form that the parser reads: a directive that was joined from several lines
// counts as one. Blanks within quoted values collapse as well, since patterns are compared so.
Text OneLine(TextView sTag) {
  return MXString::FullTrim(MXString::StringReplace(Text(sTag) + u' ', CrLf, u" "));
}

bool IsQuote(char16_t unit) {
  return unit == u'\'' || unit == u'"';
}

}  // namespace

void CTag::SetTag(TextView sTag) {
  mError = 0;
  mName.clear();
  mParameters.clear();

  const Text line = OneLine(sTag);
  if (!line.starts_with(u'<')) {
    mError = 1;
    return;
  }
  if (!line.ends_with(u'>')) {
    mError = 2;
    return;
  }
  // Every word ends in a blank then, the last one too.
  Text words = line.substr(1, line.size() - 2) + u' ';
  const std::size_t blank = words.find(u' ');
  mName = words.substr(0, blank);
  ReadParameters(TextView(words).substr(blank + 1));
}

// words is empty or ends in a blank.
void CTag::ReadParameters(TextView words) {
  std::size_t pos = 0;
  while (pos + 1 < words.size()) {
    const std::size_t equals = words.find(u'=', pos);
    // A word without a value makes the rest unreadable; that is no error, it counts as absent.
    if (equals == TextView::npos) return;
    const TextView key = Trim(words.substr(pos, equals - pos));
    if (key.find(u' ') != TextView::npos) return;

    std::size_t start = equals + 1;
    std::size_t end;
    if (IsQuote(words[start])) {
      // A quote inside the value is told from the closing one by the blank behind the latter.
      const char16_t closing[] = {words[start], u' '};
      ++start;
      end = words.find(TextView(closing, 2), start);
      if (end == TextView::npos) {
        mError = 3;
        return;
      }
      pos = end + 2;
    } else {
      end = words.find(u' ', start);
      pos = end + 1;
    }
    mParameters.push_back({LowerCase(key), Text(words.substr(start, end - start))});
  }
}

Text CTag::Parameter(TextView isParam) const {
  for (const Pair& pair : mParameters) {
    if (pair.key == isParam) return pair.value;
  }
  return {};
}
