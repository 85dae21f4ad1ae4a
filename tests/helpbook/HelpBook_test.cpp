// The book of the help: what its pages promise to each other and to the dialogs.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "Pictures.h"
#include "Text.h"

namespace {

namespace fs = std::filesystem;
using Strings = std::vector<std::string>;

const fs::path Folder = QUILLON_SOURCE_DIR "/docs/help";

std::string ReadAll(const fs::path& oFile) {
  std::ifstream oStream(oFile, std::ios::binary);
  return {std::istreambuf_iterator<char>(oStream), {}};
}

/// What the first group of the expression matches, match by match.
Strings Matches(const std::string& sText, const std::string& sExpression) {
  const std::regex oExpression(sExpression);
  Strings asFound;
  for (std::sregex_iterator i(sText.begin(), sText.end(), oExpression), oEnd; i != oEnd; ++i)
    asFound.push_back((*i)[1]);
  return asFound;
}

std::map<std::string, std::string> Pages() {
  std::map<std::string, std::string> oPages;
  for (const auto& oEntry : fs::directory_iterator(Folder))
    if (oEntry.path().extension() == ".html")
      oPages[oEntry.path().filename().string()] = ReadAll(oEntry.path());
  return oPages;
}

struct Entry {
  std::string sName, sPage, sContext;
};

/// The entries of the contents or the index; a missing part is empty.
std::vector<Entry> Entries(const char* sFile) {
  std::vector<Entry> oEntries;
  for (const std::string& sObject :
       Matches(ReadAll(Folder / sFile), "<OBJECT type=\"text/sitemap\">([^]*?)</OBJECT>")) {
    const auto Part = [&](const std::string& sName) {
      const Strings asValue = Matches(sObject, "name=\"" + sName + "\" value=\"([^\"]*)\"");
      return asValue.empty() ? std::string() : asValue[0];
    };
    oEntries.push_back({Part("Name"), Part("Local"), Part("ID")});
  }
  return oEntries;
}

/// The first tag that is closed without being open, or the first one that stays open.
std::string UnbalancedTag(const std::string& sPage) {
  static const std::set<std::string> Single = {"meta", "img", "hr", "br"};
  Strings asOpen;
  for (const std::string& sTag : Matches(sPage, "<(/?[a-z0-9]+)[^>]*>")) {
    if (sTag[0] != '/') {
      if (!Single.count(sTag)) asOpen.push_back(sTag);
    } else if (asOpen.empty() || asOpen.back() != sTag.substr(1)) {
      return sTag;
    } else {
      asOpen.pop_back();
    }
  }
  return asOpen.empty() ? std::string() : asOpen.back();
}

TEST(HelpBook, EveryLinkAndPictureIsThere) {
  std::set<std::string> oPictures;
  for (TextView sKey : PictureKeys()) {
    std::string sName = ToUtf8(sKey);
    std::erase(sName, ' ');
    for (const char* sSize : {"-16.png", "-24.png", "-32.png"})
      oPictures.insert("pictures/" + sName + sSize);
  }
  const auto oPages = Pages();
  for (const auto& [sFile, sText] : oPages) {
    SCOPED_TRACE(sFile);
    for (const std::string& sLink : Matches(sText, "href=\"([^\"]*)\""))
      EXPECT_TRUE(oPages.count(sLink)) << "no page " << sLink;
    for (const std::string& sPicture : Matches(sText, "src=\"([^\"]*)\""))
      EXPECT_TRUE(oPictures.count(sPicture)) << "no picture " << sPicture;
  }
}

TEST(HelpBook, PagesAreSoundForASimpleReader) {
  for (const auto& [sFile, sText] : Pages()) {
    SCOPED_TRACE(sFile);
    EXPECT_EQ(UnbalancedTag(sText), "");
    EXPECT_TRUE(std::ranges::all_of(sText, [](char c) {
      return c == '\n' || (c >= ' ' && c < 127);
    })) << "write other characters as entities";
    std::istringstream oLines(sText);
    for (std::string sLine; std::getline(oLines, sLine);) EXPECT_LE(sLine.size(), 130u) << sLine;
  }
}

TEST(HelpBook, EveryPageStandsOnceInTheContentsUnderItsTitle) {
  auto oPages = Pages();
  for (const Entry& oEntry : Entries("Tarvane.hhc")) {
    SCOPED_TRACE(oEntry.sPage);
    const auto oPage = oPages.extract(oEntry.sPage);
    ASSERT_FALSE(oPage.empty()) << "missing, or in the contents twice";
    for (const char* sTag : {"title", "h1"})
      EXPECT_EQ(Matches(oPage.mapped(), std::string("<") + sTag + ">([^<]*)<"),
                Strings{oEntry.sName});
  }
  for (const auto& [sFile, sText] : oPages) ADD_FAILURE() << sFile << " isn't in the contents";
}

// A reader gives an entry without a number that of the entry before it.
TEST(HelpBook, EveryPageHasAContextNumberOfItsOwn) {
  std::set<std::string> oSeen;
  for (const Entry& oEntry : Entries("Tarvane.hhc")) {
    EXPECT_FALSE(oEntry.sContext.empty()) << oEntry.sPage;
    EXPECT_TRUE(oSeen.insert(oEntry.sContext).second) << oEntry.sPage;
  }
}

TEST(HelpBook, DialogsAndCommandsFindTheirPage) {
  const std::map<std::string, std::string> oWanted = {{"0", "welcome.html"},
                                                      {"1800", "support.html"},
                                                      {"2000", "copy-and-discard.html"},
                                                      {"2100", "rewriting.html"},
                                                      {"2300", "options.html"},
                                                      {"2400", "printing.html"},
                                                      {"2710", "rules-defaults.html"},
                                                      {"2720", "rules-precedence.html"},
                                                      {"2730", "rules-boundary.html"},
                                                      {"2740", "rules-numbering.html"},
                                                      {"2750", "rules-general.html"},
                                                      {"2800", "custom-select.html"}};
  std::map<std::string, std::string> oPages;
  for (const Entry& oEntry : Entries("Tarvane.hhc")) oPages[oEntry.sContext] = oEntry.sPage;
  for (const auto& [sContext, sPage] : oWanted) EXPECT_EQ(oPages[sContext], sPage) << sContext;

  for (const auto& oFile : fs::recursive_directory_iterator(QUILLON_SOURCE_DIR "/src")) {
    const auto sKind = oFile.path().extension();
    if (sKind != ".cpp" && sKind != ".h") continue;
    for (const std::string& sContext :
         Matches(ReadAll(oFile.path()), "Help[A-Za-z]*[({ =]+(\\d{4})\\b"))
      EXPECT_TRUE(oWanted.count(sContext)) << sContext << " in " << oFile.path();
  }
}

TEST(HelpBook, TheIndexIsSortedAndReachesEveryPage) {
  auto oPages = Pages();
  std::set<std::string> oReached{"welcome.html"};
  std::string sBefore;
  for (const Entry& oEntry : Entries("Tarvane.hhk")) {
    SCOPED_TRACE(oEntry.sName);
    EXPECT_TRUE(oPages.count(oEntry.sPage)) << oEntry.sPage;
    EXPECT_LT(LowerCase(FromUtf8(sBefore)), LowerCase(FromUtf8(oEntry.sName)));
    oReached.insert(oEntry.sPage);
    sBefore = oEntry.sName;
  }
  for (const auto& [sFile, sText] : oPages) EXPECT_TRUE(oReached.count(sFile)) << sFile;
}

TEST(HelpBook, TheBookHoldsEveryPage) {
  const std::string sBook = ReadAll(QUILLON_BIN_DIR "/Tarvane.htb");
  ASSERT_TRUE(sBook.starts_with("PK"));
  // The directory at the end of the archive has each name once more.
  const std::string sDirectory = sBook.substr(sBook.find("PK\1\2"));
  EXPECT_NE(sDirectory.find("Tarvane.hhp"), std::string::npos);
  for (const auto& [sFile, sText] : Pages())
    EXPECT_NE(sDirectory.find(sFile), std::string::npos) << sFile;
  for (const std::string& sLine :
       Matches(ReadAll(Folder / "Tarvane.hhp"), "(?:file|topic)=([^\n]*)"))
    EXPECT_NE(sDirectory.find(sLine), std::string::npos) << sLine;
}

}  // namespace
