#include "MXString.h"

#include <random>

#include "Failure.h"
#include "TextRows.h"

using namespace MXString;

namespace {

TEST(MXString, CutsAroundAMarkAndFindsOverlaps) {
  // Text and part: behind the first, behind the last, ahead of the first; second and last place.
  ExpectRows(
      u"a.b.c^.~|b.c|c|a|4|4|2; a.b^.~|b|b|a|0|2|1; abc^z~||||0|0|0; abc^c~|||ab|0|3|1; "
      u"^~||||0|0|0; "
      u"aaa^aa~|a|||2|2|2; ^x~||||0|0|0; ab^abc~||||0|0|0; ab^~|ab|b||2|2|2",
      [](TextView sRow) {
        const Text s = StringBefore(sRow, u"^"), sPart = StringAfter(sRow, u"^");
        EXPECT_EQ(StringContains(s, sPart), StringFind(s, sPart, -32768) != 0);
        return Bars({u"", StringAfter(s, sPart), StringAfterLast(s, sPart), StringBefore(s, sPart),
                     ToText(StringFind(s, sPart, 2)), ToText(StringFindLast(s, sPart)),
                     ToText(StringCount(s, sPart))});
      });
  EXPECT_FALSE(StringStarts(u"", u"a") || StringEnds(u"", u"a"));
  EXPECT_TRUE(StringStarts(u"", u"") && StringEnds(u"", u""));
  EXPECT_EQ(StringReplace(u"aaa.", u"aa", u"aaaa"), u"aaaaa.");
}

TEST(MXString, FindsAPartWhereverItStands) {
  std::mt19937 random(3);
  const auto text = [&](std::size_t size) {
    constexpr TextView Signs = {u"aab\0\u0161\u6161", 6};
    Text made(random() % size, u' ');
    for (char16_t& unit : made) unit = Signs[random() % Signs.size()];
    return made;
  };
  for (int i = 0; i < 20000; ++i) {
    const Text whole = text(100), part = text(5);
    const std::size_t from = random() % 40;
    ASSERT_EQ(FindText(whole, part, from), whole.find(part, from))
        << whole.size() << ' ' << part.size() << ' ' << from;
  }
}

TEST(MXString, TokenizesWithTheRightNumberOfEmptyTokens) {
  TextArray asToken = {u"", u"old"};
  ExpectRows(u"a,b,~|a|b; ,~|; ~; a,,b~|a||b; ,a~||a; a~|a;  a,\tb ~| a|\tb ",
             [&](TextView s) { return StringTokenize(s, asToken, u",", false), Bars(asToken); });
  ExpectRows(u" a ,, \tb ~|a|\tb;  ,, ~||",
             [&](TextView s) { return StringTokenize(s, asToken, u",,", true), Bars(asToken); });
  ExpectRows(u"a\r\n\nb\r\n~|a|\nb; a\r~|a\r; \r\r\n~|\r; ~; \r\na~||a", [&](TextView s) {
    const std::vector<TextView> asLine = SplitLines(s);
    asToken = {Text(s)};  // a text out of its own result array
    StringTokenize(asToken[0], asToken, CrLf, false);
    EXPECT_TRUE(std::equal(asLine.begin(), asLine.end(), asToken.begin() + 1, asToken.end()));
    return Bars(asToken);
  });
  ExpectRows(u"x<%a>y~|x|%a|y; <>a>~|||a|; ~",
             [&](TextView s) { return StringTokenize2(s, asToken, u"<>"), Bars(asToken); });
}

TEST(MXString, RefusesMoreTokensThanACountHolds) {
  TextArray as;
  const Text sMost = StringReplace(Text(32'767, u'x'), u"x", CrLf), sMore = sMost + sMost;
  StringTokenize(sMost, as, CrLf, false);
  EXPECT_EQ(as.size() + SplitLines(sMost).size(), 32'768u + 32'767u);
  EXPECT_THROW(StringTokenize2(sMost, as, u"\n"), Failure);  // one more: the empty tail
  EXPECT_THROW(SplitLines(Text(sMost).append(CrLf)), Failure);
  try {
    StringTokenize(sMore, as, CrLf, false);
    ADD_FAILURE() << "65,534 tokens were taken";
  } catch (const Failure& oFailure) {
    EXPECT_EQ(oFailure.Number(), 6);
  }
}

TEST(MXString, FoldsALineForComparison) {
  Text sFolded = u"a longer line that stood in the buffer before";
  ExpectRows(
      u"  A   b  ~|A b|a b;    ~||; ~||; \tX \t Y~|\tX \t Y|\tx \t y; "
      u"\x00A0\x00C4 \x0416\x0130~|\x00A0\x00C4 \x0416\x0130|\x00A0\x00E4 \x0436i; "
      u"ABCD  ZAZAZ @[{@[{Z  M~|ABCD ZAZAZ @[{@[{Z M|abcd zazaz @[{@[{z m; "
      u"A\x00C4Z  AZ\x00C4  A Z  ~|A\x00C4Z AZ\x00C4 A Z|a\x00E4z az\x00E4 a z; "
      u"\xD801\xDC00~|\xD801\xDC00|\xD801\xDC00",
      [&](TextView s) {
        FoldLine(s, sFolded);
        EXPECT_TRUE(EqualNoCase(FullTrim(s), sFolded) && LowerCase(FullTrim(s)) == sFolded);
        return Bars({u"", FullTrim(s), sFolded});
      });
  EXPECT_FALSE(EqualNoCase(u"ab", u"abc") || EqualNoCase(u"\xDC00", u"\xDC01"));
}

TEST(MXString, KnowsDigitsAndLetters) {
  EXPECT_TRUE(IsDigits(u"", u"") && IsDigits(u"12", u"") && IsDigits(u"1-2.", u".-"));
  EXPECT_TRUE(IsAlphaNumeric(u"", u"") && IsAlphaNumeric(u"a_B.9z", u"_."));
  for (const TextView s : {u"a_b", u"1.2", u"\x0661", u"\x00E4", u"\n"}) {
    EXPECT_FALSE(IsDigits(s, u"") || IsDigits(s, u"z-a") || IsAlphaNumeric(s, u"")) << ToUtf8(s);
  }
}

TEST(MXString, ShortensTextAndPathsToAWidth) {
  const TextWidth Units = [](TextView s) { return static_cast<double>(s.size()); };
  // Width and path: cut as a text, as a path, as a path that may be cut; with either separator.
  const TextView sRows =
      u"12^C:/a/b/c.txt~|C:/a/b/c.txt|C:/a/b/c.txt|C:/a/b/c.txt; "
      u"11^C:/a/b/c.txt~|C:/a/b/c...|c.txt|c.txt; "
      u"14^C:/long/b/c.txt~|C:/long/b/c...|C:/.../b/c.txt|C:/.../b/c.txt; "
      u"12^C:/long/b/c.txt~|C:/long/b...|C:/.../c.txt|C:/.../c.txt; "
      u"11^C:/long/b/c.txt~|C:/long/...|c.txt|c.txt; 2^C:/c.txt~||c.txt|; "
      u"9^longroot/c.txt~|longro...|.../c.txt|.../c.txt; 5^c.text~|c....||; "
      u"7^C:/c.txt~|C:/c...|c.txt|c.txt; 4^C:/c.txt~|C...|c.txt|c...; "
      u"12^/long/b/c.txt~|/long/b/c...|/.../b/c.txt|/.../b/c.txt";
  for (const Text& s :
       {Text(sRows), StringReplace(sRows, u"/", u"\\"),
        Text(u"14^C:\\long/x\\c.txt~|C:\\long/x\\c...|C:\\...\\c.txt|C:\\...\\c.txt")}) {
    ExpectRows(s, [&](TextView sRow) {
      const double dWidth = std::stod(ToUtf8(StringBefore(sRow, u"^")));
      const Text sPath = StringAfter(sRow, u"^");
      return Bars({u"", TrimToFit(sPath, Units, dWidth), TrimPathToFit(sPath, Units, dWidth, false),
                   TrimPathToFit(sPath, Units, dWidth, true)});
    });
  }
}

TEST(Text, GoesToUtf8AndBackWithoutLoss) {
  const std::string sSound = "a\u00E4\u0416\u20AC\U0001F600\uFFFD";
  EXPECT_EQ(ToUtf8(FromUtf8(sSound)), sSound);
  // A lone byte, a cut one, two overlong ones, a surrogate, one beyond the last.
  Text sLost;
  for (const char* s :
       {"\x80", "\xE2\x82", "\xC0\x80", "\xE0\x80\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80"}) {
    sLost += FromUtf8(s) + u'z';
  }
  EXPECT_EQ(StringReplace(sLost, u"\xFFFD", u"?"), u"?z??z??z???z???z????z");
  EXPECT_EQ(ToUtf8(u"\xDC00\xD800"), "\uFFFD\uFFFD");
}

}  // namespace
