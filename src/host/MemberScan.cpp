#include "MemberScan.h"

#include <array>

#include "ByteText.h"

namespace {

enum class Keyword {
  None,
  As,
  Const,
  Declare,
  Dim,
  End,
  Enum,
  Event,
  Friend,
  Function,
  Get,
  Global,
  Let,
  Private,
  Property,
  PtrSafe,
  Public,
  Set,
  Static,
  Sub,
  Type,
  WithEvents
};

struct KeywordRow {
  std::string_view sWord;
  Keyword eKeyword;
};

constexpr KeywordRow aoKeyword[] = {
    {"as", Keyword::As},
    {"const", Keyword::Const},
    {"declare", Keyword::Declare},
    {"dim", Keyword::Dim},
    {"end", Keyword::End},
    {"enum", Keyword::Enum},
    {"event", Keyword::Event},
    {"friend", Keyword::Friend},
    {"function", Keyword::Function},
    {"get", Keyword::Get},
    {"global", Keyword::Global},
    {"let", Keyword::Let},
    {"private", Keyword::Private},
    {"property", Keyword::Property},
    {"ptrsafe", Keyword::PtrSafe},
    {"public", Keyword::Public},
    {"set", Keyword::Set},
    {"static", Keyword::Static},
    {"sub", Keyword::Sub},
    {"type", Keyword::Type},
    {"withevents", Keyword::WithEvents},
};

/// Of each letter the first row that begins with it or a later one. The rows are in their order.
constexpr auto FirstRow = [] {
  std::array<std::uint8_t, 27> first{};
  for (std::size_t letter = 0; letter < first.size(); ++letter) {
    while (first[letter] < std::size(aoKeyword) &&
           aoKeyword[first[letter]].sWord[0] < static_cast<char>('a' + letter)) {
      ++first[letter];
    }
  }
  return first;
}();

Keyword KeywordOf(const Token& oToken) {
  if (oToken.eKind != TokenKind::Word) return Keyword::None;
  const char initial = AsciiLower(oToken.sText.front());
  if (initial < 'a' || initial > 'z') return Keyword::None;
  const auto letter = static_cast<std::size_t>(initial - 'a');
  for (std::size_t row = FirstRow[letter]; row < FirstRow[letter + 1]; ++row) {
    if (IsWord(oToken.sText, aoKeyword[row].sWord)) return aoKeyword[row].eKeyword;
  }
  return Keyword::None;
}

Access AccessOf(Keyword eKeyword) {
  switch (eKeyword) {
    case Keyword::Private:
      return Access::Private;
    case Keyword::Public:
    case Keyword::Global:
      return Access::Public;
    case Keyword::Friend:
      return Access::Friend;
    default:
      return Access::None;
  }
}

char WordOf(Keyword eKeyword) {
  if (eKeyword == Keyword::Sub) return 's';
  if (eKeyword == Keyword::Function) return 'f';
  return eKeyword == Keyword::Property ? 'p' : '\0';
}

// "Sub As Long" is a member of a Type: As is never a name.
bool IsDeclaredName(const Token& oToken) {
  return oToken.IsName() && KeywordOf(oToken) != Keyword::As;
}

void TakeName(Statement& oStatement, StatementKind eKind, const Token& oName) {
  if (!IsDeclaredName(oName)) return;
  oStatement.eKind = eKind;
  oStatement.oName = oName;
}

void ReadProperty(Statement& oStatement, LexicalScan& oScan) {
  const Keyword eKind = KeywordOf(oScan.Next());
  if (eKind != Keyword::Let && eKind != Keyword::Set && eKind != Keyword::Get) return;
  oStatement.nProcKind = eKind == Keyword::Let   ? ProcKind::Let
                         : eKind == Keyword::Set ? ProcKind::Set
                                                 : ProcKind::Get;
  TakeName(oStatement, StatementKind::Procedure, oScan.Next());
}

void ReadDeclare(Statement& oStatement, LexicalScan& oScan) {
  Keyword eKeyword = KeywordOf(oScan.Next());
  if (eKeyword == Keyword::PtrSafe) eKeyword = KeywordOf(oScan.Next());
  if (eKeyword != Keyword::Sub && eKeyword != Keyword::Function) return;
  TakeName(oStatement, StatementKind::Declare, oScan.Next());
}

void ReadEnd(Statement& oStatement, LexicalScan& oScan) {
  const Keyword eKeyword = KeywordOf(oScan.Next());
  oStatement.cWord = WordOf(eKeyword);
  if (oStatement.cWord != '\0') oStatement.eKind = StatementKind::EndProcedure;
  if (eKeyword == Keyword::Type) oStatement.eKind = StatementKind::EndType;
  if (eKeyword == Keyword::Enum) oStatement.eKind = StatementKind::EndEnum;
}

void ReadVariables(Statement& oStatement, const Token& oFirst, LexicalScan& oScan) {
  const bool bEvents = KeywordOf(oFirst) == Keyword::WithEvents;
  TakeName(oStatement, StatementKind::Variables, bEvents ? oScan.Next() : oFirst);
}

// True when the word that the statement begins with is one that a head or an end begins with. Of
// an end (of a procedure, a Type or an Enum) the second word counts as well: most statements with
// End close some other block.
bool MayBeginHeadOrEnd(std::string_view sCode) {
  while (!sCode.empty() && IsDigit(sCode.front())) sCode.remove_prefix(1);
  sCode = SkipBlanks(sCode);
  if (sCode.size() < 4) return false;
  const auto Is = [&](std::string_view sWord) { return StartsNoCase(sCode, sWord); };
  switch (AsciiLower(sCode[0])) {
    case 'e': {
      if (!Is("end")) return false;
      const std::string_view sRest = SkipBlanks(sCode.substr(3));
      const char c = sRest.empty() ? '\0' : AsciiLower(sRest[0]);
      if (c == 's') return sRest.size() > 1 && AsciiLower(sRest[1]) == 'u';
      return c == 'f' || c == 'p' || c == 't' || c == 'e';
    }
    case 's':
      return Is("sub") || Is("static");
    case 'f':
      return Is("function") || Is("friend");
    case 'p':
      return Is("private") || Is("public") || Is("property");
    case 'g':
      return Is("global");
    default:
      return false;
  }
}

}  // namespace

Statement ReadStatement(LexicalScan& oScan) {
  Statement oStatement;
  Token oToken = oScan.Next();
  Keyword eKeyword = KeywordOf(oToken);
  while (AccessOf(eKeyword) != Access::None || eKeyword == Keyword::Static) {
    if (eKeyword != Keyword::Static) oStatement.eAccess = AccessOf(eKeyword);
    oToken = oScan.Next();
    eKeyword = KeywordOf(oToken);
  }
  switch (eKeyword) {
    case Keyword::Sub:
    case Keyword::Function:
      TakeName(oStatement, StatementKind::Procedure, oScan.Next());
      break;
    case Keyword::Property:
      ReadProperty(oStatement, oScan);
      break;
    case Keyword::Declare:
      ReadDeclare(oStatement, oScan);
      break;
    case Keyword::Event:
      TakeName(oStatement, StatementKind::Event, oScan.Next());
      break;
    case Keyword::Const:
      TakeName(oStatement, StatementKind::Constants, oScan.Next());
      break;
    case Keyword::Type:
      TakeName(oStatement, StatementKind::Type, oScan.Next());
      break;
    case Keyword::Enum:
      TakeName(oStatement, StatementKind::Enum, oScan.Next());
      break;
    case Keyword::Dim:
      ReadVariables(oStatement, oScan.Next(), oScan);
      break;
    case Keyword::End:
      ReadEnd(oStatement, oScan);
      break;
    default:
      if (oStatement.eAccess != Access::None) ReadVariables(oStatement, oToken, oScan);
  }
  if (oStatement.eKind == StatementKind::Procedure) oStatement.cWord = WordOf(eKeyword);
  return oStatement;
}

bool NextName(LexicalScan& oScan, Token& oName) {
  int nDepth = 0;
  for (Token o = oScan.Next(); o.eKind != TokenKind::End; o = oScan.Next()) {
    if (o.IsMark('(')) ++nDepth;
    if (o.IsMark(')')) --nDepth;
    if (nDepth > 0 || !o.IsMark(',')) continue;
    oName = oScan.Next();
    if (KeywordOf(oName) == Keyword::WithEvents) oName = oScan.Next();
    if (IsDeclaredName(oName)) return true;
  }
  return false;
}

bool MayEndBody(std::string_view sLine, std::string_view sCode) {
  if (ContinuationMark(sLine) != std::string_view::npos) return true;
  if (MayBeginHeadOrEnd(sCode)) return true;
  for (std::size_t l = sCode.find(':'); l != std::string_view::npos; l = sCode.find(':', l + 1)) {
    if (MayBeginHeadOrEnd(SkipBlanks(sCode.substr(l + 1)))) return true;
  }
  return false;
}
