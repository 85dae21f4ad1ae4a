#include "MXStringVB.h"

#include <algorithm>
#include <iterator>

#include "MXString.h"

namespace {

constexpr std::size_t npos = TextView::npos;

// Every double quote flips the flag; a doubled quote in a literal flips it twice and needs no
// handling of its own.
class LiteralFlag {
 public:
  /// True for a unit that is part of a literal and no quote.
  bool Inside(char16_t unit) {
    if (unit == u'"') mInside = !mInside;
    return mInside && unit != u'"';
  }

 private:
  bool mInside = false;
};

template <std::size_t n>
bool IsOneOf(TextView text, const TextView (&texts)[n]) {
  return std::any_of(std::begin(texts), std::end(texts), [=](TextView one) {
    // Length and first unit refuse nearly all without a call.
    return one.size() == text.size() && one[0] == text[0] && one == text;
  });
}

template <std::size_t n>
bool StartsWithOneOf(TextView text, const TextView (&texts)[n]) {
  return std::any_of(std::begin(texts), std::end(texts),
                     [=](TextView prefix) { return text.starts_with(prefix); });
}

// Takes the first word, up to a blank, off the text. Two blanks in a row have an empty word
// between them, so that "end  if" isn't taken for "end if".
TextView TakeWord(TextView& text, bool& more) {
  const std::size_t end = text.find(u' ');
  const TextView word = text.substr(0, end);
  more = end != npos;
  text.remove_prefix(more ? end + 1 : text.size());
  return word;
}

// True when the words stand in the text with a blank or an end of the text on either side.
// end: where they end.
bool FindWords(TextView text, TextView words, std::size_t start, std::size_t& end) {
  for (std::size_t i = text.find(words, start); i != npos; i = text.find(words, i + 1)) {
    end = i + words.size();
    const bool isFree = i == 0 || (i > start && text[i - 1] == u' ');
    if (isFree && (end == text.size() || text[end] == u' ')) return true;
  }
  return false;
}

bool IsLogicWord(TextView word, TextView before) {
  static constexpr TextView Alone[] = {u"case",    u"do",   u"do:",   u"else", u"else:", u"for",
                                       u"gosub",   u"loop", u"loop:", u"next", u"next:", u"return",
                                       u"return:", u"wend", u"wend:", u"while"};
  static constexpr TextView BehindEnd[] = {u"if", u"if:", u"select", u"select:"};
  return IsOneOf(word, Alone) || (before == u"end" && IsOneOf(word, BehindEnd));
}

}  // namespace

namespace MXStringVB {

TextArray SplitStatements(TextView line) {
  const TextView code = TrimVBComments(line);
  TextArray statements;
  statements.reserve(3);  // a statement and a comment: what a line holds as a rule
  statements.emplace_back();
  LiteralFlag literal;
  std::size_t start = 0;
  for (std::size_t i = 0; i + 1 < code.size(); ++i) {
    if (literal.Inside(code[i]) || code[i] != u':' || code[i + 1] != u' ') continue;
    statements.emplace_back(code.substr(start, i - start));
    start = i + 2;
  }
  statements.emplace_back(code.substr(start));
  if (code.size() < line.size()) statements.emplace_back(line.substr(code.size()));
  return statements;
}

TextView TrimVBComments(TextView line) {
  if (line.find(u'\'') == npos) return line;
  LiteralFlag literal;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (!literal.Inside(line[i]) && line[i] == u'\'') return line.substr(0, i);
  }
  return line;
}

Text TrimVBLiterals(TextView line) {
  Text result;
  LiteralFlag literal;
  for (const char16_t unit : line) {
    if (!literal.Inside(unit) && unit != u'"') result += unit;
  }
  return result;
}

Text MaskVBLiterals(TextView line, TextView mask) {
  Text result;
  result.reserve(line.size());
  LiteralFlag literal;
  for (const char16_t unit : line) {
    result.append(literal.Inside(unit) ? mask : TextView(&unit, 1));
  }
  return result;
}

bool HasVBContinuation(TextView line) {
  return line.ends_with(u" _");
}

bool IsVBProcDataDeclaration(TextView statement) {
  static constexpr TextView Starts[] = {u"dim ", u"const ", u"static "};
  return StartsWithOneOf(statement, Starts);
}

bool IsVBLineLabel(TextView statement, bool& alone) {
  const std::size_t colon = statement.find(u':');
  if (colon == npos || !IsGoodVBLabel(statement.substr(0, colon))) return false;
  alone = Trim(statement.substr(colon + 1)).empty();
  return true;
}

// Meant so, odd as it looks: the slash passes, the underscore doesn't, and neither does a blank,
// so that indented text is no label.
bool IsGoodVBLabel(TextView label) {
  return std::all_of(label.begin(), label.end(), [](char16_t c) {
    return (c >= u'/' && c <= u'9') || (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') ||
           c >= 0x80;
  });
}

void RemoveVBLineNumber(Text& line) {
  const std::size_t end = std::min(line.find(u' '), line.size());
  if (MXString::IsDigits(TextView(line).substr(0, end), {})) line.replace(0, end, end, u' ');
}

bool StartsVBSelectContext(TextView statement) {
  std::size_t end = 0, caseEnd = 0;
  if (!FindWords(statement, u"select case", 0, end)) return false;
  return !FindWords(statement, u"case", std::min(end + 1, statement.size()), caseEnd);
}

bool ClearsVBSelectContext(TextView statement) {
  return statement == u"case" || statement.starts_with(u"case ");
}

bool IsVBEndStatement(TextView statement) {
  static constexpr TextView Ends[] = {u"else",      u"end if",     u"end with", u"next",
                                      u"exit for",  u"loop",       u"exit do",  u"wend",
                                      u"case else", u"end select", u"return"};
  return IsOneOf(statement, Ends);
}

bool IsVBSimpleEnd(TextView statement) {
  return statement == u"end with" || statement == u"return";
}

// The keywords count anywhere in the statement, not only where the grammar would have them.
bool IsVBLogicStatement(TextView statement) {
  bool hasIf = false, hasThen = false;
  TextView before;
  for (bool more = true; more;) {
    const TextView word = TakeWord(statement, more);
    hasIf |= word == u"if" || word == u"elseif";
    hasThen |= word == u"then";
    if ((hasIf && hasThen) || IsLogicWord(word, before)) return true;
    before = word;
  }
  return false;
}

bool IsVBCompilerDirective(TextView statement) {
  static constexpr TextView Starts[] = {u"#const", u"#if", u"#elseif", u"#else", u"#end if"};
  return StartsWithOneOf(statement, Starts);
}

}  // namespace MXStringVB
