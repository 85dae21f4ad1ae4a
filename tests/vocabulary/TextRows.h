// Tables of texts: a row is an input, a tilde and the result that it must give; rows stand in one
// literal with "; " between them. A backtick stands for the double quote in both.
#pragma once

#include <gtest/gtest.h>

#include <functional>

#include "MXString.h"

/// The results of an array, each behind a bar; element 0, which must be empty, ahead of them.
inline Text Bars(const TextArray& asPart) {
  Text sResult = asPart.at(0);
  for (std::size_t i = 1; i < asPart.size(); ++i) sResult += u'|' + asPart[i];
  return sResult;
}

inline void ExpectRows(TextView sRows, const std::function<Text(TextView)>& oCall) {
  TextArray asRow;
  MXString::StringTokenize(MXString::StringReplace(sRows, u"`", u"\""), asRow, u"; ", false);
  for (std::size_t i = 1; i < asRow.size(); ++i) {
    const Text sInput = MXString::StringBefore(asRow[i], u"~");
    EXPECT_EQ(ToUtf8(sInput + u'~' + oCall(sInput)), ToUtf8(asRow[i]));
  }
}
