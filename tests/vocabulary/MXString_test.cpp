#include "MXString.h"

#include <gtest/gtest.h>

#include "Failure.h"

using namespace MXString;

namespace {

/// Tokens joined by "|", each behind its mark, so that an empty array and an empty token differ.
std::string Shown(const TextArray& asToken) {
  EXPECT_TRUE(asToken.at(0).empty());
  std::string sResult;
  for (std::size_t i = 1; i < asToken.size(); ++i) sResult += "|" + ToUtf8(asToken[i]);
  return sResult;
}

TEST(MXString, CutsAroundAMark) {
  const struct {
    TextView sText, sMark;
    const char *sAfter, *sAfterLast, *sBefore;
  } Rows[] = {
      {u"a.b.c", u".", "b.c", "c", "a"}, {u"abc", u"z", "", "", ""}, {u"abc", u"c", "", "", "ab"},
      {u"aaa", u"aa", "a", "", ""},      {u"", u"x", "", "", ""},    {u"ab", u"abc", "", "", ""},
  };
  for (const auto& o : Rows) {
    SCOPED_TRACE(ToUtf8(o.sText) + " at " + ToUtf8(o.sMark));
    EXPECT_EQ(ToUtf8(StringAfter(o.sText, o.sMark)), o.sAfter);
    EXPECT_EQ(ToUtf8(StringAfterLast(o.sText, o.sMark)), o.sAfterLast);
    EXPECT_EQ(ToUtf8(StringBefore(o.sText, o.sMark)), o.sBefore);
  }
}

TEST(MXString, FindsAndCountsOverlaps) {
  const struct {
    TextView sText, sPart;
    std::int16_t nOccurrence;
    std::int32_t lFound, lLast, lCount;
  } Rows[] = {
      {u"a.b.c", u".", 2, 4, 4, 2}, {u"a.b.c", u".", 3, 0, 4, 2},    {u"aaa", u"aa", 2, 2, 2, 2},
      {u"a.b", u".", 0, 2, 2, 1},   {u"a.b", u".", -32768, 2, 2, 1}, {u"", u"a", 1, 0, 0, 0},
      {u"", u"", 1, 0, 0, 0},       {u"ab", u"", 2, 2, 2, 2},
  };
  for (const auto& o : Rows) {
    SCOPED_TRACE(ToUtf8(o.sText) + " in search of " + ToUtf8(o.sPart));
    EXPECT_EQ(StringFind(o.sText, o.sPart, o.nOccurrence), o.lFound);
    EXPECT_EQ(StringFindLast(o.sText, o.sPart), o.lLast);
    EXPECT_EQ(StringCount(o.sText, o.sPart), o.lCount);
    EXPECT_EQ(StringContains(o.sText, o.sPart), o.lCount > 0);
  }
  EXPECT_FALSE(StringStarts(u"", u"a") || StringEnds(u"", u"a"));
  EXPECT_TRUE(StringStarts(u"", u"") && StringEnds(u"", u""));
  EXPECT_EQ(StringReplace(u"aaa.", u"aa", u"aaaa"), u"aaaaa.");
}

TEST(MXString, TokenizesByASeparatorOfAnyLength) {
  const struct {
    TextView sText, sSeparator;
    bool bTrim;
    const char* sTokens;
  } Rows[] = {
      {u"", u",", false, ""},
      {u",", u",", false, "|"},
      {u"a", u",", false, "|a"},
      {u"a,b,", u",", false, "|a|b"},
      {u"a,,b", u",", false, "|a||b"},
      {u",a", u",", false, "||a"},
      {u" a ,\tb ", u",", true, "|a|\tb"},
      {u"a\r\n\nb\r\n", CrLf, false, "|a|\nb"},
      {u"a\r", CrLf, false, "|a\r"},
      {u"\r\r\n", CrLf, false, "|\r"},
  };
  for (const auto& o : Rows) {
    SCOPED_TRACE(ToUtf8(o.sText));
    TextArray asToken = {u"", u"old", u"old"};
    StringTokenize(o.sText, asToken, o.sSeparator, o.bTrim);
    EXPECT_EQ(Shown(asToken), o.sTokens);
    if (o.sSeparator != CrLf) continue;
    const std::vector<TextView> asLine = SplitLines(o.sText);
    EXPECT_TRUE(std::equal(asLine.begin(), asLine.end(), asToken.begin() + 1, asToken.end()));
  }
}

TEST(MXString, TokenizesAtEachSeparatorCharacter) {
  TextArray asToken = {u"", u"x<%a>y"};
  StringTokenize2(asToken[1], asToken, u"<>");  // a text out of its own result array
  EXPECT_EQ(Shown(asToken), "|x|%a|y");
  StringTokenize2(u"<>a>", asToken, u"<>");
  EXPECT_EQ(Shown(asToken), "|||a|");
  StringTokenize2(u"", asToken, u"<>");
  EXPECT_EQ(Shown(asToken), "");
}

TEST(MXString, RefusesMoreTokensThanACountHolds) {
  Text sText;
  for (int i = 0; i < 32'767; ++i) sText += CrLf;
  TextArray asToken;
  StringTokenize(sText, asToken, CrLf, false);
  EXPECT_EQ(asToken.size(), 32'768u);
  EXPECT_EQ(SplitLines(sText).size(), 32'767u);
  for (int i = 0; i < 7'233; ++i) sText += CrLf;
  const std::function<void()> Calls[] = {[&] { StringTokenize(sText, asToken, CrLf, false); },
                                         [&] { StringTokenize2(sText, asToken, u"\n"); },
                                         [&] { SplitLines(sText); }};
  for (const auto& oCall : Calls) {
    try {
      oCall();
      ADD_FAILURE() << "40,000 tokens were taken";
    } catch (const Failure& oFailure) {
      EXPECT_EQ(oFailure.Number(), 6);
    }
  }
}

TEST(MXString, FoldsALineForComparison) {
  const struct {
    TextView sText;
    const char *sTrimmed, *sFolded;
  } Rows[] = {
      {u"  A   b  ", "A b", "a b"},
      {u"", "", ""},
      {u"   ", "", ""},
      {u"\tX \t Y", "\tX \t Y", "\tx \t y"},
      {u"\x00A0\x00C4 \x0416\x0130", "\u00A0\u00C4 \u0416\u0130", "\u00A0\u00E4 \u0436i"},
      {u"\xD801\xDC00", "\U00010400", "\U00010400"},
  };
  Text sFolded = u"a longer line that stood in the buffer before";
  for (const auto& o : Rows) {
    SCOPED_TRACE(ToUtf8(o.sText));
    EXPECT_EQ(ToUtf8(FullTrim(o.sText)), o.sTrimmed);
    FoldLine(o.sText, sFolded);
    EXPECT_EQ(ToUtf8(sFolded), o.sFolded);
    EXPECT_EQ(LowerCase(FullTrim(o.sText)), sFolded);
    EXPECT_TRUE(EqualNoCase(FullTrim(o.sText), sFolded));
  }
  EXPECT_FALSE(EqualNoCase(u"ab", u"abc") || EqualNoCase(u"\xDC00", u"\xDC01"));
}

TEST(MXString, KnowsDigitsAndLetters) {
  const struct {
    TextView sText, sExtra;
    bool bDigits, bAlphaNumeric;
  } Rows[] = {
      {u"", u"", true, true},         {u"12", u"", true, true},    {u"1.2", u"", false, false},
      {u"1.2", u".", true, true},     {u"a_b", u"", false, false}, {u"a_b", u"_.", false, true},
      {u"\x00E4", u"", false, false}, {u"1-2", u"-", true, true},  {u"\x0661", u"", false, false},
      {u"1", u"z-a", false, false},
  };
  for (const auto& o : Rows) {
    SCOPED_TRACE(ToUtf8(o.sText) + " with " + ToUtf8(o.sExtra));
    EXPECT_EQ(IsDigits(o.sText, o.sExtra), o.bDigits);
    EXPECT_EQ(IsAlphaNumeric(o.sText, o.sExtra), o.bAlphaNumeric);
  }
}

TEST(MXString, ShortensTextAndPathsToAWidth) {
  const TextWidth Units = [](TextView sText) { return static_cast<double>(sText.size()); };
  const TextView sPath = u"C:\\a\\b\\c.txt";
  const struct {
    const char* sName;
    TextView sText;
    double dWidth;
    const char *sText_, *sPath_, *sCutPath;
  } Rows[] = {
      {"fits", sPath, 12, "C:\\a\\b\\c.txt", "C:\\a\\b\\c.txt", "C:\\a\\b\\c.txt"},
      {"mark longer than what it replaces", sPath, 11, "C:\\a\\b\\c...", "c.txt", "c.txt"},
      {"one folder dropped", u"C:\\long\\b\\c.txt", 14, "C:\\long\\b\\c...", "C:\\...\\b\\c.txt",
       "C:\\...\\b\\c.txt"},
      {"all folders dropped", u"C:\\long\\b\\c.txt", 12, "C:\\long\\b...", "C:\\...\\c.txt",
       "C:\\...\\c.txt"},
      {"file alone", u"C:\\long\\b\\c.txt", 11, "C:\\long\\...", "c.txt", "c.txt"},
      {"one backslash", u"longroot\\c.txt", 9, "longro...", "...\\c.txt", "...\\c.txt"},
      {"one backslash, short root", u"C:\\c.txt", 7, "C:\\c...", "c.txt", "c.txt"},
      {"too wide still", u"C:\\c.txt", 4, "C...", "c.txt", "c..."},
      {"mark alone doesn't fit", u"C:\\c.txt", 2, "", "c.txt", ""},
      {"no backslash", u"c.text", 5, "c....", "", ""},
  };
  for (const auto& o : Rows) {
    SCOPED_TRACE(o.sName);
    EXPECT_EQ(ToUtf8(TrimToFit(o.sText, Units, o.dWidth)), o.sText_);
    EXPECT_EQ(ToUtf8(TrimPathToFit(o.sText, Units, o.dWidth, false)), o.sPath_);
    EXPECT_EQ(ToUtf8(TrimPathToFit(o.sText, Units, o.dWidth, true)), o.sCutPath);
  }
}

TEST(Text, GoesToUtf8AndBackWithoutLoss) {
  const struct {
    const char* sName;
    std::string sBytes, sAgain;
  } Rows[] = {
      {"every length", "a\u00E4\u0416\u20AC\U0001F600", "a\u00E4\u0416\u20AC\U0001F600"},
      {"lone continuation", "a\x80z", "a\uFFFDz"},
      {"cut short", "\xE2\x82", "\uFFFD\uFFFD"},
      {"overlong", "\xC0\x80", "\uFFFD\uFFFD"},
      {"overlong of three", "\xE0\x80\x80", "\uFFFD\uFFFD\uFFFD"},
      {"surrogate", "\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"},
      {"beyond the last", "\xF4\x90\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD"},
  };
  for (const auto& o : Rows) {
    SCOPED_TRACE(o.sName);
    EXPECT_EQ(ToUtf8(FromUtf8(o.sBytes)), o.sAgain);
  }
  EXPECT_EQ(ToUtf8(u"\xDC00\xD800"), "\uFFFD\uFFFD");
  EXPECT_EQ(ToText(-32768), u"-32768");
}

}  // namespace
