// Bytes that are only ever added to. They never move: what points into them stays good.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string_view>
#include <vector>

class AddedText {
 public:
  /// Offsets stay below this.
  static constexpr std::uint32_t Limit = 0x80000000;

  /// Failure 7 when that many more bytes, in however many pieces, might not fit.
  void MakeRoom(std::size_t size) const;
  /// Puts pieces behind one another; the offset of the first.
  std::uint32_t Add(std::initializer_list<std::string_view> pieces);
  const char* At(std::uint32_t offset) const {
    return mChunks[offset / ChunkSize].get() + offset % ChunkSize;
  }
  /// Of all that was added.
  std::size_t Size() const { return mSize; }

 private:
  // What doesn't fit into the rest of a chunk begins a new one; a longer text has a chunk to
  // itself.
  static constexpr std::uint32_t ChunkSize = 4096;
  static constexpr std::uint32_t MaxChunks = Limit / ChunkSize;

  std::vector<std::unique_ptr<char[]>> mChunks;
  std::size_t mUsed = ChunkSize;  // of the last chunk
  std::size_t mSize = 0;
};
