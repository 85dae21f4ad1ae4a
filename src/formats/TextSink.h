// Where results go, piece by piece: standard output, or a text in a test.
#pragma once

#include <string>
#include <string_view>

class TextSink {
 public:
  virtual ~TextSink() = default;
  virtual void Put(std::string_view text) = 0;
};

/// Keeps what comes.
class TextKeeper : public TextSink {
 public:
  void Put(std::string_view text) override { mText += text; }
  const std::string& Text() const { return mText; }

 private:
  std::string mText;
};
