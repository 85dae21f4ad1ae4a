// What a person sees of a screen without a person: looks at a strip of an Xvfb screen a few hundred
// times a second, from a thread of its own, and tells when its picture changed.
//
//   ScreenWatch oWatch(std::getenv("SCREEN_FILE"));
//   oWatch.Look({0, 560, 800, 20});
//   ... work ...
//   oWatch.Stop().dLongest;  // seconds for which the strip stood still
#pragma once

#include <atomic>
#include <chrono>
#include <string>
#include <thread>
#include <vector>

class ScreenWatch {
 public:
  using Clock = std::chrono::steady_clock;
  struct Strip {
    int nLeft, nTop, nWidth, nHeight;  ///< pixels of the screen
  };
  struct Result {
    std::size_t lChanges = 0;
    double dLongest = 0;  ///< seconds between two changes, or a change and the beginning or the end
    Clock::time_point oLast;  ///< of the last change; the beginning without one
  };

  /// The screen in the format of xwd, as Xvfb keeps it with -fbdir, 32 bits a pixel. Throws
  /// std::runtime_error when it can't be read.
  explicit ScreenWatch(const std::string& sFile);
  ScreenWatch(const ScreenWatch&) = delete;
  ScreenWatch& operator=(const ScreenWatch&) = delete;
  ~ScreenWatch();

  int Width() const { return mnWidth; }
  int Height() const { return mnHeight; }
  /// Begins anew; the part of the strip that lies on the screen counts.
  void Look(Strip oStrip);
  Result Stop();

 private:
  std::vector<unsigned char> Picture(const Strip& oStrip) const;
  void Watch(Strip oStrip);

  int mnFile = -1;
  const unsigned char* mpData = nullptr;
  std::size_t mlSize = 0, mlPixels = 0, mlLine = 0;
  int mnWidth = 0, mnHeight = 0;
  std::atomic<bool> mbStop = false;
  Result moResult;
  std::thread moThread;
};
