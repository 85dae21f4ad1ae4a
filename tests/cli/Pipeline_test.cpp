// check and the others as build servers and hooks run them: parts of a group, a baseline, paths
// that are looked for.
#include "WorkFolder.h"

namespace {

/// The group in a repository of its own, all of it committed.
class Repository : public WorkFolder {
 public:
  Repository() {
    Write("src/.gitignore", "old/\n");
    for (const char* words : {"init -q .", "add -A", "commit -qm Begin"}) Git(words);
  }
  void Git(const std::string& words) {
    const std::string line = "cd " + Folder().string() +
                             "/src && git -c user.name=a -c user.email=a@b.c " + words +
                             " >../io/git 2>&1";
    EXPECT_EQ(std::system(line.c_str()), 0) << words << Read("io/git");
  }
  void Append(const std::string& path, const std::string& text) { Write(path, Read(path) + text); }
};

const std::string None, Known = "check --baseline known.json ";

TEST(Pipeline, FilesNarrowTheScope) {
  Repository place;
  place.Write("src/old/Old.vbp", "Type=Exe\r\nModule=Gone; Gone.bas\r\n");
  place.Write("src/lonely.bas", "Sub x()\r\nEnd Sub\r\n");
  const std::string nothing = "None of the files", stock = "Core/clsStock.cls:9: ",
                    main = "App/modMain.bas:5: ", one = " in 1 procedure";
  ExpectRuns(
      place,
      {
          {"glob", "check --file Core/ .", 1, stock, "2 findings (2 missing-template)"},
          {"leaving out", "check --exclude *.cls .", 1, main, "3 findings (3 missing-template)"},
          {"nothing fits", "check --file nix .", 2, None, "in the scope"},
          {"nothing staged", "check --staged Demo.vbg", 0, None, nothing},
          {"nothing to write", "apply --suggested --staged .", 0, None, "0 files written"},
          {"a list", "check --files-from - . <<< $'Core/clsStock.cls\\r\\nREADME'", 1, stock, Any},
          {"a list with NUL", "check --files-from <(printf 'App/modMain.bas\\0x') .", 1, main, Any},
          {"list is missing", "check --files-from none .", 2, None, "none can't be read"},
          {"a source", "check Core/clsStock.cls", 1, stock, "2 findings"},
          {"a source of nobody", "check lonely.bas", 2, None, "lonely.bas: no project names this"},
          {"sources and groups", "check Core/clsStock.cls .", 2, None, "but not both"},
          {"no such revision", "check --since nope .", 2, None, "git knows no such revision"},
          {"no option", "check --since=--output=../io/x .", 2, None, "git knows no such revision"},
      });
  EXPECT_FALSE(std::filesystem::exists(place.Folder() / "io/x"));
  place.Append("src/Core/clsStock.cls", "Private Sub z()\r\nEnd Sub\r\n");
  ExpectRuns(place, {{"changed", "check --since HEAD .", 1, stock, "in 3 procedures"},
                     {"not staged yet", "check --staged .", 0, None, nothing}});
  place.Git("add -A");
  ExpectRuns(place, {{"staged", "check --staged --procedure z .", 1, "clsStock.z", one},
                     {"both have to fit", "check --staged --file *.bas .", 0, None, nothing},
                     {"as code scanning wants it",
                      "check --format sarif --procedure z . | grep -o Core.*SRCROOT", 1,
                      "Core/clsStock.cls\",\"uriBaseId\": \"%SRCROOT", Any}});
}

TEST(Pipeline, FoldersAreSearchedDownwards) {
  Repository place;
  std::filesystem::rename(place.Folder() / "src/Demo.vbg", place.Folder() / "src/App/Demo.vbg");
  place.Write("src/App/Demo.vbg", "VBGROUP 5.0\r\nProject=Demo.vbp\r\n");
  place.Write("src/old/Old.vbp", "Type=Exe\r\nModule=Gone; Gone.bas\r\n");
  place.Write("src/new/New.VBP", "Type=Exe\r\nModule=Fresh; Fresh.bas\r\nName=\"New\"\r\n");
  place.Write("src/new/Fresh.bas", "Attribute VB_Name = \"Fresh\"\r\n");
  const std::string list = "list -q -t TEMPLATE.DAT --format csv ";
  const WorkFolder::Result all = place.Run(list + ". | cut -d, -f1,2 | sort -u | xargs");
  EXPECT_EQ(all.sOut, "Demo,clsStock Demo,modMain New,Fresh project,component\n") << all.sErr;
  const WorkFolder::Result part =
      place.Run(list + "--exclude new/ . | cut -d, -f1 | sort -u | xargs");
  EXPECT_EQ(part.sOut, "Demo project\n") << part.sErr;
  std::filesystem::remove_all(place.Folder() / "src/.git");
  const WorkFolder::Result bare = place.Run(list + ". | cut -d, -f1 | sort -u | xargs");
  EXPECT_EQ(bare.sOut, "Demo New project\n") << bare.sErr;
}

TEST(Pipeline, ABaselineHoldsWhatIsKnown) {
  Repository place;
  ExpectRuns(
      place,
      {{"written", Known + "--write-baseline .", 0, None, "known.json: baseline of 5 findings"},
       {"known", Known + ".", 0, None, "in the baseline: 5"},
       {"part of it", Known + "--file Core/ .", 0, None, "in the baseline: 2"},
       {"of a part", Known + "--write-baseline --file Core/ .", 2, None, "whole group"},
       {"nowhere to write", "check --write-baseline .", 2, None, "needs --baseline FILE"}});
  // Lines move, a finding goes, another comes.
  std::string code = place.Read("src/App/modMain.bas");
  code = std::regex_replace(code, std::regex("Option Explicit"), "Option Explicit\r\n\r\n' More");
  code = std::regex_replace(code, std::regex("Jumps"), "Leaps");
  place.Write("src/App/modMain.bas", code);
  ExpectRuns(place, {{"moved", Known + ".", 1, "modMain.Leaps", "1 entry no longer occurs"},
                     {"named", Known + "-v .", 1, "modMain.Leaps",
                      "No longer occurs: App/modMain.bas: modMain.Jumps [missing-template]"},
                     {"not asked for", Known + "--select drifted .", 0, None,
                      "TEMPLATE.DAT\nNo findings in 5 procedures; ignored: 5 missing-template\n"},
                     {"as JSON", Known + "--format json .", 1,
                      "\"baseline\": {\"known\": 4,\"gone\": [\"", Any}});
  for (const auto& [text, why] : std::map<std::string, std::string>{
           {"", "known.json:1: this is no JSON"},
           {"{}", "known.json:1: this is no baseline"},
           {"{\"quillonBaseline\": 2}", "of schema 2, and this program reads schema 1"},
           {"{\"quillonBaseline\": 1,\n\"findings\": [\n", "known.json:3: this is no JSON"},
           {"{\"quillonBaseline\": 1,\"findings\": [\n7]}", "known.json:2: a finding"}}) {
    place.Write("src/known.json", text);
    ExpectRuns(place, {{text.c_str(), Known + ".", 2, None, why}});
  }
}

TEST(Pipeline, TheTeamsFileHolds) {
  Repository place;
  place.Write("src/quillon.toml",
              "groups = [\"Demo.vbg\"]\ntemplate = \"TEMPLATE.DAT\"\nroots = [\"App\"]\n"
              "exclude = [\"*.frm\"]\n[check]\nselect = [\"missing-template\"]\n"
              "baseline = \"known.json\"\n[rules]\n\"Severity Default\" = 3\n");
  const std::string fatal = "Severity unset -> Fatal", start = "--baseline \"\" ";
  ExpectRuns(
      place,
      {{"no path", "check " + start, 1, fatal, "5 findings"},
       {"option first", "check " + start + "--select drifted", 0, None, "No findings"},
       {"settings first", "check " + start + "--settings \"\"", 1, "unset -> Normal", Any},
       {"excluded by option", "check " + start + "--exclude App", 1, fatal, "2 findings"},
       {"from below", "check " + start + "App/Demo.vbp", 1, fatal, "5 findings"},
       {"outside of the roots", "apply --suggested -n", 1, None,
        "Core/clsStock.cls lies outside of the folders that may be written"},
       {"an option may", "apply --suggested -n --root Core", 0, None, "2 files would"},
       {"no baseline yet", "check", 2, None, "known.json"},
       {"written", "check --write-baseline", 0, None, "baseline of 5"},
       {"known", "check", 0, None, "in the baseline: 5"},
       {"told", "config | tr -s \" \"", 0, "rules.Severity Default 3 quillon.toml:9\n", None},
       {"told of an option", "config --exclude x | tr -s \" \"", 0, "exclude x option\n", None},
       {"made once", "init", 2, None, "quillon.toml is there already"}});
  place.Write("src/secret.txt", "mine");
  std::filesystem::create_symlink("/tmp", place.Folder() / "src/away");
  for (const auto& [line, why] : std::map<std::string, std::string>{
           {"tempalte = \"x\"", ":2: there is no key tempalte (did you mean template?)"},
           {"[check]\nrules = []", ":3: there is no key check.rules"},
           {"roots = [\n\"App\", \"../..\"]", ":3: roots can't be ../..: it has to lie below"},
           {"roots = [\"/\"]", ":2: roots can't be /: "},
           {"roots = [\".git\"]", ":2: roots can't be .git: "},
           {"exclude = \"Demo.vbg\"", ":2: exclude is a list of texts"},
           {"template = 3", ":2: template takes texts"},
           {"check = 3", ":2: check is a table"},
           {"[rules]\n\"Retry Default\" = 9", ":3: Retry Default can't be 9: it is 1 to 3"},
           {"[rules]\n\"Retry Default\" = \"x\"", ":3: Retry Default takes a number"},
           {"template = \"x", "quillon.toml:2: "},
           {"[check]\nbaseline = \".git/config\"", ":3: check.baseline can't be .git/config"},
           {"[check]\nbaseline = \"away/b\"", ":3: the baseline leads out of the folder"},
           {"[check]\nbaseline = \"secret.txt\"", "secret.txt:1: this is no JSON"}}) {
    place.Write("src/quillon.toml", "groups = [\"Demo.vbg\"]\n" + line + '\n');
    ExpectRuns(place, {{line.c_str(), "check --write-baseline", 2, None, why}});
  }
  std::filesystem::remove(place.Folder() / "src/quillon.toml");
  place.Write("quillon.toml", "this = \"is above the work tree\"");
  std::filesystem::remove(place.Folder() / "src/TEMPLATE.DAT");
  ExpectRuns(place, {{"not found", "check", 2, None, "PATH is required"},
                     {"made", "init", 0, "entry: quillon check --staged", "Written: quillon.toml"},
                     {"of use", "check", 1, "Template (none) -> Standard", "5 findings"}});
  EXPECT_EQ(place.Read("src/Template.dat"),
            WorkFolder::Bytes(QUILLON_SOURCE_DIR "/samples/Template.dat"));
}

/// What stands behind the first "KEY: " of a file of the sources.
std::string ValueIn(const std::string& file, const std::string& key) {
  std::smatch found;
  const std::string text = WorkFolder::Bytes(QUILLON_SOURCE_DIR "/" + file);
  EXPECT_TRUE(std::regex_search(text, found, std::regex(key + " (quillon .*)"))) << file;
  return found[1];
}

TEST(Pipeline, AHookStopsACommit) {
  Repository place;
  place.Run("apply --suggested -q . 2>&1; true");
  const std::string shell = "true; export PATH=" QUILLON_BIN_DIR ":$PATH; ";
  place.Write("src/.git/hooks/pre-commit",
              "#!/bin/sh\nexec " + ValueIn(".pre-commit-hooks.yaml", "entry:") + "\n");
  std::filesystem::permissions(place.Folder() / "src/.git/hooks/pre-commit",
                               std::filesystem::perms::owner_all);
  place.Git("init -q --bare ../bare.git");
  place.Append("src/Core/clsStock.cls", "Private Sub z()\r\nEnd Sub\r\n");
  const std::string commit = "git -c user.name=a -c user.email=a@b.c commit -qm More ";
  const std::string add = "--version; " + shell + "git add -A; ";
  ExpectRuns(
      place,
      {{"stopped", add + commit + "2>&1", 1, "clsStock.z: Template (none) -> Main", None},
       {"nothing went in", "--version; git log --oneline | wc -l", 0, "\n1\n", None},
       {"mended", "apply --suggested --staged -q Demo.vbg; " + add + commit + "2>&1", 0, Any, Any},
       {"pushed",
        "--version; git push -q ../bare.git HEAD:main && git -C ../bare.git log --oneline "
        "main | wc -l",
        0, "\n2\n", Any}});
}

TEST(Pipeline, BuildServersRunWhatTheirFilesSay) {
  Repository place;
  const std::string shell = "--version; export PATH=" QUILLON_BIN_DIR ":$PATH; ";
  const std::string github = ValueIn("action.yml", "run:"),
                    gitlab = ValueIn("packaging/quillon.gitlab-ci.yml", "-");
  ExpectRuns(place,
             {{"action", shell + "QUILLON_PATH=.; " + github, 1,
               "::warning file=App/modMain.bas,line=5,endLine=5,title=missing-template::", Any},
              {"since", shell + "QUILLON_PATH=. QUILLON_SINCE=HEAD; " + github, 0, Any,
               "None of the files"},
              {"report", shell + gitlab, 1, Any, "5 findings"}});
  EXPECT_HOLDS(place.Read("src/gl-code-quality-report.json"),
               std::string("\"path\": \"App/modMain.bas\",\"lines\": {\"begin\": 5"));
}

}  // namespace
