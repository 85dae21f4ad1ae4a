#include <iconv.h>

#include <cstdint>

#include "CodePageConverter.h"
#include "Failure.h"
#include "Utf8.h"

namespace {

std::string TableOf(int page) {
  return (page == 874 ? "WINDOWS-" : "CP") + std::to_string(page);
}

class Converter {
 public:
  Converter(const std::string& to, const std::string& from)
      : mConverter(iconv_open(to.c_str(), from.c_str())) {
    if (!IsOpen()) {
      throw Failure(5, u"The C library of this machine has no table for the code page " +
                           FromUtf8(from) + u"; install its converters or name another page");
    }
  }
  ~Converter() { iconv_close(mConverter); }
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;

  /// Converts the count bytes alone; the number of bytes of output, 0 when it fails.
  std::size_t Convert(const void* input, std::size_t count, void* output, std::size_t size) {
    // The converter holds back a character that may combine with the next one; this call flushes
    // it.
    iconv(mConverter, nullptr, nullptr, nullptr, nullptr);
    char* from = const_cast<char*>(static_cast<const char*>(input));
    char* to = static_cast<char*>(output);
    std::size_t room = size;
    if (iconv(mConverter, &from, &count, &to, &room) != 0) return 0;
    if (iconv(mConverter, nullptr, nullptr, &to, &room) != 0) return 0;
    return size - room;
  }

 private:
  bool IsOpen() const { return reinterpret_cast<std::intptr_t>(mConverter) != -1; }
  iconv_t mConverter;
};

}  // namespace

struct CodePageConverter::Tables {
  explicit Tables(int page)
      : toText("UTF-16LE", TableOf(page)), toBytes(TableOf(page), "UTF-16LE") {}
  Converter toText, toBytes;
};

CodePageConverter::CodePageConverter(int page) : mTables(std::make_unique<Tables>(page)) {}

CodePageConverter::~CodePageConverter() = default;

char16_t CodePageConverter::UnitOf(std::string_view character) {
  char16_t unit = 0;
  return mTables->toText.Convert(character.data(), character.size(), &unit, 2) == 2 ? unit : u'\0';
}

std::string CodePageConverter::BytesOf(char16_t unit) {
  std::string bytes(4, '\0');
  bytes.resize(mTables->toBytes.Convert(&unit, 2, bytes.data(), bytes.size()));
  return bytes;
}
