#include "Signature.h"

#include <algorithm>

#include "MXString.h"

namespace {

constexpr TextView SignatureToken = u"%signature";

Text Fold(TextView line) {
  Text folded;
  MXString::FoldLine(line, folded);
  return folded;
}

SignatureValue Parse(TextView signature) {
  SignatureValue value;
  bool first = true;
  while (first || !signature.empty()) {
    const std::size_t mark = signature.find(u'&');
    const TextView part = Trim(signature.substr(0, mark));
    signature = mark == TextView::npos ? TextView() : signature.substr(mark + 1);
    if (part == u"locked") {
      value.locked = true;
    } else if (first) {
      value.name = part;
    }
    first = false;
  }
  return value;
}

/// Position of the first apostrophe at start or behind it with nothing but blanks ahead of it on
/// its line, or the text's length.
std::size_t FindComment(TextView text, std::size_t start) {
  for (std::size_t l = start; (l = FindUnit(text, u'\'', l)) != TextView::npos; ++l) {
    std::size_t line = l;
    while (line > start && text[line - 1] == u' ') --line;
    if (line == start || text.substr(0, line).ends_with(CrLf)) return l;
  }
  return text.size();
}

bool IsTemplateName(TextView name) {
  return MXString::IsAlphaNumeric(name, u"_.");
}

}  // namespace

Signature::Signature(const std::vector<TemplateRow>& templates, const std::vector<LineRow>& lines) {
  if (templates.size() < 2) return;
  const TemplateRow& row = templates[1];
  const std::int32_t start = std::max(row.lStart[Section::Start], 0);
  const std::int32_t end =
      std::min(row.lStart[Section::End], static_cast<std::int32_t>(lines.size()) - 1);
  for (std::int32_t l = start; l <= end; ++l) {
    const LineRow& line = lines[static_cast<std::size_t>(l)];
    if (!line.script) continue;
    const Text& pattern = line.sLike.Pattern();
    const bool wide = pattern.find_first_not_of(u"* '") == Text::npos;
    mRows.push_back({&line, TokenReader(line.folded),
                     pattern.substr(0, pattern.find_first_of(u"*?#[ ")), wide});
    if (l == row.lStart[Section::Start] + 1) mFirst = &line;
  }
  mComments = std::all_of(mRows.begin(), mRows.end(), [](const Row& one) {
    return one.row->sLike.IsEmpty() || one.begin.starts_with(u'\'');
  });
}

Text Signature::Line(TextView name, bool locked) const {
  Text value(name);
  if (locked) value.append(value.empty() ? u"Locked" : u"&Locked");
  if (value.empty() || !mFirst) return Text();
  return MXString::StringReplace(mFirst->sLine, u"<%Signature>", value);
}

bool Signature::IsReadable(TextView name, bool locked) const {
  if (!mAsked.empty() && mAsked == name && mAskedLocked == locked) return mReadable;
  const auto value = Read(Fold(Line(name, locked)));
  mAsked = name;
  mAskedLocked = locked;
  mReadable = value && value->name == LowerCase(name) && value->locked == locked;
  return mReadable;
}

std::optional<SignatureValue> Signature::ReadRow(const Row& row, TextView folded) const {
  const auto value = row.reader.Value(folded, SignatureToken);
  if (!value || Trim(*value).empty()) return std::nullopt;
  // Written again, the value must give the same line: else it isn't what stood in the token.
  // With further tokens in the row the line may differ in their places.
  const Text again = MXString::StringReplace(row.reader.RowText(), u"<%signature>", *value);
  if (row.reader.Tokens() == 1 && Fold(again) != folded) return std::nullopt;
  SignatureValue result = Parse(*value);
  if (row.wide && !IsTemplateName(result.name)) return std::nullopt;
  return result;
}

bool Signature::IsSignature(TextView folded) const {
  return std::any_of(mRows.begin(), mRows.end(), [&](const Row& row) {
    if (row.row->sLike.IsEmpty() || !row.row->sLike.Matches(folded)) return false;
    return !row.wide || ReadRow(row, folded).has_value();
  });
}

std::optional<SignatureValue> Signature::Read(TextView folded) const {
  if (!mLine.empty() && Same(mLine, folded)) return mValue;
  for (const Row& row : mRows) {
    if (row.row->sLike.IsEmpty() || !row.row->sLike.Matches(folded)) continue;
    mLine = folded;
    return mValue = ReadRow(row, folded);
  }
  return std::nullopt;
}

bool Signature::MayBegin(TextView line) const {
  return std::any_of(mRows.begin(), mRows.end(), [&](const Row& row) {
    if (row.row->sLike.IsEmpty() || line.size() < row.begin.size()) return false;
    return std::equal(row.begin.begin(), row.begin.end(), line.begin(),
                      [](char16_t lower, char16_t unit) { return lower == LowerCase(unit); });
  });
}

std::optional<SignatureValue> Signature::Find(TextView procCode) const {
  // From one comment line to the next; few lines need to be folded and compared whole.
  Text folded;
  for (std::size_t start = 0; start < procCode.size();) {
    if (mComments) start = FindComment(procCode, start);
    const std::size_t end = FindLineEnd(procCode, start);
    std::size_t first = start;
    while (first < end && procCode[first] == u' ') ++first;
    if (first < end && MayBegin(procCode.substr(first, end - first))) {
      MXString::FoldLine(procCode.substr(start, end - start), folded);
      if (auto value = Read(folded)) return value;
    }
    start = end + CrLf.size();
  }
  return std::nullopt;
}

std::optional<SignatureValue> Signature::Find(const ProcText& code) const {
  for (std::size_t i = 0; i < code.Count(); ++i) {
    const TextView folded = code.Folded(i);
    if (folded.empty() || (mComments && folded.front() != u'\'') || !MayBegin(folded)) continue;
    if (auto value = Read(folded)) return value;
  }
  return std::nullopt;
}

std::size_t Signature::FindNamed(const ProcText& code) const {
  for (std::size_t i = 0; i < code.Count(); ++i) {
    const TextView folded = code.Folded(i);
    if (folded.empty() || !MayBegin(folded)) continue;
    const auto value = Read(folded);
    if (value && !value->name.empty()) return i;
  }
  return code.Count();
}

ProcText Signature::WithoutLocks(const ProcText& code, std::int32_t& headLine) const {
  const std::int32_t head = headLine;
  ProcText kept;
  std::size_t first = 0;
  for (std::size_t i = 0; i < code.Count(); ++i) {
    const TextView folded = code.Folded(i);
    if (folded.empty() || !MayBegin(folded)) continue;
    const auto value = Read(folded);
    // A line that continues a comment is part of it, even if it reads like a signature: without
    // it the comment would take in the line behind.
    if (!value || !value->name.empty() || code.IsContinued(i)) continue;
    kept.Keep(code, first, i);
    first = i + 1;
    if (static_cast<std::int32_t>(i) + 1 < head) --headLine;
  }
  kept.Keep(code, first, code.Count());
  return kept;
}
