// Pattern and text, parted by the first line end. Empty lists around a pattern change nothing, a
// literal in front of both changes nothing, and between stars it finds whatever it matches whole.
#include <cstdlib>

#include "LikePattern.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t lSize) {
  const Text sAll = FromUtf8({reinterpret_cast<const char*>(pBytes), lSize});
  const std::size_t lEnd = sAll.find(u'\n');
  if (lEnd == Text::npos) return 0;
  const Text sPattern = sAll.substr(0, lEnd), sText = sAll.substr(lEnd + 1);
  const LikePattern oPattern(sPattern), oCopy = oPattern;
  const bool bMatches = oPattern.Matches(sText);
  if (bMatches && !oPattern.IsValid()) std::abort();
  if (bMatches != oCopy.Matches(sText)) std::abort();
  if (bMatches != LikePattern(u"[]" + sPattern).Matches(sText)) std::abort();
  if (bMatches && !LikePattern(sPattern + u"[]").Matches(sText)) std::abort();
  if (bMatches && !LikePattern(u"*" + sPattern + u"*").Matches(u"a" + sText + u"z")) std::abort();
  if (LikePattern(u"x" + sPattern).Matches(u"x" + sText) != bMatches) std::abort();
  return 0;
}
