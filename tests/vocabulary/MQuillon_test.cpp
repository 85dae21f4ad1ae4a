#include "MQuillon.h"

#include "TextRows.h"

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
  EXPECT_EQ(BoundaryId(u"tvnboundaryvb") + RetryId(u"tvnretryprocedure"), 4);
}

TEST(MQuillon, FindsTheKindOfADeclarationLine) {
  ExpectRows(
      u"Sub Main()~Sub; Friend Property Set O()~Property Set; sub main()~; "
      u"Private Sub R() ' a Function of~Function; Property  Get X() Function~",
      [](TextView s) {
        Text sLine(s);
        const Text sKind = ProcTypeName(sLine);
        EXPECT_EQ(sLine, u' ' + Text(s)) << "the blank stays in the caller's text";
        return sKind;
      });
}

TEST(MQuillon, SortsComponentsIntoFolders) {
  Initialize();
  Initialize();  // a second start in one process doesn't double the tables
  ASSERT_TRUE(asFolderName.size() == 9 && aiFolderOfType.size() == 16);
  ExpectRows(
      u"4~Related Document/Related Documents; 15~Form/Forms; 12~/; "
      u"11~Active Designer/Designers; 9~User Document/User Documents",
      [](TextView s) {
        const auto lFolder = static_cast<std::size_t>(aiFolderOfType[std::stoul(ToUtf8(s))]);
        return asFolderItemName[lFolder] + u'/' + asFolderName[lFolder];
      });
  EXPECT_EQ(VBComponentTypeName(12) + VBProjectTypeName(-1) + ScopeTypeName(0), u"");
  EXPECT_EQ(StringResource(108) + InstancingTypeName(7), u"");
}

/// Remembers what a list was filled with, "text=number" per line, and what was selected.
struct ListBox : ILookupList {
  std::string sShown;
  std::int32_t lLines = 10, lSelected = -7;
  void Clear() override { lLines = 0; }
  void AddItem(TextView sItem) override { ++lLines, sShown += ToUtf8(sItem); }
  std::int32_t NewIndex() const override { return lLines - 1; }
  void SetItemData(std::int32_t, std::int32_t l) override { sShown += ToUtf8(u"=" + ToText(l)); }
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
    EXPECT_EQ(oList.sShown, "(none)=0Alpha=1Beta=2");
    EXPECT_EQ(oList.lSelected, o.lSelected);
  }
  ReleaseLookups();
}

TEST(CXLookup, GivesTheFirstMatchAndNothingForUnknown) {
  CXLookup oLookup;
  oLookup.Add(u"(none)", 0, u"no template");
  oLookup.Add(u"\x00C4", 5, u"first");
  oLookup.Add(u"\x00E4", 5, u"second");
  EXPECT_EQ(oLookup.Item(0) + oLookup.Item(4) + oLookup.Item(INT32_MIN), u"");
  EXPECT_EQ(oLookup.ItemData(0) + oLookup.ItemData(2) + oLookup.LookupItem(0), u"5");
  EXPECT_EQ(oLookup.LookupDisplayName(5) + oLookup.LookupItem(6), u"first");
  EXPECT_EQ(oLookup.LookupItemData(u"\x00E4") + oLookup.LookupItemData(u"x"), 5);
  EXPECT_TRUE(oLookup.ItemExists(u"(NONE)") && !oLookup.ItemExists(u""));
}

}  // namespace
