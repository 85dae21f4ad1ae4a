// The options are declared twice, for the program and for each command that knows them, so that
// they are found on both sides of the command and stand in the help of the command. Lists collect
// over both places; of a single value the one behind the command holds.
#include "Arguments.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "PathText.h"

namespace {

using Strings = std::vector<std::string>;

/// An option that can be given repeatedly, one value each time.
void AddList(CLI::App& oApp, const std::string& sName, Strings& asValue, const char* sHelp,
             const char* sValueName, const char* sGroup) {
  // One value per occurrence: what follows is the path, and a value in brackets is a pattern.
  oApp.add_option_function<Strings>(
          sName,
          [&asValue](const Strings& asNew) {
            asValue.insert(asValue.end(), asNew.begin(), asNew.end());
          },
          sHelp)
      ->expected(1, CLI::detail::expected_max_vector_size)
      ->allow_extra_args(false)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
      ->type_name(sValueName)
      ->group(sGroup);
}

CLI::Option* AddValue(CLI::App& oApp, const std::string& sName, std::string& sValue,
                      const char* sHelp, const char* sValueName) {
  return oApp.add_option(sName, sValue, sHelp)
      ->type_name(sValueName)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
}

void AddCommon(CLI::App& oApp, Arguments& oArguments) {
  AddValue(oApp, "-t,--template", oArguments.sTemplateFile,
           "Template file (else the most recent one, else Template.dat beside the group)", "FILE")
      ->transform(PathOfArgument);
  oApp.add_option_function<std::string>(
          "--settings", [&](const std::string& sFile) { oArguments.oSettingsFile = sFile; },
          "Settings file instead of the user's own")
      ->type_name("FILE")
      ->transform(PathOfArgument);
  AddValue(oApp, "--log", oArguments.sLogFile, "Log failures to this file", "FILE")
      ->transform(PathOfArgument);
  AddValue(oApp, "--color", oArguments.sColor, "Colours on a terminal", "WHEN")
      ->check(CLI::IsMember({"auto", "always", "never"}));
  oApp.add_flag("-q,--quiet", oArguments.bQuiet, "Only results and what went wrong");
  oApp.add_flag("-v,--verbose", oArguments.bVerbose, "Tell more: template report, what was passed");
  oApp.add_flag("--trace", oArguments.bTrace, "Log entry and exit of the routines");
}

constexpr const char* ScopeGroup = "Scope (Like patterns, letter case ignored, repeatable)";

void AddComponentScope(CLI::App& oApp, Arguments& oArguments) {
  AddList(oApp, "--project", oArguments.asProject, "Projects by name", "PATTERN", ScopeGroup);
  AddList(oApp, "--component", oArguments.asComponent, "Components by name", "PATTERN", ScopeGroup);
  AddValue(oApp, "--codepage", oArguments.sCodePage,
           "Code page of the files (else 1252, or UTF-8 where a file is UTF-8)", "NAME");
}

void AddScope(CLI::App& oApp, Arguments& oArguments) {
  AddComponentScope(oApp, oArguments);
  AddList(oApp, "--procedure", oArguments.asProcedure,
          "Procedures by name, such as cmd*_Click or (declarations)", "PATTERN", ScopeGroup);
  AddList(oApp, "--type", oArguments.asType,
          "Types as list shows them, such as Sub or Property *; declarations for the sections",
          "PATTERN", ScopeGroup);
}

void AddRewriting(CLI::App& oApp, Arguments& oArguments) {
  constexpr const char* sGroup = "Rewriting";
  oApp.add_flag("-n,--dry-run", oArguments.bDryRun, "Write nothing")->group(sGroup);
  oApp.add_flag("--diff", oArguments.bDiff, "Print the changes as a unified diff")->group(sGroup);
  oApp.add_flag("--no-verify", oArguments.bNoVerify,
                "Don't prove each insertion by taking it out again")
      ->group(sGroup);
}

CLI::App& AddCommand(CLI::App& oApp, Arguments& oArguments, const char* sName, const char* sHelp,
                     const char* sExamples) {
  CLI::App& oCommand = *oApp.add_subcommand(sName, sHelp);
  oCommand.group("Commands");
  oCommand.callback([&oArguments, sName] { oArguments.sCommand = sName; });
  oCommand.footer(std::string("Examples:\n") + sExamples);
  AddCommon(oCommand, oArguments);
  return oCommand;
}

void AddPaths(CLI::App& oCommand, Arguments& oArguments) {
  oCommand.add_option("PATH", oArguments.asPath, "Project groups (.vbg), projects (.vbp), folders")
      ->required()
      ->type_name(" ")
      ->transform(PathOfArgument);
}

CLI::App& AddGroupCommand(CLI::App& oApp, Arguments& oArguments, const char* sName,
                          const char* sHelp, const char* sExamples) {
  CLI::App& oCommand = AddCommand(oApp, oArguments, sName, sHelp, sExamples);
  AddScope(oCommand, oArguments);
  AddPaths(oCommand, oArguments);
  return oCommand;
}

void AddFormat(CLI::App& oCommand, Arguments& oArguments, const Strings& asFormat) {
  AddValue(oCommand, "--format", oArguments.sFormat, "Form of the result", "FORM")
      ->check(CLI::IsMember(asFormat));
}

void AddReading(CLI::App& oApp, Arguments& oArguments) {
  CLI::App& oList =
      AddGroupCommand(oApp, oArguments, "list", "List the procedures and their properties",
                      "  quillon list Orders.vbg\n"
                      "  quillon list --suggested --component 'frm*' Orders.vbg\n"
                      "  quillon list --format csv src > procedures.csv");
  oList.add_flag("--suggested", oArguments.bSuggested, "What the rules and the analysis suggest");
  oList.add_flag("--pending", oArguments.bPending, "What is asked for")->excludes("--suggested");
  AddFormat(oList, oArguments, {"table", "csv", "json"});

  CLI::App& oCheck = AddGroupCommand(
      oApp, oArguments, "check", "Tell what apply --suggested would change or refuse",
      "  quillon check Orders.vbg\n"
      "  quillon check --format json --type 'Property *' Orders.vbg");
  AddFormat(oCheck, oArguments, {"text", "json"});
}

void AddWriting(CLI::App& oApp, Arguments& oArguments) {
  CLI::App& oApply = AddGroupCommand(
      oApp, oArguments, "apply", "Set properties and make the code agree with them",
      "  quillon apply --suggested Orders.vbg\n"
      "  quillon apply --set Template=Light --set Severity=Fatal --component modMain Orders.vbg\n"
      "  quillon apply --set 'Template=(none)' -n --diff Orders.vbg");
  AddRewriting(oApply, oArguments);
  AddList(oApply, "--set", oArguments.asSet,
          "Template, Locked, Boundary, Severity, Retry or Trace (repeatable)", "NAME=VALUE",
          "Rewriting");
  oApply.add_flag("--suggested", oArguments.bSuggested, "Take the suggested values over")
      ->group("Rewriting");
  struct Run {
    const char *sName, *sHelp, *sExamples;
  };
  for (const Run& oRun :
       {Run{"refresh", "Write the error handlers anew from the template file",
            "  quillon refresh Orders.vbg\n  quillon refresh -n --diff --project Orders "
            "Orders.vbg"},
        Run{"number", "Put line numbers in, or renew them",
            "  quillon number Orders.vbg\n  quillon number --component clsOrder Orders.vbg"},
        Run{"unnumber", "Take line numbers out",
            "  quillon unnumber Orders.vbg\n  quillon unnumber -n --diff Orders.vbg"}}) {
    AddRewriting(AddGroupCommand(oApp, oArguments, oRun.sName, oRun.sHelp, oRun.sExamples),
                 oArguments);
  }
}

void AddAction(CLI::App& oCommand, Arguments& oArguments, const char* sName, const char* sHelp,
               const Strings& asAction) {
  oCommand.add_option(sName, oArguments.sAction, sHelp)
      ->required()
      ->type_name(" ")
      ->check(CLI::IsMember(asAction));
}

void AddReport(CLI::App& oApp, Arguments& oArguments) {
  CLI::App& oReport = AddCommand(oApp, oArguments, "report",
                                 "Print a summary of the projects, or the procedures' properties",
                                 "  quillon report summary Orders.vbg\n"
                                 "  quillon report properties --pdf properties.pdf Orders.vbg\n"
                                 "  quillon report properties --component clsOrder Orders.vbg");
  AddAction(oReport, oArguments, "REPORT", "summary or properties", {"summary", "properties"});
  AddComponentScope(oReport, oArguments);
  AddPaths(oReport, oArguments);
  AddValue(oReport, "--pdf", oArguments.sPdfFile, "Print into a PDF file", "FILE")
      ->transform(PathOfArgument);
  AddFormat(oReport, oArguments, {"text"});
}

void AddTools(CLI::App& oApp, Arguments& oArguments) {
  CLI::App& oTemplate = AddCommand(oApp, oArguments, "template", "Check or show a template file",
                                   "  quillon template check Template.dat\n"
                                   "  quillon template dump Template.dat\n"
                                   "  quillon template list Template.dat");
  AddAction(oTemplate, oArguments, "ACTION", "check, dump or list", {"check", "dump", "list"});
  oTemplate.add_option("FILE", oArguments.asPath, "The template file")
      ->required()
      ->expected(1)
      ->type_name(" ")
      ->transform(PathOfArgument);

  CLI::App& oText = AddCommand(
      oApp, oArguments, "text", "Rewrite procedure texts: a JSON object per line in and out",
      "  quillon text insert -t Template.dat < requests.jsonl > results.jsonl\n"
      "  quillon text extract -t Template.dat < requests.jsonl");
  AddAction(oText, oArguments, "OP", "insert, remove, number, extract, signature or unsignature",
            {"insert", "remove", "number", "extract", "signature", "unsignature"});

  CLI::App& oRules = AddCommand(
      oApp, oArguments, "rules", "Show or change the rules in the settings file",
      "  quillon rules show\n"
      "  quillon rules set 'Severity Default=3' 'Line Number Action=0' --settings team.reg\n"
      "  quillon rules reset --settings team.reg");
  AddAction(oRules, oArguments, "ACTION", "show, set or reset", {"show", "set", "reset"});
  oRules.add_option("NAME=VALUE", oArguments.asValue, "Rules to set, by their registry names")
      ->type_name(" ");
}

class HelpForm : public CLI::Formatter {
 public:
  HelpForm() { label("OPTIONS", "options"); }
  std::string make_usage(const CLI::App* poApp, std::string sName) const override {
    if (poApp->get_parent()) return Formatter::make_usage(poApp, std::move(sName));
    return "Usage: quillon [options] COMMAND [options] PATH...\n";
  }
};

std::string ContradictionOfReport(const Arguments& oArguments) {
  if (!oArguments.asProcedure.empty() || !oArguments.asType.empty())
    return "report takes --project and --component, not --procedure or --type";
  if (oArguments.sAction == "summary" && !oArguments.asComponent.empty())
    return "report summary is about whole projects: --component goes with report properties";
  if (!oArguments.sPdfFile.empty() && !oArguments.sFormat.empty())
    return "report prints into a PDF file or as text: give --pdf or --format";
  return {};
}

constexpr const char* CommandNames =
    ": list, check, apply, refresh, number, unnumber, report, template, text or rules";

/// A word that should have been a command, among what the parser could do nothing with; or empty.
std::string UnknownCommand(const CLI::App& oApp) {
  if (!oApp.get_subcommands().empty()) return {};
  const Strings asWord = oApp.remaining();
  const auto pWord = std::find_if(asWord.begin(), asWord.end(),
                                  [](const std::string& s) { return s.empty() || s[0] != '-'; });
  return pWord == asWord.end() ? std::string() : *pWord;
}

/// What the declarations of the options can't say. Empty: all is well.
std::string Contradiction(const Arguments& oArguments) {
  if (oArguments.sCommand.empty()) return std::string("a COMMAND is missing") + CommandNames;
  if (oArguments.sCommand == "apply" && oArguments.asSet.empty() && !oArguments.bSuggested)
    return "apply needs --set NAME=VALUE or --suggested";
  if (oArguments.sCommand == "rules" && oArguments.sAction == "set" && oArguments.asValue.empty())
    return "rules set needs at least one NAME=VALUE; rules show lists the names";
  if (oArguments.sCommand == "rules" && oArguments.sAction != "set" && !oArguments.asValue.empty())
    return "rules " + oArguments.sAction + " takes no values";
  return oArguments.sCommand == "report" ? ContradictionOfReport(oArguments) : std::string();
}

}  // namespace

std::optional<int> ReadArguments(int argc, char** argv, Arguments& oArguments) {
  CLI::App oApp("Manages the error handling of Visual Basic 6 projects on disk.", "quillon");
  oApp.formatter(std::make_shared<HelpForm>());
  oApp.set_version_flag("--version", "Tarvane Quillon " QUILLON_VERSION);
  oApp.footer("quillon COMMAND --help tells more about a command and gives examples.");
  oApp.require_subcommand(0, 1);
  oApp.failure_message([](const CLI::App* poApp, const CLI::Error& oError) {
    const std::string sCommand = UnknownCommand(*poApp);
    const std::string sWhat = sCommand.empty() ? std::string(oError.what())
                                               : "there is no command " + sCommand + CommandNames;
    return "quillon: " + sWhat + "\nquillon --help and quillon COMMAND --help tell more.\n";
  });
  AddCommon(oApp, oArguments);
  AddScope(oApp, oArguments);
  AddRewriting(oApp, oArguments);
  AddReading(oApp, oArguments);
  AddWriting(oApp, oArguments);
  AddReport(oApp, oArguments);
  AddTools(oApp, oArguments);
  try {
    oApp.parse(argc, argv);
    if (std::string sText = Contradiction(oArguments); !sText.empty())
      throw CLI::ValidationError(sText, CLI::ExitCodes::ValidationError);
  } catch (const CLI::ParseError& oError) {
    return oApp.exit(oError) == 0 ? 0 : 2;
  }
  return std::nullopt;
}
