// Every picture that a window asks for is there, in each size, and looks like no other.
#include "Pictures.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

#include "../vocabulary/Ids.h"
#include "MQuillon.h"
#include "Text.h"

namespace {

using Bytes = std::string;

Bytes Picture(TextView sKey, int nPixels) {
  const auto abPng = FindPicture(sKey, nPixels);
  return {abPng.begin(), abPng.end()};
}

void ExpectPng(const Bytes& png, int pixels) {
  ASSERT_GT(png.size(), 40u);
  EXPECT_TRUE(png.starts_with("\x89PNG\r\n\x1a\n"));
  EXPECT_EQ(png.substr(png.size() - 8, 4), "IEND");
  // Width and height, of four bytes each.
  const Bytes size{0, 0, 0, static_cast<char>(pixels)};
  EXPECT_EQ(png.substr(16, 8), size + size);
}

/// Keys, and what stands behind them besides the plain picture.
struct Use {
  std::vector<Text> keys;
  Text variant;
};

std::vector<Use> Uses() {
  Use projects, components{{}, u"Dirty"};
  for (std::int32_t i = 0; i <= 3; ++i) projects.keys.push_back(MQuillon::VBProjectTypeName(Id{i}));
  for (std::int32_t i : {1, 2, 3, 5, 6, 7, 8, 9, 11, 15})
    components.keys.push_back(MQuillon::VBComponentTypeName(Id{i}));
  return {projects,
          components,
          {{MQuillon::VBComponentTypeName(Id{4}), MQuillon::VBComponentTypeName(Id{10})}, u""},
          {{u"Declarations", u"Property", u"Method", u"Event"}, u"Dirty"},
          {{u"Open", u"Print", u"Tree", u"List", u"Wand", u"Star", u"Help"}, u"X"},
          {{u"FApplyPending", u"FCopySuggest", u"FUndoPending", u"FInsertLine", u"FRemoveLine",
            u"FRefreshTemplates", u"Closed Folder", u"Open Folder", u"Quillon"},
           u""}};
}

TEST(Pictures, EveryKeyInUseHasEachSizeAndEachVariant) {
  std::size_t count = 0;
  for (const Use& use : Uses()) {
    for (const Text& key : use.keys) {
      SCOPED_TRACE(ToUtf8(key));
      for (const Text& name : std::set<Text>{key, key + use.variant}) {
        ++count;
        for (int pixels : {16, 24, 32}) ExpectPng(Picture(name, pixels), pixels);
      }
    }
  }
  EXPECT_EQ(PictureKeys().size(), count) << "a picture that nothing uses";
}

TEST(Pictures, NoTwoLookTheSame) {
  for (int pixels : {16, 24, 32}) {
    std::map<Bytes, std::string> seen;
    for (TextView key : PictureKeys()) {
      const auto [it, isNew] = seen.emplace(Picture(key, pixels), ToUtf8(key));
      EXPECT_TRUE(isNew) << ToUtf8(key) << " looks like " << it->second << " at " << pixels;
    }
  }
}

TEST(Pictures, TheLeastSizeThatIsLargeEnoughIsGiven) {
  // Below all, between two, and beyond all sizes; the program's own has more of them.
  for (const auto& [wanted, pixels] : {std::pair{0, 16}, {17, 24}, {200, 32}})
    ExpectPng(Picture(u"Open", wanted), pixels);
  for (const auto& [wanted, pixels] : {std::pair{33, 48}, {65, 128}})
    ExpectPng(Picture(u"Quillon", wanted), pixels);
}

TEST(Pictures, UnknownKeysHaveNone) {
  for (TextView sKey : {u"", u"open", u"Open ", u"Resource FileDirty", u"QuillonX"})
    EXPECT_TRUE(FindPicture(sKey, 16).empty()) << ToUtf8(sKey);
}

}  // namespace
