// The tokens of one logical line, over bytes: continuation lines are joined, literals, comments
// and bracketed names are told apart, statements end at their colons.
//
//   LexicalScan oScan(oLines, oPage);
//   oScan.Start(lLine);
//   while (oScan.NextStatement()) {
//     for (Token t = oScan.Next(); t.eKind != TokenKind::End; t = oScan.Next()) ...
//   }
//   lLine = oScan.LastLine() + 1;
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "CodePage.h"
#include "LineTable.h"

enum class TokenKind { End, Word, Bracket, Number, Literal, Mark };

struct Token {
  TokenKind eKind = TokenKind::End;
  /// Words without their type suffix, bracketed names without brackets, strings without the outer
  /// quotes. Good until the line table adds text.
  std::string_view sText;

  bool IsName() const { return eKind == TokenKind::Word || eKind == TokenKind::Bracket; }
  bool IsMark(char c) const { return eKind == TokenKind::Mark && sText.front() == c; }
};

class LexicalScan {
 public:
  LexicalScan(const LineTable& oLines, const CodePage& oPage);

  /// Begins at the first physical line of a logical line. lSkip: bytes to leave out.
  void Start(std::int32_t lLine, std::size_t lSkip = 0);
  /// Goes to the next statement that isn't empty, over a label and a line number at the start of
  /// the logical line. False at a comment or the end of the logical line.
  bool NextStatement();
  /// The next token of the statement; End behind its last one.
  Token Next();
  /// Runs to the end of the logical line and gives its last physical line.
  std::int32_t LastLine();

 private:
  void Load(std::int32_t lLine);
  bool NextLine();
  bool SkipToCode();
  void SkipLabels();
  bool IsRem() const;
  void SkipComment();
  char Peek(std::size_t l) const { return l < msLine.size() ? msLine[l] : '\0'; }
  std::size_t Step(std::size_t l) const;
  std::size_t WordEnd(std::size_t l) const;
  std::size_t NumberEnd(std::size_t l) const;
  std::size_t DateEnd(std::size_t l) const;
  Token Take(TokenKind eKind, std::size_t lEnd);
  Token TakeString();
  Token TakeBracket();

  const LineTable& moLines;
  std::array<bool, 256> mabLead{};
  std::string_view msLine;
  std::int32_t mlLine = 0;
  std::size_t mlAt = 0;
  std::size_t mlCode = 0;  // end of the code on this physical line, ahead of the continuation mark
  bool mbContinued = false;
  bool mbBrackets = true;  // a "]" may follow on this physical line
  bool mbDone = true;      // nothing but a comment is left
  bool mbFirst = false;    // no statement has begun yet
};
