// The program on the sample group, from outside: what the README promises about it.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using Bytes = std::map<std::string, std::string>;  // path to contents

std::string ReadBytes(const fs::path& oFile) {
  std::ifstream oStream(oFile, std::ios::binary);
  return {std::istreambuf_iterator<char>(oStream), {}};
}

class Samples : public testing::Test {
 protected:
  fs::path oFolder = fs::temp_directory_path() / ("quillon-samples-" + std::to_string(getpid()));
  std::string sOutput;  // of the last run, both streams

  void SetUp() override {
    fs::create_directories(oFolder);
    fs::copy(QUILLON_SOURCE_DIR "/samples", oFolder / "work", fs::copy_options::recursive);
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
  for (const char* sTemplate : {"Standard", "Light", "Accessor"}) {
    for (const char* sNumbers : {"0", "1", "2"}) {
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
  EXPECT_EQ(Quillon("check Atelier.vbg"), 0) << sOutput;
  EXPECT_EQ(sOutput, "");
}

TEST_F(Samples, LocksAndHandlersOfTheTeamsOwnStay) {
  const auto sTrail = ReadBytes(oFolder / "work/Shared/CTrail.cls");
  ASSERT_EQ(Quillon("apply --suggested Atelier.vbg"), 0) << sOutput;
  EXPECT_EQ(ReadBytes(oFolder / "work/Shared/CTrail.cls"), sTrail);
  ASSERT_EQ(Quillon("list --procedure CopyBackup --format csv Atelier.vbg"), 0);
  EXPECT_NE(sOutput.find("(bespoke)"), std::string::npos) << sOutput;
}

TEST_F(Samples, TheTemplatesOfTheSampleFileAndOfTheDocumentationAreSound) {
  EXPECT_EQ(Quillon("template check Template.dat"), 0) << sOutput;
  const std::string sPage = ReadBytes(QUILLON_SOURCE_DIR "/docs/template-format.md");
  const std::string sFence = "```template\n";
  std::size_t lPlace = 0, lFound = 0;
  while ((lPlace = sPage.find(sFence, lPlace)) != std::string::npos) {
    lPlace += sFence.size();
    std::ofstream oFile(oFolder / "work/Page.dat", std::ios::binary);
    for (char c : sPage.substr(lPlace, sPage.find("```", lPlace) - lPlace))
      oFile << (c == '\n' ? "\r\n" : std::string(1, c));
    oFile.close();
    EXPECT_EQ(Quillon("template check Page.dat"), 0) << sOutput;
    ++lFound;
  }
  EXPECT_GT(lFound, 0U);
}

}  // namespace
