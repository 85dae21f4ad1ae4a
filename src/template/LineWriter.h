// Collects lines and joins them with CR LF; the last line gets no line end.
#pragma once

#include <utility>

#include "ProcText.h"
#include "Text.h"

class LineWriter {
 public:
  void Add(TextView line) { NewLine().append(line); }
  /// Begins a line: the text to append it to, good until the next call.
  Text& NewLine() {
    if (mCount++ > 0) mText.append(CrLf);
    return mText;
  }
  /// Lines first up to and not including end.
  void Add(const ProcText& code, std::size_t first, std::size_t end) {
    while (first < end) {
      const std::size_t behind = code.RunEnd(first, end);
      const TextView from = code.Line(first), to = code.Line(behind - 1);
      const auto units = static_cast<std::size_t>(to.data() - from.data()) + to.size();
      NewLine().append(from.data(), units);
      mCount += behind - first - 1;
      first = behind;
    }
  }
  /// Text in which each line is followed by CR LF; the empty text adds nothing.
  void AddEnded(TextView lines) {
    if (lines.empty()) return;
    Add(lines.substr(0, lines.size() - CrLf.size()));
    for (std::size_t l = 0; (l = FindLineEnd(lines, l) + CrLf.size()) < lines.size();) ++mCount;
  }
  void Reserve(std::size_t units) { mText.reserve(units); }
  Text Take() { return std::move(mText); }
  /// Lines so far.
  std::size_t Count() const { return mCount; }

 private:
  Text mText;
  std::size_t mCount = 0;
};
