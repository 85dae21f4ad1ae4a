// JUnit's XML, which build servers show as tests: each finding is a test that failed, and a check
// that finds nothing is one that passed.
#include "FindingFormat.h"
#include "FormatText.h"
#include "PathText.h"

namespace {

class JunitFormat : public FindingFormat {
 public:
  using FindingFormat::FindingFormat;

  void Begin(const CheckResult& result) override {
    const std::size_t failures = result.findings.size();
    const std::string counts = " tests=\"" + std::to_string(failures == 0 ? 1 : failures) +
                               "\" failures=\"" + std::to_string(failures) + "\" errors=\"0\"";
    Put("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites" + counts +
        ">\n<testsuite name=\"quillon check\"" + counts + ">\n");
    if (failures == 0) Put("<testcase classname=\"quillon\" name=\"check\"/>\n");
  }

  void Add(const ReviewFinding& finding) override {
    const std::string id(finding.rule->id);
    std::string name = finding.procedure;
    const std::string file = XmlText(ShownPath(finding.treeFile));
    std::string place = file;
    if (finding.line > 0) place.append(":").append(std::to_string(finding.line));
    Put("<testcase classname=\"" +
        XmlText(finding.component.empty() ? "quillon" : finding.component) + "\" name=\"" +
        XmlText(name.empty() ? id : name + ": " + id) + "\" file=\"" + file +
        "\"><failure type=\"" + id + "\" message=\"" + XmlText(finding.FullMessage()) + "\">" +
        place + "</failure></testcase>\n");
  }

  void End(const CheckResult&) override { Put("</testsuite>\n</testsuites>\n"); }
};

}  // namespace

std::unique_ptr<FindingFormat> MakeJunitFormat(const FindingFormat::Place& place) {
  return std::make_unique<JunitFormat>(place);
}
