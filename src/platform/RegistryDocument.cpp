// Parts: encoding and lines; reading; looking up; changing.
#include "RegistryDocument.h"

#include <algorithm>
#include <set>

#include "CodePage.h"
#include "Failure.h"

namespace {

using Kind = RegistryLine::Kind;
constexpr TextView Header = u"Windows Registry Editor Version 5.00";

Text FoldedKey(TextView key) {
  return LowerCase(PlainRegistryKey(key));
}

bool IsBlankLine(TextView line) {
  return line.find_first_not_of(u" \t") == TextView::npos;
}

/// A line end or another control character in a name would make two lines of one.
void CheckName(TextView name) {
  for (const char16_t unit : name) {
    if (unit < 0x20)
      throw Failure(5, u"A settings name can't hold control characters", u"Registry");
  }
}

bool IsKeyLike(TextView line) {
  const std::size_t first = line.find_first_not_of(u" \t");
  return first != TextView::npos && line[first] == u'[';
}

bool IsHit(const RegistryLine& line) {
  return line.kind == Kind::Value || line.kind == Kind::Deletion;
}

}  // namespace

RegistryDocument::RegistryDocument(std::string_view bytes) {
  if (bytes.empty()) {
    mEntries.push_back({{}, {}, 0, RawOf(Header)});
    return;
  }
  ChooseEncoding(bytes);
  ReadEntries(bytes.substr(mMark.size()));
}

void RegistryDocument::ChooseEncoding(std::string_view bytes) {
  const CodePage& ansi = CodePage::Get("1252");
  if (bytes.starts_with("\xFF\xFE")) {
    mMark = bytes.substr(0, 2);
    mEncoding = Encoding::Wide;
  } else if (bytes.starts_with("\xEF\xBB\xBF")) {
    mMark = bytes.substr(0, 3);
  } else if (bytes.starts_with("REGEDIT4")) {
    mEncoding = Encoding::Ansi;
  } else if (&CodePage::Detect(bytes, ansi) == &ansi) {
    // A pure ASCII file is taken as UTF-8, so that names with other characters can be added.
    const bool ascii = std::none_of(bytes.begin(), bytes.end(), [](char c) { return c < 0; });
    mEncoding = ascii ? Encoding::Utf8 : Encoding::Ansi;
  }
}

std::string_view RegistryDocument::TakeLine(std::string_view& rest) const {
  const bool isWide = mEncoding == Encoding::Wide;
  const std::string_view feed = isWide ? std::string_view("\n\0", 2) : "\n";
  std::size_t place = rest.find(feed);
  // At an odd offset the bytes are halves of two units and no line feed.
  while (isWide && place != rest.npos && place % 2 != 0) place = rest.find(feed, place + 1);
  const std::string_view line =
      rest.substr(0, place == rest.npos ? rest.npos : place + feed.size());
  rest.remove_prefix(line.size());
  return line;
}

Text RegistryDocument::TextOf(std::string_view raw) const {
  Text line;
  if (mEncoding == Encoding::Wide) {
    for (std::size_t i = 0; i + 1 < raw.size(); i += 2) {
      line += static_cast<char16_t>(static_cast<unsigned char>(raw[i]) |
                                    static_cast<unsigned char>(raw[i + 1]) << 8);
    }
  } else {
    line = CodePage::Get(mEncoding == Encoding::Ansi ? "1252" : "utf-8").Decode(raw);
  }
  // A lone CR at the end of the file isn't a line end, as it isn't one inside the file either.
  const bool isPair = line.ends_with(CrLf);
  if (isPair || line.ends_with(u'\n')) line.resize(line.size() - (isPair ? 2 : 1));
  return line;
}

std::string RegistryDocument::RawOf(TextView line) const {
  const Text whole = Text(line) + mLineEnd;
  std::string raw;
  std::size_t badUnit = 0;
  if (mEncoding == Encoding::Wide) {
    for (const char16_t unit : whole) {
      raw += static_cast<char>(unit & 0xFF);
      raw += static_cast<char>(unit >> 8);
    }
  } else if (!CodePage::Get(mEncoding == Encoding::Ansi ? "1252" : "utf-8")
                  .Encode(whole, raw, badUnit)) {
    throw Failure(5, u"The settings file's encoding can't hold the name in " + Text(line),
                  u"Registry");
  }
  return raw;
}

void RegistryDocument::ReadEntries(std::string_view bytes) {
  std::size_t lineNumber = 1, keyNumber = 0;
  for (std::string_view rest = bytes; !rest.empty();) {
    const std::string_view raw = TakeLine(rest);
    Text entry = TextOf(raw), last = entry;
    if (lineNumber == 1) ReadHeader(raw, entry);
    const std::size_t first = lineNumber++;
    std::size_t taken = raw.size();
    while (!rest.empty()) {
      std::string_view ahead = rest;
      const std::string_view next = TakeLine(ahead);
      Text nextText = TextOf(next);
      if (!ContinuesRegistryLine(last, nextText)) break;
      entry += nextText;
      last = std::move(nextText);
      taken += next.size();
      rest = ahead;
      ++lineNumber;
    }
    AddEntry({ParseRegistryLine(entry, mHex), {}, 0, std::string(raw.data(), taken)}, first,
             keyNumber);
  }
}

void RegistryDocument::ReadHeader(std::string_view raw, TextView line) {
  if (line == u"REGEDIT4") {
    mHex = RegistryHex::Ansi;
  } else if (line != Header) {
    mProblems.push_back(
        {1, u"The first line isn't \"" + Text(Header) + u"\", so that the file can't be imported"});
  }
  if (raw.find('\n') != raw.npos && raw.find('\r') == raw.npos) mLineEnd = u"\n";
}

void RegistryDocument::AddEntry(Entry entry, std::size_t lineNumber, std::size_t& keyNumber) {
  RegistryLine& line = entry.line;
  const bool oddByte = mEncoding == Encoding::Wide && entry.raw.size() % 2 != 0;
  if (line.kind == Kind::Key) {
    keyNumber = NumberOfKey(line.name);
  } else if (line.kind == Kind::Damaged && IsKeyLike(TextOf(entry.raw))) {
    // The key's line is damaged: the values below it must not go to the key before.
    keyNumber = 0;
  } else if (IsHit(line) && keyNumber == 0) {
    line = {Kind::Damaged, {}, {}, u"there is no sound key above it"};
  }
  if (oddByte) line = {Kind::Damaged, {}, {}, u"the file ends in half a character"};
  if (line.kind == Kind::Damaged) {
    mProblems.push_back(
        {lineNumber, u"This line isn't understood and stays as it is: " + line.problem});
  }
  entry.keyNumber = keyNumber;
  entry.foldedName = LowerCase(line.name);
  mEntries.push_back(std::move(entry));
}

std::string RegistryDocument::Bytes() const {
  std::string bytes = mMark;
  for (const Entry& entry : mEntries) bytes += entry.raw;
  return bytes;
}

std::size_t RegistryDocument::NumberOfKey(TextView key) {
  return mKeys.emplace(FoldedKey(key), mKeys.size() + 1).first->second;
}

void RegistryDocument::CheckKey(TextView key) {
  CheckName(key);
  if (PlainRegistryKey(key).empty() || key[0] == u'-') {
    throw Failure(5, u"\"" + Text(key) + u"\" is no name of a settings key", u"Registry");
  }
}

bool RegistryDocument::HasKey(TextView key) const {
  const Text folded = FoldedKey(key);
  if (mKeys.count(folded) > 0) return true;
  const auto below = mKeys.lower_bound(folded + u'\\');
  return below != mKeys.end() && below->first.starts_with(folded + u'\\');
}

const RegistryDocument::Entry* RegistryDocument::FindEntry(TextView key, TextView name) const {
  const auto known = mKeys.find(FoldedKey(key));
  if (known == mKeys.end()) return nullptr;
  const Text folded = LowerCase(name);
  const auto found = std::find_if(mEntries.rbegin(), mEntries.rend(), [&](const Entry& entry) {
    return entry.keyNumber == known->second && IsHit(entry.line) && entry.foldedName == folded;
  });
  return found == mEntries.rend() ? nullptr : &*found;
}

const RegistryValue* RegistryDocument::Find(TextView key, TextView name) const {
  const Entry* found = FindEntry(key, name);
  const bool isValue = found != nullptr && found->line.kind == Kind::Value;
  return isValue ? &found->line.value : nullptr;
}

std::vector<Text> RegistryDocument::Names(TextView key) const {
  std::vector<Text> names;
  std::set<TextView> seen;
  const auto known = mKeys.find(FoldedKey(key));
  if (known == mKeys.end()) return names;
  // From the end, since of several lines for one value the last one counts.
  for (auto entry = mEntries.rbegin(); entry != mEntries.rend(); ++entry) {
    if (entry->keyNumber != known->second || !IsHit(entry->line)) continue;
    const bool counts = seen.insert(entry->foldedName).second;
    if (counts && entry->line.kind == Kind::Value) names.push_back(entry->line.name);
  }
  std::reverse(names.begin(), names.end());
  return names;
}

void RegistryDocument::Set(TextView key, TextView name, const RegistryValue& value) {
  CheckKey(key);
  CheckName(name);
  const RegistryValue* old = Find(key, name);
  if (old != nullptr && *old == value) return;
  Text line;
  if (!FormatRegistryValue(name, value, mHex, mLineEnd, line)) {
    throw Failure(5,
                  u"The settings file is in the format REGEDIT4, which can't hold \"" + value.text +
                      u"\"; export it in version 5.00",
                  u"Registry");
  }
  Entry made{{Kind::Value, Text(name), value, {}}, LowerCase(name), 0, RawOf(line)};
  if (const Entry* found = FindEntry(key, name)) {
    Entry& entry = mEntries[static_cast<std::size_t>(found - mEntries.data())];
    made.keyNumber = entry.keyNumber;
    entry = std::move(made);
    return;
  }
  const std::size_t at = EndOfKey(key);
  made.keyNumber = NumberOfKey(key);
  mEntries.insert(mEntries.begin() + static_cast<std::ptrdiff_t>(at), std::move(made));
}

std::size_t RegistryDocument::EndOfKey(TextView key) {
  EndLastLine();
  const auto known = mKeys.find(FoldedKey(key));
  if (known == mKeys.end()) {
    const std::string raw = RawOf(u'[' + Text(PlainRegistryKey(key)) + u']');
    if (!IsBlankLine(TextOf(mEntries.back().raw))) {
      mEntries.push_back({{}, {}, mEntries.back().keyNumber, RawOf({})});
    }
    mEntries.push_back({{Kind::Key, Text(PlainRegistryKey(key)), {}, {}}, {}, 0, raw});
    mEntries.back().keyNumber = NumberOfKey(key);
    return mEntries.size();
  }
  std::size_t at = mEntries.size();
  while (mEntries[at - 1].keyNumber != known->second || IsBlankLine(TextOf(mEntries[at - 1].raw))) {
    --at;
  }
  return at;
}

void RegistryDocument::EndLastLine() {
  // A byte-order mark and nothing behind it.
  if (mEntries.empty()) mEntries.push_back({{}, {}, 0, RawOf(Header)});
  std::string& last = mEntries.back().raw;
  const bool isWide = mEncoding == Encoding::Wide;
  if (last.ends_with(isWide ? std::string_view("\n\0", 2) : std::string_view("\n"))) {
    if (!isWide || last.size() % 2 == 0) return;
  }
  // Half a unit at the end is filled up, or everything behind it would be read shifted by a byte.
  if (isWide && last.size() % 2 != 0) last += '\0';
  last += RawOf({});
}

bool RegistryDocument::Delete(TextView key, TextView name) {
  if (Find(key, name) == nullptr) return false;
  const std::size_t keyNumber = NumberOfKey(key);
  const Text folded = LowerCase(name);
  std::erase_if(mEntries, [&](const Entry& entry) {
    return entry.keyNumber == keyNumber && entry.line.kind == Kind::Value &&
           entry.foldedName == folded;
  });
  return true;
}
