#include "VisibleText.h"

#include <gtest/gtest.h>

#include <array>

namespace {

using namespace std::string_literals;

TEST(VisibleText, ShowsWhatWouldMoveColourOrTurnAround) {
  const std::array<std::string, 3> rows[] = {
      {"plain, letters of any length", "a\tb \xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80", ""},
      {"C0 and DEL", "a\x1B[2Jb\0\x7F"s, "a<U+001B>[2Jb<U+0000><U+007F>"},
      {"C1, and what stands beside it", "\xC2\x80\xC2\x9F\xC2\xA0", "<U+0080><U+009F>\xC2\xA0"},
      {"a mark alone", "\xD8\x9C\xD8\x9D", "<U+061C>\xD8\x9D"},
      {"marks", "\xE2\x80\x8E\xE2\x80\x8F|\xE2\x80\x8D\xE2\x80\x90",
       "<U+200E><U+200F>|\xE2\x80\x8D\xE2\x80\x90"},
      {"embeddings", "\xE2\x80\xAA\xE2\x80\xAE\xE2\x80\xAF", "<U+202A><U+202E>\xE2\x80\xAF"},
      {"isolates", "\xE2\x81\xA5\xE2\x81\xA6\xE2\x81\xA9\xE2\x81\xAA",
       "\xE2\x81\xA5<U+2066><U+2069>\xE2\x81\xAA"},
      {"sequences that end early", "\xC2", ""},
      {"and longer ones", "\xE2\x80", ""},
  };
  for (const auto& [name, text, visible] : rows) {
    SCOPED_TRACE(name);
    EXPECT_EQ(VisibleText(text), visible.empty() ? text : visible);
    EXPECT_EQ(VisibleLines(text), VisibleText(text));
  }
  EXPECT_EQ(VisibleText("a\r\nb\n"), "a<U+000D><U+000A>b<U+000A>");
  EXPECT_EQ(VisibleLines("a\r\nb\n\rc\r"), "a\r\nb\n<U+000D>c<U+000D>");
}

}  // namespace
