#include "MQuillon.h"

#include "Ids.h"
#include "TextRows.h"

using namespace MQuillon;

namespace {

TEST(MQuillon, TranslatesNamesBothWays) {
  for (std::int32_t lId = -1; lId <= 5; ++lId) {
    const auto Known = [&](std::int32_t lLast) { return lId >= 1 && lId <= lLast ? lId : 0; };
    EXPECT_EQ(ToNumber(BoundaryId(LowerCase(BoundaryName(Id{lId})))), Known(4));
    EXPECT_EQ(ToNumber(SeverityId(LowerCase(SeverityName(Id{lId})))), Known(3));
    EXPECT_EQ(ToNumber(RetryId(LowerCase(RetryName(Id{lId})))), Known(3));
    EXPECT_EQ(BoundaryId(BoundaryName(Id{lId})), Boundary::Unset) << "only folded names count";
  }
  EXPECT_EQ(ToNumber(BoundaryId(u"tvnboundaryvb")), 2);
  EXPECT_EQ(RetryName(Retry::Procedure), u"tvnRetryProcedure");
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
  EXPECT_EQ(VBComponentTypeName(Id{12}) + VBProjectTypeName(Id{-1}) + ScopeTypeName(Id{0}), u"");
  EXPECT_EQ(StringResource(108) + InstancingTypeName(7), u"");
}

/// Remembers what a list was filled with, "text=number" per line, and what was selected.
struct ListBox : ILookupList {
  Text sShown = u"old";
  std::int32_t lLines = 0;
  void Clear() override { sShown.clear(); }
  void AddItem(TextView sItem) override { ++lLines, sShown += sItem; }
  std::int32_t NewIndex() const override { return lLines - 1; }
  void SetItemData(std::int32_t, std::int32_t lData) override { sShown += u"=" + ToText(lData); }
  void SetListIndex(std::int32_t lIndex) override { sShown += u" at " + ToText(lIndex); }
};

TEST(CXLookup, FillsListsAndSelectsTheLastMatch) {
  LoadLookups({u""}, {u"", u"", u"Alpha", u"Beta"});
  const auto Filled = [](TextView sDefault, std::int32_t lDefault) {
    ListBox oList;
    oLookupProcTemplate->LoadListBox(oList, sDefault, lDefault);
    return ToUtf8(oList.sShown);
  };
  EXPECT_EQ(Filled(u"", -1), "(none)=0Alpha=1Beta=2");
  EXPECT_EQ(Filled(u"ALPHA", -1), "(none)=0Alpha=1Beta=2 at 1");
  EXPECT_EQ(Filled(u"Beta", 0), "(none)=0Alpha=1Beta=2 at 2");
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
