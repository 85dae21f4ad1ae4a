#include "ScreenWatch.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <stdexcept>

namespace {

constexpr auto oBetweenLooks = std::chrono::milliseconds(3);
constexpr std::size_t lPixel = 4;
// Fields of the header of xwd, 32 bits each, the most significant byte first.
enum Field {
  HeaderSize = 0,
  ImageWidth = 4,
  ImageHeight = 5,
  BitsPerPixel = 11,
  BytesPerLine = 12,
  Colours = 19
};
constexpr std::size_t lFields = 25, lColour = 12;

std::size_t At(const unsigned char* pData, Field eField) {
  const unsigned char* const p = pData + 4 * static_cast<std::size_t>(eField);
  return (std::size_t{p[0]} << 24) | (std::size_t{p[1]} << 16) | (std::size_t{p[2]} << 8) | p[3];
}

}  // namespace

ScreenWatch::ScreenWatch(const std::string& sFile) : mnFile(open(sFile.c_str(), O_RDONLY)) {
  struct stat oStat {};
  if (mnFile < 0 || fstat(mnFile, &oStat) != 0 ||
      static_cast<std::size_t>(oStat.st_size) < lFields * 4)
    throw std::runtime_error("The screen can't be read: " + sFile);
  mlSize = static_cast<std::size_t>(oStat.st_size);
  void* const p = mmap(nullptr, mlSize, PROT_READ, MAP_SHARED, mnFile, 0);
  if (p == MAP_FAILED) throw std::runtime_error("The screen can't be read: " + sFile);
  mpData = static_cast<const unsigned char*>(p);
  mlPixels = At(mpData, HeaderSize) + At(mpData, Colours) * lColour;
  mlLine = At(mpData, BytesPerLine);
  mnWidth = static_cast<int>(At(mpData, ImageWidth));
  mnHeight = static_cast<int>(At(mpData, ImageHeight));
  if (At(mpData, BitsPerPixel) != 8 * lPixel ||
      mlPixels + mlLine * static_cast<std::size_t>(mnHeight) > mlSize)
    throw std::runtime_error("The screen has another format than expected: " + sFile);
}

ScreenWatch::~ScreenWatch() {
  if (moThread.joinable()) Stop();
  if (mpData) munmap(const_cast<unsigned char*>(mpData), mlSize);
  if (mnFile >= 0) close(mnFile);
}

void ScreenWatch::Look(Strip oStrip) {
  if (moThread.joinable()) Stop();
  const int nRight = std::clamp(oStrip.nLeft + oStrip.nWidth, 0, mnWidth);
  const int nBottom = std::clamp(oStrip.nTop + oStrip.nHeight, 0, mnHeight);
  oStrip.nLeft = std::clamp(oStrip.nLeft, 0, nRight);
  oStrip.nTop = std::clamp(oStrip.nTop, 0, nBottom);
  oStrip.nWidth = nRight - oStrip.nLeft;
  oStrip.nHeight = nBottom - oStrip.nTop;
  mbStop = false;
  moThread = std::thread([this, oStrip] { Watch(oStrip); });
}

ScreenWatch::Result ScreenWatch::Stop() {
  mbStop = true;
  moThread.join();
  return moResult;
}

std::vector<unsigned char> ScreenWatch::Picture(const Strip& o) const {
  std::vector<unsigned char> oPicture;
  for (int y = o.nTop; y < o.nTop + o.nHeight; ++y) {
    const unsigned char* const p = mpData + mlPixels + mlLine * static_cast<std::size_t>(y) +
                                   lPixel * static_cast<std::size_t>(o.nLeft);
    oPicture.insert(oPicture.end(), p, p + lPixel * static_cast<std::size_t>(o.nWidth));
  }
  return oPicture;
}

void ScreenWatch::Watch(Strip oStrip) {
  moResult = {0, 0, Clock::now()};
  auto oBefore = Picture(oStrip);
  const auto Seen = [this](Clock::time_point oNow) {
    const std::chrono::duration<double> oStill = oNow - moResult.oLast;
    moResult.dLongest = std::max(moResult.dLongest, oStill.count());
  };
  while (!mbStop) {
    std::this_thread::sleep_for(oBetweenLooks);
    auto oNow = Picture(oStrip);
    if (oNow == oBefore) continue;
    const auto oTime = Clock::now();
    Seen(oTime);
    moResult.oLast = oTime;
    ++moResult.lChanges;
    oBefore = std::move(oNow);
  }
  Seen(Clock::now());
}
