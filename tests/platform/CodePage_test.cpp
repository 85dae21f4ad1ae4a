#include "CodePage.h"

#include <gtest/gtest.h>

#include <random>
#include <tuple>

#include "Failure.h"

namespace {

constexpr const char* asPage[] = {"1252", "utf-8", "874",  "932",  "936",  "949",  "950", "1250",
                                  "1251", "1253",  "1254", "1255", "1256", "1257", "1258"};

std::string BackAgain(const CodePage& oPage, const std::string& sBytes) {
  std::string sBack = "kept ";
  std::size_t lBadUnit = 0;
  const bool bDone = oPage.Encode(oPage.Decode(sBytes), sBack, lBadUnit);
  return bDone ? sBack.substr(5) : "bad unit " + std::to_string(lBadUnit);
}

TEST(CodePage, EveryByteAndEveryPairOfBytesComesBack) {
  for (const char* pcPage : asPage) {
    SCOPED_TRACE(pcPage);
    const CodePage& oPage = CodePage::Get(pcPage);
    for (int lFirst = 0; lFirst < 256; ++lFirst) {
      std::string sAll(1, static_cast<char>(lFirst));
      ASSERT_EQ(BackAgain(oPage, sAll), sAll);
      for (int lSecond = 0; lSecond < 256; ++lSecond) {
        sAll += {'"', static_cast<char>(lFirst), static_cast<char>(lSecond)};
      }
      ASSERT_EQ(BackAgain(oPage, sAll), sAll) << lFirst;
    }
  }
}

TEST(CodePage, RandomByteStringsComeBackWhateverTheirLength) {
  std::mt19937 oRandom(20);
  for (const char* pcPage : asPage) {
    SCOPED_TRACE(pcPage);
    const CodePage& oPage = CodePage::Get(pcPage);
    for (std::size_t lLength = 0; lLength < 400; ++lLength) {
      std::string sBytes;
      // Long runs of ASCII between few others reach the borders of the fast road.
      const unsigned lRare = lLength % 3 == 0 ? 1 : 30;
      while (sBytes.size() < lLength) {
        const unsigned lByte = static_cast<unsigned>(oRandom() & 0xFF);
        sBytes += static_cast<char>(oRandom() % lRare == 0 ? lByte : lByte & 0x7F);
      }
      ASSERT_EQ(BackAgain(oPage, sBytes), sBytes);
    }
  }
}

TEST(CodePage, DecodesAsTheMachineOfThatPageWould) {
  const std::tuple<const char*, std::string, Text> aoRow[] = {
      {"windows-1252", "\x80 caf\xE9 \x81\x9F", u"\u20AC caf\u00E9 \u0081\u0178"},
      {"UTF8", "\xC3\xA9\xF0\x9F\x98\x80", u"\u00E9\U0001F600"},
      {"utf-8", "\xC3(\xED\xA0\x80\xC0\x80", u"\xDCC3(\xDCED\xDCA0\xDC80\xDCC0\xDC80"},
      {"utf-8", "\xF4\x90\x80\x80\xE2\x82", u"\xDCF4\xDC90\xDC80\xDC80\xDCE2\xDC82"},
      {"cp932", "\x83\x5C\x95\x5C\xB1", u"\u30BD\u8868\uFF71"},
      {"936", "\xC4\xE3\xBA\xC3", u"\u4F60\u597D"},
      {"949", "\xB0\xA1\x8C\x63", u"\uAC00\uB620"},
      {"950", "\xA4\xA4\xA5\x5C", u"\u4E2D\u529F"},
      {"1251", "\xCF\xF0\x98", u"\u041F\u0440\xDC98"},
      {"874", "\xA1", u"\u0E01"},
      // A lead byte ahead of what can't be its trail stands alone, so that quotes are still seen.
      {"932", "\x83\"\x83", u"\xDC83\"\xDC83"},
      // An unassigned character is carried whole: its trail byte is no letter of the source.
      {"950", "\xFE\x41!", u"\xDCFE\xDC41!"},
  };
  for (const auto& [pcPage, sBytes, sText] : aoRow)
    EXPECT_EQ(CodePage::Get(pcPage).Decode(sBytes), sText) << pcPage << ' ' << sBytes;
}

TEST(CodePage, TextThatAPageLacksIsRefusedAtItsUnitAndLeavesNothing) {
  const std::tuple<std::string, Text, std::size_t> aoRow[] = {
      {"1252", Text(40, u'a') + u"\u0416b", 40},
      {"1252", u"\x80", 0},
      {"1252", u"\xDC41", 0},
      {"1251", u"\u0416\u00E9", 1},
      {"932", u"\u30BD\uAC00", 1},
      {"950", u"a\U0001F600", 1},
      {"utf-8", u"\u00E9\xD83D", 1},
      {"utf-8", u"a\xD83D!", 1},
      {"utf-8", u"ab\xDC41", 2},
      {"utf-8", u"ab\xDFFF", 2},
  };
  for (const auto& [sPage, sText, lWanted] : aoRow) {
    SCOPED_TRACE(sPage + ' ' + ToUtf8(sText));
    std::string sBytes = "before";
    std::size_t lBadUnit = 99;
    EXPECT_FALSE(CodePage::Get(sPage).Encode(sText, sBytes, lBadUnit));
    EXPECT_EQ(lBadUnit, lWanted);
    EXPECT_EQ(sBytes, "before");
  }
}

TEST(CodePage, DetectsUtf8ByItsMarkOrBySoundSequences) {
  const CodePage& oAnsi = CodePage::Get("932");
  const auto name = [&](std::string_view s) { return CodePage::Detect(s, oAnsi).Name(); };
  const std::string sAscii(100, 'x');
  EXPECT_EQ(name(""), "932");
  EXPECT_EQ(name(sAscii), "932");
  EXPECT_EQ(name("\xEF\xBB\xBF" + sAscii), "utf-8");
  EXPECT_EQ(name(sAscii + "\xC3\xA9" + sAscii), "utf-8");
  EXPECT_EQ(name(sAscii + "\xC3\xA9" + sAscii + "\xE9"), "932");
  EXPECT_EQ(name("\xC3"), "932");
}

TEST(CodePage, UnknownNamesAreRefusedByName) {
  for (const char* pcName : {"", "latin-9", "1259", "cp", "12520000000000", "windows-"}) {
    try {
      CodePage::Get(pcName);
      ADD_FAILURE() << pcName;
    } catch (const Failure& oFailure) {
      EXPECT_EQ(std::string(oFailure.what()).find("The code page \"" + std::string(pcName) + '"'),
                0u);
    }
  }
  EXPECT_EQ(&CodePage::Get("CP1252"), &CodePage::Get("1252"));
}

}  // namespace
