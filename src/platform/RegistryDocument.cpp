// Parts: encoding and lines; reading; looking up; changing.
#include "RegistryDocument.h"

#include <algorithm>
#include <set>

#include "CodePage.h"
#include "Failure.h"

namespace {

using Kind = RegistryLine::Kind;
constexpr TextView sHeader = u"Windows Registry Editor Version 5.00";

Text FoldedKey(TextView sKey) {
  return LowerCase(PlainRegistryKey(sKey));
}

bool IsBlankLine(TextView sLine) {
  return sLine.find_first_not_of(u" \t") == TextView::npos;
}

/// A line end or another control character in a name would make two lines of one.
void CheckName(TextView sName) {
  for (const char16_t cUnit : sName) {
    if (cUnit < 0x20)
      throw Failure(5, u"A settings name can't hold control characters", u"Registry");
  }
}

bool IsKeyLike(TextView sLine) {
  const std::size_t lFirst = sLine.find_first_not_of(u" \t");
  return lFirst != TextView::npos && sLine[lFirst] == u'[';
}

bool IsHit(const RegistryLine& oLine) {
  return oLine.eKind == Kind::Value || oLine.eKind == Kind::Deletion;
}

}  // namespace

RegistryDocument::RegistryDocument(std::string_view sBytes) {
  if (sBytes.empty()) {
    moEntries.push_back({{}, {}, 0, RawOf(sHeader)});
    return;
  }
  ChooseEncoding(sBytes);
  ReadEntries(sBytes.substr(msMark.size()));
}

void RegistryDocument::ChooseEncoding(std::string_view sBytes) {
  const CodePage& oAnsi = CodePage::Get("1252");
  if (sBytes.starts_with("\xFF\xFE")) {
    msMark = sBytes.substr(0, 2);
    meEncoding = Encoding::Wide;
  } else if (sBytes.starts_with("\xEF\xBB\xBF")) {
    msMark = sBytes.substr(0, 3);
  } else if (sBytes.starts_with("REGEDIT4")) {
    meEncoding = Encoding::Ansi;
  } else if (&CodePage::Detect(sBytes, oAnsi) == &oAnsi) {
    // A pure ASCII file is taken as UTF-8, so that names with other characters can be added.
    const bool bAscii = std::none_of(sBytes.begin(), sBytes.end(), [](char c) { return c < 0; });
    meEncoding = bAscii ? Encoding::Utf8 : Encoding::Ansi;
  }
}

std::string_view RegistryDocument::TakeLine(std::string_view& sRest) const {
  const bool bWide = meEncoding == Encoding::Wide;
  const std::string_view sFeed = bWide ? std::string_view("\n\0", 2) : "\n";
  std::size_t lFeed = sRest.find(sFeed);
  // At an odd offset the bytes are halves of two units and no line feed.
  while (bWide && lFeed != sRest.npos && lFeed % 2 != 0) lFeed = sRest.find(sFeed, lFeed + 1);
  const std::string_view sLine =
      sRest.substr(0, lFeed == sRest.npos ? sRest.npos : lFeed + sFeed.size());
  sRest.remove_prefix(sLine.size());
  return sLine;
}

Text RegistryDocument::TextOf(std::string_view sRaw) const {
  Text sLine;
  if (meEncoding == Encoding::Wide) {
    for (std::size_t i = 0; i + 1 < sRaw.size(); i += 2) {
      sLine += static_cast<char16_t>(static_cast<unsigned char>(sRaw[i]) |
                                     static_cast<unsigned char>(sRaw[i + 1]) << 8);
    }
  } else {
    sLine = CodePage::Get(meEncoding == Encoding::Ansi ? "1252" : "utf-8").Decode(sRaw);
  }
  // A lone CR at the end of the file isn't a line end, as it isn't one inside the file either.
  const bool bPair = sLine.ends_with(CrLf);
  if (bPair || sLine.ends_with(u'\n')) sLine.resize(sLine.size() - (bPair ? 2 : 1));
  return sLine;
}

std::string RegistryDocument::RawOf(TextView sLine) const {
  const Text sWhole = Text(sLine) + msLineEnd;
  std::string sRaw;
  std::size_t lBadUnit = 0;
  if (meEncoding == Encoding::Wide) {
    for (const char16_t cUnit : sWhole) {
      sRaw += static_cast<char>(cUnit & 0xFF);
      sRaw += static_cast<char>(cUnit >> 8);
    }
  } else if (!CodePage::Get(meEncoding == Encoding::Ansi ? "1252" : "utf-8")
                  .Encode(sWhole, sRaw, lBadUnit)) {
    throw Failure(5, u"The settings file's encoding can't hold the name in " + Text(sLine),
                  u"Registry");
  }
  return sRaw;
}

void RegistryDocument::ReadEntries(std::string_view sBytes) {
  std::size_t lLineNumber = 1, lKey = 0;
  for (std::string_view sRest = sBytes; !sRest.empty();) {
    const std::string_view sRaw = TakeLine(sRest);
    Text sEntry = TextOf(sRaw), sLast = sEntry;
    if (lLineNumber == 1) ReadHeader(sRaw, sEntry);
    const std::size_t lFirst = lLineNumber++;
    std::size_t lTaken = sRaw.size();
    while (!sRest.empty()) {
      std::string_view sAhead = sRest;
      const std::string_view sNext = TakeLine(sAhead);
      Text sNextText = TextOf(sNext);
      if (!ContinuesRegistryLine(sLast, sNextText)) break;
      sEntry += sNextText;
      sLast = std::move(sNextText);
      lTaken += sNext.size();
      sRest = sAhead;
      ++lLineNumber;
    }
    AddEntry({ParseRegistryLine(sEntry, meHex), {}, 0, std::string(sRaw.data(), lTaken)}, lFirst,
             lKey);
  }
}

void RegistryDocument::ReadHeader(std::string_view sRaw, TextView sLine) {
  if (sLine == u"REGEDIT4") {
    meHex = RegistryHex::Ansi;
  } else if (sLine != sHeader) {
    moProblems.push_back({1, u"The first line isn't \"" + Text(sHeader) +
                                 u"\", so that the file can't be imported"});
  }
  if (sRaw.find('\n') != sRaw.npos && sRaw.find('\r') == sRaw.npos) msLineEnd = u"\n";
}

void RegistryDocument::AddEntry(Entry oEntry, std::size_t lLineNumber, std::size_t& lKey) {
  RegistryLine& oLine = oEntry.oLine;
  const bool bOddByte = meEncoding == Encoding::Wide && oEntry.sRaw.size() % 2 != 0;
  if (oLine.eKind == Kind::Key) {
    lKey = NumberOfKey(oLine.sName);
  } else if (oLine.eKind == Kind::Damaged && IsKeyLike(TextOf(oEntry.sRaw))) {
    // The key's line is damaged: the values below it must not go to the key before.
    lKey = 0;
  } else if (IsHit(oLine) && lKey == 0) {
    oLine = {Kind::Damaged, {}, {}, u"there is no sound key above it"};
  }
  if (bOddByte) oLine = {Kind::Damaged, {}, {}, u"the file ends in half a character"};
  if (oLine.eKind == Kind::Damaged) {
    moProblems.push_back(
        {lLineNumber, u"This line isn't understood and stays as it is: " + oLine.sProblem});
  }
  oEntry.lKey = lKey;
  oEntry.sFoldedName = LowerCase(oLine.sName);
  moEntries.push_back(std::move(oEntry));
}

std::string RegistryDocument::Bytes() const {
  std::string sBytes = msMark;
  for (const Entry& oEntry : moEntries) sBytes += oEntry.sRaw;
  return sBytes;
}

std::size_t RegistryDocument::NumberOfKey(TextView sKey) {
  return moKeys.emplace(FoldedKey(sKey), moKeys.size() + 1).first->second;
}

void RegistryDocument::CheckKey(TextView sKey) {
  CheckName(sKey);
  if (PlainRegistryKey(sKey).empty() || sKey[0] == u'-') {
    throw Failure(5, u"\"" + Text(sKey) + u"\" is no name of a settings key", u"Registry");
  }
}

bool RegistryDocument::HasKey(TextView sKey) const {
  const Text sFolded = FoldedKey(sKey);
  if (moKeys.count(sFolded) > 0) return true;
  const auto oBelow = moKeys.lower_bound(sFolded + u'\\');
  return oBelow != moKeys.end() && oBelow->first.starts_with(sFolded + u'\\');
}

const RegistryDocument::Entry* RegistryDocument::FindEntry(TextView sKey, TextView sName) const {
  const auto oKey = moKeys.find(FoldedKey(sKey));
  if (oKey == moKeys.end()) return nullptr;
  const Text sFolded = LowerCase(sName);
  const auto oFound = std::find_if(moEntries.rbegin(), moEntries.rend(), [&](const Entry& oEntry) {
    return oEntry.lKey == oKey->second && IsHit(oEntry.oLine) && oEntry.sFoldedName == sFolded;
  });
  return oFound == moEntries.rend() ? nullptr : &*oFound;
}

const RegistryValue* RegistryDocument::Find(TextView sKey, TextView sName) const {
  const Entry* poEntry = FindEntry(sKey, sName);
  const bool bValue = poEntry != nullptr && poEntry->oLine.eKind == Kind::Value;
  return bValue ? &poEntry->oLine.oValue : nullptr;
}

std::vector<Text> RegistryDocument::Names(TextView sKey) const {
  std::vector<Text> asName;
  std::set<TextView> oSeen;
  const auto oKey = moKeys.find(FoldedKey(sKey));
  if (oKey == moKeys.end()) return asName;
  // From the end, since of several lines for one value the last one counts.
  for (auto oEntry = moEntries.rbegin(); oEntry != moEntries.rend(); ++oEntry) {
    if (oEntry->lKey != oKey->second || !IsHit(oEntry->oLine)) continue;
    const bool bCounts = oSeen.insert(oEntry->sFoldedName).second;
    if (bCounts && oEntry->oLine.eKind == Kind::Value) asName.push_back(oEntry->oLine.sName);
  }
  std::reverse(asName.begin(), asName.end());
  return asName;
}

void RegistryDocument::Set(TextView sKey, TextView sName, const RegistryValue& oValue) {
  CheckKey(sKey);
  CheckName(sName);
  const RegistryValue* poOld = Find(sKey, sName);
  if (poOld != nullptr && *poOld == oValue) return;
  Text sLine;
  if (!FormatRegistryValue(sName, oValue, meHex, msLineEnd, sLine)) {
    throw Failure(5,
                  u"The settings file is in the format REGEDIT4, which can't hold \"" +
                      oValue.sText + u"\"; export it in version 5.00",
                  u"Registry");
  }
  Entry oNew{{Kind::Value, Text(sName), oValue, {}}, LowerCase(sName), 0, RawOf(sLine)};
  if (const Entry* poEntry = FindEntry(sKey, sName)) {
    Entry& oEntry = moEntries[static_cast<std::size_t>(poEntry - moEntries.data())];
    oNew.lKey = oEntry.lKey;
    oEntry = std::move(oNew);
    return;
  }
  const std::size_t lAt = EndOfKey(sKey);
  oNew.lKey = NumberOfKey(sKey);
  moEntries.insert(moEntries.begin() + static_cast<std::ptrdiff_t>(lAt), std::move(oNew));
}

std::size_t RegistryDocument::EndOfKey(TextView sKey) {
  EndLastLine();
  const auto oKey = moKeys.find(FoldedKey(sKey));
  if (oKey == moKeys.end()) {
    const std::string sRaw = RawOf(u'[' + Text(PlainRegistryKey(sKey)) + u']');
    if (!IsBlankLine(TextOf(moEntries.back().sRaw))) {
      moEntries.push_back({{}, {}, moEntries.back().lKey, RawOf({})});
    }
    moEntries.push_back({{Kind::Key, Text(PlainRegistryKey(sKey)), {}, {}}, {}, 0, sRaw});
    moEntries.back().lKey = NumberOfKey(sKey);
    return moEntries.size();
  }
  std::size_t lAt = moEntries.size();
  while (moEntries[lAt - 1].lKey != oKey->second || IsBlankLine(TextOf(moEntries[lAt - 1].sRaw))) {
    --lAt;
  }
  return lAt;
}

void RegistryDocument::EndLastLine() {
  // A byte-order mark and nothing behind it.
  if (moEntries.empty()) moEntries.push_back({{}, {}, 0, RawOf(sHeader)});
  std::string& sLast = moEntries.back().sRaw;
  const bool bWide = meEncoding == Encoding::Wide;
  if (sLast.ends_with(bWide ? std::string_view("\n\0", 2) : std::string_view("\n"))) {
    if (!bWide || sLast.size() % 2 == 0) return;
  }
  // Half a unit at the end is filled up, or everything behind it would be read shifted by a byte.
  if (bWide && sLast.size() % 2 != 0) sLast += '\0';
  sLast += RawOf({});
}

bool RegistryDocument::Delete(TextView sKey, TextView sName) {
  if (Find(sKey, sName) == nullptr) return false;
  const std::size_t lKey = NumberOfKey(sKey);
  const Text sFolded = LowerCase(sName);
  std::erase_if(moEntries, [&](const Entry& oEntry) {
    return oEntry.lKey == lKey && oEntry.oLine.eKind == Kind::Value &&
           oEntry.sFoldedName == sFolded;
  });
  return true;
}
