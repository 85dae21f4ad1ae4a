#include "MQuillon.h"

#include <gtest/gtest.h>

using namespace MQuillon;

namespace {

TEST(MQuillon, TranslatesNamesBothWays) {
  const struct {
    Text (*Name)(std::int32_t);
    std::int32_t (*Id)(TextView);
    std::int32_t lLast;
  } Rows[] = {
      {BoundaryName, BoundaryId, 4}, {SeverityName, SeverityId, 3}, {RetryName, RetryId, 3}};
  for (const auto& o : Rows) {
    for (std::int32_t lId = 1; lId <= o.lLast; ++lId) {
      EXPECT_EQ(o.Id(LowerCase(o.Name(lId))), lId);
      EXPECT_EQ(o.Id(o.Name(lId)), 0) << "only folded names count";
    }
    for (const std::int32_t lId : {INT32_MIN, -1, 0, o.lLast + 1}) EXPECT_EQ(o.Name(lId), u"");
  }
  EXPECT_EQ(BoundaryId(u"tvnboundaryvb"), 2);
  EXPECT_EQ(SeverityId(u"tvnseverityfatal"), 3);
  EXPECT_EQ(RetryId(u"tvnretryprocedure"), 2);
}

TEST(MQuillon, FindsTheKindOfADeclarationLine) {
  const struct {
    TextView sLine, sKind;
  } Rows[] = {
      {u"Sub Main()", u"Sub"},
      {u"Private Static Sub Run()", u"Sub"},
      {u"Friend Property Set Owner(o)", u"Property Set"},
      {u"Sub Run() ' a Function of", u"Function"},
      {u"sub main()", u""},
      {u"Property  Get X()", u""},
      {u"Function", u""},
  };
  for (const auto& o : Rows) {
    Text sLine(o.sLine);
    EXPECT_EQ(ToUtf8(ProcTypeName(sLine)), ToUtf8(o.sKind));
    EXPECT_EQ(sLine, u' ' + Text(o.sLine)) << "the blank stays in the caller's text";
  }
}

TEST(MQuillon, SortsComponentsIntoFolders) {
  Initialize();
  Initialize();  // a second start in one process doesn't double the tables
  const char* const asFolder[] = {"",
                                  "Module",
                                  "Class",
                                  "Form",
                                  "Related Document",
                                  "Form",
                                  "Form",
                                  "Property Page",
                                  "User Control",
                                  "User Document",
                                  "Related Document",
                                  "Active Designer",
                                  "",
                                  "",
                                  "",
                                  "Form"};
  ASSERT_EQ(aiFolderOfType.size(), 16u);
  ASSERT_EQ(asFolderName.size(), 9u);
  for (std::size_t nType = 0; nType < aiFolderOfType.size(); ++nType) {
    SCOPED_TRACE(nType);
    const auto lFolder = static_cast<std::size_t>(aiFolderOfType[nType]);
    EXPECT_EQ(ToUtf8(asFolderItemName.at(lFolder)), asFolder[nType]);
    EXPECT_EQ(VBComponentTypeName(static_cast<std::int32_t>(nType)).empty(), lFolder == 0);
  }
  EXPECT_EQ(asFolderName[8], u"Related Documents");
  EXPECT_EQ(InstancingTypeName(7) + VBProjectTypeName(-1) + ScopeTypeName(0), u"");
  EXPECT_EQ(StringResource(108) + StringResource(0), u"");
}

/// Remembers what a list was filled with, "text=number" per line, and what was selected.
struct ListBox : ILookupList {
  std::string sShown;
  std::int32_t lLines = 10, lSelected = -7;
  void Clear() override { lLines = 0; }
  void AddItem(TextView sItem) override { ++lLines, sShown += ToUtf8(sItem); }
  std::int32_t NewIndex() const override { return lLines - 1; }
  void SetItemData(std::int32_t lIndex, std::int32_t lData) override {
    EXPECT_EQ(lIndex, lLines - 1);
    sShown += "=" + std::to_string(lData) + " ";
  }
  void SetListIndex(std::int32_t lIndex) override { lSelected = lIndex; }
};

TEST(CXLookup, FillsListsAndSelectsTheLastMatch) {
  LoadLookups({u""}, {u"", u"", u"Alpha", u"Beta"});
  const struct {
    TextView sDefault;
    std::int32_t lDefault, lSelected;
  } Rows[] = {{u"", -1, -7}, {u"ALPHA", -1, 1}, {u"", 0, 0}, {u"Beta", 1, 2}, {u"(none)", 9, 0}};
  for (const auto& o : Rows) {
    ListBox oList;
    oLookupProcTemplate->LoadListBox(oList, o.sDefault, o.lDefault);
    EXPECT_EQ(oList.sShown, "(none)=0 Alpha=1 Beta=2 ");
    EXPECT_EQ(oList.lSelected, o.lSelected);
  }
  EXPECT_EQ(oLookupModTemplate->Count(), 1);
  ReleaseLookups();
}

TEST(CXLookup, GivesTheFirstMatchAndNothingForUnknown) {
  CXLookup oLookup;
  oLookup.Add(u"(none)", 0, u"no template");
  oLookup.Add(u"\x00C4", 5, u"first");
  oLookup.Add(u"\x00E4", 5, u"second");
  EXPECT_EQ(oLookup.Item(0) + oLookup.Item(4) + oLookup.Item(INT32_MIN), u"");
  EXPECT_EQ(oLookup.ItemData(0) + oLookup.ItemData(2), u"5");
  EXPECT_EQ(oLookup.LookupItem(0) + oLookup.LookupItem(6), u"");
  EXPECT_EQ(oLookup.LookupDisplayName(5) + oLookup.LookupDisplayName(6), u"first");
  EXPECT_EQ(oLookup.LookupItemData(u"\x00E4") + oLookup.LookupItemData(u"x"), 5);
  EXPECT_FALSE(oLookup.ItemExists(u""));
  EXPECT_TRUE(oLookup.ItemExists(u"(NONE)"));
}

}  // namespace
