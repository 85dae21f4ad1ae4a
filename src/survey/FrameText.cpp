#include "FrameText.h"

#include <algorithm>

#include "ProcPlaces.h"
#include "Sections.h"

namespace {

bool IsWordUnit(char16_t unit) {
  return unit == u'_' || unit >= 0x80 || (unit >= u'0' && unit <= u'9') ||
         (unit >= u'A' && unit <= u'Z') || (unit >= u'a' && unit <= u'z');
}

/// A word, or one unit of anything else.
TextView NextPiece(TextView text) {
  std::size_t length = 0;
  while (length < text.size() && IsWordUnit(text[length])) ++length;
  return text.substr(0, std::max<std::size_t>(length, 1));
}

/// True when the text begins with the name, whatever the letter case, and the
/// name ends there.
bool BeginsWithName(TextView text, TextView name) {
  if (name.empty() || text.size() < name.size()) return false;
  if (!EqualNoCase(text.substr(0, name.size()), name)) return false;
  return text.size() == name.size() || !IsWordUnit(text[name.size()]);
}

/// A label with the token in the place of the procedure's name at its beginning
/// or end.
Text WithName(TextView label, TextView name) {
  const TextView token = TextOf(Token::Name);
  if (name.empty() || label.size() <= name.size()) return Text(label);
  const std::size_t rest = label.size() - name.size();
  if (EqualNoCase(label.substr(0, name.size()), name) && label[name.size()] == u'_') {
    return Text(token) + Text(label.substr(name.size()));
  }
  if (EqualNoCase(label.substr(rest), name) && label[rest - 1] == u'_') {
    return Text(label.substr(0, rest)) + Text(token);
  }
  return Text(label);
}

}  // namespace

FrameText::FrameText(const ProcedureName& name, std::span<const Text> labels)
    : mLabels(labels), mName(name.name), mExit(BaseType(name.type)) {
  const Text shown = ShownName(name.name, PropertyKind(name.type));
  if (shown != mName) mTokens.push_back({shown, TextOf(Token::ProcName)});
  mTokens.push_back({Text(name.file), TextOf(Token::File)});
  mTokens.push_back({mName, TextOf(Token::Name)});
  mTokens.push_back({Text(name.module), TextOf(Token::ModuleName)});
  mTokens.push_back({Text(name.project), TextOf(Token::Project)});
}

FrameRow FrameText::RowOf(TextView source) const {
  FrameRow row;
  while (!source.empty()) {
    const std::size_t quote = std::min(source.find(u'"'), source.size());
    AddCode(source.substr(0, quote), row);
    source.remove_prefix(quote);
    if (source.empty()) break;
    const std::size_t end = std::min(source.find(u'"', 1), source.size() - 1);
    row.key.append(u"\"...\"");
    row.text.append(Filled(source.substr(0, end + 1)));
    source.remove_prefix(end + 1);
  }
  return row;
}

void FrameText::AddCode(TextView code, FrameRow& row) const {
  while (!code.empty()) {
    const TextView piece = NextPiece(code);
    const Text lower = LowerCase(piece);
    const auto label = std::find(mLabels.begin(), mLabels.end(), lower);
    code.remove_prefix(piece.size());
    if (label != mLabels.end()) {
      row.key.append(u"<").append(ToText(label - mLabels.begin() + 1)).append(u">");
      row.text.append(WithName(piece, mName));
    } else if (row.key == u"exit " && EqualNoCase(piece, mExit)) {
      row.key.append(LowerCase(TextOf(Token::ProcType)));
      row.text.append(TextOf(Token::ProcType));
    } else if (lower != u" " || !row.key.ends_with(u' ')) {
      row.key.append(lower);
      row.text.append(piece);
    }
  }
}

Text FrameText::Filled(TextView literal) const {
  Text filled;
  bool begins = true;  // a word may begin here
  while (!literal.empty()) {
    const auto token = std::find_if(mTokens.begin(), mTokens.end(), [&](const auto& one) {
      return begins && BeginsWithName(literal, one.name);
    });
    const std::size_t length =
        token != mTokens.end() ? token->name.size() : NextPiece(literal).size();
    filled.append(token != mTokens.end() ? token->token : literal.substr(0, length));
    begins = !IsWordUnit(literal[length - 1]);
    literal.remove_prefix(length);
    if (token != mTokens.end()) begins = true;
  }
  return filled;
}
