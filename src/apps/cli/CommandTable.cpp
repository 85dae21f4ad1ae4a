// Parts: options that several commands share; those of one command each; contradictions; commands.
#include "CommandTable.h"

#include "Arguments.h"
#include "Commands.h"

namespace {

constexpr const char* Colors[] = {"auto", "always", "never"};
constexpr Option Common[] = {
    {.names = "-t,--template",
     .target = &Arguments::sTemplateFile,
     .help = "Template file (else Template.dat beside the group, else the most recent one)",
     .valueName = "FILE",
     .isPath = true},
    {.names = "--settings",
     .target = &Arguments::oSettingsFile,
     .help = "Settings file instead of the user's own",
     .valueName = "FILE",
     .isPath = true},
    {.names = "--log",
     .target = &Arguments::sLogFile,
     .help = "Log failures to this file",
     .valueName = "FILE",
     .isPath = true},
    {.names = "--color",
     .target = &Arguments::sColor,
     .help = "Colours on a terminal",
     .valueName = "WHEN",
     .words = Colors},
    {.names = "-q,--quiet",
     .target = &Arguments::bQuiet,
     .help = "Only results and what went wrong"},
    {.names = "-v,--verbose",
     .target = &Arguments::bVerbose,
     .help = "Tell more: template report, what was passed"},
    {.names = "--trace",
     .target = &Arguments::bTrace,
     .help = "Log entry and exit of the routines"},
};

constexpr const char* ScopeGroup = "Scope (Like patterns, letter case ignored, repeatable)";
constexpr Option Scope[] = {
    {.names = "--project",
     .target = &Arguments::asProject,
     .help = "Projects by name",
     .valueName = "PATTERN",
     .group = ScopeGroup},
    {.names = "--component",
     .target = &Arguments::asComponent,
     .help = "Components by name",
     .valueName = "PATTERN",
     .group = ScopeGroup},
    {.names = "--codepage",
     .target = &Arguments::sCodePage,
     .help = "Code page of the files (else 1252, or UTF-8 where a file is UTF-8)",
     .valueName = "NAME"},
    {.names = "--root",
     .target = &Arguments::roots,
     .help = "Components below this folder may be written too, besides the work tree",
     .valueName = "DIR",
     .isPath = true},
    {.names = "--define",
     .target = &Arguments::asDefine,
     .help = "Constant of conditional compilation, ahead of the projects' own (repeatable)",
     .valueName = "NAME=VALUE"},
    {.names = "--procedure",
     .target = &Arguments::asProcedure,
     .help = "Procedures by name, such as cmd*_Click or (declarations)",
     .valueName = "PATTERN",
     .group = ScopeGroup},
    {.names = "--type",
     .target = &Arguments::asType,
     .help = "Types as list shows them, such as Sub or Property *; declarations for the sections",
     .valueName = "PATTERN",
     .group = ScopeGroup},
};
constexpr Options ComponentScope = Options(Scope).first(5);

constexpr const char* FilesGroup = "Files (every option that is given has to fit)";
constexpr Option FileScope[] = {
    {.names = "--file",
     .target = &Arguments::files,
     .help = "Files that fit, as in .gitignore, from the current folder on (repeatable)",
     .valueName = "GLOB",
     .group = FilesGroup},
    {.names = "--exclude",
     .target = &Arguments::excluded,
     .help = "Leave out files and folders that fit (repeatable)",
     .valueName = "GLOB",
     .group = FilesGroup},
    {.names = "--since",
     .target = &Arguments::since,
     .help = "Files that differ from where the branch left this revision",
     .valueName = "REV",
     .group = FilesGroup},
    {.names = "--staged",
     .target = &Arguments::staged,
     .help = "Files that the next commit changes",
     .group = FilesGroup},
    {.names = "--files-from",
     .target = &Arguments::filesFrom,
     .help = "Files that are listed there, a line each; - is standard input",
     .valueName = "FILE",
     .group = FilesGroup},
};

constexpr Option Paths[] = {
    {.names = "PATH",
     .target = &Arguments::asPath,
     .help = "Project groups (.vbg), projects (.vbp), folders, or source files",
     .isPath = true},
};

constexpr Option OptionalPaths[] = {
    {.names = "PATH",
     .target = &Arguments::asPath,
     .help = "Project groups (.vbg), projects (.vbp), folders (the current one)",
     .isPath = true},
};

constexpr const char* RewritingGroup = "Rewriting";
constexpr const char* AllowHelp =
    "Let what the proof of meaning refuses pass by its id, such as err-read (repeatable)";
constexpr Option Rewriting[] = {
    {.names = "-n,--dry-run",
     .target = &Arguments::bDryRun,
     .help = "Write nothing",
     .group = RewritingGroup},
    {.names = "--diff",
     .target = &Arguments::bDiff,
     .help = "Print the changes as a unified diff, and write them unless -n is given",
     .group = RewritingGroup},
    {.names = "--wait",
     .target = &Arguments::sWait,
     .help = "How long to wait for another run on this group (5)",
     .valueName = "SECONDS",
     .group = RewritingGroup},
    {.names = "--exit-code",
     .target = &Arguments::bExitCode,
     .help = "With -n: exit status 1 when files would change",
     .group = RewritingGroup},
    {.names = "--no-verify",
     .target = &Arguments::bNoVerify,
     .help = "Don't prove each insertion by taking it out again",
     .group = RewritingGroup},
    {.names = "--allow",
     .target = &Arguments::allowed,
     .help = AllowHelp,
     .valueName = "ID",
     .group = RewritingGroup},
};

constexpr Option Format(Words words) {
  return {.names = "--format",
          .target = &Arguments::sFormat,
          .help = "Form of the result",
          .valueName = "FORM",
          .words = words};
}
constexpr Option Action(const char* name, const char* help, Words words) {
  return {.names = name,
          .target = &Arguments::sAction,
          .help = help,
          .words = words,
          .isRequired = true};
}

constexpr const char* ListFormats[] = {"table", "csv", "json"};
constexpr Option ListOptions[] = {
    {.names = "--suggested",
     .target = &Arguments::bSuggested,
     .help = "What the rules and the analysis suggest"},
    {.names = "--pending",
     .target = &Arguments::bPending,
     .help = "What is asked for",
     .excludes = "--suggested"},
    Format(ListFormats),
};

constexpr const char* CheckFormats[] = {"text", "json", "sarif", "github", "junit", "gitlab"};
constexpr const char* RulesGroup = "Rules (ids or patterns of ids, repeatable; explain tells each)";
constexpr const char* BaselineGroup = "Baseline";
constexpr Option CheckOptions[] = {
    {.names = "--baseline",
     .target = &Arguments::baseline,
     .help = "Leave out what this file of findings holds",
     .valueName = "FILE",
     .group = BaselineGroup,
     .isPath = true},
    {.names = "--write-baseline",
     .target = &Arguments::writeBaseline,
     .help = "Write the findings into the file of --baseline",
     .group = BaselineGroup},
    {.names = "--select",
     .target = &Arguments::asSelect,
     .help = "Find by these rules, instead of those that are on by themselves",
     .valueName = "RULE",
     .group = RulesGroup},
    {.names = "--ignore",
     .target = &Arguments::asIgnore,
     .help = "Leave these rules out",
     .valueName = "RULE",
     .group = RulesGroup},
    {.names = "--allow",
     .target = &Arguments::allowed,
     .help = AllowHelp,
     .valueName = "ID",
     .group = RulesGroup},
    Format(CheckFormats),
};

constexpr const char* SurveyFormats[] = {"table", "json"};
constexpr Option SurveyOptions[] = {
    {.names = "--shape",
     .target = &Arguments::sShape,
     .help = "This one of the listed shapes in full, with the procedures that have it",
     .valueName = "N"},
    Format(SurveyFormats),
};

constexpr Option ExplainOptions[] = {
    {.names = "RULE",
     .target = &Arguments::sRule,
     .help = "A rule of check, such as drifted; with a PATH, procedures by name. Or a pattern"},
    {.names = "PATH",
     .target = &Arguments::asPath,
     .help = "Project groups (.vbg), projects (.vbp), folders, for procedures",
     .isPath = true},
};

constexpr Option ApplyOptions[] = {
    {.names = "--set",
     .target = &Arguments::asSet,
     .help = "Template, Locked, Boundary, Severity, Retry or Trace (repeatable)",
     .valueName = "NAME=VALUE",
     .group = RewritingGroup},
    {.names = "--suggested",
     .target = &Arguments::bSuggested,
     .help = "Take the suggested values over",
     .group = RewritingGroup},
};

constexpr Options ChangingFiles = Options(Rewriting).first(3);
constexpr Option UndoOptions[] = {
    {.names = "PATH",
     .target = &Arguments::asPath,
     .help = "Groups, projects and folders whose runs are meant (the current folder)",
     .isPath = true},
    {.names = "--list", .target = &Arguments::bList, .help = "List the runs, the latest first"},
    {.names = "--run",
     .target = &Arguments::sRun,
     .help = "The run of that number in the list (else the latest that wasn't taken back)",
     .valueName = "NUMBER"},
};

constexpr const char* ReportActions[] = {"summary", "properties"};
constexpr Option ReportAction[] = {Action("REPORT", "summary or properties", ReportActions)};
constexpr const char* ReportFormats[] = {"text"};
constexpr Option ReportOptions[] = {
    {.names = "--pdf",
     .target = &Arguments::sPdfFile,
     .help = "Print into a PDF file",
     .valueName = "FILE",
     .isPath = true},
    Format(ReportFormats),
};

constexpr const char* TemplateActions[] = {"check", "dump", "list", "learn"};
constexpr Option TemplateOptions[] = {
    Action("ACTION", "check, dump, list or learn", TemplateActions),
    {.names = "FILE",
     .target = &Arguments::asPath,
     .help = "The template file; for learn, groups, projects or folders",
     .isPath = true,
     .isRequired = true},
    {.names = "--shape",
     .target = &Arguments::sShape,
     .help = "For learn: the number of the shape, as survey lists it",
     .valueName = "N"},
    {.names = "--name",
     .target = &Arguments::sName,
     .help = "For learn: the name of the template (Shape and its number)",
     .valueName = "NAME"},
};

constexpr const char* TextActions[] = {"insert",  "remove",    "number",
                                       "extract", "signature", "unsignature"};
constexpr Option TextOptions[] = {
    Action("OP", "insert, remove, number, extract, signature or unsignature", TextActions)};

constexpr Option Folder[] = {{.names = "FOLDER",
                              .target = &Arguments::asPath,
                              .help = "The folder, else the current one",
                              .isPath = true}};

constexpr const char* RulesActions[] = {"show", "set", "reset"};
constexpr Option RulesOptions[] = {
    Action("ACTION", "show, set or reset", RulesActions),
    {.names = "NAME=VALUE",
     .target = &Arguments::asValue,
     .help = "Rules to set, by their registry names"},
};

std::string CheckContradiction(const Arguments& arguments) {
  if (!arguments.writeBaseline) return {};
  const bool isPart = !arguments.asProject.empty() || !arguments.asComponent.empty() ||
                      !arguments.asProcedure.empty() || !arguments.asType.empty() ||
                      !arguments.files.empty() || !arguments.since.empty() || arguments.staged ||
                      !arguments.filesFrom.empty();
  return isPart ? "--write-baseline writes the findings of the whole group: give it no scope" : "";
}

std::string ApplyContradiction(const Arguments& arguments) {
  if (!arguments.asSet.empty() || arguments.bSuggested) return {};
  return "apply needs --set NAME=VALUE or --suggested";
}

std::string ReportContradiction(const Arguments& arguments) {
  if (!arguments.asProcedure.empty() || !arguments.asType.empty())
    return "report takes --project and --component, not --procedure or --type";
  if (arguments.sAction == "summary" && !arguments.asComponent.empty())
    return "report summary is about whole projects: --component goes with report properties";
  if (!arguments.sPdfFile.empty() && !arguments.sFormat.empty())
    return "report prints into a PDF file or as text: give --pdf or --format";
  return {};
}

std::string TemplateContradiction(const Arguments& arguments) {
  const bool learns = arguments.sAction == "learn";
  if (learns && arguments.sShape.empty())
    return "template learn needs --shape N; quillon survey lists the shapes";
  if (!learns && !(arguments.sShape.empty() && arguments.sName.empty()))
    return "--shape and --name go with template learn";
  if (!learns && arguments.asPath.size() > 1)
    return "template " + arguments.sAction + " takes one file";
  return {};
}

std::string RulesContradiction(const Arguments& arguments) {
  const bool sets = arguments.sAction == "set";
  if (sets && arguments.asValue.empty())
    return "rules set needs at least one NAME=VALUE; rules show lists the names";
  if (!sets && !arguments.asValue.empty()) return "rules " + arguments.sAction + " takes no values";
  return {};
}

constexpr Command Table[] = {
    {.run = ListCommand,
     .name = "list",
     .group = Command::Group::Needed,
     .help = "List the procedures and their properties",
     .examples = "  quillon list Orders.vbg\n"
                 "  quillon list --suggested --component 'frm*' Orders.vbg\n"
                 "  quillon list --format csv src > procedures.csv",
     .options = {Common, Scope, FileScope, Paths, ListOptions}},
    {.run = CheckCommand,
     .name = "check",
     .group = Command::Group::Needed,
     .help = "Tell what is wrong with templates and their settings",
     .examples =
         "  quillon check Orders.vbg\n"
         "  quillon check --ignore read-only --settings team.reg -t Template.dat Orders.vbg\n"
         "  quillon check --select '*' --ignore own-handling Orders.vbg\n"
         "  quillon check --format json --type 'Property *' Orders.vbg",
     .options = {Common, Scope, FileScope, Paths, CheckOptions},
     .contradiction = CheckContradiction},
    {.run = ExplainCommand,
     .name = "explain",
     .group = Command::Group::Optional,
     .help = "Tell what a rule of check finds, or why properties are suggested for a procedure",
     .examples = "  quillon explain\n"
                 "  quillon explain drifted\n"
                 "  quillon explain '*'\n"
                 "  quillon explain cmdOK_Click Orders.vbg",
     .options = {Common, Scope, FileScope, ExplainOptions}},
    {.run = SurveyCommand,
     .name = "survey",
     .help = "List hand-written error handlers by shape",
     .examples = "  quillon survey Orders.vbg\n"
                 "  quillon survey --shape 2 Orders.vbg\n"
                 "  quillon survey --format json --component 'cls*' Orders.vbg",
     .options = {Common, Scope, Paths, SurveyOptions}},
    {.run = ApplyCommand,
     .name = "apply",
     .group = Command::Group::Needed,
     .help = "Set properties and make the code agree with them",
     .examples = "  quillon apply --suggested Orders.vbg\n"
                 "  quillon apply --set Template=Light --set Severity=Fatal --component modMain "
                 "Orders.vbg\n"
                 "  quillon apply --set 'Template=(none)' -n --diff Orders.vbg",
     .options = {Common, Scope, FileScope, Paths, Rewriting, ApplyOptions},
     .contradiction = ApplyContradiction},
    {.run = RefreshCommand,
     .name = "refresh",
     .group = Command::Group::Needed,
     .help = "Write the error handlers anew from the template file",
     .examples = "  quillon refresh Orders.vbg\n"
                 "  quillon refresh -n --diff --project Orders Orders.vbg",
     .options = {Common, Scope, FileScope, Paths, Rewriting}},
    {.run = NumberCommand,
     .name = "number",
     .group = Command::Group::Needed,
     .help = "Put line numbers in, or renew them",
     .examples = "  quillon number Orders.vbg\n"
                 "  quillon number --component clsOrder Orders.vbg",
     .options = {Common, Scope, FileScope, Paths, Rewriting}},
    {.run = UnnumberCommand,
     .name = "unnumber",
     .group = Command::Group::Needed,
     .help = "Take line numbers out",
     .examples = "  quillon unnumber Orders.vbg\n"
                 "  quillon unnumber -n --diff Orders.vbg",
     .options = {Common, Scope, FileScope, Paths, Rewriting}},
    {.run = UndoCommand,
     .name = "undo",
     .help = "Take back what the last run wrote",
     .examples = "  quillon undo Orders.vbg\n"
                 "  quillon undo --list\n"
                 "  quillon undo -n --diff --run 2 Orders.vbg",
     .options = {Common, ChangingFiles, UndoOptions}},
    {.run = ReportCommand,
     .name = "report",
     .group = Command::Group::Needed,
     .help = "Print a summary of the projects, or the procedures' properties",
     .examples = "  quillon report summary Orders.vbg\n"
                 "  quillon report properties --pdf properties.pdf Orders.vbg\n"
                 "  quillon report properties --component clsOrder Orders.vbg",
     .options = {Common, ReportAction, ComponentScope, Paths, ReportOptions},
     .contradiction = ReportContradiction},
    {.run = TemplateCommand,
     .name = "template",
     .help = "Check or show a template file, or learn a template from code",
     .examples = "  quillon template check Template.dat\n"
                 "  quillon template dump Template.dat\n"
                 "  quillon template list Template.dat\n"
                 "  quillon template learn Orders.vbg --shape 1 --name Team >> Template.dat",
     .options = {Common, TemplateOptions},
     .contradiction = TemplateContradiction},
    {.run = TextCommand,
     .name = "text",
     .help = "Rewrite procedure texts: a JSON object per line in and out",
     .examples = "  quillon text insert -t Template.dat < requests.jsonl > results.jsonl\n"
                 "  quillon text extract -t Template.dat < requests.jsonl",
     .options = {Common, TextOptions}},
    {.run = InitCommand,
     .name = "init",
     .help = "Write a quillon.toml, and a template file where there is none",
     .examples = "  quillon init\n"
                 "  quillon init -t Team.dat src",
     .options = {Common, Folder}},
    {.run = ConfigCommand,
     .name = "config",
     .group = Command::Group::Here,
     .help = "Tell what holds for a group, and where each value comes from",
     .examples = "  quillon config\n"
                 "  quillon config Orders.vbg",
     .options = {Common, Scope, FileScope, OptionalPaths}},
    {.run = RulesCommand,
     .name = "rules",
     .help = "Show or change the rules in the settings file",
     .examples =
         "  quillon rules show\n"
         "  quillon rules set 'Severity Default=3' 'Line Number Action=0' --settings team.reg\n"
         "  quillon rules reset --settings team.reg",
     .options = {Common, RulesOptions},
     .contradiction = RulesContradiction,
     .makesSettings = true},
};

constexpr Options Leading[] = {Common, Scope, Rewriting};

}  // namespace

std::span<const Command> Commands() {
  return Table;
}

std::span<const Options> LeadingOptions() {
  return Leading;
}
