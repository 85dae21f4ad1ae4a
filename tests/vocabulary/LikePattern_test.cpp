#include "LikePattern.h"

#include <random>

#include "MXString.h"
#include "TextRows.h"

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

TEST(LikePattern, MatchesByTheRulesOfTheLanguage) {
  // Pattern, caret and text.
  ExpectRows(
      u"^~y; *^~y; []x]^x]~y; #^7~y; a]^a]~y; a[]b^ab~y; ??^\xD83D\xDE00~y; [!]^!~y; "
      u"[-a]^-~y; [a-]^-~y; [K-K]^K~y; [+--]^,~y; [a-c-e]^-~y; "
      u"*[\xD800-\xDFFF]^x\xDE00~y; *a?*^ba\n~y; [*][?][#][[]^*?#[~y; [!b-\xFFFF]^a~y; "
      u"'<q: *>^'<q: a>~y; ^a~n; A*^abc~n; #^\x0667~n; [!]^a~n; [!-a]^-~n; "
      u"[a-c-e]^d~n; aba*aba^aba~n; '<q: *>^'<q: a~n; *[!\x0001-\xFFFF]*^abc~n; ?^~n; "
      u"ab*^aab~n; [^[~bad; a[^a~bad; [a-b^a~bad; [!^!~bad; b*[^a~bad; [9-1]^9~bad; "
      u"[z-a]^a~bad; [a--z]^a~bad; x*[!c-a]^x~bad; [a][^a[~bad; [ab-a]*^a~bad",
      [](TextView s) {
        const LikePattern oPattern(MXString::StringBefore(s, u"^"));
        const bool bMatches = oPattern.Matches(MXString::StringAfter(s, u"^"));
        return Text(bMatches ? u"y" : oPattern.IsValid() ? u"n" : u"bad");
      });
}

TEST(LikePattern, NeverGoesBackFar) {
  const Text sLong(100'000, u'a'), sRun(5'000, u'a'), sWild(5'000, u'?');
  EXPECT_FALSE(LikePattern(u"*a*a*a*a*a*a*a*a*b").Matches(sLong));
  EXPECT_FALSE(LikePattern(u"*" + sRun + u"b*").Matches(sLong));
  EXPECT_TRUE(LikePattern(u"*" + sWild + u"b*").Matches(sLong + u"b"));
}

std::size_t Below(std::size_t lEnd) {
  static std::mt19937 oEngine{20};
  return oEngine() % lEnd;
}

Text Units(TextView sAlphabet, std::size_t lCount) {
  Text sText;
  while (lCount-- > 0) sText += sAlphabet[Below(sAlphabet.size())];
  return sText;
}

// A long piece of the text with some units made wild, or now and then wrong.
Text WildPiece(TextView sText) {
  static constexpr TextView asWild[] = {u"?", u"[ab]", u"[!b]", u"[a-\x0416]", u"a"};
  Text sPiece;
  for (const char16_t cUnit : sText.substr(Below(sText.size()), 1 + Below(150))) {
    const std::size_t lWild = Below(40);
    sPiece.append(lWild < 5 ? asWild[lWild] : TextView(&cUnit, 1));
  }
  return sPiece + u"*";
}

TEST(LikePattern, AgreesWithTheSlowMatcher) {
  int lHits[2] = {0, 0};
  for (int i = 0; i < 63'000; ++i) {
    const bool bLong = i % 21 == 0;
    const Text sText = bLong ? Units(i % 2 ? u"ab" : u"ab\x0416", 300) : Units(u"ab1-!]", Below(8));
    Text sPattern = bLong ? u"*" + WildPiece(sText) : Units(u"ab**?#[]!-1", Below(10));
    if (bLong && i % 5 == 0) sPattern += WildPiece(sText);
    const LikePattern oPattern(sPattern);
    const bool bValid = SlowValid(sPattern), bMatches = bValid && SlowMatch(sPattern, sText);
    lHits[bLong] += bMatches;
    ASSERT_EQ(oPattern.IsValid(), bValid) << ToUtf8(sPattern);
    ASSERT_EQ(oPattern.Matches(sText), bMatches) << ToUtf8(sPattern) << " on " << ToUtf8(sText);
  }
  EXPECT_TRUE(lHits[0] > 1'000 && lHits[1] > 300) << "too few patterns that match";
}

}  // namespace
