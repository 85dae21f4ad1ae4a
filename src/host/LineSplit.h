// Splits bytes into lines at CR LF, LF and lone CR, in linear time whatever the mix.
//
//   LineSplit oSplit(sBytes);
//   while (oSplit.Next()) Use(oSplit.Text(), oSplit.End());
//
// The views point into the bytes. A line end at the very end makes no extra line.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

class LineSplit {
 public:
  explicit LineSplit(std::string_view sBytes, std::size_t lFrom = 0)
      : msBytes(sBytes), mlBegin(lFrom), mlText(lFrom), mlNext(lFrom) {}

  bool Next() {
    if (mlNext >= msBytes.size()) return false;
    mlBegin = mlNext;
    // The next LF is kept: looking for it anew behind every CR would be quadratic.
    if (!mbFeed || mlFeed < mlBegin) FindFeed();
    const std::size_t lReturn = msBytes.substr(mlBegin, mlFeed - mlBegin).find('\r');
    mlText = lReturn == std::string_view::npos ? mlFeed : mlBegin + lReturn;
    mlNext = std::min(mlText + 1, msBytes.size());
    if (mlText < mlFeed && mlNext == mlFeed && mlFeed < msBytes.size()) ++mlNext;
    return true;
  }

  std::size_t Begin() const { return mlBegin; }
  /// Where the next line begins.
  std::size_t Behind() const { return mlNext; }
  std::string_view Text() const { return msBytes.substr(mlBegin, mlText - mlBegin); }
  std::string_view End() const { return msBytes.substr(mlText, mlNext - mlText); }

 private:
  void FindFeed() {
    mlFeed = std::min(msBytes.find('\n', mlBegin), msBytes.size());
    mbFeed = true;
  }

  std::string_view msBytes;
  std::size_t mlBegin;
  std::size_t mlText;
  std::size_t mlNext;
  std::size_t mlFeed = 0;
  bool mbFeed = false;
};
