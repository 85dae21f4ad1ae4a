#include "MemberScan.h"

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

Keyword KeywordOf(const Token& oToken) {
  if (oToken.eKind != TokenKind::Word) return Keyword::None;
  for (const KeywordRow& oRow : aoKeyword) {
    if (IsWord(oToken.sText, oRow.sWord)) return oRow.eKeyword;
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
  oStatement.nProcKind = eKind == Keyword::Let ? 1 : eKind == Keyword::Set ? 2 : 3;
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

// A letter that one of the words Sub, Static, Function, Friend, Private, Public, Property, Global
// or End begins with, and a second one that goes with it.
bool MayBeginWord(std::string_view sLine) {
  if (sLine.size() < 3) return false;
  const char cSecond = AsciiLower(sLine[1]);
  switch (AsciiLower(sLine[0])) {
    case 'e':
      return cSecond == 'n' && AsciiLower(sLine[2]) == 'd';
    case 's':
      return cSecond == 'u' || cSecond == 't';
    case 'f':
      return cSecond == 'u' || cSecond == 'r';
    case 'p':
      return cSecond == 'r' || cSecond == 'u';
    case 'g':
      return cSecond == 'l';
    default:
      return IsDigit(sLine[0]);
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

bool MayEndBody(std::string_view sLine) {
  if (sLine.find(':') != std::string_view::npos) return true;
  if (ContinuationMark(sLine) != std::string_view::npos) return true;
  return MayBeginWord(SkipBlanks(sLine));
}
