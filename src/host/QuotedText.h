// Texts in double quotes, as attribute values have them: a quote inside is doubled.
#pragma once

#include "Text.h"

inline Text Quoted(TextView sText) {
  Text sValue = u"\"";
  for (const char16_t c : sText) sValue.append(c == u'"' ? 2 : 1, c);
  return sValue + u'"';
}

/// What isn't in quotes comes back as it is.
inline Text Unquoted(TextView sValue) {
  if (sValue.size() < 2 || sValue.front() != u'"' || sValue.back() != u'"') return Text(sValue);
  const TextView sInner = sValue.substr(1, sValue.size() - 2);
  Text sText;
  for (std::size_t l = 0; l < sInner.size(); ++l) {
    sText += sInner[l];
    if (sInner.substr(l, 2) == u"\"\"") ++l;
  }
  return sText;
}
