// What the user asked for on the command line, checked as far as that is possible without opening
// anything. Options may stand ahead of the command and behind it.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

struct Command;

struct Arguments {
  const Command* command = nullptr;  ///< never null once ReadArguments gave no value
  std::string sAction;               ///< the word behind report, template, text and rules
  std::string sRule;                 ///< of explain: an id, or a name, or a pattern of them
  std::vector<std::string> asPath;   ///< groups, projects, folders; of template its file
  std::vector<std::string> asValue;  ///< NAME=VALUE of rules set
  std::vector<std::string> asSet;    ///< NAME=VALUE of apply --set

  std::vector<std::string> asSelect, asIgnore;  ///< rules of check

  // The scope, Like patterns; an empty list takes all.
  std::vector<std::string> asProject, asComponent, asProcedure, asType;

  // The files of the scope (FileScope.h).
  std::vector<std::string> files, excluded;  ///< patterns as in .gitignore
  std::string since;                         ///< a revision of git; empty: none
  bool staged = false;
  std::string filesFrom;  ///< a file of paths, - for standard input; empty: none

  std::string excludedFrom;  ///< folder that excluded is relative to; empty: the current one

  std::optional<std::string> baseline;  ///< of check; an empty text: none
  bool writeBaseline = false;

  /// Absolute; of what may be written without an option, only what is below these; empty: all.
  std::vector<std::string> within;
  /// Where values come from that no option gave, by key: "quillon.toml:3".
  std::map<std::string, std::string> origins;

  std::vector<std::string> roots;     ///< folders below which components may be written
  std::vector<std::string> allowed;   ///< ids of --allow
  std::vector<std::string> asDefine;  ///< NAME=VALUE of --define

  std::string sShape;  ///< of survey and template learn: a number as survey lists it
  std::string sName;   ///< of template learn; empty: by the number

  std::string sPdfFile;  ///< of report; empty: plain text
  std::string sFormat;   ///< table, csv, json, text; empty: the command's own default
  bool bSuggested = false;
  bool bPending = false;
  bool bDryRun = false;
  bool bDiff = false;
  bool bExitCode = false;
  bool bNoVerify = false;
  bool bList = false;
  std::string sRun;   ///< of undo: its number as a list shows it; empty: the latest
  std::string sWait;  ///< seconds, for another run on the group; empty: WaitSeconds has a default
  bool bQuiet = false;
  bool bVerbose = false;
  bool bTrace = false;
  std::string sTemplateFile;                 ///< empty: found by Session
  std::optional<std::string> oSettingsFile;  ///< empty text: settings in memory only
  std::string sCodePage;                     ///< empty: 1252, or UTF-8 where a file is UTF-8
  std::string sLogFile;                      ///< empty: the state folder of the user
  std::string sColor = "auto";
  std::string sCommandLine;  ///< all of it, as far as a line holds it

  int WaitSeconds() const { return sWait.empty() ? 5 : std::stoi(sWait); }
};

/// Reads the command line. A value: the program ends here with it (help, version: 0; wrong usage:
/// 2), and the text for the user has been printed.
std::optional<int> ReadArguments(int argc, char** argv, Arguments& arguments);
