// Standard output: results, written in large pieces. A reader that goes away (a pipe into head)
// ends the output and nothing else; any other failure is kept for the end of the program.
#pragma once

#include <string>
#include <string_view>

#include "TextSink.h"

class Output : public TextSink {
 public:
  ~Output() override { Flush(); }

  /// Room for results; call Put or FlushWhenLarge when a row is done.
  std::string& Buffer() { return msPending; }
  void FlushWhenLarge() {
    if (msPending.size() >= (1u << 18)) Flush();
  }
  void Put(std::string_view sText) override {
    msPending += sText;
    FlushWhenLarge();
  }
  void Flush();
  /// The system's error number, 0 while all is well.
  int Error() const { return mnError; }
  /// True for a terminal.
  static bool IsTerminal();

 private:
  std::string msPending;
  int mnError = 0;
  bool mbReaderGone = false;
};

/// Results for other programs: in a pipe as they are, on a terminal without what would move it.
class DataOutput : public TextSink {
 public:
  explicit DataOutput(Output& output) : mOutput(output) {}
  void Put(std::string_view text) override;

 private:
  Output& mOutput;
};
