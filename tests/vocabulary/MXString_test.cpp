#include "MXString.h"

#include "Failure.h"
#include "TextRows.h"

using namespace MXString;

namespace {

TEST(MXString, CutsAroundAMarkAndFindsOverlaps) {
  // Text and mark: what is behind the first, behind the last, ahead of the first.
  ExpectRows(u"a.b.c^.~|b.c|c|a; abc^z~|||; abc^c~|||ab; aaa^aa~|a||; ^x~|||; ab^abc~|||",
             [](TextView s) {
               const Text sText = StringBefore(s, u"^"), sMark = StringAfter(s, u"^");
               return Bars({u"", StringAfter(sText, sMark), StringAfterLast(sText, sMark),
                            StringBefore(sText, sMark)});
             });
  // Text and part: the first, the second, the last place, the count.
  ExpectRows(
      u"a.b.c^.~|2|4|4|2; a.b^.~|2|0|2|1; aaa^aa~|1|2|2|2; ^a~|0|0|0|0; ab^~|1|2|2|2; "
      u"^~|0|0|0|0",
      [](TextView s) {
        const Text sText = StringBefore(s, u"^"), sPart = StringAfter(s, u"^");
        EXPECT_EQ(StringContains(sText, sPart), StringFind(sText, sPart, -32768) != 0);
        return Bars({u"", ToText(StringFind(sText, sPart, 0)), ToText(StringFind(sText, sPart, 2)),
                     ToText(StringFindLast(sText, sPart)), ToText(StringCount(sText, sPart))});
      });
  EXPECT_FALSE(StringStarts(u"", u"a") || StringEnds(u"", u"a"));
  EXPECT_TRUE(StringStarts(u"", u"") && StringEnds(u"", u""));
  EXPECT_EQ(StringReplace(u"aaa.", u"aa", u"aaaa"), u"aaaaa.");
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
  const std::function<std::size_t(const Text&)> Calls[] = {
      [&](const Text& s) { return StringTokenize(s, as, CrLf, false), as.size() - 1; },
      [&](const Text& s) { return StringTokenize2(s.substr(2), as, u"\n"), as.size() - 1; },
      [&](const Text& s) { return SplitLines(s).size(); }};
  for (const auto& oCall : Calls) {
    EXPECT_EQ(oCall(StringReplace(Text(32'767, u'x'), u"x", CrLf)), 32'767u);
    try {
      oCall(StringReplace(Text(40'000, u'x'), u"x", CrLf));
      ADD_FAILURE() << "40,000 tokens were taken";
    } catch (const Failure& oFailure) {
      EXPECT_EQ(oFailure.Number(), 6);
    }
  }
}

TEST(MXString, FoldsALineForComparison) {
  Text sFolded = u"a longer line that stood in the buffer before";
  ExpectRows(
      u"  A   b  ~|A b|a b;    ~||; ~||; \tX \t Y~|\tX \t Y|\tx \t y; "
      u"\x00A0\x00C4 \x0416\x0130~|\x00A0\x00C4 \x0416\x0130|\x00A0\x00E4 \x0436i; "
      u"ABCD EFGH  IJKL   @[`{M~|ABCD EFGH IJKL @[`{M|abcd efgh ijkl @[`{m; "
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
  // Width and path: cut as a text, as a path, as a path that may be cut.
  ExpectRows(
      u"12^C:/a/b/c.txt~|C:/a/b/c.txt|C:/a/b/c.txt|C:/a/b/c.txt; "
      u"11^C:/a/b/c.txt~|C:/a/b/c...|c.txt|c.txt; "
      u"14^C:/long/b/c.txt~|C:/long/b/c...|C:/.../b/c.txt|C:/.../b/c.txt; "
      u"12^C:/long/b/c.txt~|C:/long/b...|C:/.../c.txt|C:/.../c.txt; "
      u"11^C:/long/b/c.txt~|C:/long/...|c.txt|c.txt; 2^C:/c.txt~||c.txt|; "
      u"9^longroot/c.txt~|longro...|.../c.txt|.../c.txt; 5^c.text~|c....||; "
      u"7^C:/c.txt~|C:/c...|c.txt|c.txt; 4^C:/c.txt~|C...|c.txt|c...",
      [&](TextView sRow) {
        const double dWidth = std::stod(ToUtf8(StringBefore(sRow, u"^")));
        const Text s = StringReplace(StringAfter(sRow, u"^"), u"/", u"\\");
        return StringReplace(
            Bars({u"", TrimToFit(s, Units, dWidth), TrimPathToFit(s, Units, dWidth, false),
                  TrimPathToFit(s, Units, dWidth, true)}),
            u"\\", u"/");
      });
}

TEST(Text, GoesToUtf8AndBackWithoutLoss) {
  const std::pair<std::string, std::string> Rows[] = {
      {"a\u00E4\u0416\u20AC\U0001F600", "a\u00E4\u0416\u20AC\U0001F600"},
      {"a\x80z", "a\uFFFDz"},
      {"\xE2\x82", "\uFFFD\uFFFD"},
      {"\xC0\x80\xE0\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"},
      {"\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"},
      {"\xF4\x90\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD"}};
  for (const auto& [sBytes, sAgain] : Rows) EXPECT_EQ(ToUtf8(FromUtf8(sBytes)), sAgain);
  EXPECT_EQ(ToUtf8(u"\xDC00\xD800"), "\uFFFD\uFFFD");
}

}  // namespace
