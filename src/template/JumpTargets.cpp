#include "JumpTargets.h"

#include <algorithm>
#include <map>
#include <set>
#include <vector>

#include "LogicalLine.h"
#include "StatementWords.h"

namespace {

bool IsDigit(char16_t unit) {
  return unit >= u'0' && unit <= u'9';
}

bool IsNumber(TextView word) {
  return std::all_of(word.begin(), word.end(), IsDigit);
}

/// Adds the line numbers that one statement names as targets or compares with Erl.
void AddTargets(TextView statement, bool& selectErl, std::set<Text>& targets) {
  const std::vector<TextView> words = Words(statement);
  const bool erl = std::find(words.begin(), words.end(), u"erl") != words.end();
  const bool isCase = !words.empty() && words[0] == u"case";
  bool list = false;  // behind GoTo or GoSub numbers may follow one another
  for (std::size_t i = 0; i < words.size(); ++i) {
    const TextView word = words[i];
    if (IsNumber(word)) {
      if (list || erl || (isCase && selectErl)) targets.emplace(word);
      continue;
    }
    if (word == u"goto" || word == u"gosub" || word == u"resume" || word == u"then" ||
        word == u"else") {
      list = true;
    } else if (word != u",") {
      list = false;
    }
  }
  if (words.size() > 2 && words[0] == u"select") selectErl = erl;
  if (words.size() > 1 && words[0] == u"end" && words[1] == u"select") selectErl = false;
}

std::set<Text> TargetsOf(const std::vector<TextView>& lines) {
  std::set<Text> targets;
  bool selectErl = false;
  LogicalLines logical(lines);
  while (logical.Next()) {
    TextView statement = logical.Statement();
    while (!statement.empty() && IsDigit(statement.front())) statement.remove_prefix(1);
    AddTargets(statement, selectErl, targets);
  }
  return targets;
}

/// The statement behind each line number of a text, folded.
std::map<Text, Text> NumberedStatements(const ProcText& code) {
  std::map<Text, Text> statements;
  for (std::size_t i = 0; i < code.Count(); ++i) {
    if (code.IsContinued(i)) continue;
    const TextView folded = code.Folded(i);
    std::size_t end = 0;
    while (end < folded.size() && IsDigit(folded[end])) ++end;
    if (end == 0) continue;
    TextView rest = folded.substr(end);
    if (!rest.empty() && rest.front() != u' ' && rest.front() != u':') continue;
    if (!rest.empty()) rest.remove_prefix(1);
    statements.emplace(folded.substr(0, end), Trim(rest));
  }
  return statements;
}

/// True when after is before with at most one piece put into it.
bool IsSameStatement(TextView before, TextView after) {
  if (after.size() < before.size()) return false;
  std::size_t head = 0;
  while (head < before.size() && before[head] == after[head]) ++head;
  return after.ends_with(before.substr(head));
}

}  // namespace

bool JumpTargets::HoldsNumberedLine(const ProcText& code) {
  for (std::size_t i = 0; i < code.Count(); ++i) {
    if (!code.Folded(i).empty() && IsDigit(code.Folded(i).front())) return true;
  }
  return false;
}

std::optional<Refusal> JumpTargets::FirstLost(const ProcText& before, const ProcText& after) {
  if (!HoldsNumberedLine(before)) return std::nullopt;
  const auto oldStatements = NumberedStatements(before);
  if (oldStatements.empty()) return std::nullopt;
  std::vector<TextView> lines;
  for (std::size_t i = 0; i < before.Count(); ++i) lines.push_back(before.Line(i));
  const auto newStatements = NumberedStatements(after);
  for (const Text& target : TargetsOf(lines)) {
    const auto found = oldStatements.find(target);
    if (found == oldStatements.end()) continue;
    const auto now = newStatements.find(target);
    if (now != newStatements.end() && IsSameStatement(found->second, now->second)) continue;
    return Refusal{RefusalKind::JumpTargetLost, 0, target};
  }
  return std::nullopt;
}
