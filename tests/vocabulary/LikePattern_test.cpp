#include "LikePattern.h"

#include <gtest/gtest.h>

#include <random>

namespace {

// The language by its plain rules, each star tried at every place: slow, and judge of the real one.
bool SlowList(TextView sList, char16_t cUnit, bool& bValid) {
  const bool bNot = sList.size() > 1 && sList[0] == u'!';
  if (bNot) sList.remove_prefix(1);
  bool bHit = false;
  while (!sList.empty()) {
    const bool bRange = sList.size() > 2 && sList[1] == u'-';
    const char16_t cHigh = sList[bRange ? 2 : 0];
    if (sList[0] > cHigh) bValid = false;
    bHit |= sList[0] <= cUnit && cUnit <= cHigh;
    sList.remove_prefix(bRange ? 3 : 1);
  }
  return bHit != bNot;
}

bool SlowValid(TextView sPattern) {
  bool bValid = true;
  for (std::size_t i; (i = sPattern.find(u'[')) != TextView::npos;) {
    const std::size_t lEnd = sPattern.find(u']', i);
    if (lEnd == TextView::npos) return false;
    SlowList(sPattern.substr(i + 1, lEnd - i - 1), u'a', bValid);
    sPattern.remove_prefix(lEnd + 1);
  }
  return bValid;
}

bool SlowMatch(TextView sPattern, TextView sText) {
  if (sPattern.empty()) return sText.empty();
  const char16_t c = sPattern[0];
  if (c == u'*') {
    for (std::size_t i = 0; i <= sText.size(); ++i) {
      if (SlowMatch(sPattern.substr(1), sText.substr(i))) return true;
    }
    return false;
  }
  const std::size_t lNext = c == u'[' ? sPattern.find(u']') + 1 : 1;
  const TextView sList = sPattern.substr(1, lNext - 2), sRest = sPattern.substr(lNext);
  if (c == u'[' && sList.empty()) return SlowMatch(sRest, sText);
  if (sText.empty()) return false;
  const char16_t u = sText[0];
  bool bValid = true;
  const bool bFits = c == u'['   ? SlowList(sList, u, bValid)
                     : c == u'#' ? u >= u'0' && u <= u'9'
                                 : c == u'?' || c == u;
  return bFits && SlowMatch(sRest, sText.substr(1));
}

struct Row {
  const char* sName;
  Text sPattern, sText;
  bool bMatches;
};

Text Repeat(TextView sPart, int lTimes) {
  Text sResult;
  while (lTimes-- > 0) sResult += sPart;
  return sResult;
}

TEST(LikePattern, MatchesByTheRulesOfTheLanguage) {
  const Text sLong = Repeat(u"a", 100'000), sOthers = Repeat(u"?[ab]", 2'000);
  const Row Rows[] = {
      {"empty on empty", u"", u"", true},
      {"empty on text", u"", u"a", false},
      {"star on empty", u"*", u"", true},
      {"literal prefix", u"'<quillon *>", u"'<quillon standard>", true},
      {"literal prefix, other tail", u"'<quillon *>", u"'<quillon standard", false},
      {"star needs both ends", u"aba*aba", u"aba", false},
      {"case counts", u"A*", u"abc", false},
      {"any unit is a NUL too", u"a?b", Text(u"a\0b", 3), true},
      {"any unit is half a pair", u"??", u"\xD83D\xDE00", true},
      {"surrogate in a range", u"*[\xD800-\xDFFF]", u"x\xDE00", true},
      {"digit", u"#", u"7", true},
      {"digit of another script", u"#", u"\x0667", false},
      {"empty list is nothing", u"a[]b", u"ab", true},
      {"empty list ends at once", u"[]x]", u"x]", true},
      {"lone mark is itself", u"[!]", u"!", true},
      {"lone mark isn't any", u"[!]", u"a", false},
      {"special characters in a list", u"[*][?][#][[]", u"*?#[", true},
      {"closing bracket outside", u"a]", u"a]", true},
      {"minus first", u"[-a]", u"-", true},
      {"minus last", u"[a-]", u"-", true},
      {"minus behind the mark", u"[!-a]", u"-", false},
      {"minus behind a range", u"[a-c-e]", u"-", true},
      {"minus behind a range is no range", u"[a-c-e]", u"d", false},
      {"minus ends a range", u"[+--]", u",", true},
      {"range to the last unit", u"[!\x0001-\xFFFF]", Text(1, u'\0'), true},
      {"list that refuses all", Text(u"*[!\0-\xFFFF]*", 8), u"abc", false},
      {"equal ends", u"[K-K]", u"K", true},
      {"stars on a long text", u"*a*a*a*a*a*a*a*a*b", sLong, false},
      {"long run on a long text", u"*" + Repeat(u"a", 5'000) + u"b*", sLong, false},
      {"long run at the end", u"*" + Repeat(u"?", 5'000) + u"b*", sLong + u"b", true},
      {"long run of lists", u"*" + sOthers + u"b*c", sLong + u"bc", true},
  };
  for (const Row& oRow : Rows) {
    SCOPED_TRACE(oRow.sName);
    EXPECT_TRUE(LikePattern(oRow.sPattern).IsValid());
    EXPECT_EQ(LikePattern(oRow.sPattern).Matches(oRow.sText), oRow.bMatches);
  }
}

TEST(LikePattern, RefusesABadListWhereverItStands) {
  for (TextView sPattern : {u"[", u"a[", u"[a-b", u"[!", u"b*[", u"[9-1]", u"[z-a]", u"[a--z]",
                            u"x*[!c-a]", u"[a][", u"[ab-a]*"}) {
    SCOPED_TRACE(ToUtf8(sPattern));
    const LikePattern oPattern(sPattern);
    EXPECT_FALSE(oPattern.IsValid());
    for (TextView sText : {u"", u"[", u"a", u"a[", u"ba", u"!"}) {
      EXPECT_FALSE(oPattern.Matches(sText));
    }
  }
}

class Generator {
 public:
  std::size_t Below(std::size_t lEnd) { return moEngine() % lEnd; }
  Text Units(TextView sAlphabet, std::size_t lCount) {
    Text sText;
    while (lCount-- > 0) sText += sAlphabet[Below(sAlphabet.size())];
    return sText;
  }
  /// A piece of the text with some units made wild, or now and then wrong.
  Text Run(TextView sText) {
    static constexpr TextView asWild[] = {u"?", u"[ab]", u"[!b]", u"[a-\x0416]", u"a"};
    Text sRun;
    for (const char16_t cUnit : sText.substr(Below(sText.size()), 1 + Below(150))) {
      const std::size_t lWild = Below(40);
      sRun.append(lWild < 5 ? asWild[lWild] : TextView(&cUnit, 1));
    }
    return sRun;
  }

 private:
  std::mt19937 moEngine{20};
};

void ExpectAsSlow(const Text& sPattern, const Text& sText, int& lHits) {
  const LikePattern oPattern(sPattern);
  const bool bValid = SlowValid(sPattern), bMatches = bValid && SlowMatch(sPattern, sText);
  lHits += bMatches;
  ASSERT_EQ(oPattern.IsValid(), bValid) << ToUtf8(sPattern);
  ASSERT_EQ(oPattern.Matches(sText), bMatches) << ToUtf8(sPattern) << " on " << ToUtf8(sText);
}

TEST(LikePattern, AgreesWithTheSlowMatcher) {
  Generator oMade;
  int lShortHits = 0, lLongHits = 0;
  for (int i = 0; i < 60'000; ++i) {
    const Text sPattern = oMade.Units(u"ab**?#[]!-1", oMade.Below(10));
    ASSERT_NO_FATAL_FAILURE(
        ExpectAsSlow(sPattern, oMade.Units(u"ab1-!]", oMade.Below(8)), lShortHits));
  }
  for (int i = 0; i < 3'000; ++i) {
    const Text sText = oMade.Units(i % 2 ? u"ab" : u"ab\x0416", 200 + oMade.Below(200));
    const Text sTail = i % 3 ? Text(u"*") : Text(u"*") + oMade.Run(sText) + u"*";
    ASSERT_NO_FATAL_FAILURE(ExpectAsSlow(u"*" + oMade.Run(sText) + sTail, sText, lLongHits));
  }
  EXPECT_GT(lShortHits, 1'000);
  EXPECT_GT(lLongHits, 300);
}

}  // namespace
