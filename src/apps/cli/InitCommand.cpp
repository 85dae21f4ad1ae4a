// init: the first files of a team.
#include <filesystem>

#include "AtomicFile.h"
#include "Commands.h"
#include "GivenPaths.h"
#include "MXFile.h"
#include "ProjectSearch.h"
#include "StarterTemplate.h"
#include "TeamFile.h"

namespace {

namespace fs = std::filesystem;

constexpr const char* PreCommit =
    R"(Add this to .pre-commit-config.yaml, to check what each commit changes:

- repo: local
  hooks:
    - id: quillon-check
      name: quillon check
      entry: quillon check --staged
      language: system
      pass_filenames: false
)";

/// A text as TOML writes it.
std::string Quoted(const std::string& text) {
  std::string quoted = "\"";
  for (const char c : text) quoted.append(c == '"' || c == '\\' ? "\\" : "").append(1, c);
  return quoted + '"';
}

std::string GroupsIn(const std::string& folder) {
  std::string groups;
  for (const std::string& path : ProjectsBelow(folder, [](const std::string&) { return false; })) {
    const std::string here = fs::path(path).lexically_relative(FolderOfPath(folder)).string();
    groups += (groups.empty() ? "" : ", ") + Quoted(ShownPath(here));
  }
  return groups;
}

std::string TeamFileText(const std::string& groups, const std::string& templateFile) {
  return "# What this team has agreed on for quillon. Options of the command line beat it, and it "
         "beats\n"
         "# the user's own settings. Paths are relative to this file. \"quillon config\" tells "
         "what holds.\n"
         "\n"
         "# Taken where no PATH is given.\n" +
         std::string(groups.empty() ? "# groups = [\"App/Orders.vbg\"]\n"
                                    : "groups = [" + groups + "]\n") +
         "\n"
         "template = " +
         Quoted(templateFile) +
         "\n"
         "\n"
         "# Constants of conditional compilation, ahead of the projects' own.\n"
         "# define = [\"TRIAL=-1\"]\n"
         "\n"
         "# Of what may be written, only what is below these folders.\n"
         "# roots = [\"App\", \"Core\"]\n"
         "\n"
         "# Files and folders that are left out, as in .gitignore.\n"
         "# exclude = [\"Old/\", \"*.ctl\"]\n"
         "\n"
         "[check]\n"
         "# select = [\"*\"]\n"
         "# ignore = [\"read-only\"]\n"
         "# baseline = \"quillon.baseline\"\n"
         "\n"
         "# Rules by the names that \"quillon rules show\" prints.\n"
         "[rules]\n"
         "# \"Event Handlers Ignore Case\" = true\n"
         "# \"Severity Default\" = 2\n";
}

/// The name of the template file, from the folder on; it is made where there is none.
std::string TemplateFor(Session& session, const fs::path& folder) {
  const std::string& given = session.oArguments.sTemplateFile;
  if (!given.empty()) return fs::relative(given, folder).string();
  const fs::path path = folder / "Template.dat";
  if (!TemplateBeside(folder.string()).empty())
    return fs::path(TemplateBeside(folder.string())).filename().string();
  AtomicFile::Replace(path.string(), StarterTemplate());
  session.oConsole.Say("Written: " + ShownFile(path.string()));
  return path.filename().string();
}

}  // namespace

int InitCommand(Session& session) {
  const Arguments& arguments = session.oArguments;
  if (arguments.asPath.size() > 1) throw Stop{"init takes one folder"};
  const fs::path folder = arguments.asPath.empty() ? "." : arguments.asPath.front();
  std::error_code error;
  if (!fs::is_directory(folder, error))
    throw Stop{"There is no folder " + ShownPath(folder.string())};
  const std::string path = (folder / TeamFile::Name).string();
  if (fs::exists(fs::symlink_status(path, error)))
    throw Stop{ShownFile(path) + " is there already; it stays as it is"};
  const std::string groups = GroupsIn(folder.string());
  const std::string templateFile = TemplateFor(session, folder);
  AtomicFile::Replace(path, TeamFileText(groups, ShownPath(templateFile)));
  session.oConsole.Say("Written: " + ShownFile(path));
  session.oOutput.Put(PreCommit);
  return 0;
}
