#include "FormsTypes.h"

#include <algorithm>

#include "TextOrder.h"

namespace Forms {

char16_t AccessKey(TextView sCaption) {
  for (std::size_t i = 0; i + 1 < sCaption.size(); ++i) {
    if (sCaption[i] != u'&') continue;
    if (sCaption[++i] != u'&') return LowerCase(sCaption[i]);
  }
  return 0;
}

Text PlainCaption(TextView sCaption) {
  Text sPlain;
  for (std::size_t i = 0; i < sCaption.size(); ++i) {
    if (sCaption[i] == u'&' && ++i == sCaption.size()) break;
    sPlain += sCaption[i];
  }
  return sPlain;
}

bool LessNoCase(TextView sLeft, TextView sRight) {
  return std::lexicographical_compare(
      sLeft.begin(), sLeft.end(), sRight.begin(), sRight.end(),
      [](char16_t cLeft, char16_t cRight) { return LowerCase(cLeft) < LowerCase(cRight); });
}

std::int32_t MovedIndex(std::int32_t nKeyCode, std::int32_t lCurrent, std::int32_t lFirst,
                        std::int32_t lLast, bool bSideways) {
  std::int32_t lMoved = lCurrent;
  if (nKeyCode == (bSideways ? Key::Left : Key::Up)) {
    --lMoved;
  } else if (nKeyCode == (bSideways ? Key::Right : Key::Down)) {
    ++lMoved;
  } else if (nKeyCode == Key::Home) {
    lMoved = lFirst;
  } else if (nKeyCode == Key::End) {
    lMoved = lLast;
  }
  if (lMoved == lCurrent || lLast < lFirst) return lCurrent;
  return std::clamp(lMoved, lFirst, lLast);
}

}  // namespace Forms
