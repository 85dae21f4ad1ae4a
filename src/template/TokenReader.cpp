#include "TokenReader.h"

TokenReader::TokenReader(TextView row) : mRow(row) {
  // The bar ends row and line alike, so that a token at the end has something behind it.
  const Text ended = mRow + u"|";
  for (TextView rest = ended;;) {
    const std::size_t end = rest.find_first_of(u"<>");
    mPieces.emplace_back(rest.substr(0, end));
    if (end == TextView::npos) break;
    rest.remove_prefix(end + 1);
  }
  for (std::size_t l = mRow.find(u"<%"); l != Text::npos; l = mRow.find(u"<%", l + 1)) ++mTokens;
}

std::optional<Text> TokenReader::Value(TextView line, TextView token) const {
  if (mTokens == 0) return std::nullopt;
  // Of a token that stands twice nobody could tell which of the two values is meant.
  Text mark = u"<";
  mark.append(token).append(u">");
  const std::size_t place = mRow.find(mark);
  if (place == Text::npos || mRow.find(mark, place + 1) != Text::npos) return std::nullopt;
  Text code;
  code.reserve(line.size() + 1);
  code.append(line).append(u"|");
  TextView rest = code;
  for (std::size_t i = 0; i < mPieces.size(); ++i) {
    const TextView piece = mPieces[i];
    if (!piece.starts_with(u'%')) {
      const std::size_t found = rest.find(piece);
      rest = found == TextView::npos ? TextView() : rest.substr(found + piece.size());
      continue;
    }
    if (i + 1 >= mPieces.size()) break;
    const std::size_t next = rest.find(mPieces[i + 1]);
    if (next == TextView::npos) continue;
    if (piece == token) return Text(rest.substr(0, next));
    rest.remove_prefix(next);
  }
  return std::nullopt;
}
