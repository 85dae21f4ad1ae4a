// check: what is wrong with templates and their settings, found in memory, and never saving. What
// finds it is in checks/, what writes it in formats/.
#include "BaselineFile.h"
#include "Commands.h"
#include "ExplainCommand.h"
#include "FindingFormat.h"
#include "GroupCheck.h"
#include "MRules.h"
#include "ToldFindings.h"

namespace {

/// Files that two projects of the scope read differently.
void FindConflicts(Session& session, GroupCheck& check) {
  for (const ConstantConflict& conflict : session.pIDE->ConstantConflicts()) {
    const ComponentHandle component = session.ComponentWith(conflict.file);
    if (!component) continue;
    const Text message = conflict.constant + u" is " + ToText(conflict.value) + u" in " +
                         conflict.project + u", by which the file is read, and " +
                         ToText(conflict.otherValue) + u" in " + conflict.otherProject;
    check.ConflictingConstants(component, conflict.line, ToUtf8(message));
  }
}

CheckResult Find(Session& session, const RuleSelection& rules) {
  GroupCheck check(session.oHandler, session.oTemplate, rules, session);
  for (const DiskIDE::Note& note : session.MissingProjects())
    check.Unreadable(ShownFile(PathOfText(note.sFile)), static_cast<std::int32_t>(note.lLine),
                     ToUtf8(note.sMessage));
  for (const ComponentHandle h : session.Unreadable()) check.Unreadable(h, session.ReasonOf(h));
  for (const ComponentHandle h : session.ReadOnly())
    check.ReadOnly(h, MRules::oRules.bSkipReadOnly);
  for (std::size_t i = 0; i < session.Shared(); ++i) check.Shared();
  FindConflicts(session, check);
  check.Inactive(session.Inactive());
  std::size_t done = 0;
  for (const ProcedureHandle h : session.Procedures()) {
    const ComponentHandle component = session.oHandler.Procedure(h).hComponent;
    session.oConsole.Progress(++done, session.Procedures().size(),
                              session.oHandler.Component(component).sName);
    check.Procedure(h);
  }
  session.oConsole.ProgressEnd();
  return check.Finish();
}

void Report(Session& session, const CheckResult& result) {
  DataOutput data(session.oOutput);
  const std::string& name = session.oArguments.sFormat;
  const bool isForPeople = name.empty() || name == "text";  // visible already, and coloured
  TextSink& sink = isForPeople ? static_cast<TextSink&>(session.oOutput) : data;
  const auto format = MakeFindingFormat(
      name, {.sink = sink, .version = QUILLON_VERSION, .isColored = session.IsColored()});
  ToldFindings told(session);
  format->Begin(result);
  for (const Finding& finding : result.findings) format->Add(told.Tell(finding));
  format->End(result);
}

}  // namespace

int CheckCommand(Session& session) {
  const RuleSelection rules(session.oArguments.asSelect, session.oArguments.asIgnore);
  if (!rules.Unknown().empty()) throw Stop{UnknownRule(rules.Unknown())};
  if (session.oArguments.writeBaseline && session.oArguments.baseline.value_or("").empty())
    throw Stop{"--write-baseline needs --baseline FILE, or a baseline in quillon.toml"};
  session.OpenGroup(Session::Use::Check);
  session.LoadScope();
  CheckResult result = Find(session, rules);
  if (session.oArguments.writeBaseline) {
    WriteBaseline(session, result);
    return 0;
  }
  if (!session.oArguments.baseline.value_or("").empty()) LeaveOutKnown(session, rules, result);
  Report(session, result);
  for (const std::string& line : TotalLines(result, session.oConsole.IsVerbose()))
    session.oConsole.Say(line);
  // Code that names templates, and a file that knows none of them: it is the wrong file.
  if (result.namesUnknown && !result.namesKnown && rules.Has(CheckRule::UnknownTemplate))
    throw Stop{"The template file knows none of the templates that the code names: " +
               session.TemplateFile() + " (give another one, or --ignore unknown-template)"};
  return result.findings.empty() ? 0 : 1;
}
