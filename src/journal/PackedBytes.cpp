#include "PackedBytes.h"

#include <zstd.h>

#include <cstring>
#include <memory>

#include "Failure.h"

namespace {

// The quickest level: source code becomes an eighth of its size with it.
constexpr int Level = 1;
/// Far above any source file: a damaged record can't ask for all memory there is.
constexpr std::uint64_t LongestFile = std::uint64_t{1} << 32;

std::uint64_t WordAt(const char* at) {
  std::uint64_t word = 0;
  std::memcpy(&word, at, sizeof word);
  return word;
}

std::uint64_t Mixed(std::uint64_t value) {
  value ^= value >> 32;
  value *= 0xd6e8feb86659fd93;
  value ^= value >> 32;
  value *= 0xd6e8feb86659fd93;
  return value ^ (value >> 32);
}

}  // namespace

// Four sums side by side, so that one multiplication needn't wait for the one before.
ContentMark MarkOf(std::string_view bytes) {
  constexpr std::uint64_t factor = 0x9e3779b97f4a7c15;
  constexpr std::size_t lanes = 4, word = sizeof(std::uint64_t);
  std::uint64_t sums[lanes] = {1, 2, 3, 4};
  std::size_t at = 0;
  for (; bytes.size() - at >= lanes * word; at += lanes * word) {
    for (std::size_t i = 0; i < lanes; ++i) {
      sums[i] = (sums[i] ^ WordAt(bytes.data() + at + i * word)) * factor;
      sums[i] ^= sums[i] >> 29;
    }
  }
  std::uint64_t sum = bytes.size();
  for (const std::uint64_t part : sums) sum = Mixed(sum ^ part) * factor;
  for (; at < bytes.size(); ++at) sum = Mixed(sum ^ static_cast<unsigned char>(bytes[at])) + factor;
  return {bytes.size(), sum};
}

std::string Pack(std::string_view bytes) {
  static const std::unique_ptr<ZSTD_CCtx, decltype(&ZSTD_freeCCtx)> context(ZSTD_createCCtx(),
                                                                            ZSTD_freeCCtx);
  std::string packed(ZSTD_compressBound(bytes.size()), '\0');
  const std::size_t size = ZSTD_compressCCtx(context.get(), packed.data(), packed.size(),
                                             bytes.data(), bytes.size(), Level);
  if (ZSTD_isError(size)) throw Failure(7);
  packed.resize(size);
  return packed;
}

std::string Unpack(std::string_view packed, const ContentMark& mark) {
  std::string bytes;
  if (mark.size <= LongestFile) {
    bytes.resize(static_cast<std::size_t>(mark.size));
    const std::size_t size =
        ZSTD_decompress(bytes.data(), bytes.size(), packed.data(), packed.size());
    if (size == mark.size && MarkOf(bytes) == mark) return bytes;
  }
  throw Failure(321, u"The record of the run is damaged: the bytes of before can't be made of it",
                u"journal");
}
