// UTF-8 that loses nothing, as a code page.
#include "CodePageKinds.h"
#include "Utf8.h"

namespace {

class CodePageUtf8 : public CodePage {
 public:
  using CodePage::Decode;
  std::string_view Name() const override { return "utf-8"; }
  bool IsLeadByte(unsigned char) const override { return false; }

  void Decode(std::string_view bytes, Text& text) const override { Utf8::AppendText(bytes, text); }

  bool Encode(TextView text, std::string& bytes, std::size_t& badUnit) const override {
    const std::size_t old = bytes.size(), taken = Utf8::AppendBytes(text, bytes);
    if (taken == text.size()) return true;
    bytes.resize(old);
    badUnit = taken;
    return false;
  }
};

}  // namespace

std::unique_ptr<CodePage> MakeCodePageUtf8() {
  return std::make_unique<CodePageUtf8>();
}
