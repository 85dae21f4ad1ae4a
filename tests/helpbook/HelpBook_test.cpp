// The book of the help: what its pages promise to each other and to the dialogs.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>

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
  std::map<std::string, std::string> pages;
  for (const auto& entry : fs::directory_iterator(Folder))
    if (entry.path().extension() == ".html") pages[entry.path().filename()] = ReadAll(entry.path());
  return pages;
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
std::string UnbalancedTag(const std::string& page) {
  static const std::set<std::string> Single = {"meta", "img", "hr", "br"};
  Strings open{""};
  for (const std::string& tag : Matches(page, "<(/?[a-z0-9]+)[^>]*>")) {
    if (tag[0] == '/') {
      if (open.back() != tag.substr(1)) return tag;
      open.pop_back();
    } else if (!Single.count(tag)) {
      open.push_back(tag);
    }
  }
  return open.back();
}

TEST(HelpBook, EveryLinkAndPictureIsThere) {
  std::set<std::string> pictures;
  for (TextView key : PictureKeys()) {
    std::string name = ToUtf8(key);
    std::erase(name, ' ');
    for (const char* size : {"-16.png", "-24.png", "-32.png"}) pictures.insert(name + size);
  }
  const auto pages = Pages();
  for (const auto& [file, text] : pages) {
    SCOPED_TRACE(file);
    for (const std::string& link : Matches(text, "href=\"([^\"]*)\""))
      EXPECT_TRUE(pages.count(link)) << "no page " << link;
    for (const std::string& picture : Matches(text, "src=\"(?:pictures/)?([^\"]*)\""))
      EXPECT_TRUE(pictures.count(picture)) << "no picture " << picture;
  }
}

TEST(HelpBook, PagesAreSoundForASimpleReader) {
  for (const auto& [file, text] : Pages()) {
    SCOPED_TRACE(file);
    EXPECT_EQ(UnbalancedTag(text), "");
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
      EXPECT_LE(line.size(), 130u) << line;
      EXPECT_TRUE(std::ranges::all_of(line, [](char c) { return c >= ' ' && c < 127; }))
          << "write other characters as entities: " << line;
    }
  }
}

// A reader gives an entry without a number that of the entry before it.
TEST(HelpBook, EveryPageStandsOnceInTheContentsUnderItsTitleWithANumberOfItsOwn) {
  auto pages = Pages();
  std::set<std::string> numbers{""};
  for (const Entry& entry : Entries("Tarvane.hhc")) {
    SCOPED_TRACE(entry.sPage);
    const auto page = pages.extract(entry.sPage);
    ASSERT_FALSE(page.empty()) << "missing, or in the contents twice";
    for (const std::string tag : {"title", "h1"})
      EXPECT_EQ(Matches(page.mapped(), "<" + tag + ">([^<]*)<"), Strings{entry.sName});
    EXPECT_TRUE(numbers.insert(entry.sContext).second) << entry.sContext;
  }
  for (const auto& [file, text] : pages) ADD_FAILURE() << file << " isn't in the contents";
}

TEST(HelpBook, DialogsAndCommandsFindTheirPage) {
  std::map<std::string, std::string> pages, wanted;
  for (const Entry& entry : Entries("Tarvane.hhc")) pages[entry.sContext] = entry.sPage;
  std::istringstream in(
      "0 welcome 1800 support 2000 copy-and-discard 2100 rewriting 2300 options 2400 printing "
      "2710 rules-defaults 2720 rules-precedence 2730 rules-boundary 2740 rules-numbering "
      "2750 rules-general 2800 custom-select");
  for (std::string number, page; in >> number >> page; wanted[number] = page)
    EXPECT_EQ(pages[number], page + ".html") << number;
  for (const auto& file : fs::recursive_directory_iterator(QUILLON_SOURCE_DIR "/src")) {
    if (file.path().extension() != ".cpp" && file.path().extension() != ".h") continue;
    for (const auto& number : Matches(ReadAll(file.path()), "Help[A-Za-z]*[({ =]+(\\d{4})\\b"))
      EXPECT_TRUE(wanted.count(number)) << number << " in " << file.path();
  }
}

TEST(HelpBook, TheIndexIsSortedAndReachesEveryPage) {
  const auto pages = Pages();
  std::set<std::string> reached{"welcome.html"};
  Text before;
  for (const Entry& entry : Entries("Tarvane.hhk")) {
    SCOPED_TRACE(entry.sName);
    EXPECT_LT(before, LowerCase(FromUtf8(entry.sName)));
    before = LowerCase(FromUtf8(entry.sName));
    EXPECT_TRUE(pages.count(entry.sPage)) << entry.sPage;
    reached.insert(entry.sPage);
  }
  for (const auto& [file, text] : pages) EXPECT_TRUE(reached.count(file)) << file;
}

TEST(HelpBook, TheBookHoldsEveryPage) {
  const std::string book = ReadAll(QUILLON_BIN_DIR "/Tarvane.htb");
  ASSERT_TRUE(book.starts_with("PK"));
  // The directory at the end of the archive has each name once more.
  const std::string directory = book.substr(book.find("PK\1\2"));
  Strings wanted = Matches(ReadAll(Folder / "Tarvane.hhp"), "(?:file|topic)=([^\n]*)");
  wanted.push_back("Tarvane.hhp");
  for (const auto& [file, text] : Pages()) wanted.push_back(file);
  for (const auto& file : wanted) EXPECT_NE(directory.find(file), std::string::npos) << file;
}

}  // namespace
