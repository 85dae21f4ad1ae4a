// Texts are taken apart a block of units at a time; here they are taken apart the plain way.
#include "ProcText.h"

#include <gtest/gtest.h>

#include <random>

#include "MXString.h"

namespace {

void ExpectPlainReading(TextView text) {
  SCOPED_TRACE(ToUtf8(text));
  const ProcText code(text);
  std::size_t line = 0;
  for (TextView rest = text; line < code.Count(); ++line) {
    const std::size_t end = rest.find(CrLf);
    const TextView expected = rest.substr(0, end);
    Text folded;
    MXString::FoldLine(expected, folded);
    EXPECT_EQ(code.Line(line), expected);
    EXPECT_EQ(code.Folded(line), folded);
    EXPECT_EQ(code.MayHoldMore(line), expected.find_first_of(u":'") != TextView::npos);
    if (end == TextView::npos) break;
    rest.remove_prefix(end + CrLf.size());
  }
  EXPECT_EQ(line + 1, code.Count());
  EXPECT_EQ(code.MayHoldDirective(), text.find(u'#') != TextView::npos);
  EXPECT_EQ(code.Joined(), text);
}

// Long enough for signs of each kind at each place of a block, and across its border.
TEST(ProcTextTest, IsThePlainReadingOfAnyText) {
  constexpr TextView Units = u"     Aab:'#\t\r\n\n\u00C9\u0393\uFF3A";
  std::mt19937 random(7);
  for (std::size_t n = 0; n < 20000; ++n) {
    Text text(1 + n % 70, u'x');
    for (char16_t& unit : text) unit = Units[random() % Units.size()];
    for (std::size_t l = 1; l < text.size(); ++l) {
      if (text[l] == u'\n' && random() % 4 > 0) text[l - 1] = u'\r';
    }
    ExpectPlainReading(text);
    if (HasFailure()) break;
  }
}

}  // namespace
