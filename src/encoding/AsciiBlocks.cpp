#include "AsciiBlocks.h"

#include <cstdint>
#include <cstring>

namespace {

constexpr std::size_t Block = 32;

bool IsAsciiBlock(const char* from) {
  std::uint64_t words[Block / 8];
  std::memcpy(words, from, Block);
  return ((words[0] | words[1] | words[2] | words[3]) & 0x8080808080808080u) == 0;
}

bool IsAsciiBlock(const char16_t* from) {
  std::uint64_t words[Block / 4];
  std::memcpy(words, from, Block * 2);
  std::uint64_t all = 0;
  for (const std::uint64_t word : words) all |= word;
  return (all & 0xFF80FF80FF80FF80u) == 0;
}

}  // namespace

namespace AsciiBlocks {

std::size_t Widen(std::string_view bytes, char16_t* to) {
  std::size_t at = 0;
  for (; at + Block <= bytes.size() && IsAsciiBlock(bytes.data() + at); at += Block) {
    for (std::size_t i = 0; i < Block; ++i) to[at + i] = static_cast<unsigned char>(bytes[at + i]);
  }
  return at;
}

std::size_t Narrow(std::u16string_view text, char* to) {
  std::size_t at = 0;
  for (; at + Block <= text.size() && IsAsciiBlock(text.data() + at); at += Block) {
    for (std::size_t i = 0; i < Block; ++i) to[at + i] = static_cast<char>(text[at + i]);
  }
  return at;
}

std::size_t Length(std::string_view bytes) {
  std::size_t at = 0;
  while (at + Block <= bytes.size() && IsAsciiBlock(bytes.data() + at)) at += Block;
  while (at < bytes.size() && static_cast<unsigned char>(bytes[at]) < 0x80) ++at;
  return at;
}

}  // namespace AsciiBlocks
