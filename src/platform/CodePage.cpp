#include "CodePage.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <mutex>

#include "AsciiBlocks.h"
#include "CodePageKinds.h"
#include "Failure.h"
#include "Utf8.h"

namespace {

/// "windows-1252" and "cp1252" give "1252"; the names of UTF-8 give "utf-8".
std::string PlainName(std::string_view name) {
  std::string plain(name);
  std::transform(plain.begin(), plain.end(), plain.begin(),
                 [](unsigned char byte) { return static_cast<char>(std::tolower(byte)); });
  for (const std::string_view prefix : {"windows-", "cp"}) {
    if (plain.rfind(prefix, 0) == 0) plain.erase(0, prefix.size());
  }
  return plain == "utf8" || plain == "65001" ? "utf-8" : plain;
}

std::unique_ptr<CodePage> MakePage(const std::string& plain) {
  if (plain == "1252") return MakeCodePage1252();
  if (plain == "utf-8") return MakeCodePageUtf8();
  const bool isNumber =
      !plain.empty() && plain.size() <= 5 &&
      std::all_of(plain.begin(), plain.end(), [](char byte) { return byte >= '0' && byte <= '9'; });
  return isNumber ? MakeCodePageTable(std::stoi(plain)) : nullptr;
}

bool HasUtf8Mark(std::string_view bytes) {
  return bytes.substr(0, 3) == "\xEF\xBB\xBF";
}

bool IsUtf8BeyondAscii(std::string_view bytes) {
  bytes.remove_prefix(AsciiBlocks::Length(bytes));
  return !bytes.empty() && Utf8::IsWellFormed(bytes);
}

}  // namespace

const CodePage& CodePage::Get(std::string_view name) {
  static std::mutex mutex;
  static std::map<std::string, std::unique_ptr<CodePage>> pages;
  const std::string plain = PlainName(name);
  const std::lock_guard lock(mutex);
  const auto found = pages.find(plain);
  if (found != pages.end()) return *found->second;
  std::unique_ptr<CodePage> page = MakePage(plain);
  if (page == nullptr) {
    throw Failure(5,
                  u"The code page \"" + FromUtf8(name) +
                      u"\" isn't known; use utf-8 or one of 874, 932, 936, 949, 950, 1250 to "
                      u"1258",
                  u"CodePage");
  }
  return *pages.emplace(plain, std::move(page)).first->second;
}

const CodePage& CodePage::Detect(std::string_view bytes, const CodePage& ansi) {
  return HasUtf8Mark(bytes) || IsUtf8BeyondAscii(bytes) ? Get("utf-8") : ansi;
}

Text CodePage::Decode(std::string_view bytes) const {
  Text text;
  Decode(bytes, text);
  return text;
}
