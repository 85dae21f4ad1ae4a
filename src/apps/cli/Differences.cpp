#include "Differences.h"

#include <cstring>

#include "CodePage.h"
#include "UnifiedDiff.h"
#include "VisibleText.h"

namespace {

/// On a terminal the reader wants letters, in a pipe git apply wants the bytes.
std::string ForReader(const Session& session, const std::string& bytes) {
  if (!Output::IsTerminal()) return bytes;
  const std::string& name = session.oArguments.sCodePage;
  const CodePage& ansi = CodePage::Get(name.empty() ? "1252" : name);
  const CodePage& page = name.empty() ? CodePage::Detect(bytes, ansi) : ansi;
  return VisibleLines(ToUtf8(page.Decode(bytes)));
}

std::string PathForReader(const std::string& path) {
  return Output::IsTerminal() ? VisibleText(ShownFile(path)) : RelativePath(path);
}

}  // namespace

void PutDifference(Session& session, const std::string& path, const std::string& before,
                   const std::string& after) {
  const DiffStyle style{session.IsColored()};
  AppendUnifiedDiff(PathForReader(path), ForReader(session, before), ForReader(session, after),
                    style, session.oOutput.Buffer());
  session.oOutput.FlushWhenLarge();
}

void EndDifferences(Session& session) {
  session.oOutput.Flush();
  if (const int error = session.oOutput.Error())
    throw Stop{std::string("The differences can't be written, no file was changed: ") +
               std::strerror(error)};
}
