#include "TemplateReport.h"

#include <utility>

#include "PathText.h"
#include "Session.h"

std::vector<std::string> LoadTemplateReported(CTemplate& engine, const std::string& path) {
  std::vector<std::string> report;
  std::string fault;  // about to be reported
  const Connection faults = engine.ReportFault.Connect([&](std::int32_t line, TextView message) {
    fault = Placed(ShownPath(path), line, ToUtf8(message));
  });
  const Connection messages = engine.ReportError.Connect([&](TextView message) {
    report.push_back(fault.empty() ? ToUtf8(message) : std::exchange(fault, {}));
  });
  engine.LoadTemplateFile(TextOfPath(path));
  return report;
}
