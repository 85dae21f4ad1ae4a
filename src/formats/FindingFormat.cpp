#include "FindingFormat.h"

namespace {

struct Row {
  std::string_view name;
  std::unique_ptr<FindingFormat> (*make)(const FindingFormat::Place&);
};
constexpr Row Formats[] = {
    {"", MakeTextFormat},         {"text", MakeTextFormat},     {"json", MakeJsonFormat},
    {"sarif", MakeSarifFormat},   {"github", MakeGithubFormat}, {"junit", MakeJunitFormat},
    {"gitlab", MakeGitlabFormat},
};

}  // namespace

void FindingFormat::Begin(const CheckResult&) {}
void FindingFormat::End(const CheckResult&) {}

std::unique_ptr<FindingFormat> MakeFindingFormat(std::string_view name,
                                                 const FindingFormat::Place& place) {
  for (const Row& row : Formats)
    if (row.name == name) return row.make(place);
  return nullptr;
}
