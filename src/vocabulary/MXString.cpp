#include "MXString.h"

#include "Failure.h"
#include "LikePattern.h"

namespace {

constexpr std::size_t npos = TextView::npos;
constexpr std::size_t MaxTokens = 32767;

// The language's own search: nothing is found behind the end of a text, not even the empty part.
std::size_t FindFrom(TextView sText, TextView sPart, std::size_t lStart) {
  return lStart >= sText.size() ? npos : sText.find(sPart, lStart);
}

std::int32_t Position(std::size_t lIndex) {
  return lIndex == npos ? 0 : static_cast<std::int32_t>(lIndex) + 1;
}

Text After(TextView sText, TextView sMark, std::int32_t lPosition) {
  if (lPosition == 0) return {};
  return Text(sText.substr(static_cast<std::size_t>(lPosition) - 1 + sMark.size()));
}

void AddToken(TextArray& asToken, TextView sToken) {
  if (asToken.size() > MaxTokens) throw Failure(6);
  asToken.emplace_back(sToken);
}

// Four units in one word, the first one lowest; all arithmetic below stays within its 16 bits
// because each unit is ASCII.
constexpr std::uint64_t Each = 0x0001'0001'0001'0001;
constexpr std::uint64_t TopBits = 0x80 * Each;

std::uint64_t Load4(const char16_t* p) {
  return p[0] | std::uint64_t{p[1]} << 16 | std::uint64_t{p[2]} << 32 | std::uint64_t{p[3]} << 48;
}

void Store4(std::uint64_t lUnits, char16_t* p) {
  for (int i = 0; i < 4; ++i) p[i] = static_cast<char16_t>(lUnits >> (16 * i));
}

std::uint64_t LowerCase4(std::uint64_t lUnits) {
  const std::uint64_t lFromA = lUnits + (0x80 - u'A') * Each,
                      lBehindZ = lUnits + (0x7F - u'Z') * Each;
  return lUnits | ((lFromA & ~lBehindZ & TopBits) >> 2);
}

// The top bit of each unit that is a blank.
std::uint64_t Blanks4(std::uint64_t lUnits) {
  return (((lUnits ^ (u' ' * Each)) + 0x7F * Each) & TopBits) ^ TopBits;
}

// Copies with each run of blanks made one. Nearly all source is ASCII without doubled blanks
// behind its indentation, so four such units at once are the common case. The buffer is only ever
// grown: folding a file line by line allocates for its longest line alone.
template <bool bLower>
void Collapse(TextView sText, Text& sResult) {
  sText = Trim(sText);
  sResult.assign(sText);
  const char16_t* pFrom = sText.data();
  const char16_t* const pFromEnd = pFrom + sText.size();
  char16_t* pTo = sResult.data();
  std::uint64_t lAfterBlank = 0;
  while (pFrom != pFromEnd) {
    if (pFromEnd - pFrom >= 4) {
      const std::uint64_t lUnits = Load4(pFrom), lBlanks = Blanks4(lUnits);
      if (!(lUnits & ~(0x7F * Each)) && !(lBlanks & (lBlanks << 16 | lAfterBlank))) {
        Store4(bLower ? LowerCase4(lUnits) : lUnits, pTo);
        lAfterBlank = lBlanks >> 48;
        pFrom += 4;
        pTo += 4;
        continue;
      }
    }
    const bool bBlank = *pFrom == u' ';
    *pTo = bLower ? LowerCase(*pFrom) : *pFrom;
    pTo += !(bBlank && lAfterBlank);
    lAfterBlank = bBlank ? 0x80 : 0;
    ++pFrom;
  }
  sResult.resize(static_cast<std::size_t>(pTo - sResult.data()));
}

// sSet is the inside of a character list.
bool AllIn(TextView sText, TextView sSet, TextView sExtra) {
  const LikePattern oOther(Text(u"*[!").append(sSet).append(sExtra).append(u"]*"));
  return oOther.IsValid() && !oOther.Matches(sText);
}

// Paths of this system and of the one whose projects they name: where a backslash stands, a slash
// is a character of a name.
TextView SeparatorOf(TextView sPath) {
  return sPath.find(u'\\') != npos ? u"\\" : u"/";
}

Text CutMiddle(TextView sPath, const MXString::TextWidth& oOutput, double dWidth) {
  const TextView sSeparator = SeparatorOf(sPath);
  const Text sRoot = MXString::StringBefore(sPath, sSeparator);
  const Text sFile = MXString::StringAfterLast(sPath, sSeparator);
  const Text sStart = Text(sRoot).append(sSeparator).append(u"...");
  Text sResult(sPath);
  for (std::size_t lSlash = sRoot.size(); oOutput(sResult) > dWidth;) {
    lSlash = sPath.find(sSeparator, lSlash + 1);
    if (lSlash == npos) {
      sResult = Text(sStart).append(sSeparator).append(sFile);
      break;
    }
    sResult = Text(sStart).append(sPath.substr(lSlash));
  }
  return oOutput(sResult) > dWidth ? sFile : sResult;
}

Text CutRoot(TextView sPath, const MXString::TextWidth& oOutput) {
  const TextView sSeparator = SeparatorOf(sPath);
  const Text sFile = MXString::StringAfterLast(sPath, sSeparator);
  const Text sResult = Text(u"...").append(sSeparator).append(sFile);
  return oOutput(sResult) > oOutput(sPath) ? sFile : sResult;
}

}  // namespace

namespace MXString {

Text StringAfter(TextView sText, TextView sMark) {
  return After(sText, sMark, StringFind(sText, sMark, 1));
}

Text StringAfterLast(TextView sText, TextView sMark) {
  return After(sText, sMark, StringFindLast(sText, sMark));
}

Text StringBefore(TextView sText, TextView sMark) {
  const std::size_t lIndex = FindFrom(sText, sMark, 0);
  return lIndex == npos ? Text() : Text(sText.substr(0, lIndex));
}

bool StringStarts(TextView sText, TextView sPrefix) {
  return sText.starts_with(sPrefix);
}

bool StringEnds(TextView sText, TextView sSuffix) {
  return sText.ends_with(sSuffix);
}

bool StringContains(TextView sText, TextView sPart) {
  return FindFrom(sText, sPart, 0) != npos;
}

std::int32_t StringFind(TextView sText, TextView sPart, std::int16_t nOccurrence) {
  std::size_t lIndex = FindFrom(sText, sPart, 0);
  for (; lIndex != npos && nOccurrence > 1; --nOccurrence) {
    lIndex = FindFrom(sText, sPart, lIndex + 1);
  }
  return Position(lIndex);
}

std::int32_t StringFindLast(TextView sText, TextView sPart) {
  if (sPart.empty()) return static_cast<std::int32_t>(sText.size());
  return Position(sText.rfind(sPart));
}

std::int32_t StringCount(TextView sText, TextView sPart) {
  std::int32_t lCount = 0;
  for (std::size_t i = FindFrom(sText, sPart, 0); i != npos; i = FindFrom(sText, sPart, i + 1)) {
    ++lCount;
  }
  return lCount;
}

Text StringReplace(TextView sText, TextView sPart, TextView sReplacement) {
  if (sPart.empty()) return Text(sText);
  Text sResult;
  std::size_t lStart = 0;
  for (std::size_t i; (i = FindText(sText, sPart, lStart)) != npos; lStart = i + sPart.size()) {
    sResult.append(sText.substr(lStart, i - lStart)).append(sReplacement);
  }
  return sResult.append(sText.substr(lStart));
}

void StringTokenize(TextView sText, TextArray& asToken, TextView sSeparator, bool bTrim) {
  TextArray asResult(1);
  while (!sText.empty()) {
    const std::size_t lEnd = sSeparator.empty() ? npos : sText.find(sSeparator);
    const TextView sToken = sText.substr(0, lEnd);
    AddToken(asResult, bTrim ? Trim(sToken) : sToken);
    sText.remove_prefix(lEnd == npos ? sText.size() : lEnd + sSeparator.size());
  }
  asToken = std::move(asResult);
}

void StringTokenize2(TextView sText, TextArray& asToken, TextView sSeparators) {
  TextArray asResult(1);
  for (bool bMore = !sText.empty(); bMore;) {
    const std::size_t lEnd = sText.find_first_of(sSeparators);
    AddToken(asResult, sText.substr(0, lEnd));
    bMore = lEnd != npos;
    sText.remove_prefix(bMore ? lEnd + 1 : 0);
  }
  asToken = std::move(asResult);
}

Text FullTrim(TextView sText) {
  Text sResult;
  Collapse<false>(sText, sResult);
  return sResult;
}

void FoldLine(TextView sText, Text& sFolded) {
  Collapse<true>(sText, sFolded);
}

bool IsAlphaNumeric(TextView sText, TextView sExtra) {
  return AllIn(sText, u"0-9a-zA-Z", sExtra);
}

bool IsDigits(TextView sText, TextView sExtra) {
  // Asked for the first word of nearly every line of source, without extra characters.
  if (sExtra.empty()) return sText.find_first_not_of(u"0123456789") == npos;
  return AllIn(sText, u"0-9", sExtra);
}

std::int32_t LeadingSpaceCount(TextView sText) {
  return static_cast<std::int32_t>(sText.size() - LeftTrim(sText).size());
}

Text TrimToFit(TextView sText, const TextWidth& oOutput, double dWidth) {
  static constexpr TextView sMark = u"...";
  if (oOutput(sText) <= dWidth) return Text(sText);
  if (oOutput(sMark) > dWidth) return {};
  Text sResult;
  do {
    if (sText.empty()) return Text(sMark);
    sText.remove_suffix(1);
    sResult.assign(sText).append(sMark);
  } while (oOutput(sResult) > dWidth);
  return sResult;
}

Text TrimPathToFit(TextView sPath, const TextWidth& oOutput, double dWidth, bool bAllowCut) {
  if (oOutput(sPath) <= dWidth) return Text(sPath);
  const std::int32_t lFolders = StringCount(sPath, SeparatorOf(sPath));
  if (lFolders == 0) return {};
  const Text sResult = lFolders == 1 ? CutRoot(sPath, oOutput) : CutMiddle(sPath, oOutput, dWidth);
  return bAllowCut ? TrimToFit(sResult, oOutput, dWidth) : sResult;
}

}  // namespace MXString
