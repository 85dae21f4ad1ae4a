#include "Fingerprints.h"

#include <cstdint>

namespace {

/// FNV-1a: the same everywhere, which std::hash doesn't promise.
class Hash {
 public:
  /// A part, closed by a sign that stands in none.
  void Add(std::string_view part) {
    for (const char c : part) Byte(static_cast<unsigned char>(c));
    Byte(0);
  }
  std::string Hex() const {
    constexpr char Digits[] = "0123456789abcdef";
    std::string hex;
    for (int shift = 60; shift >= 0; shift -= 4) hex += Digits[(mValue >> shift) & 15];
    return hex;
  }

 private:
  void Byte(unsigned char byte) { mValue = (mValue ^ byte) * 1099511628211u; }
  std::uint64_t mValue = 14695981039346656037u;
};

/// Without a line number: it moves with the lines.
std::string_view Unnumbered(std::string_view line) {
  const std::size_t end = line.find_first_not_of("0123456789");
  return end == std::string_view::npos ? line : line.substr(end);
}

/// Runs of blanks and line ends as one blank, none at the ends: the IDE indents as it likes.
std::string Folded(TextView code) {
  const std::string bytes = ToUtf8(code);
  const std::string_view text = Unnumbered(bytes);
  std::string folded;
  for (const char c : text) {
    const bool isBlank = c == ' ' || c == '\t' || c == '\r' || c == '\n';
    if (!isBlank)
      folded += c;
    else if (!folded.empty() && folded.back() != ' ')
      folded += ' ';
  }
  if (!folded.empty() && folded.back() == ' ') folded.pop_back();
  return folded;
}

std::string Print(const Fingerprints::Subject& subject, std::string_view number) {
  Hash hash;
  for (const std::string_view part : {subject.rule, subject.component, subject.procedure})
    hash.Add(part);
  hash.Add(Folded(subject.code));
  hash.Add(number);
  return hash.Hex();
}

}  // namespace

std::string Fingerprints::Of(const Subject& subject) {
  std::string print = Print(subject, "");
  const std::size_t before = mSeen[print]++;
  return before == 0 ? print : Print(subject, std::to_string(before));
}
