// Findings in each of the forms, with texts that are awkward in it.
#include <gtest/gtest.h>

#include "FindingFormat.h"

namespace {

/// Two findings: one with signs that each form has to escape, and one that has no line.
std::string InForm(const char* name, bool isColored = false) {
  TextKeeper kept;
  const auto format =
      MakeFindingFormat(name, {.sink = kept, .version = "1.2", .isColored = isColored});
  CheckResult result;
  result.findings.resize(2);
  format->Begin(result);
  ReviewFinding finding;
  finding.rule = FindRule("stale-name");
  finding.file = "../a,b:c/\xC3\xA4 100%.bas";
  finding.treeFile = "a,b:c/\xC3\xA4 100%\xE9.bas";
  finding.line = 3;
  finding.endLine = 4;
  finding.project = "App";
  finding.component = "modMain";
  finding.procedure = "Load";
  finding.message = "100%, \"a\": {0} <b> & \x01\xEF\xBF\xBF\r\n::error::x";
  finding.fingerprint = "0f";
  format->Add(finding);
  finding = {};
  finding.rule = FindRule("unreadable");
  finding.treeFile = finding.file = "/x.vbp";
  finding.message = "gone";
  format->Add(finding);
  format->End(result);
  return kept.Text();
}

TEST(FindingFormat, EscapesWhatItsReadersTakeForTheirOwn) {
  struct Row {
    const char *name, *expected;
  };
  for (
      const Row& row : {
          Row{"text",
              "../a,b:c/\xC3\xA4 100%.bas:3: modMain.Load: 100%, \"a\": {0} <b> & "
              "<U+0001>\xEF\xBF\xBF<U+000D><U+000A>::error::x [stale-name]\n"
              "/x.vbp: gone [unreadable]\n"},
          Row{"github",
              "::error file=a%2Cb%3Ac/\xC3\xA4 100%25\\xE9.bas,line=3,endLine=4,title=stale-name::"
              "modMain.Load: 100%25, \"a\": {0} <b> & \x01\xEF\xBF\xBF%0D%0A::error::x\n"
              "::error file=/x.vbp,title=unreadable::gone\n"},
          Row{"gitlab",
              R"([
{"description": "modMain.Load: 100%, \"a\": {0} <b> & \u0001)"
              "\xEF\xBF\xBF"
              R"(\r\n::error::x","check_name": "stale-name","fingerprint": "0f","severity": "major","location": {"path": "a,b:c/)"
              "\xC3\xA4"
              R"( 100%\\xE9.bas","lines": {"begin": 3,"end": 4}}},
{"description": "gone","check_name": "unreadable","fingerprint": "","severity": "major","location": {"path": "/x.vbp","lines": {"begin": 1}}}
]
)"},
          Row{"junit",
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
              "<testsuites tests=\"2\" failures=\"2\" errors=\"0\">\n"
              "<testsuite name=\"quillon check\" tests=\"2\" failures=\"2\" errors=\"0\">\n"
              "<testcase classname=\"modMain\" name=\"Load: stale-name\" file=\"a,b:c/\xC3\xA4 "
              "100%\\xE9.bas\"><failure type=\"stale-name\" message=\"modMain.Load: 100%, "
              "&quot;a&quot;: {0} &lt;b&gt; &amp; &lt;U+0001&gt;\xEF\xBF\xBD&lt;U+000D&gt;"
              "&lt;U+000A&gt;::error::x\">a,b:c/\xC3\xA4 100%\\xE9.bas:3</failure></testcase>\n"
              "<testcase classname=\"quillon\" name=\"unreadable\" file=\"/x.vbp\"><failure "
              "type=\"unreadable\" message=\"gone\">/x.vbp</failure></testcase>\n"
              "</testsuite>\n</testsuites>\n"},
      }) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(InForm(row.name), row.expected);
  }
  EXPECT_NE(InForm("text", true).find("[\x1b[31mstale-name\x1b[0m]\n"), std::string::npos);
  EXPECT_EQ(MakeFindingFormat("xml", {.sink = *std::make_unique<TextKeeper>(), .version = ""}),
            nullptr);
  // What the schema can't say of SARIF; the rest is held to it by sarif-schema.
  for (const char* part :
       {"{\"uri\": \"a%2Cb%3Ac/%C3%A4%20100%25%E9.bas\",\"uriBaseId\": \"%SRCROOT%\"}",
        "{\"uri\": \"file:///x.vbp\"}", "\"a\\\": {{0}} <b>"}) {
    EXPECT_NE(InForm("sarif").find(part), std::string::npos) << part;
  }
}

TEST(FindingFormat, SaysThatNothingWasFound) {
  struct Row {
    const char *name, *expected;
  };
  for (const Row& row :
       {Row{"text", ""}, Row{"github", ""}, Row{"gitlab", "[\n]\n"},
        Row{"junit",
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
            "<testsuites tests=\"1\" failures=\"0\" errors=\"0\">\n"
            "<testsuite name=\"quillon check\" tests=\"1\" failures=\"0\" errors=\"0\">\n"
            "<testcase classname=\"quillon\" name=\"check\"/>\n</testsuite>\n</testsuites>\n"}}) {
    TextKeeper kept;
    const auto format = MakeFindingFormat(row.name, {.sink = kept, .version = "1.2"});
    format->Begin({});
    format->End({});
    EXPECT_EQ(kept.Text(), row.expected) << row.name;
  }
}

}  // namespace
