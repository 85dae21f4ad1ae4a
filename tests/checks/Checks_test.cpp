// The rules as a user meets them: chosen by words, told in the page, counted in the total.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <set>

#include "Finding.h"
#include "Fingerprints.h"
#include "RuleSelection.h"

namespace {

std::string Chosen(const RuleSelection& rules) {
  std::string ids;
  for (const RuleRow& row : CheckRules())
    if (rules.Has(row.rule)) ids += std::string(row.id) + ' ';
  return ids;
}

TEST(RuleSelection, WordsChooseRules) {
  using Words = std::vector<std::string>;
  struct Row {
    const char* name;
    Words select, ignore;
    const char *chosen, *unknown;
  };
  for (const Row& row :
       {Row{"one", {"drifted"}, {}, "drifted ", ""},
        Row{"in any case", {"Numbered"}, {}, "numbered ", ""},
        Row{"patterns add up",
            {"*-template", "num*"},
            {"broken*"},
            "missing-template unknown-template numbered ",
            ""},
        Row{"ignored wins", {"drifted"}, {"*"}, "", ""},
        Row{"those that are on", {}, {"*-*"}, "drifted unreadable ", ""},
        Row{"none is called so", {"drifted", "drift", "x*"}, {}, "drifted ", "drift"},
        Row{"nor to be ignored", {"drifted"}, {"x*"}, "drifted ", "x*"}}) {
    SCOPED_TRACE(row.name);
    const RuleSelection rules(row.select, row.ignore);
    EXPECT_EQ(Chosen(rules), row.chosen);
    EXPECT_EQ(rules.Unknown(), row.unknown);
  }
}

TEST(CheckRules, ThePageTellsEachAsTheProgramDoes) {
  std::ifstream file(QUILLON_SOURCE_DIR "/docs/checks.md");
  const std::string page{std::istreambuf_iterator<char>(file), {}};
  std::string wanted;
  for (const RuleRow& row : CheckRules()) {
    wanted += "### " + std::string(row.id) + "\n\n";
    wanted += std::string(row.summary) + " Severity: " + std::string(SeverityName(row.severity));
    wanted += row.byDefault ? ".\n\n" : ", off unless selected.\n\n";
    wanted += std::string(row.explanation) + "\n```\n" + std::string(row.example) + "```\n\n";
    if (row.mend != Mend::None)
      wanted += "What mends it: `quillon " + std::string(MendCommand(row.mend)) + "`.\n\n";
  }
  const std::size_t start = page.find("### ");
  ASSERT_NE(start, std::string::npos);
  wanted.pop_back();
  EXPECT_EQ(page.substr(start), wanted);
}

TEST(CheckResult, IsToldInOrderAndNeverInSilence) {
  const std::string a = "a.bas", b = "b.bas";
  CheckResult result;
  EXPECT_EQ(TotalLines(result, true).back(), "No findings in 0 procedures");
  const auto add = [&](CheckRule rule, const std::string& file, std::int32_t line) {
    Finding finding;
    finding.rule = rule;
    finding.file = &file;
    finding.line = line;
    result.findings.push_back(finding);
  };
  add(CheckRule::StaleName, b, 2);
  add(CheckRule::Drifted, b, 1);
  add(CheckRule::ReadOnly, a, 10);
  add(CheckRule::Drifted, b, 2);
  SortFindings(result.findings);
  std::string order;
  for (const Finding& finding : result.findings)
    order += finding.file->substr(0, 1) + std::to_string(finding.line) +
             std::string(RowOf(finding.rule).id, 0, 1) + ' ';
  EXPECT_EQ(order, "a10r b1d b2s b2d ");
  result.procedures = 7;
  result.passedOver = {.locked = 2, .ownHandling = 1, .inactive = 4, .readOnlyFiles = 1};
  result.ignored[static_cast<std::size_t>(CheckRule::Drifted)] = 3;
  const std::string found = "4 findings (2 drifted, 1 stale-name, 1 read-only) in 7 procedures",
                    passed = "; passed over: 7 procedures, 1 file",
                    ignored =
                        "; ignored: 3 drifted; 2 suggestions would differ by the rule 'A', "
                        "which is off";
  result.judgedOtherwise["A"] = 2;
  EXPECT_EQ(TotalLines(result, false), std::vector{found + passed + " (-v tells why)" + ignored});
  EXPECT_EQ(TotalLines(result, true),
            (std::vector<std::string>{
                "Passed over, locked: 2", "Passed over, with error handling of their own: 1",
                "Passed over, in branches that conditional compilation leaves out: 4",
                "Passed over, files that are read-only: 1", "Ignored, drifted: 3",
                found + passed + ignored}));
}

TEST(Fingerprints, StayWhereOnlyPlacesChange) {
  const std::vector<Fingerprints::Subject> before = {
      {"drifted", "COrder", "Load", u"10  Call  Trail(1)\r\n"},
      {"drifted", "COrder", "Load", u"    Call Trail(1)\n"},
      {"drifted", "COrder", "Load", u"20\tCall Trail(1) "}};
  Fingerprints one, other;
  for (const Fingerprints::Subject& subject : before)
    EXPECT_EQ(one.Of(subject), other.Of({"drifted", "COrder", "Load", u"Call Trail(1)"}));
  std::set<std::string> names;
  for (const Fingerprints::Subject& subject :
       std::initializer_list<Fingerprints::Subject>{{"drifted", "COrder", "Load", u"x"},
                                                    {"drifted", "COrder", "Load", u"x"},
                                                    {"drifted", "COrder", "Load", u"X"},
                                                    {"drifted", "COrderLoad", "", u"x"},
                                                    {"drifted", "COrder", "LoadX", u""},
                                                    {"numbered", "COrder", "Load", u"x"}})
    names.insert(one.Of(subject));
  EXPECT_EQ(names.size(), 6u);
  // What stands in files of teams must stay what it is.
  EXPECT_EQ(Fingerprints().Of({"drifted", "COrder", "Load", u""}), "941c79f0bdd37488");
}

}  // namespace
