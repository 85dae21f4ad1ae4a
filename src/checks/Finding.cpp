#include "Finding.h"

#include <algorithm>

namespace {

std::string Count(std::size_t number, const std::string& what) {
  return std::to_string(number) + ' ' + what + (number == 1 ? "" : "s");
}

/// "2 drifted, 1 stale-name"
template <class CountOf>
std::string ByRule(const CountOf& countOf) {
  std::string text;
  for (const RuleRow& row : CheckRules()) {
    const std::size_t count = countOf(row.rule);
    if (count == 0) continue;
    text += (text.empty() ? "" : ", ") + std::to_string(count) + ' ' + std::string(row.id);
  }
  return text;
}

std::string PassedText(const PassedOver& passed) {
  const std::size_t procedures = passed.locked + passed.ownHandling + passed.inactive;
  const std::size_t files = passed.readOnlyFiles + passed.sharedFiles;
  std::string text;
  if (procedures > 0) text = Count(procedures, "procedure");
  if (files > 0) text += (text.empty() ? "" : ", ") + Count(files, "file");
  return text;
}

std::vector<std::string> Causes(const CheckResult& result) {
  std::vector<std::string> lines;
  const auto add = [&](std::size_t count, const char* cause) {
    if (count > 0) lines.push_back(cause + (": " + std::to_string(count)));
  };
  add(result.passedOver.locked, "Passed over, locked");
  add(result.passedOver.ownHandling, "Passed over, with error handling of their own");
  add(result.passedOver.inactive,
      "Passed over, in branches that conditional compilation leaves out");
  add(result.passedOver.readOnlyFiles, "Passed over, files that are read-only");
  add(result.passedOver.sharedFiles, "Passed over, files that an earlier project has");
  for (const RuleRow& row : CheckRules())
    add(result.ignored[static_cast<std::size_t>(row.rule)],
        ("Ignored, " + std::string(row.id)).c_str());
  return lines;
}

}  // namespace

void SortFindings(std::vector<Finding>& findings) {
  std::stable_sort(findings.begin(), findings.end(), [](const Finding& a, const Finding& b) {
    if (a.file != b.file) {
      if (const int order = a.file->compare(*b.file); order != 0) return order < 0;
    }
    return a.line < b.line;
  });
}

std::vector<std::string> TotalLines(const CheckResult& result, bool verbose) {
  std::array<std::size_t, 64> found{};
  for (const Finding& finding : result.findings) ++found[static_cast<std::size_t>(finding.rule)];
  const auto in = [](const auto& counts) {
    return ByRule([&](CheckRule rule) { return counts[static_cast<std::size_t>(rule)]; });
  };
  std::string total = result.findings.empty()
                          ? "No findings"
                          : Count(result.findings.size(), "finding") + " (" + in(found) + ')';
  total += " in " + Count(result.procedures, "procedure");
  const std::string passed = PassedText(result.passedOver);
  if (!passed.empty()) total += "; passed over: " + passed + (verbose ? "" : " (-v tells why)");
  const std::string ignored = in(result.ignored);
  if (!ignored.empty()) total += "; ignored: " + ignored;
  if (result.known > 0) total += "; in the baseline: " + std::to_string(result.known);
  for (const auto& [name, count] : result.judgedOtherwise)
    total += "; " + Count(count, "suggestion") + " would differ by the rule '" + name +
             "', which is off";
  std::vector<std::string> lines;
  if (verbose) lines = Causes(result);
  lines.push_back(std::move(total));
  return lines;
}
