#include "CheckRules.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::array Table = {
    RuleRow{
        CheckRule::MissingTemplate, "missing-template", CheckSeverity::Warning,
        Mend::ApplySuggested, true, "The rules suggest a template, and the code has none.",
        "What is suggested comes from the rules of the settings file and from where the procedure\n"
        "stands; list --suggested shows it. A suggestion that would leave the code as it is, such\n"
        "as a value that the template has no line for, is no finding.\n",
        "Core/CPrices.cls:42: CPrices.Load: Template (none) -> Standard, Boundary unset -> ActiveX "
        "[missing-template]\n"},
    RuleRow{
        CheckRule::SettingsDiffer, "settings-differ", CheckSeverity::Warning, Mend::ApplySuggested,
        true, "The code has a template, and the rules suggest another one or other values.",
        "Lock a procedure that is to stay as it is, or give the code's own values precedence in\n"
        "the rules: then they are what is suggested.\n",
        "Core/CPrices.cls:42: CPrices.Load: Boundary None -> ActiveX [settings-differ]\n"},
    RuleRow{
        CheckRule::Drifted, "drifted", CheckSeverity::Warning, Mend::Refresh, true,
        "The template's lines in the code aren't those that a refresh would write.",
        "The template file was changed since, or somebody changed the lines by hand in a way\n"
        "that its patterns still fit. Line numbers count as well, where the rules have them put\n"
        "in or taken out.\n",
        "Core/CPrices.cls:57: CPrices.Load: refresh would write [Trail.Caught 2] for "
        "[Trail.Caught 1] [drifted]\n"},
    RuleRow{CheckRule::StaleName, "stale-name", CheckSeverity::Error, Mend::Refresh, true,
            "The template's lines name another procedure or module than the one they stand in.",
            "The procedure was renamed or copied. Errors and traces are reported under the wrong\n"
            "name until a refresh writes the lines anew.\n",
            "Core/CPrices.cls:57: CPrices.Read: refresh would write [Caught \"Read\"] for "
            "[Caught \"Load\"] [stale-name]\n"},
    RuleRow{
        CheckRule::BrokenTemplate, "broken-template", CheckSeverity::Error, Mend::None, true,
        "The template can't be taken out of the code again.",
        "A line of it was changed, deleted or moved, so that nothing tells the template's lines\n"
        "from the code's own; or its signature line is gone, so that the procedure counts as\n"
        "one with error handling of its own. No command touches the procedure. Give it the\n"
        "template's lines back by hand, from a procedure that has them.\n",
        "Core/CPrices.cls:42: CPrices.Load: BodyEnd Not Found [broken-template]\n"},
    RuleRow{
        CheckRule::UnknownTemplate, "unknown-template", CheckSeverity::Error, Mend::None, true,
        "The code names a template that the template file doesn't hold.",
        "The name in the signature line is misspelt, the template was renamed, or it is another\n"
        "template file; template list shows the names in a file. No command touches the\n"
        "procedure. When the file knows none of the templates that the code names, that is\n"
        "wrong usage, and the exit status is 2.\n",
        "Core/CPrices.cls:42: CPrices.Load: there is no template standrad in the template file "
        "[unknown-template]\n"},
    RuleRow{CheckRule::OwnHandling, "own-handling", CheckSeverity::Note, Mend::None, false,
            "The code handles errors on its own.",
            "On Error stands in the procedure, and no signature says that a template wrote it. No\n"
            "command touches it; without this rule such procedures are counted among those that\n"
            "were passed over.\n",
            "Core/CPrices.cls:42: CPrices.Load: handles errors on its own [own-handling]\n"},
    RuleRow{
        CheckRule::Numbered, "numbered", CheckSeverity::Warning, Mend::Unnumber, false,
        "The body's lines are numbered.",
        "For teams that keep numbers out of the sources and have them put in when a program is\n"
        "built. A number in the first column counts, also one that a jump names: lock such a\n"
        "procedure.\n",
        "Core/CPrices.cls:45: CPrices.Load: its lines are numbered [numbered]\n"},
    RuleRow{
        CheckRule::WouldRefuse, "would-refuse", CheckSeverity::Error, Mend::None, true,
        "What is suggested, or a refresh, would be refused.",
        "The message is the one that apply or refresh would give; docs/rewriting.md tells what\n"
        "to do about each.\n",
        "Core/CPrices.cls:42: CPrices.Load: refused: Line number 10 is the target of a jump "
        "[would-refuse]\n"},
    RuleRow{
        CheckRule::ReadOnly, "read-only", CheckSeverity::Warning, Mend::None, true,
        "The file is read-only, so that no command would write it.",
        "While the rule \"Skip ReadOnly\" is set, the code in it isn't looked at either. A file\n"
        "that lies outside the roots is looked at, and told only where something would change. A\n"
        "team that shares files which it must not change leaves the rule out: --ignore\n"
        "read-only.\n",
        "Shared/MText.bas: MText: the file is read-only and was passed over [read-only]\n"},
    RuleRow{CheckRule::Unreadable, "unreadable", CheckSeverity::Error, Mend::None, true,
            "A file of the group can't be read.",
            "It is missing, or the system refuses it. Nothing is known of the code in it. A file\n"
            "that several projects name is told once.\n",
            "App/FJob.frm: FJob: can't be read: File not found [unreadable]\n"},
    RuleRow{
        CheckRule::UnprovedMeaning, "unproved-meaning", CheckSeverity::Error, Mend::None, true,
        "With the template, the code would do something else than it does or is meant to do.",
        "The message holds the id of the rule of meaning; docs/meaning.md tells each, and what to\n"
        "do. apply refuses most of them; --allow ID lets one pass here as there. Of a template\n"
        "that is there already, handlers that are off and exits that pass clean-up code by are\n"
        "told.\n",
        "Core/CPrices.cls:48: CPrices.Warn: The template would clear Err ahead of the code that "
        "reads it (err-read); give the procedure no template; Line=3 [    MsgBox "
        "Err.Description] [unproved-meaning]\n"},
    RuleRow{
        CheckRule::ConflictingConstants, "conflicting-constants", CheckSeverity::Warning,
        Mend::None, true,
        "Two projects read a file with different constants of conditional compilation.",
        "The file is read with the constants of the first project that the scope names, so that\n"
        "procedures of the other one may be passed over. Check each project by itself, with\n"
        "--project or with its own file as PATH.\n",
        "Shared/MText.bas:12: MText: batch is 1 in AtelierApp, by which the file is read, and 0 "
        "in AtelierCore [conflicting-constants]\n"},
};

constexpr bool IsInOrder() {
  for (std::size_t i = 0; i < Table.size(); ++i)
    if (static_cast<std::size_t>(Table[i].rule) != i) return false;
  return true;
}
static_assert(IsInOrder());

}  // namespace

std::span<const RuleRow> CheckRules() {
  return Table;
}

const RuleRow& RowOf(CheckRule rule) {
  return Table[static_cast<std::size_t>(rule)];
}

const RuleRow* FindRule(std::string_view id) {
  const auto row =
      std::find_if(Table.begin(), Table.end(), [&](const RuleRow& one) { return one.id == id; });
  return row == Table.end() ? nullptr : row;
}

std::string_view SeverityName(CheckSeverity severity) {
  constexpr std::array Names = {"error", "warning", "note"};
  return Names[static_cast<std::size_t>(severity)];
}

std::string_view MendCommand(Mend mend) {
  constexpr std::array<std::string_view, 4> Commands = {"", "apply --suggested", "refresh",
                                                        "unnumber"};
  return Commands[static_cast<std::size_t>(mend)];
}
