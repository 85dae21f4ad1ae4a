#include "AddedText.h"

#include <algorithm>
#include <cstring>

#include "Failure.h"

void AddedText::MakeRoom(std::size_t more) const {
  // Of two chunks behind one another more than one is full.
  if (more < Limit && mChunks.size() + 2 * (more / ChunkSize) + 2 <= MaxChunks) return;
  throw Failure(7, u"The new text of this file grew over 2 GB; save and open it again", u"host");
}

std::uint32_t AddedText::Add(std::initializer_list<std::string_view> pieces) {
  std::size_t length = 0;
  for (const std::string_view piece : pieces) length += piece.size();
  if (length > ChunkSize - std::min<std::size_t>(mUsed, ChunkSize)) {
    MakeRoom(length);
    mChunks.emplace_back(new char[std::max<std::size_t>(length, ChunkSize)]);
    mUsed = 0;
  }
  const std::size_t offset = (mChunks.size() - 1) * ChunkSize + mUsed;
  char* to = mChunks.back().get() + mUsed;
  for (const std::string_view piece : pieces) {
    if (!piece.empty()) std::memcpy(to, piece.data(), piece.size());
    to += piece.size();
  }
  mUsed += length;
  mSize += length;
  return static_cast<std::uint32_t>(offset);
}
