// Every picture that a window asks for is there, in each size, and looks like no other.
#include "Pictures.h"
#include "../vocabulary/Ids.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "MQuillon.h"
#include "Text.h"

namespace {

using Bytes = std::string;

Bytes Picture(TextView sKey, int nPixels) {
  const auto abPng = FindPicture(sKey, nPixels);
  return {abPng.begin(), abPng.end()};
}

/// A number of the PNG's head, most significant byte first. Width stands at 16, height at 20.
int HeadNumber(const Bytes& sPng, std::size_t lAt) {
  int nResult = 0;
  for (std::size_t i = lAt; i < lAt + 4; ++i)
    nResult = nResult << 8 | static_cast<unsigned char>(sPng.at(i));
  return nResult;
}

void ExpectPng(const Bytes& sPng, int nPixels) {
  ASSERT_GT(sPng.size(), 40u);
  EXPECT_TRUE(sPng.starts_with("\x89PNG\r\n\x1a\n"));
  EXPECT_EQ(sPng.substr(sPng.size() - 8, 4), "IEND");
  EXPECT_EQ(HeadNumber(sPng, 16), nPixels);
  EXPECT_EQ(HeadNumber(sPng, 20), nPixels);
}

struct Use {
  const char* sName;
  std::vector<Text> asKey;
  Text sVariant;  // behind each key, besides the plain picture
};

std::vector<Use> Uses() {
  Use oProjects{"kinds of projects", {}, u""}, oComponents{"kinds of components", {}, u"Dirty"};
  for (std::int32_t i = 0; i <= 3; ++i)
    oProjects.asKey.push_back(MQuillon::VBProjectTypeName(Id{i}));
  for (std::int32_t i : {1, 2, 3, 5, 6, 7, 8, 9, 11, 15})
    oComponents.asKey.push_back(MQuillon::VBComponentTypeName(Id{i}));
  return {oProjects,
          oComponents,
          {"folders", {u"Closed Folder", u"Open Folder"}, u""},
          {"files without code",
           {MQuillon::VBComponentTypeName(Id{4}), MQuillon::VBComponentTypeName(Id{10})},
           u""},
          {"procedures", {u"Declarations", u"Property", u"Method", u"Event"}, u"Dirty"},
          {"toolbar", {u"Open", u"Print", u"Tree", u"List", u"Wand", u"Star", u"Help"}, u"X"},
          {"dialogs",
           {u"FApplyPending", u"FCopySuggest", u"FUndoPending", u"FInsertLine", u"FRemoveLine",
            u"FRefreshTemplates"},
           u""},
          {"program", {u"Quillon"}, u""}};
}

TEST(Pictures, EveryKeyInUseHasEachSizeAndEachVariant) {
  std::size_t lKeys = 0;
  for (const Use& oUse : Uses()) {
    for (const Text& sKey : oUse.asKey) {
      SCOPED_TRACE(std::string(oUse.sName) + ": " + ToUtf8(sKey));
      lKeys += oUse.sVariant.empty() ? 1 : 2;
      for (int nPixels : {16, 24, 32}) {
        ExpectPng(Picture(sKey, nPixels), nPixels);
        if (!oUse.sVariant.empty()) ExpectPng(Picture(sKey + oUse.sVariant, nPixels), nPixels);
      }
    }
  }
  EXPECT_EQ(PictureKeys().size(), lKeys) << "a picture that nothing uses";
}

TEST(Pictures, NoTwoLookTheSame) {
  for (int nPixels : {16, 24, 32}) {
    std::map<Bytes, std::string> oSeen;
    for (TextView sKey : PictureKeys()) {
      const auto [oOther, bNew] = oSeen.emplace(Picture(sKey, nPixels), ToUtf8(sKey));
      EXPECT_TRUE(bNew) << ToUtf8(sKey) << " looks like " << oOther->second << " at " << nPixels;
    }
  }
}

TEST(Pictures, TheLeastSizeThatIsLargeEnoughIsGiven) {
  struct Row {
    const char* sName;
    TextView sKey;
    int nWanted, nPixels;
  };
  for (const Row& oRow :
       {Row{"below all", u"Open", 0, 16}, Row{"between", u"Open", 17, 24},
        Row{"beyond all", u"Open", 200, 32}, Row{"the program", u"Quillon", 33, 48},
        Row{"the program, large", u"Quillon", 65, 128}}) {
    SCOPED_TRACE(oRow.sName);
    ExpectPng(Picture(oRow.sKey, oRow.nWanted), oRow.nPixels);
  }
}

TEST(Pictures, UnknownKeysHaveNone) {
  for (TextView sKey : {u"", u"open", u"Open ", u"Resource FileDirty", u"QuillonX"})
    EXPECT_TRUE(FindPicture(sKey, 16).empty()) << ToUtf8(sKey);
}

}  // namespace
