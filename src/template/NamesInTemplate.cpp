#include "NamesInTemplate.h"

#include <algorithm>
#include <array>

#include "LogicalLine.h"
#include "Sections.h"
#include "StatementWords.h"
#include "TemplateRows.h"

namespace {

/// Words of the language that no declaration can give another meaning.
constexpr std::array<TextView, 65> Keywords = {
    u"and",      u"as",       u"boolean", u"byref",   u"byte",   u"byval",  u"call",   u"case",
    u"const",    u"currency", u"date",    u"dim",     u"do",     u"double", u"each",   u"else",
    u"elseif",   u"end",      u"endif",   u"eqv",     u"erase",  u"error",  u"exit",   u"false",
    u"for",      u"function", u"get",     u"gosub",   u"goto",   u"if",     u"imp",    u"in",
    u"integer",  u"is",       u"let",     u"like",    u"long",   u"loop",   u"me",     u"mod",
    u"new",      u"next",     u"not",     u"nothing", u"null",   u"object", u"on",     u"or",
    u"property", u"redim",    u"resume",  u"return",  u"select", u"set",    u"single", u"static",
    u"step",     u"string",   u"sub",     u"then",    u"to",     u"true",   u"until",  u"variant",
    u"wend"};

bool IsKeyword(TextView word) {
  return std::binary_search(Keywords.begin(), Keywords.end(), word) || word == u"while" ||
         word == u"with" || word == u"xor";
}

void AddOnce(std::vector<Text>& names, TextView name) {
  if (std::find(names.begin(), names.end(), name) == names.end()) names.emplace_back(name);
}

/// Blanks in the place of tokens such as <%Retry>: what stands there is no name of the template's.
Text WithoutTokens(Text line) {
  for (std::size_t start; (start = line.find(u"<%")) != Text::npos;) {
    const std::size_t end = std::min(line.find(u'>', start), line.size() - 1);
    line.replace(start, end + 1 - start, end + 1 - start, u' ');
  }
  return line;
}

class Collector {
 public:
  void Take(TextView statement) {
    std::vector<TextView> words = Words(statement);
    if (words.size() > 1 && words[1] == u":" && IsNameWord(words[0]) && !IsKeyword(words[0])) {
      AddOnce(names.labels, words[0]);
      words.erase(words.begin(), words.begin() + 2);
    }
    if (words.empty()) return;
    names.handles |=
        words[0] == u"resume" || (words.size() > 1 && words[0] == u"on" && words[1] == u"error");
    EachDeclared(words, [&](TextView name) { AddOnce(names.declared, name); });
    for (std::size_t i = 0; i < words.size(); ++i) TakeUse(words, i);
  }

  NamesInTemplate Finish() {
    std::erase_if(names.used, [&](const Text& name) {
      const auto holds = [&](const std::vector<Text>& own) {
        return std::find(own.begin(), own.end(), name) != own.end();
      };
      return holds(names.declared) || holds(names.labels);
    });
    std::sort(names.used.begin(), names.used.end());
    return std::move(names);
  }

 private:
  void TakeUse(const std::vector<TextView>& words, std::size_t i) {
    if (!IsNameWord(words[i]) || IsKeyword(words[i])) return;
    if (i > 0) {
      const TextView ahead = words[i - 1];
      for (const TextView other : {u".", u"!", u"as", u"new", u"goto", u"gosub", u"resume"}) {
        if (ahead == other) return;
      }
    }
    AddOnce(names.used, words[i]);
  }

  NamesInTemplate names;
};

NamesInTemplate NamesIn(const std::vector<Text>& texts) {
  const std::vector<TextView> lines(texts.begin(), texts.end());
  Collector collector;
  LogicalLines logical(lines);
  while (logical.Next()) collector.Take(logical.Statement());
  return collector.Finish();
}

}  // namespace

NamesInTemplate NamesOf(std::span<const LineRow> rows) {
  std::vector<Text> texts;
  for (const LineRow& row : rows) {
    if (row.script) texts.push_back(WithoutTokens(row.sLine));
  }
  return NamesIn(texts);
}

NamesInTemplate NamesOf(std::span<const LineRow> rows, const SectionValues& values) {
  std::vector<Text> texts;
  for (const LineRow& row : rows) {
    if (!row.script) continue;
    Text text;
    RenderRow(row, values, text, Tokens::Names);
    texts.push_back(WithoutTokens(std::move(text)));
  }
  return NamesIn(texts);
}
