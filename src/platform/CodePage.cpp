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
std::string PlainName(std::string_view sName) {
  std::string sPlain(sName);
  std::transform(sPlain.begin(), sPlain.end(), sPlain.begin(),
                 [](unsigned char cByte) { return static_cast<char>(std::tolower(cByte)); });
  for (const std::string_view sPrefix : {"windows-", "cp"}) {
    if (sPlain.rfind(sPrefix, 0) == 0) sPlain.erase(0, sPrefix.size());
  }
  return sPlain == "utf8" || sPlain == "65001" ? "utf-8" : sPlain;
}

std::unique_ptr<CodePage> MakePage(const std::string& sPlain) {
  if (sPlain == "1252") return MakeCodePage1252();
  if (sPlain == "utf-8") return MakeCodePageUtf8();
  const bool bNumber = !sPlain.empty() && sPlain.size() <= 5 &&
                       std::all_of(sPlain.begin(), sPlain.end(),
                                   [](char cByte) { return cByte >= '0' && cByte <= '9'; });
  return bNumber ? MakeCodePageTable(std::stoi(sPlain)) : nullptr;
}

bool HasUtf8Mark(std::string_view sBytes) {
  return sBytes.substr(0, 3) == "\xEF\xBB\xBF";
}

bool IsUtf8BeyondAscii(std::string_view bytes) {
  bytes.remove_prefix(AsciiBlocks::Length(bytes));
  return !bytes.empty() && Utf8::IsWellFormed(bytes);
}

}  // namespace

const CodePage& CodePage::Get(std::string_view sName) {
  static std::mutex oMutex;
  static std::map<std::string, std::unique_ptr<CodePage>> oPages;
  const std::string sPlain = PlainName(sName);
  const std::lock_guard oLock(oMutex);
  const auto oFound = oPages.find(sPlain);
  if (oFound != oPages.end()) return *oFound->second;
  std::unique_ptr<CodePage> poPage = MakePage(sPlain);
  if (poPage == nullptr) {
    throw Failure(5,
                  u"The code page \"" + FromUtf8(sName) +
                      u"\" isn't known; use utf-8 or one of 874, 932, 936, 949, 950, 1250 to "
                      u"1258",
                  u"CodePage");
  }
  return *oPages.emplace(sPlain, std::move(poPage)).first->second;
}

const CodePage& CodePage::Detect(std::string_view sBytes, const CodePage& oAnsi) {
  return HasUtf8Mark(sBytes) || IsUtf8BeyondAscii(sBytes) ? Get("utf-8") : oAnsi;
}

Text CodePage::Decode(std::string_view sBytes) const {
  Text sText;
  Decode(sBytes, sText);
  return sText;
}
