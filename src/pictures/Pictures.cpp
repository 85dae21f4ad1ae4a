#include "Pictures.h"

#include "PictureTable.h"

std::span<const unsigned char> FindPicture(std::u16string_view sKey, int nPixels) {
  std::span<const unsigned char> abBest;
  for (const PictureRow& oRow : PictureTable()) {
    if (oRow.sKey != sKey) continue;
    abBest = oRow.abPng;
    if (oRow.nPixels >= nPixels) break;
  }
  return abBest;
}

std::vector<std::u16string_view> PictureKeys() {
  std::vector<std::u16string_view> asKey;
  for (const PictureRow& oRow : PictureTable())
    if (asKey.empty() || asKey.back() != oRow.sKey) asKey.push_back(oRow.sKey);
  return asKey;
}
