// Single-byte and double-byte ANSI pages by tables that are asked of the C library once, byte by
// byte and pair by pair. What doesn't come back as the same bytes is carried as lone low
// surrogates, so every page is lossless whatever the library's table says.
#include <iconv.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <vector>

#include "AsciiBlocks.h"
#include "CodePageKinds.h"
#include "Failure.h"

namespace {

struct Range {
  unsigned char cFirst, cLast;
  bool Holds(unsigned char cByte) const { return cByte >= cFirst && cByte <= cLast; }
};

/// Lead and trail bytes as Windows splits characters, with the ranges for user-defined characters.
/// An empty range has its first above its last.
struct PageRow {
  const char* pcTable;
  int lNumber;
  Range aoLead[2];
  Range aoTrail[3];
};

constexpr Range oNone = {1, 0};
constexpr PageRow aoPage[] = {
    {"WINDOWS-874", 874, {oNone, oNone}, {oNone, oNone, oNone}},
    {"CP932", 932, {{0x81, 0x9F}, {0xE0, 0xFC}}, {{0x40, 0x7E}, {0x80, 0xFC}, oNone}},
    {"CP936", 936, {{0x81, 0xFE}, oNone}, {{0x40, 0x7E}, {0x80, 0xFE}, oNone}},
    {"CP949", 949, {{0x81, 0xFE}, oNone}, {{0x41, 0x5A}, {0x61, 0x7A}, {0x81, 0xFE}}},
    {"CP950", 950, {{0x81, 0xFE}, oNone}, {{0x40, 0x7E}, {0x80, 0xFE}, oNone}},
    {"CP1250", 1250, {oNone, oNone}, {oNone, oNone, oNone}},
    {"CP1251", 1251, {oNone, oNone}, {oNone, oNone, oNone}},
    {"CP1253", 1253, {oNone, oNone}, {oNone, oNone, oNone}},
    {"CP1254", 1254, {oNone, oNone}, {oNone, oNone, oNone}},
    {"CP1255", 1255, {oNone, oNone}, {oNone, oNone, oNone}},
    {"CP1256", 1256, {oNone, oNone}, {oNone, oNone, oNone}},
    {"CP1257", 1257, {oNone, oNone}, {oNone, oNone, oNone}},
    {"CP1258", 1258, {oNone, oNone}, {oNone, oNone, oNone}},
};

template <class Ranges>
bool AnyHolds(const Ranges& aoRange, unsigned char cByte) {
  return std::any_of(std::begin(aoRange), std::end(aoRange),
                     [&](const Range& oRange) { return oRange.Holds(cByte); });
}

class Converter {
 public:
  Converter(const char* pcTo, const char* pcFrom) : mhConverter(iconv_open(pcTo, pcFrom)) {
    if (!IsOpen()) {
      throw Failure(5, u"The C library of this machine has no table for the code page " +
                           FromUtf8(pcFrom) + u"; install its converters or name another page");
    }
  }
  ~Converter() { iconv_close(mhConverter); }
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;

  /// Converts the lCount bytes alone; false unless they give exactly the lWanted bytes of pTo.
  bool Convert(const void* pFrom, std::size_t lCount, void* pTo, std::size_t lWanted) {
    // The converter holds back a character that may combine with the next one; this call flushes
    // it.
    iconv(mhConverter, nullptr, nullptr, nullptr, nullptr);
    char* pcFrom = const_cast<char*>(static_cast<const char*>(pFrom));
    char* pcTo = static_cast<char*>(pTo);
    std::size_t lRoom = lWanted;
    if (iconv(mhConverter, &pcFrom, &lCount, &pcTo, &lRoom) != 0) return false;
    if (iconv(mhConverter, nullptr, nullptr, &pcTo, &lRoom) != 0) return false;
    return lRoom == 0;
  }

 private:
  bool IsOpen() const { return reinterpret_cast<std::intptr_t>(mhConverter) != -1; }
  iconv_t mhConverter;
};

bool IsSurrogate(char16_t cUnit) {
  return (cUnit & 0xF800) == 0xD800;
}
char16_t Carried(unsigned char cByte) {
  return static_cast<char16_t>(0xDC00 + cByte);
}

class CodePageTable final : public CodePage {
 public:
  explicit CodePageTable(const PageRow& oPage)
      : moPage(oPage), msName(std::to_string(oPage.lNumber)), malBytes(0x10000) {
    Converter oToText("UTF-16LE", oPage.pcTable), oToBytes(oPage.pcTable, "UTF-16LE");
    for (unsigned lByte = 0x80; lByte < 0x100; ++lByte) AddByte(lByte, oToText, oToBytes);
  }

  using CodePage::Decode;
  std::string_view Name() const override { return msName; }
  bool IsLeadByte(unsigned char cByte) const override { return AnyHolds(moPage.aoLead, cByte); }

  void Decode(std::string_view sBytes, Text& sText) const override {
    const std::size_t lOld = sText.size(), lCount = sBytes.size();
    sText.resize(lOld + lCount);
    char16_t* pcTo = sText.data() + lOld;
    for (std::size_t i = 0; i < lCount;) {
      const std::size_t lAscii = AsciiBlocks::Widen(sBytes.substr(i), pcTo);
      i += lAscii;
      pcTo += lAscii;
      for (const std::size_t lEnd = std::min(lCount, i + 32); i < lEnd;) {
        i += DecodeOne(sBytes.substr(i, 2), pcTo);
      }
    }
    sText.resize(static_cast<std::size_t>(pcTo - sText.data()));
  }

  bool Encode(TextView sText, std::string& sBytes, std::size_t& lBadUnit) const override {
    const std::size_t lOld = sBytes.size();
    sBytes.reserve(lOld + sText.size());
    for (std::size_t i = 0; i < sText.size(); ++i) {
      if (EncodeOne(sText[i], sBytes)) continue;
      sBytes.resize(lOld);
      lBadUnit = i;
      return false;
    }
    return true;
  }

 private:
  void AddByte(unsigned lByte, Converter& oToText, Converter& oToBytes) {
    const auto cByte = static_cast<unsigned char>(lByte);
    if (!IsLeadByte(cByte)) {
      macSingle[lByte - 0x80] = UnitOf({static_cast<char>(cByte)}, oToText, oToBytes);
      return;
    }
    malRow[lByte - 0x80] = macDouble.size();
    macDouble.resize(macDouble.size() + 0x100);
    char16_t* pcRow = &macDouble[malRow[lByte - 0x80]];
    for (unsigned lTrail = 0; lTrail < 0x100; ++lTrail) {
      if (!AnyHolds(moPage.aoTrail, static_cast<unsigned char>(lTrail))) continue;
      pcRow[lTrail] =
          UnitOf({static_cast<char>(cByte), static_cast<char>(lTrail)}, oToText, oToBytes);
    }
  }

  /// The unit of one character that maps back to the same bytes, else 0.
  char16_t UnitOf(std::string sChar, Converter& oToText, Converter& oToBytes) {
    char16_t cUnit = 0;
    std::string sBack(sChar.size(), '\0');
    if (!oToText.Convert(sChar.data(), sChar.size(), &cUnit, 2)) return 0;
    if (cUnit < 0x80 || IsSurrogate(cUnit)) return 0;
    if (!oToBytes.Convert(&cUnit, 2, sBack.data(), sBack.size()) || sBack != sChar) return 0;
    std::uint16_t lBytes = 0;
    for (const char cByte : sChar) {
      lBytes = static_cast<std::uint16_t>(lBytes << 8 | static_cast<unsigned char>(cByte));
    }
    malBytes[cUnit] = lBytes;
    return cUnit;
  }

  std::size_t DecodeOne(std::string_view sPair, char16_t*& pcTo) const {
    const auto cByte = static_cast<unsigned char>(sPair[0]);
    if (cByte < 0x80) return *pcTo++ = cByte, 1;
    if (IsLeadByte(cByte) && sPair.size() > 1) {
      const auto cTrail = static_cast<unsigned char>(sPair[1]);
      if (AnyHolds(moPage.aoTrail, cTrail)) return DecodePair(cByte, cTrail, pcTo);
    }
    const char16_t cUnit = macSingle[cByte - 0x80];
    *pcTo++ = cUnit != 0 ? cUnit : Carried(cByte);
    return 1;
  }

  std::size_t DecodePair(unsigned char cLead, unsigned char cTrail, char16_t*& pcTo) const {
    const char16_t cUnit = macDouble[malRow[cLead - 0x80] + cTrail];
    if (cUnit != 0) {
      *pcTo++ = cUnit;
    } else {
      *pcTo++ = Carried(cLead);
      *pcTo++ = Carried(cTrail);
    }
    return 2;
  }

  bool EncodeOne(char16_t cUnit, std::string& sBytes) const {
    if (cUnit < 0x80 || (cUnit >= 0xDC00 && cUnit <= 0xDCFF)) {
      sBytes += static_cast<char>(cUnit & 0xFF);
      return true;
    }
    const std::uint16_t lBytes = malBytes[cUnit];
    if (lBytes > 0xFF) sBytes += static_cast<char>(lBytes >> 8);
    if (lBytes != 0) sBytes += static_cast<char>(lBytes & 0xFF);
    return lBytes != 0;
  }

  const PageRow& moPage;
  std::string msName;
  char16_t macSingle[0x80] = {};
  std::size_t malRow[0x80] = {};
  std::vector<char16_t> macDouble;      ///< 256 units per lead byte; 0: no such character
  std::vector<std::uint16_t> malBytes;  ///< bytes of each unit; 0: not in the page
};

}  // namespace

std::unique_ptr<CodePage> MakeCodePageTable(int lNumber) {
  for (const PageRow& oPage : aoPage) {
    if (oPage.lNumber == lNumber) return std::make_unique<CodePageTable>(oPage);
  }
  return nullptr;
}
