// The bytes of a file made small, and by what two states of a file are told apart.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Size and a 64-bit sum over the bytes: it tells chance apart, not intent.
struct ContentMark {
  std::uint64_t size = 0, sum = 0;
  bool operator==(const ContentMark&) const = default;
};

ContentMark MarkOf(std::string_view bytes);

/// Failure 7 when there is no memory for it.
std::string Pack(std::string_view bytes);
/// Failure 321 unless the result is the one with this mark.
std::string Unpack(std::string_view packed, const ContentMark& mark);
