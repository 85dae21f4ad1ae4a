// MXRegistry, MOptions, CXParamString and CXRecent over a store in memory, with the log watched.
#include "MXRegistry.h"

#include <gtest/gtest.h>

#include <algorithm>

#include <tuple>

#include "CXRecent.h"
#include "ErrorRuntime.h"
#include "Failure.h"
#include "MOptions.h"
#include "MXFile.h"
#include "PrintedErrorDialog.h"
#include "RegistryStore.h"
#include "TempFolder.h"

namespace {

using namespace MXRegistry;

class MXRegistryTest : public testing::Test {
 protected:
  MXRegistryTest() : moRuntime(moDialog, moFolder / "log") {
    goError = &moRuntime;
    goRegistry = &moStore;
    mhKey = OpenRegKey(HKEY_CURRENT_USER, Text(RootKey) + u"Test\\", KEY_ALL_ACCESS);
  }
  ~MXRegistryTest() override { goRegistry = nullptr; }

  std::string Logged() const { return TempFolder::Read(moFolder / "log"); }
  std::vector<Text> Items(const CXRecent& oRecent) const {
    std::vector<Text> asItem;
    for (const Text& sItem : oRecent) {
      const auto lIndex = static_cast<std::int32_t>(asItem.size()) + 1;
      EXPECT_EQ(oRecent.Item(lIndex), sItem);
      asItem.push_back(sItem + u'?' + oRecent.Property(lIndex, u"p"));
    }
    EXPECT_EQ(asItem.size(), static_cast<std::size_t>(oRecent.Count()));
    return asItem;
  }

  TempFolder moFolder;
  PrintedErrorDialog moDialog{stderr};
  ErrorRuntime moRuntime;
  RegistryStore moStore;
  std::int32_t mhKey = 0;
};

TEST_F(MXRegistryTest, MissingAndMistypedValuesGiveTheDefaultAndLeaveNoTrace) {
  SetRegString(mhKey, u"Text", u"");
  SetRegLong(mhKey, u"Long", -5);
  SetRegBool(mhKey, u"Bool", true);
  EXPECT_EQ(GetRegString(mhKey, u"Text", u"other"), u"");
  EXPECT_EQ(GetRegLong(mhKey, u"Text", 9), 9);
  EXPECT_EQ(GetRegLong(mhKey, u"Long", 9), -5);
  EXPECT_EQ(GetRegString(mhKey, u"Long", u"other"), u"other");
  EXPECT_EQ(GetRegLong(mhKey, u"Bool", 0), -1);
  EXPECT_TRUE(GetRegBool(mhKey, u"Long", false) && GetRegBool(mhKey, u"None", true));
  EXPECT_EQ(GetRegString(mhKey, u"None", u"other"), u"other");
  EXPECT_FALSE(RegValueExists(mhKey, u"None"));
  DeleteRegValue(mhKey, u"Long");
  DeleteRegValue(mhKey, u"Long");
  EXPECT_FALSE(RegValueExists(mhKey, u"Long"));
  EXPECT_EQ(Logged(), "");
}

TEST_F(MXRegistryTest, FailedCallsAreLoggedWithTheirKeyAndGoOn) {
  RegistryStore oUnwritable("/proc/none/settings.reg");
  goRegistry = &oUnwritable;
  SetRegLong(mhKey, u"Long", 1);
  EXPECT_EQ(GetRegLong(mhKey, u"Long", 0), 1);
  CloseRegKey(mhKey);
  EXPECT_EQ(GetRegLong(mhKey, u"Long", 9), 9);
  const std::string sLog = Logged();
  EXPECT_NE(sLog.find("\\Test\\Long: Path not found: /proc/none/settings.reg.lock"), sLog.npos)
      << sLog;
  EXPECT_NE(sLog.find("RegQueryValueEx\\Long\t-\t6\t"), sLog.npos) << sLog;
}

TEST_F(MXRegistryTest, OptionsComeBackAndMistypedOnesAreTheUsual) {
  MOptions::Initialize();
  MOptions::oCodeFont = {u"Courier New", 10, true, false};
  MOptions::lLeftMargin = 750;
  MOptions::SetOptions();
  MOptions::SetPage();
  MOptions::oCodeFont = {};
  MOptions::lLeftMargin = MOptions::lTopMargin = 0;
  const auto hOptions = OpenRegKey(HKEY_CURRENT_USER, Text(RootKey) + u"Options", KEY_ALL_ACCESS);
  SetRegString(hOptions, u"Results Font Size", u"12");
  MOptions::Initialize();
  EXPECT_EQ(MOptions::oCodeFont.sFace, u"Courier New");
  EXPECT_TRUE(MOptions::oCodeFont.bBold && !MOptions::oCodeFont.bItalic);
  EXPECT_EQ(MOptions::oResultsFont.lSize, 8);
  EXPECT_EQ(MOptions::lLeftMargin - MOptions::lTopMargin, 250);
}

TEST(CXParamString, PairsAreFoundExactlyAndMoveWhenChanged) {
  const std::tuple<const char*, Text, Text, Text, Text, Text> aoRow[] = {
      {"first", u"", u"a", u"1", u"", u"a=1"},
      {"changed", u"a=1&", u"a", u"2", u"1", u"a=2"},
      {"moved to the end", u"a=1&b=2", u"a", u"3", u"1", u"b=2&a=3"},
      {"tail of another name", u"ab=1", u"b", u"2", u"", u"ab=1&b=2"},
      {"other letter case", u"A=1", u"a", u"2", u"", u"A=1&a=2"},
      {"name in a value", u"x=b=1", u"b", u"2", u"", u"x=b=1&b=2"},
      {"empty value", u"a=&b=2&", u"a", u"", u"", u"b=2&a="},
  };
  for (const auto& [pcName, sParams, sProperty, sValue, sBefore, sAfter] : aoRow) {
    SCOPED_TRACE(pcName);
    CXParamString oParams;
    oParams.SetParamString(sParams);
    EXPECT_EQ(oParams.Property(sProperty), sBefore);
    oParams.SetProperty(sProperty, sValue);
    EXPECT_EQ(oParams.ParamString(), sAfter);
  }
}

TEST_F(MXRegistryTest, RecentListMovesEntriesWithTheirParametersAndSavesEachChange) {
  CXRecent oRecent;
  oRecent.Initialize(mhKey);
  EXPECT_EQ(oRecent.MaxCount(), 9);
  for (const TextView sItem : {u"a", u"b", u"c"}) oRecent.Add(sItem);
  oRecent.SetProperty(3, u"p", u"1");
  EXPECT_EQ(oRecent.Add(u"A"), 1);
  const std::vector<Text> asWanted = {u"A?1", u"c?", u"b?"};
  EXPECT_EQ(Items(oRecent), asWanted);
  CXRecent oAgain;
  oAgain.Initialize(mhKey);
  EXPECT_EQ(Items(oAgain), asWanted);
  oAgain.Remove(2);
  EXPECT_EQ(oAgain.Item(3), u"");
  EXPECT_THROW(oAgain.SetProperty(3, u"p", u"1"), Failure);
  EXPECT_THROW(oAgain.Remove(0), Failure);
  oAgain.SetMaxCount(1);
  EXPECT_EQ(RegValueNames(mhKey), (std::vector<Text>{u"MaxCount", u"1", u"1_PropString"}));
  oAgain.SetMaxCount(-4);
  oAgain.Add(u"x");
  EXPECT_EQ(oAgain.Count(), 0);
  const std::string sAll = Logged();
  EXPECT_NE(sAll.find("\tCXRecent.Property [Let]\t-\t9\t"), Text::npos) << sAll;
  EXPECT_NE(sAll.find("\tCXRecent.Remove\t-\t9\t"), Text::npos) << sAll;
  EXPECT_EQ(std::ranges::count(sAll, '\n'), 2) << sAll;
  std::string sContents;
  EXPECT_THROW(MXFile::FileBinaryRead(u"/gone/file", sContents), Failure);
  EXPECT_NE(Logged().find("\tMXFile.FileBinaryRead\t-\t"), Text::npos) << "reported there";
}

TEST_F(MXRegistryTest, DamagedRecentListClosesUp) {
  SetRegLong(mhKey, u"MaxCount", 2147483647);
  for (const TextView sName : {u"2", u"7", u"007", u"1000000", u"x", u"99999999999"}) {
    SetRegString(mhKey, sName, sName);
  }
  SetRegString(mhKey, u"7_PropString", u"p=q");
  CXRecent oRecent;
  oRecent.Initialize(mhKey);
  EXPECT_EQ(Items(oRecent), (std::vector<Text>{u"2?", u"7?q", u"1000000?"}));
  oRecent.Remove(1);
  oRecent.Initialize(mhKey);
  EXPECT_EQ(Items(oRecent), (std::vector<Text>{u"7?q", u"1000000?"}));
}

}  // namespace
