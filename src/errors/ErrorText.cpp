#include "ErrorText.h"

#include <algorithm>

#include "Utf8.h"

namespace {

bool IsControl(char16_t unit) {
  return unit < 0x20 || unit == 0x7F;
}

}  // namespace

void AppendErrorField(std::u16string_view text, std::string& line) {
  static constexpr char HexDigits[] = "0123456789ABCDEF";
  if (text.empty()) line += '-';
  while (!text.empty()) {
    const auto end = std::find_if(text.begin(), text.end(), IsControl);
    const auto plain = static_cast<std::size_t>(end - text.begin());
    AppendUtf8(text.substr(0, plain), line);
    text.remove_prefix(plain);
    if (text.empty()) return;
    line += {'\\', 'x', HexDigits[text.front() >> 4], HexDigits[text.front() & 15]};
    text.remove_prefix(1);
  }
}
