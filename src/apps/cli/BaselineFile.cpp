#include "BaselineFile.h"

#include "AtomicFile.h"
#include "Baseline.h"
#include "MXFile.h"
#include "ToldFindings.h"

namespace {

Baseline ReadBaseline(const std::string& path) {
  try {
    return Baseline::Read(AtomicFile::Read(path));
  } catch (const BaselineFault& fault) {
    throw Stop{Placed(ShownPath(path), static_cast<std::int64_t>(fault.line), fault.message)};
  }
}

/// A name that was mistyped, or that came with a repository, must not cost another file.
void RefuseOther(const std::string& path) {
  if (MXFile::FileExists(TextOfPath(path))) ReadBaseline(path);
}

void TellGone(Session& session, const RuleSelection& rules, const Baseline& baseline,
              CheckResult& result) {
  for (const Baseline::Entry* entry : baseline.Gone()) {
    const RuleRow* const rule = FindRule(entry->rule);
    if (rule && !rules.Has(rule->rule)) continue;
    result.gone.push_back(entry->fingerprint);
    session.oConsole.Detail("No longer occurs: " + entry->file + ": " + entry->component +
                            (entry->procedure.empty() ? "" : '.' + entry->procedure) + " [" +
                            entry->rule + ']');
  }
  const std::size_t count = result.gone.size();
  if (count > 0)
    session.oConsole.Say(ShownPath(*session.oArguments.baseline) + ": " + std::to_string(count) +
                         (count == 1 ? " entry no longer occurs" : " entries no longer occur") +
                         "; --write-baseline takes them out" +
                         (session.oConsole.IsVerbose() ? "" : " (-v names them)"));
}

}  // namespace

void LeaveOutKnown(Session& session, const RuleSelection& rules, CheckResult& result) {
  Baseline baseline = ReadBaseline(*session.oArguments.baseline);
  result.known = std::erase_if(
      result.findings, [&](const Finding& finding) { return baseline.Knows(finding.fingerprint); });
  if (session.IsWholeScope()) TellGone(session, rules, baseline, result);
}

void WriteBaseline(Session& session, const CheckResult& result) {
  RefuseOther(*session.oArguments.baseline);
  TextKeeper text;
  BaselineWriter writer(text);
  ToldFindings told(session);
  writer.Begin();
  for (const Finding& finding : result.findings) writer.Add(told.Tell(finding));
  writer.End();
  const std::string& path = *session.oArguments.baseline;
  AtomicFile::Replace(path, text.Text());
  session.oConsole.Say(ShownPath(path) + ": baseline of " + std::to_string(result.findings.size()) +
                       " findings written");
}
