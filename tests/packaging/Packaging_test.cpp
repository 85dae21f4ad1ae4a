// What is installed beside the program says the same as the program: its help is asked what there
// is.
#include <gtest/gtest.h>

#include <cstdio>
#include <map>
#include <regex>
#include <set>

#include "TableRows.h"
#include "TempFolder.h"

namespace {

using Words = std::set<std::string>;

std::string ReadSource(const std::string& sFile) {
  return TempFolder::Read(QUILLON_SOURCE_DIR "/" + sFile);
}

std::string OutputOf(const std::string& sCommand) {
  std::string sOutput;
  FILE* const pPipe = popen((sCommand + " 2>/dev/null").c_str(), "r");
  for (int c; (c = std::fgetc(pPipe)) != EOF;) sOutput += static_cast<char>(c);
  pclose(pPipe);
  return sOutput;
}

std::string Help(const std::string& sCommand) {
  return OutputOf(QUILLON_BIN_DIR "/quillon " + sCommand + " --help");
}

/// What the first group of the expression matches, each once.
Words Found(const std::string& sText, const std::string& sExpression) {
  const std::regex oExpression(sExpression, std::regex::ECMAScript | std::regex::multiline);
  Words oFound;
  for (std::sregex_iterator i(sText.begin(), sText.end(), oExpression), oEnd; i != oEnd; ++i)
    oFound.insert((*i)[1]);
  return oFound;
}

Words Commands() {
  return Found(Help("").substr(Help("").find("Commands:")), "^  ([a-z]+) ");
}

/// The options that a help lists, in the short form and in the long one.
Words Options(const std::string& sHelp) {
  Words oOptions = Found(sHelp, "^  (?:-[a-z],)?(--[a-z-]+)");
  oOptions.merge(Found(sHelp, "^  (-[a-z]),"));
  return oOptions;
}

/// The words of "NAME:{a,b,c}" in a help, where NAME may have blanks behind it.
Words Choices(const std::string& sHelp, const std::string& sName) {
  const Words oList = Found(sHelp, "^  " + sName + " *:\\{([^}]*)\\}");
  return oList.empty() ? Words() : Found(*oList.begin(), "([^,]+)");
}

/// What bash offers behind these words; the last one is what has been typed of the next word.
Words Offered(const std::string& sWords) {
  return Found(OutputOf("cd " QUILLON_SOURCE_DIR "; bash -c '. packaging/quillon.bash; COMP_WORDS=("
                        "quillon " +
                        sWords +
                        "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); "
                        "_quillon; printf \"%s\\n\" \"${COMPREPLY[@]}\"'"),
               "(.+)");
}

/// The rules of check.
Words Rules() {
  return Found(OutputOf(QUILLON_BIN_DIR "/quillon explain \\*"), "^([a-z-]+) \\(");
}

TEST(Packaging, BashOffersWhatTheHelpLists) {
  const Words oCommands = Commands();
  ASSERT_GE(oCommands.size(), 10u);
  EXPECT_EQ(Offered("\"\""), oCommands);
  EXPECT_EQ(Offered("-"), Options(Help("")));
  EXPECT_EQ(Offered("explain \"\""), Rules());
  EXPECT_EQ(Offered("check --ignore \"\""), Rules());
  EXPECT_EQ(Offered("--color \"\""), Choices(Help(""), "--color WHEN"));
  for (const std::string& sCommand : oCommands) {
    SCOPED_TRACE(sCommand);
    const std::string sHelp = Help(sCommand);
    EXPECT_EQ(Offered(sCommand + " -"), Options(sHelp));
    for (const auto& [sName, sOption] :
         {std::pair{"ACTION", ""}, {"OP", ""}, {"REPORT", ""}, {"--format FORM", " --format"}})
      if (const Words oWords = Choices(sHelp, sName); !oWords.empty()) {
        EXPECT_EQ(Offered(sCommand + sOption + " \"\""), oWords);
      }
  }
}

TEST(Packaging, BashKnowsWhereItStands) {
  for (const auto& as : Rows(R"(
         behind an option with a value        | -t Template.dat unn             | unnumber
         the name of a property               | apply --set Bou                 | Boundary=
         its value, of which nothing is typed | apply --set Locked =            | False True
         its value, begun                     | apply --set Boundary = Fi       | Firewall
         behind a property                    | apply --set Boundary = VB --sug | --suggested
         quoted for the shell                 | list --type P                   | Property\ \*
         only groups and projects | list samples/A | samples/App samples/Atelier.vbg
         only template files      | template check samples/T | samples/Template.dat)")) {
    std::string sOffered;
    for (const std::string& sWord : Offered(as[1])) sOffered += ' ' + sWord;
    EXPECT_EQ(sOffered, ' ' + as[2]) << as[0];
  }
  const TempFolder oFolder;
  for (const char* sFile : {"Old.VBP", "Old.vbw", "Old"}) TempFolder::Write(oFolder / sFile, "");
  EXPECT_EQ(Offered("check " + (oFolder / "O")), Words{oFolder / "Old.VBP"}) << "in any case";
}

TEST(Packaging, ManPageAndOtherShellsNameEverything) {
  std::string sMan = std::regex_replace(ReadSource("docs/man/quillon.1"), std::regex("\\\\-"), "-");
  const std::map<std::string, std::string> oTexts = {
      {"man page", sMan},
      {"zsh", ReadSource("packaging/quillon.zsh")},
      {"fish", std::regex_replace(ReadSource("packaging/quillon.fish"),
                                  std::regex("-([sl]) (\\S+)"), "-$1 $2 -$2 --$2")}};
  Words oWanted = Options(Help(""));
  oWanted.merge(Rules());
  for (const std::string& sCommand : Commands()) {
    const std::string sHelp = Help(sCommand);
    oWanted.insert(sCommand);
    oWanted.merge(Options(sHelp));
    for (const char* sName : {"ACTION", "OP", "REPORT", "--format FORM"})
      oWanted.merge(Choices(sHelp, sName));
  }
  for (const auto& [sName, sText] : oTexts) {
    SCOPED_TRACE(sName);
    for (const std::string& sWord : oWanted)
      EXPECT_TRUE(std::regex_search(sText, std::regex("(^|[^a-z-])" + sWord + "($|[^a-z-])")))
          << sWord;
  }
}

TEST(Packaging, TheManPagesAreThoseOfThisVersion) {
  const std::string sVersion =
      *Found(OutputOf(QUILLON_BIN_DIR "/quillon --version"), "(.+)").begin();
  for (const char* sPage : {"docs/man/quillon.1", "docs/man/quillon-desktop.1"})
    EXPECT_NE(ReadSource(sPage).find('"' + sVersion + '"'), std::string::npos) << sPage;
}

}  // namespace
