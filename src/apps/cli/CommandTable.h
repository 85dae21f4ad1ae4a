// What the command line knows: a row per command and per option. The reader of the arguments
// declares its options from these rows, and the help, with which the man page and the completions
// of the shells are compared, is printed from them.
//
// To add a command, write its function (Commands.h) and its row.
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <variant>
#include <vector>

struct Arguments;
class Session;

using Words = std::span<const char* const>;

/// An option, or what stands behind the name of a command.
struct Option {
  /// Where the value goes, and by its kind what the option takes: nothing, a text of which the last
  /// one holds, a text that may be empty, or a text each time.
  using Target =
      std::variant<bool Arguments::*, std::string Arguments::*,
                   std::optional<std::string> Arguments::*, std::vector<std::string> Arguments::*>;

  const char* names;  ///< "-q,--quiet"; without a hyphen: a place behind the command's name
  Target target;
  const char* help;
  const char* valueName = "";
  const char* group = "Options";  ///< heading in the help
  Words words = {};               ///< the only values that are taken; empty: any
  bool isPath = false;
  bool isRequired = false;
  const char* excludes = nullptr;
};

using Options = std::span<const Option>;

struct Command {
  /// A reference, so that a row without a function doesn't compile. Gives the exit status.
  int (&run)(Session&);
  const char* name;
  /// Whether it works on PATHs, of the command line or of quillon.toml. Here: the current folder
  /// without any.
  enum class Group { None, Optional, Here, Needed } group = Group::None;
  const char *help, *examples;
  std::array<Options, 6> options = {};
  /// What the options can't say of themselves; empty: all is well.
  std::string (*contradiction)(const Arguments&) = nullptr;
  /// The command makes the settings file that was named, so that a missing one isn't told.
  bool makesSettings = false;
};

std::span<const Command> Commands();
/// What may also stand ahead of the command.
std::span<const Options> LeadingOptions();
