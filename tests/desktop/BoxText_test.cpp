#include "BoxText.h"

#include <gtest/gtest.h>

TEST(BoxTextTest, ListsEndBeforeTheScreenDoes) {
  const struct {
    const char* psName;
    std::size_t lCount, lLength, lShown;
    TextView sBreak;
  } aoRow[] = {
      {"none", 0, 10, 0, u"\r\n"},         {"all fit", 20, 10, 20, u"\r\n"},
      {"too many", 1000, 10, 20, u"\r\n"}, {"paragraphs", 12, 10, 10, u"\r\n\r\n"},
      {"long ones", 12, 130, 6, u"\r\n"},  {"one that fills it alone", 2, 5000, 1, u"\r\n"},
  };
  for (const auto& o : aoRow) {
    const Text sItem(o.lLength, u'x'), sMore = ToText(static_cast<long long>(o.lCount - o.lShown));
    Text sList;
    for (std::size_t i = 0; i < o.lShown; ++i) sList += Text(o.sBreak) + sItem;
    if (o.lShown < o.lCount) sList += Text(o.sBreak) + u"and " + sMore + u" more";
    EXPECT_EQ(BoxList(std::vector<Text>(o.lCount, sItem), o.sBreak), sList) << o.psName;
  }
}
