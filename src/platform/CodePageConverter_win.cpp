#include <windows.h>

#include "CodePageConverter.h"
#include "Failure.h"

namespace {

/// The system gives undefined bytes a control character or one for private use; neither is the
/// page's own.
bool IsMadeUp(wchar_t unit) {
  return (unit >= 0x80 && unit < 0xA0) || (unit >= 0xE000 && unit <= 0xF8FF);
}

}  // namespace

struct CodePageConverter::Tables {
  UINT page;
};

CodePageConverter::CodePageConverter(int page)
    : mTables(std::make_unique<Tables>(Tables{static_cast<UINT>(page)})) {
  if (!IsValidCodePage(mTables->page)) {
    const std::string number = std::to_string(page);
    throw Failure(5, u"Windows on this machine has no table for the code page " +
                         std::u16string(number.begin(), number.end()) +
                         u"; install its language or name another page");
  }
}

CodePageConverter::~CodePageConverter() = default;

char16_t CodePageConverter::UnitOf(std::string_view character) {
  wchar_t units[4] = {};
  const int count = MultiByteToWideChar(mTables->page, MB_ERR_INVALID_CHARS, character.data(),
                                        static_cast<int>(character.size()), units, 4);
  return count == 1 && !IsMadeUp(units[0]) ? units[0] : u'\0';
}

std::string CodePageConverter::BytesOf(char16_t unit) {
  const wchar_t wide = unit;
  char bytes[4] = {};
  BOOL isReplaced = FALSE;
  const int count = WideCharToMultiByte(mTables->page, WC_NO_BEST_FIT_CHARS, &wide, 1, bytes,
                                        sizeof bytes, nullptr, &isReplaced);
  return {bytes, count > 0 && !isReplaced ? static_cast<std::size_t>(count) : 0};
}
