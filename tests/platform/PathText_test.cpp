// Paths as they are shown: any bytes, and back.
#include "PathText.h"

#include <gtest/gtest.h>

#include <array>

#include "TempFolder.h"
#include "Utf8.h"

namespace {

const std::array<std::string, 3> Rows[] = {
    {"UTF-8", "/caf\xC3\xA9/\xF0\x9F\x98\x80.bas", "/caf\xC3\xA9/\xF0\x9F\x98\x80.bas"},
    {"other bytes", "/caf\xC3\xA9\xE9/\xFF.bas", "/caf\xC3\xA9\\xE9/\\xFF.bas"},
    {"a sequence that ends early", "\xE2\x82", "\\xE2\\x82"},
    {"a surrogate, an overlong form", "\xED\xA0\x80\xC0\xAF", "\\xED\\xA0\\x80\\xC0\\xAF"},
    {"a backslash that looks like a form", "a\\xE9\\x5C", "a\\x5CxE9\\x5Cx5C"},
    {"backslashes that don't", "a\\x41\\xe9\\x5c\\x\\", "a\\x41\\xe9\\x5c\\x\\"},
    {"control characters", "a\n\x1B\x7F\\x0A", "a\\x0A\\x1B\\x7F\\x5Cx0A"},
    {"a backslash ahead of a byte", "\\\xFF\\x8\xFF", "\\\\xFF\\x8\\xFF"},
};

TEST(PathText, HasOneFormThatLeadsBackToTheBytes) {
  for (const auto& [name, path, shown] : Rows) {
    SCOPED_TRACE(name);
    EXPECT_EQ(ShownPath(path), shown);
    EXPECT_EQ(PathOfShown(shown), path);
    EXPECT_EQ(ToUtf8(TextOfPath(path)), shown);
    EXPECT_EQ(PathOfText(TextOfPath(path)), path);
  }
  EXPECT_EQ(PathOfText(u"a\xDCFF\xD800"), "a\xEF\xBF\xBD\xEF\xBF\xBD") << "finds no file";
  EXPECT_EQ(PathOfText(u"a\xDCFF"), "a\xFF") << "as code pages carry a byte";
}

TEST(PathText, AnyBytesComeBackWellFormed) {
  const std::string pieces[] = {"\\", "x", "5", "C", "E", "9", "\xC3", "\xA9", "\xFF", "/"};
  for (std::size_t n = 0; n < 1'000'000; n += 97) {
    std::string path;
    for (std::size_t rest = n; rest > 0; rest /= 10) path += pieces[rest % 10];
    ASSERT_EQ(PathOfShown(ShownPath(path)), path);
    ASSERT_TRUE(Utf8::IsWellFormed(ShownPath(path)));
  }
}

TEST(PathText, AnArgumentIsAFileAsItStandsElseAForm) {
  const TempFolder folder;
  TempFolder::Write(folder / "a\\xFF", "");
  EXPECT_EQ(PathOfArgument(folder / "a\\xFF"), folder / "a\\xFF");
  EXPECT_EQ(PathOfArgument(folder / "b\\xFF"), folder / "b\xFF");
}

}  // namespace
