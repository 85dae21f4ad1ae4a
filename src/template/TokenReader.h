// Reads the values of a template row's tokens out of a line of code, by walking row and line side
// by side.
//
//   TokenReader reader(u"gtrail.retry = <%retry>");
//   reader.Value(u"gtrail.retry = tvnretryline", u"%retry")   // tvnretryline
#pragma once

#include <optional>
#include <vector>

#include "Text.h"

class TokenReader {
 public:
  TokenReader() = default;
  /// row: FullTrim, lower case, with its tokens.
  explicit TokenReader(TextView row);

  /// token: lower case, without its brackets; line: lower case. nullopt when the token isn't in
  /// the row, stands there twice, or has no place in the line.
  std::optional<Text> Value(TextView line, TextView token) const;
  const Text& RowText() const { return mRow; }
  /// How many tokens the row holds.
  std::size_t Tokens() const { return mTokens; }

 private:
  Text mRow;
  std::vector<Text> mPieces;  ///< what stands between its chevrons, a bar behind the last
  std::size_t mTokens = 0;
};
