#include <cstdint>
#include <cstring>

#include "CodePageKinds.h"

namespace {

constexpr std::size_t lBlock = 32;
constexpr std::uint64_t lHighBits = 0x8080808080808080u;

bool IsAsciiBlock(const char* pcFrom) {
  std::uint64_t alWord[lBlock / 8];
  std::memcpy(alWord, pcFrom, lBlock);
  return ((alWord[0] | alWord[1] | alWord[2] | alWord[3]) & lHighBits) == 0;
}

bool IsAsciiBlock(const char16_t* pcFrom) {
  std::uint64_t alWord[lBlock / 4];
  std::memcpy(alWord, pcFrom, lBlock * 2);
  std::uint64_t lAll = 0;
  for (const std::uint64_t lWord : alWord) lAll |= lWord;
  return (lAll & 0xFF80FF80FF80FF80u) == 0;
}

}  // namespace

namespace CodePageAscii {

std::size_t WidenBlocks(const char* pcFrom, std::size_t lCount, char16_t* pcTo) {
  std::size_t lAt = 0;
  for (; lAt + lBlock <= lCount && IsAsciiBlock(pcFrom + lAt); lAt += lBlock) {
    for (std::size_t i = 0; i < lBlock; ++i) {
      pcTo[lAt + i] = static_cast<unsigned char>(pcFrom[lAt + i]);
    }
  }
  return lAt;
}

std::size_t NarrowBlocks(const char16_t* pcFrom, std::size_t lCount, char* pcTo) {
  std::size_t lAt = 0;
  for (; lAt + lBlock <= lCount && IsAsciiBlock(pcFrom + lAt); lAt += lBlock) {
    for (std::size_t i = 0; i < lBlock; ++i) pcTo[lAt + i] = static_cast<char>(pcFrom[lAt + i]);
  }
  return lAt;
}

std::size_t AsciiLength(std::string_view sBytes) {
  std::size_t lAt = 0;
  while (lAt + lBlock <= sBytes.size() && IsAsciiBlock(sBytes.data() + lAt)) lAt += lBlock;
  while (lAt < sBytes.size() && static_cast<unsigned char>(sBytes[lAt]) < 0x80) ++lAt;
  return lAt;
}

}  // namespace CodePageAscii
