#include "Retyped.h"

#include <algorithm>

namespace {

constexpr TextView Keywords[] = {
    u"And",      u"As",       u"Boolean", u"ByRef",   u"ByVal",   u"Call",    u"Case",   u"Const",
    u"Dim",      u"Do",       u"Each",    u"Else",    u"ElseIf",  u"End",     u"Erase",  u"Error",
    u"Exit",     u"False",    u"For",     u"Friend",  u"Get",     u"GoSub",   u"GoTo",   u"If",
    u"In",       u"Is",       u"Let",     u"Like",    u"Long",    u"Loop",    u"Mod",    u"New",
    u"Next",     u"Not",      u"Nothing", u"On",      u"Or",      u"Private", u"Public", u"ReDim",
    u"Resume",   u"Return",   u"Select",  u"Set",     u"Static",  u"Step",    u"String", u"Sub",
    u"Then",     u"To",       u"True",    u"Until",   u"Wend",    u"While",   u"With",   u"Xor",
    u"Function", u"Property", u"Integer", u"Variant", u"Optional"};

bool IsOfWord(char16_t unit) {
  return unit == u'_' || unit >= 0x80 || (unit >= u'0' && unit <= u'9') ||
         (LowerCase(unit) >= u'a' && LowerCase(unit) <= u'z');
}

/// behind: the unit ahead of the word, by which members of objects are told.
Text Word(TextView word, char16_t behind) {
  const auto known =
      std::ranges::find_if(Keywords, [&](TextView keyword) { return EqualNoCase(keyword, word); });
  return Text(behind == u'.' || behind == u'!' || known == std::end(Keywords) ? word : *known);
}

void AddBlank(Text& line) {
  if (!line.empty() && line.back() != u' ') line += u' ';
}

Text RetypedLine(TextView line) {
  std::size_t i = line.size() - LeftTrim(line).size();
  Text out(line.substr(0, i));
  while (i < line.size()) {
    const char16_t unit = line[i];
    std::size_t end = i + 1;
    if (unit == u'\'' || unit == u'#') return out += line.substr(i);
    if (unit == u'"') {
      end = std::min(line.find(u'"', end), line.size() - 1) + 1;
      out += line.substr(i, end - i);
    } else if (IsOfWord(unit)) {
      while (end < line.size() && IsOfWord(line[end])) ++end;
      const Text word = Word(line.substr(i, end - i), out.empty() ? u' ' : out.back());
      if (EqualNoCase(word, u"Rem")) return out += line.substr(i);
      out += word;
    } else if (unit == u' ') {
      while (end < line.size() && line[end] == u' ') ++end;
      const bool keeps = end < line.size() && line[end] == u'\'';
      keeps ? out += line.substr(i, end - i) : (AddBlank(out), out);
    } else {
      const bool alone =
          unit == u'=' && (out.empty() || TextView(u"<>:=").find(out.back()) == TextView::npos);
      if (alone) AddBlank(out);
      out += unit;
      if (alone && end < line.size() && line[end] != u' ' && line[end] != u'<' && line[end] != u'>')
        out += u' ';
    }
    i = end;
  }
  return Text(RightTrim(out));
}

}  // namespace

Text Retyped(TextView text) {
  Text out;
  for (std::size_t i = 0;;) {
    const std::size_t end = FindLineEnd(text, i);
    out += RetypedLine(text.substr(i, end - i));
    if (end == text.size()) return out;
    out += CrLf;
    i = end + CrLf.size();
  }
}
