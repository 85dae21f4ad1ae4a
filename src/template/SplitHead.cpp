#include "SplitHead.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>

namespace {

bool IsWordUnit(char16_t unit) {
  return unit == u'_' || unit >= 0x80 || (unit >= u'0' && unit <= u'9') ||
         (unit >= u'a' && unit <= u'z');
}

constexpr std::array<TextView, 3> BaseTypes = {u"sub", u"function", u"property"};
constexpr std::array<TextView, 4> Prefixes = {u"public", u"private", u"friend", u"static"};

bool IsOneOf(TextView word, std::span<const TextView> words) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

/// What a procedure's heads in several branches have in common: its type and name.
struct HeadWords {
  TextView type, kind, name;
  bool operator==(const HeadWords&) const = default;
};

/// Of a folded line that begins a procedure and holds its name; else without a name.
HeadWords HeadWordsOf(TextView folded) {
  const auto takeWord = [&] {
    folded = TrimWhite(folded);
    std::size_t end = 0;
    while (end < folded.size() && IsWordUnit(folded[end])) ++end;
    const TextView word = folded.substr(0, end);
    folded.remove_prefix(end);
    return word;
  };
  HeadWords words;
  do {
    words.type = takeWord();
  } while (IsOneOf(words.type, Prefixes));
  if (!IsOneOf(words.type, BaseTypes)) return {};
  if (words.type == u"property") words.kind = takeWord();
  words.name = takeWord();
  return words;
}

/// Walks a block of conditional compilation in which each branch holds one head, the same but for
/// its types, and nothing else but comments: several heads with one body.
class SplitHead {
 public:
  SplitHead(const ProcText& code, std::size_t head)
      : mCode(code), mWords(HeadWordsOf(code.Folded(head))) {}

  /// The line behind its end, or behind when the head at this line is the only one.
  std::size_t Behind(std::size_t head, std::size_t behind) {
    if (mWords.name.empty()) return behind;
    std::size_t i = behind;
    while (i < mCode.Count() && IsPlain(i)) i = BehindStatement(mCode, i);
    if (i == mCode.Count() || !Ends(DirectiveAt(mCode, i))) return behind;
    const auto first = FirstLine(head);
    if (!first || !TakeBranches(*first)) return behind;
    return mEnd;
  }

 private:
  static bool Ends(DirectiveKind kind) {
    return kind == DirectiveKind::Else || kind == DirectiveKind::ElseIf ||
           kind == DirectiveKind::EndIf;
  }
  /// Blank, or nothing but a comment.
  bool IsPlain(std::size_t i) const {
    return TrimWhite(mCode.Line(i).substr(0, mCode.CommentOf(i))).empty();
  }

  /// The #If of the block that the head stands in.
  std::optional<std::size_t> FirstLine(std::size_t head) const {
    for (std::size_t i = head; i-- > 0;) {
      const DirectiveKind kind = DirectiveAt(mCode, i);
      if (kind == DirectiveKind::If) return i;
      if (kind == DirectiveKind::EndIf) return std::nullopt;
    }
    return std::nullopt;
  }

  /// From the #If to its end; false when something else stands there than heads.
  bool TakeBranches(std::size_t first) {
    std::size_t heads = 0, branches = 1;
    for (std::size_t i = BehindStatement(mCode, first); i < mCode.Count();) {
      const DirectiveKind kind = DirectiveAt(mCode, i);
      if (Ends(kind)) {
        if (heads != branches) return false;
        ++branches;
        mEnd = BehindStatement(mCode, i);
        if (kind == DirectiveKind::EndIf) return heads > 1;
      } else if (!IsPlain(i)) {
        if (kind != DirectiveKind::None || HeadWordsOf(mCode.Folded(i)) != mWords) return false;
        ++heads;
      }
      i = BehindStatement(mCode, i);
    }
    return false;
  }

  const ProcText& mCode;
  const HeadWords mWords;
  std::size_t mEnd = 0;
};

}  // namespace

DirectiveKind DirectiveAt(const ProcText& code, std::size_t i) {
  return code.IsContinued(i) ? DirectiveKind::None : DirectiveOf(code.Folded(i));
}

std::size_t BehindStatement(const ProcText& code, std::size_t i) {
  while (i < code.Count() && Continues(code.Line(i))) ++i;
  return i < code.Count() ? i + 1 : i;
}

std::size_t BehindSplitHead(const ProcText& code, std::size_t head, std::size_t behind) {
  return SplitHead(code, head).Behind(head, behind);
}
