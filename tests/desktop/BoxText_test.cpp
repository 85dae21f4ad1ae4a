#include "BoxText.h"

#include <gtest/gtest.h>

TEST(BoxTextTest, ListsEndBeforeTheScreenDoes) {
  struct Row {
    const char* psName;
    std::size_t lCount, lLength, lShown;
    TextView sBreak;
  };
  const Row aoRow[] = {
      {"none", 0, 10, 0, u"\r\n"},         {"all fit", 20, 10, 20, u"\r\n"},
      {"too many", 1000, 10, 20, u"\r\n"}, {"paragraphs", 12, 10, 10, u"\r\n\r\n"},
      {"long ones", 12, 130, 6, u"\r\n"},  {"one that fills it alone", 2, 5000, 1, u"\r\n"},
  };
  for (const Row& oRow : aoRow) {
    const Text sItem(oRow.lLength, u'x');
    Text sList;
    for (std::size_t i = 0; i < oRow.lShown; ++i) sList += Text(oRow.sBreak) + sItem;
    if (oRow.lShown < oRow.lCount)
      sList += Text(oRow.sBreak) + u"and " +
               ToText(static_cast<long long>(oRow.lCount - oRow.lShown)) + u" more";
    EXPECT_EQ(ToUtf8(BoxList(std::vector<Text>(oRow.lCount, sItem), oRow.sBreak)), ToUtf8(sList))
        << oRow.psName;
  }
}
