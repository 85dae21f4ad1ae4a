// The program on the sample group, from outside: what the README promises about it.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using Bytes = std::map<std::string, std::string>;  // path to contents

std::string ReadBytes(const fs::path& oFile) {
  std::ifstream oStream(oFile, std::ios::binary);
  return {std::istreambuf_iterator<char>(oStream), {}};
}

/// The code blocks of a page that are marked as of one kind.
std::vector<std::string> FencedBlocks(const std::string& sPage, const std::string& sKind) {
  const std::string sText = ReadBytes(fs::path(QUILLON_SOURCE_DIR) / sPage);
  const std::string sFence = "```" + sKind + "\n";
  std::vector<std::string> asBlock;
  for (std::size_t i = 0; (i = sText.find(sFence, i)) != std::string::npos;) {
    i += sFence.size();
    asBlock.push_back(sText.substr(i, sText.find("```", i) - i));
  }
  return asBlock;
}

std::string TrimmedLines(const std::string& sText) {
  return std::regex_replace(sText, std::regex("[ \r]+\n"), "\n");
}

class Samples : public testing::Test {
 protected:
  fs::path oFolder = fs::temp_directory_path() / ("quillon-samples-" + std::to_string(getpid()));
  std::string sOutput;  // of the last run, both streams

  void SetUp() override {
    fs::create_directories(oFolder);
    fs::copy(QUILLON_SOURCE_DIR "/samples", oFolder / "work", fs::copy_options::recursive);
    ASSERT_EQ(Quillon("rules reset"), 0) << sOutput;  // makes the settings file
  }
  void TearDown() override { fs::remove_all(oFolder); }

  int Quillon(const std::string& sArguments) {
    const std::string sCommand = "cd " + (oFolder / "work").string() +
                                 " && " QUILLON_BIN_DIR
                                 "/quillon --settings ../settings.reg --log ../errors.log " +
                                 sArguments + " 2>&1 </dev/null";
    FILE* const pPipe = popen(sCommand.c_str(), "r");
    sOutput.clear();
    for (int c; (c = std::fgetc(pPipe)) != EOF;) sOutput += static_cast<char>(c);
    return WEXITSTATUS(pclose(pPipe));
  }
  Bytes Files() const {
    Bytes oFiles;
    for (const auto& oEntry : fs::recursive_directory_iterator(oFolder / "work"))
      if (oEntry.is_regular_file()) oFiles[oEntry.path()] = ReadBytes(oEntry.path());
    return oFiles;
  }
};

TEST_F(Samples, EveryTemplateComesOutAgainToTheByte) {
  struct Row {
    const char *sTemplate, *sNumbers;
  };
  for (const auto& [sTemplate, sNumbers] :
       {Row{"Standard", "0"}, Row{"Standard", "1"}, Row{"Light", "0"}, Row{"Accessor", "2"}}) {
    SCOPED_TRACE(std::string(sTemplate) + ", line number action " + sNumbers);
    const Bytes oBefore = Files();
    ASSERT_EQ(Quillon(std::string("rules set 'Line Number Action=") + sNumbers + "'"), 0);
    ASSERT_EQ(Quillon(std::string("apply --set Template=Module --set Template=") + sTemplate +
                      " --set Boundary=ActiveX --set Retry=None --set Trace=True Atelier.vbg"),
              0)
        << sOutput;
    EXPECT_NE(Files(), oBefore);
    ASSERT_EQ(Quillon("apply --set 'Template=(none)' Atelier.vbg"), 0) << sOutput;
    EXPECT_EQ(Files(), oBefore);
  }
}

TEST_F(Samples, SecondRunsOfTheSameKindChangeNothing) {
  ASSERT_EQ(Quillon("apply --suggested Atelier.vbg"), 0) << sOutput;
  for (const char* sRun : {"apply --suggested", "refresh", "number", "unnumber"}) {
    SCOPED_TRACE(sRun);
    ASSERT_EQ(Quillon(std::string(sRun) + " Atelier.vbg"), 0) << sOutput;
    const Bytes oOnce = Files();
    ASSERT_EQ(Quillon(std::string(sRun) + " Atelier.vbg"), 0) << sOutput;
    EXPECT_EQ(Files(), oOnce);
  }
}

TEST_F(Samples, CheckIsSatisfiedByApplyingWhatIsSuggested) {
  EXPECT_EQ(Quillon("check Atelier.vbg"), 1);
  ASSERT_EQ(Quillon("apply --suggested Atelier.vbg"), 0) << sOutput;
  EXPECT_EQ(Quillon("check -q Atelier.vbg"), 0) << sOutput;
  EXPECT_EQ(sOutput, "");
}

TEST_F(Samples, CheckFindsWhatIsBroken) {
  ASSERT_EQ(Quillon("apply -q --suggested --procedure SplitFields Atelier.vbg"), 0) << sOutput;
  EXPECT_EQ(Quillon("check --procedure SplitFields Atelier.vbg"), 0)
      << "what its module will state one day makes no drift: " << sOutput;
  ASSERT_EQ(Quillon("apply -q --suggested Atelier.vbg"), 0) << sOutput;
  EXPECT_EQ(Quillon("check --procedure SplitFields Atelier.vbg"), 1) << "it has stated it";
  ASSERT_EQ(Quillon("refresh -q Atelier.vbg"), 0) << sOutput;
  fs::copy(oFolder / "work", oFolder / "sound", fs::copy_options::recursive);
  const std::string s, sPrices = " Core/CPrices.cls";
  struct Row {
    const char* sName;
    std::string sBreak, sOptions;
    int nExit;
    std::string sRule;
  };
  for (const Row& oRow : {
           Row{"renamed procedure", "sed -i 's/Sub Load(/Sub Read(/'" + sPrices, s, 1,
               "stale-name"},
           Row{"renamed module", "sed -i '/VB_Name/s/CPrices/CCosts/'" + sPrices, s, 1,
               "stale-name"},
           Row{"deleted label", "sed -i '0,/^TrailCaught:/{//d}'" + sPrices, s, 1, "drifted"},
           Row{"lost signature", "sed -i \"0,/'Quillon: Standard/{//d}\"" + sPrices, s, 1,
               "broken-template"},
           Row{"misspelt template", "sed -i \"0,/: Standard/s//: Standrad/\"" + sPrices, s, 1,
               "unknown-template"},
           Row{"reworded template", "sed -i 's/gTrail.Keep/gTrail.Note/' Template.dat", s, 1,
               "broken-template"},
           Row{"row added", "sed -i '/^TrailAgain:/i\\    Randomize\\r' Template.dat", s, 1,
               "drifted"},
           Row{"wrong template file", "sed -i 's/ name=/ name=Old/' Template.dat", s, 2,
               "unknown-template"},
           Row{"settings file missing", "true", "--settings none.reg", 2, "no such settings file"},
           Row{"read-only", "chmod a-w" + sPrices, s, 1, "read-only"},
           Row{"empty scope", "true", "--component Nobody", 2, "No procedure is in the scope"},
           Row{"file missing", "rm" + sPrices, s, 1, "unreadable"},
           Row{"numbers", QUILLON_BIN_DIR "/quillon --settings '' number -q Atelier.vbg",
               "--select numbered", 1, "numbered"},
       }) {
    SCOPED_TRACE(oRow.sName);
    fs::remove_all(oFolder / "work");
    fs::copy(oFolder / "sound", oFolder / "work", fs::copy_options::recursive);
    ASSERT_EQ(std::system(("cd " + (oFolder / "work").string() + " && " + oRow.sBreak).c_str()), 0);
    EXPECT_EQ(Quillon("check " + oRow.sOptions + " Atelier.vbg"), oRow.nExit) << sOutput;
    EXPECT_NE(sOutput.find(oRow.sRule), std::string::npos) << sOutput;
    if (oRow.nExit == 2) continue;
    EXPECT_NE(sOutput.find(" [" + oRow.sRule + "]\n"), std::string::npos) << sOutput;
    EXPECT_EQ(sOutput.find("quillon: "), std::string::npos) << sOutput;
    EXPECT_EQ(Quillon("check " + oRow.sOptions + " --ignore " + oRow.sRule + " Atelier.vbg"), 0)
        << "and nothing else: " << sOutput;
  }
}

TEST_F(Samples, TheRecommendedSettingsReadNamesAsTheLanguageDoes) {
  fs::copy_file(oFolder / "work/Settings.reg", oFolder / "settings.reg",
                fs::copy_options::overwrite_existing);
  ASSERT_EQ(Quillon("rules show"), 0);
  for (const char* sRule :
       {"Line Number Action=0\n", "Event Handlers Ignore Case=-1\n", "Interface Own Name=-1\n"})
    EXPECT_NE(sOutput.find(sRule), std::string::npos) << sRule << sOutput;
  std::ofstream(oFolder / "work/App/FJob.frm", std::ios::app | std::ios::binary)
      << "Private Sub CMDOK_MouseMove()\r\nEnd Sub\r\n";
  ASSERT_EQ(Quillon("list --suggested --format csv --procedure CMDOK* Atelier.vbg"), 0) << sOutput;
  EXPECT_NE(sOutput.find(",VB,"), std::string::npos) << sOutput;
  ASSERT_EQ(Quillon("explain -q cmdok_mouse* Atelier.vbg"), 0) << sOutput;
  EXPECT_EQ(sOutput,
            "FJob.CMDOK_MouseMove\n    Template Standard: the default of the rules\n"
            "    Boundary VB: an event handler, by the rule 'Event Handlers Ignore Case'\n"
            "    Severity Normal: the default of the rules\n"
            "    Retry Line: the default of the rules\n"
            "    Trace True: the default of the rules\n");
  EXPECT_EQ(Quillon("explain NoSuch Atelier.vbg"), 2);
  EXPECT_EQ(Quillon("rules set 'Event Handlers Ignore Case=false'"), 0);
  EXPECT_EQ(Quillon("check --procedure CMDOK* Atelier.vbg"), 1);
  EXPECT_NE(sOutput.find("; 1 suggestion would differ by the rule 'Event Handlers Ignore Case', "
                         "which is off"),
            std::string::npos)
      << sOutput;
}

TEST_F(Samples, LocksAndHandlersOfTheTeamsOwnStay) {
  ASSERT_EQ(Quillon("survey Atelier.vbg"), 0) << sOutput;
  EXPECT_NE(sOutput.find("2 procedures handle errors on their own, in 2 shapes"), std::string::npos)
      << "one of them stands in a file of three projects: " << sOutput;
  const auto sTrail = ReadBytes(oFolder / "work/Shared/CTrail.cls");
  ASSERT_EQ(Quillon("apply --suggested Atelier.vbg"), 0) << sOutput;
  EXPECT_EQ(ReadBytes(oFolder / "work/Shared/CTrail.cls"), sTrail);
  ASSERT_EQ(Quillon("list --procedure CopyBackup --format csv Atelier.vbg"), 0);
  EXPECT_NE(sOutput.find("(bespoke)"), std::string::npos) << sOutput;
}

/// What the rows of a template call has to be there, and by a name that an object of Visual Basic
/// may have.
TEST_F(Samples, TheHandlersCallWhatTheRunTimeOffers) {
  const std::string sTrail = ReadBytes(oFolder / "work/Shared/CTrail.cls");
  std::string sRows = ReadBytes(oFolder / "work/Template.dat");
  for (const char* sPage : {"README.md", "docs/template-format.md"})
    for (const std::string& sText : FencedBlocks(sPage, "template")) sRows += sText;
  const std::regex oCall(R"(gTrail\.(\w+))");
  for (std::sregex_iterator i(sRows.begin(), sRows.end(), oCall), oEnd; i != oEnd; ++i) {
    const std::string sMember = (*i)[1];
    EXPECT_TRUE(std::regex_search(
        sTrail, std::regex(R"(\nPublic (Sub|Function|Property (Let|Get)) )" + sMember + R"(\()")))
        << sMember;
    EXPECT_FALSE(std::regex_match(sMember, std::regex("AddRef|Release|QueryInterface|Invoke")))
        << sMember;
  }
}

TEST_F(Samples, TheTemplatesOfTheSampleFileAndOfTheDocumentationAreSound) {
  EXPECT_EQ(Quillon("template check Template.dat"), 0) << sOutput;
  for (const char* sPage : {"README.md", "docs/template-format.md"}) {
    SCOPED_TRACE(sPage);
    const auto asTemplate = FencedBlocks(sPage, "template");
    EXPECT_FALSE(asTemplate.empty());
    for (std::string sText : asTemplate) {
      for (std::size_t i = 0; (i = sText.find('\n', i)) != std::string::npos; i += 2)
        sText.insert(i, "\r");
      std::ofstream(oFolder / "work/Page.dat", std::ios::binary) << sText;
      EXPECT_EQ(Quillon("template check Page.dat"), 0) << sOutput;
    }
  }
}

TEST_F(Samples, TheExampleOfTheReadmeIsTrue) {
  const Bytes oBefore = Files();
  std::string sWanted;
  sOutput.clear();
  for (const std::string& sBlock : FencedBlocks("README.md", "console")) {
    std::istringstream oLines(sBlock);
    for (std::string sLine; std::getline(oLines, sLine);) {
      if (sLine.starts_with("$ quillon ")) {
        EXPECT_EQ(TrimmedLines(sOutput), sWanted) << "ahead of: " << sLine;
        Quillon(sLine.substr(10));
        sWanted.clear();
      } else {
        sWanted += sLine + "\n";
      }
    }
  }
  EXPECT_EQ(TrimmedLines(sOutput), sWanted);
  EXPECT_EQ(Files(), oBefore);
}

}  // namespace
