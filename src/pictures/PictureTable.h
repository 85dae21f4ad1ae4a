// The drawn pictures as the build makes them from pictures/: for Pictures only.
#pragma once

#include <span>
#include <string_view>

struct PictureRow {
  std::u16string_view sKey;
  int nPixels;
  std::span<const unsigned char> abPng;
};

/// The rows of one key stand together, by ascending size.
std::span<const PictureRow> PictureTable();
