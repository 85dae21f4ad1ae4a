// The options that may stand ahead of the command are declared twice, for the program and for each
// command that knows them, so that they are found on both sides of the command and stand in the
// help of the command. Lists collect over both places; of a single value the one behind the command
// holds.
#include "Arguments.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>

#include "CommandTable.h"
#include "Display.h"
#include "NearWord.h"
#include "PathText.h"

namespace {

using Strings = std::vector<std::string>;

bool IsPlace(const Option& option) {
  return option.names[0] != '-';
}

/// Declares an option by the kind of its target.
struct Declare {
  CLI::App& app;
  const Option& option;
  Arguments& arguments;

  CLI::Option* operator()(bool Arguments::*target) const {
    return app.add_flag(option.names, arguments.*target, option.help);
  }
  CLI::Option* operator()(std::string Arguments::*target) const {
    CLI::Option* declared = app.add_option(option.names, arguments.*target, option.help);
    return IsPlace(option) ? declared
                           : declared->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
  }
  CLI::Option* operator()(std::optional<std::string> Arguments::*target) const {
    const auto set = [&value = arguments.*target](const std::string& text) { value = text; };
    return app.add_option_function<std::string>(option.names, set, option.help);
  }
  CLI::Option* operator()(std::vector<std::string> Arguments::*target) const {
    Strings& values = arguments.*target;
    if (IsPlace(option)) return app.add_option(option.names, values, option.help);
    const auto append = [&values](const Strings& more) {
      values.insert(values.end(), more.begin(), more.end());
    };
    // One value per occurrence: what follows is the path, and a value in brackets is a pattern.
    return app.add_option_function<Strings>(option.names, append, option.help)
        ->expected(1, CLI::detail::expected_max_vector_size)
        ->allow_extra_args(false)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
  }
};

CLI::Validator OneOf(const Strings& words) {
  std::string all;
  for (const std::string& word : words) all += (all.empty() ? "{" : ",") + word;
  all += '}';
  const auto refusal = [words, all](const std::string& value) {
    const bool isKnown = std::find(words.begin(), words.end(), value) != words.end();
    return isKnown ? std::string() : value + " not in " + all + DidYouMean(value, words);
  };
  return CLI::Validator(refusal, all);
}

void Add(CLI::App& app, Options options, Arguments& arguments) {
  for (const Option& option : options) {
    CLI::Option* declared = std::visit(Declare{app, option, arguments}, option.target);
    declared->group(option.group)->required(option.isRequired);
    if (IsPlace(option)) declared->type_name(" ");
    if (*option.valueName) declared->type_name(option.valueName);
    if (!option.words.empty())
      declared->check(OneOf(Strings(option.words.begin(), option.words.end())));
    if (option.isPath) declared->transform(PathOfArgument);
    if (option.excludes) declared->excludes(option.excludes);
  }
}

void Add(CLI::App& app, const Command& command, Arguments& arguments) {
  CLI::App& declared = *app.add_subcommand(command.name, command.help);
  declared.group("Commands");
  declared.callback([&] { arguments.command = &command; });
  declared.footer(std::string("Examples:\n") + command.examples);
  for (Options options : command.options) Add(declared, options, arguments);
}

class HelpForm : public CLI::Formatter {
 public:
  HelpForm() { label("OPTIONS", "options"); }
  std::string make_usage(const CLI::App* app, std::string name) const override {
    if (app->get_parent()) return Formatter::make_usage(app, std::move(name));
    return "Usage: quillon [options] COMMAND [options] PATH...\n";
  }
};

Strings CommandNames() {
  Strings names;
  for (const Command& command : Commands()) names.emplace_back(command.name);
  return names;
}

/// The long names of the options that may stand there.
Strings OptionNames(const CLI::App& app) {
  Strings names;
  for (const CLI::App* place : {&app, app.get_subcommands().empty()
                                          ? &app
                                          : static_cast<const CLI::App*>(app.get_subcommands()[0])})
    for (const CLI::Option* option : place->get_options())
      for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
  return names;
}

/// What was meant by the first option that there is not; or empty.
std::string MeantOption(const CLI::App& app) {
  for (const std::string& word : app.remaining(true))
    if (word.starts_with("--"))
      return DidYouMean(std::string_view(word).substr(0, word.find('=')), OptionNames(app));
  return {};
}

/// A word that should have been a command, among what the parser could do nothing with; or empty.
std::string UnknownCommand(const CLI::App& app) {
  if (!app.get_subcommands().empty()) return {};
  const Strings words = app.remaining();
  const auto word = std::find_if(words.begin(), words.end(),
                                 [](const std::string& s) { return s.empty() || s[0] != '-'; });
  return word == words.end() ? std::string() : *word;
}

/// For messages and lists, where a line is enough.
std::string CommandLine(int argc, char** argv) {
  constexpr std::size_t longest = 200;
  std::string line = "quillon";
  for (int i = 1; i < argc; ++i) line += std::string(" ") + argv[i];
  if (line.size() > longest) line.replace(longest, std::string::npos, "...");
  return line;
}

/// In the order in which the parser takes them, which is the last one first. `help COMMAND` is
/// `COMMAND --help`.
Strings WordsOf(int argc, char** argv) {
  Strings words(argv + std::min(argc, 1), argv + argc);
  if (!words.empty() && words.front() == "help") {
    words.erase(words.begin());
    words.emplace_back("--help");
  }
  std::reverse(words.begin(), words.end());
  return words;
}

/// `explain PATH --procedure X` asks for procedures, too: no rule is called like a file.
void TakePathForRule(Arguments& arguments) {
  std::error_code error;
  if (arguments.sRule.empty() || !arguments.asPath.empty() || arguments.asProcedure.empty()) return;
  if (!std::filesystem::exists(PathOfArgument(arguments.sRule), error)) return;
  arguments.asPath = {PathOfArgument(arguments.sRule)};
  arguments.sRule = "*";
}

bool IsSeconds(const std::string& text) {
  return text.size() <= 5 && text.find_first_not_of("0123456789") == std::string::npos;
}

/// What the declarations of the options can't say. Empty: all is well.
std::string Contradiction(const Arguments& arguments) {
  if (!arguments.command) return "a COMMAND is missing: " + Alternatives(CommandNames());
  if (arguments.bExitCode && !arguments.bDryRun) return "--exit-code goes with -n";
  if (!IsSeconds(arguments.sWait)) return "--wait takes whole seconds, not " + arguments.sWait;
  const auto contradiction = arguments.command->contradiction;
  return contradiction ? contradiction(arguments) : std::string();
}

std::string FailureText(const CLI::App* app, const CLI::Error& error) {
  const std::string command = UnknownCommand(*app);
  const std::string what = command.empty() ? error.what() + MeantOption(*app)
                                           : "there is no command " + command +
                                                 DidYouMean(command, CommandNames()) + ": " +
                                                 Alternatives(CommandNames());
  return "quillon: " + ShownPath(what) + "\nquillon --help and quillon COMMAND --help tell more.\n";
}

}  // namespace

std::optional<int> ReadArguments(int argc, char** argv, Arguments& arguments) {
  CLI::App app("Manages the error handling of Visual Basic 6 projects on disk.", "quillon");
  arguments.sCommandLine = CommandLine(argc, argv);
  app.formatter(std::make_shared<HelpForm>());
  app.set_version_flag("--version", "Tarvane Quillon " QUILLON_VERSION);
  app.footer("quillon COMMAND --help tells more about a command and gives examples.");
  app.require_subcommand(0, 1);
  app.failure_message(FailureText);
  for (Options options : LeadingOptions()) Add(app, options, arguments);
  for (const Command& command : Commands()) Add(app, command, arguments);
  try {
    app.parse(WordsOf(argc, argv));
    TakePathForRule(arguments);
    if (std::string text = Contradiction(arguments); !text.empty())
      throw CLI::ValidationError(text, CLI::ExitCodes::ValidationError);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : 2;
  }
  return std::nullopt;
}
