// An expression is read by precedence climbing over the tokens of its line.
#include "CondValue.h"

#include <cmath>
#include <cstdlib>

#include "ByteText.h"
#include "LikePattern.h"

namespace {

constexpr int MaxDepth = 100;  // hostile nesting must not exhaust the stack

struct Operator {
  std::string_view sName;
  int nLevel;  // the higher, the closer it binds; 0: no operator
};

constexpr Operator aoOperator[] = {
    {"imp", 1}, {"eqv", 2},  {"xor", 3}, {"or", 4}, {"and", 5},  {"=", 7},  {"<>", 7},
    {"<=", 7},  {">=", 7},   {"<", 7},   {">", 7},  {"like", 7}, {"&", 8},  {"+", 9},
    {"-", 9},   {"mod", 10}, {"\\", 11}, {"*", 12}, {"/", 12},   {"^", 14},
};
constexpr int NotLevel = 6;
constexpr int SignLevel = 13;

std::int64_t Whole(const CondValue& oValue) {
  const double d = std::nearbyint(oValue.Number());
  return std::abs(d) < 9e15 ? static_cast<std::int64_t>(d) : 0;
}

CondValue OfWhole(std::int64_t l) {
  return CondValue::Of(static_cast<double>(l));
}

bool IsText(const CondValue& oLeft, const CondValue& oRight) {
  const auto eText = CondValue::Kind::String;
  const auto eEmpty = CondValue::Kind::Empty;
  return (oLeft.eKind == eText && (oRight.eKind == eText || oRight.eKind == eEmpty)) ||
         (oRight.eKind == eText && oLeft.eKind == eEmpty);
}

int Compare(const CondValue& oLeft, const CondValue& oRight) {
  if (IsText(oLeft, oRight)) return oLeft.sText.compare(oRight.sText);
  const double dLeft = oLeft.Number();
  const double dRight = oRight.Number();
  return dLeft < dRight ? -1 : dLeft > dRight ? 1 : 0;
}

CondValue CompareBy(std::string_view sOperator, const CondValue& oLeft, const CondValue& oRight) {
  if (sOperator == "like") return CondValue::Of(LikePattern(oRight.sText).Matches(oLeft.sText));
  const int n = Compare(oLeft, oRight);
  if (sOperator == "=") return CondValue::Of(n == 0);
  if (sOperator == "<>") return CondValue::Of(n != 0);
  if (sOperator == "<=") return CondValue::Of(n <= 0);
  if (sOperator == ">=") return CondValue::Of(n >= 0);
  return CondValue::Of(sOperator == "<" ? n < 0 : n > 0);
}

CondValue Calculate(std::string_view sOperator, double dLeft, double dRight) {
  if (sOperator == "+") return CondValue::Of(dLeft + dRight);
  if (sOperator == "-") return CondValue::Of(dLeft - dRight);
  if (sOperator == "*") return CondValue::Of(dLeft * dRight);
  if (sOperator == "^") return CondValue::Of(std::pow(dLeft, dRight));
  return CondValue::Of(dRight == 0 ? 0.0 : dLeft / dRight);
}

CondValue Combine(std::string_view sOperator, std::int64_t lLeft, std::int64_t lRight) {
  if (sOperator == "and") return OfWhole(lLeft & lRight);
  if (sOperator == "or") return OfWhole(lLeft | lRight);
  if (sOperator == "xor") return OfWhole(lLeft ^ lRight);
  if (sOperator == "eqv") return OfWhole(~(lLeft ^ lRight));
  if (sOperator == "imp") return OfWhole(~lLeft | lRight);
  if (lRight == 0) return {};
  return OfWhole(sOperator == "mod" ? lLeft % lRight : lLeft / lRight);
}

Text ShownText(const CondValue& oValue) {
  if (oValue.eKind != CondValue::Kind::Number) return oValue.sText;
  return ToText(Whole(oValue));
}

CondValue Apply(const Operator& oOperator, const CondValue& oLeft, const CondValue& oRight) {
  const std::string_view sName = oOperator.sName;
  if (oOperator.nLevel == 7) return CompareBy(sName, oLeft, oRight);
  if (sName == "&" || (sName == "+" && IsText(oLeft, oRight))) {
    return CondValue::Of(ShownText(oLeft) + ShownText(oRight));
  }
  if (oOperator.nLevel < 7 || sName == "mod" || sName == "\\") {
    return Combine(sName, Whole(oLeft), Whole(oRight));
  }
  return Calculate(sName, oLeft.Number(), oRight.Number());
}

CondValue CallFunction(std::string_view sName, const CondValue& oValue) {
  const double d = oValue.Number();
  if (IsWord(sName, "len")) return CondValue::Of(static_cast<double>(ShownText(oValue).size()));
  if (IsWord(sName, "lenb"))
    return CondValue::Of(2.0 * static_cast<double>(ShownText(oValue).size()));
  if (IsWord(sName, "cbool")) return CondValue::Of(oValue.IsTrue());
  if (IsWord(sName, "int")) return CondValue::Of(std::floor(d));
  if (IsWord(sName, "fix")) return CondValue::Of(std::trunc(d));
  if (IsWord(sName, "abs")) return CondValue::Of(std::abs(d));
  if (IsWord(sName, "sgn")) return CondValue::Of(d < 0 ? -1.0 : d > 0 ? 1.0 : 0.0);
  if (IsWord(sName, "cstr")) return CondValue::Of(ShownText(oValue));
  if (IsWord(sName, "cint") || IsWord(sName, "clng") || IsWord(sName, "cbyte")) {
    return CondValue::Of(std::nearbyint(d));
  }
  return oValue;  // CVar, CDbl, CSng, CCur, CDate change nothing that matters here
}

class Expression {
 public:
  Expression(LexicalScan& oScan, const CondNames& oNames, const CodePage& oPage)
      : moScan(oScan), moNames(oNames), moPage(oPage), moToken(oScan.Next()) {}

  CondValue Read(int nLevel) {
    if (++mnDepth > MaxDepth) return {};
    CondValue oLeft = ReadOperand();
    for (Operator o = TakeOperator(nLevel); o.nLevel > 0; o = TakeOperator(nLevel)) {
      oLeft = Apply(o, oLeft, Read(o.nLevel + 1));
    }
    --mnDepth;
    return oLeft;
  }

 private:
  void Advance() { moToken = moScan.Next(); }

  CondValue ReadOperand() {
    const Token oToken = moToken;
    Advance();
    if (oToken.eKind == TokenKind::Number) return ReadNumber(oToken.sText);
    if (oToken.eKind == TokenKind::Literal) return ReadString(oToken.sText);
    if (oToken.IsMark('-')) return CondValue::Of(-Read(SignLevel).Number());
    if (oToken.IsMark('+')) return Read(SignLevel);
    if (oToken.IsMark('(')) return ReadRest();
    if (oToken.eKind != TokenKind::Word) return {};
    if (IsWord(oToken.sText, "not")) return OfWhole(~Whole(Read(NotLevel)));
    if (IsWord(oToken.sText, "true")) return CondValue::Of(true);
    if (IsWord(oToken.sText, "false")) return CondValue::Of(false);
    if (moToken.IsMark('(')) {
      Advance();
      return CallFunction(oToken.sText, ReadRest());
    }
    const auto pFound = moNames.find(LowerCase(moPage.Decode(oToken.sText)));
    return pFound == moNames.end() ? CondValue() : pFound->second;
  }

  // What stands in brackets, behind the opening one.
  CondValue ReadRest() {
    CondValue oValue = Read(0);
    if (moToken.IsMark(')')) Advance();
    return oValue;
  }

  static CondValue ReadNumber(std::string_view sText) {
    const std::string sDigits(sText);
    if (sText[0] != '&') return CondValue::Of(std::strtod(sDigits.c_str(), nullptr));
    const int nBase = AsciiLower(sText[1]) == 'h' ? 16 : 8;
    const auto n = std::strtoul(sDigits.c_str() + 2, nullptr, nBase);
    // As in code: up to four digits are an Integer, so &HFFFF is -1.
    if (sDigits.size() <= 6 && nBase == 16) {
      return CondValue::Of(static_cast<std::int32_t>(static_cast<std::int16_t>(n)));
    }
    return CondValue::Of(static_cast<std::int32_t>(n));
  }

  CondValue ReadString(std::string_view sBytes) const {
    Text sText = moPage.Decode(sBytes);
    for (std::size_t l = sText.find(u"\"\""); l != Text::npos; l = sText.find(u"\"\"", l + 1)) {
      sText.erase(l, 1);
    }
    return CondValue::Of(std::move(sText));
  }

  Operator TakeOperator(int nLevel) {
    if (moToken.eKind != TokenKind::Word && moToken.eKind != TokenKind::Mark) return {{}, 0};
    for (const Operator& oOperator : aoOperator) {
      if (!IsWord(moToken.sText, oOperator.sName)) continue;
      if (oOperator.nLevel < nLevel) return {{}, 0};
      Advance();
      return Widened(oOperator);
    }
    return {{}, 0};
  }

  // <, > and the mark behind it come as two tokens.
  Operator Widened(const Operator& oOperator) {
    const bool bLess = oOperator.sName == "<";
    if (!bLess && oOperator.sName != ">") return oOperator;
    if (!moToken.IsMark('=') && !(bLess && moToken.IsMark('>'))) return oOperator;
    const Operator oWide{moToken.IsMark('>') ? "<>" : bLess ? "<=" : ">=", oOperator.nLevel};
    Advance();
    return oWide;
  }

  LexicalScan& moScan;
  const CondNames& moNames;
  const CodePage& moPage;
  Token moToken;
  int mnDepth = 0;
};

}  // namespace

double CondValue::Number() const {
  if (eKind != Kind::String) return dNumber;
  return std::strtod(ToUtf8(sText).c_str(), nullptr);
}

bool CondValue::IsTrue() const {
  if (eKind == Kind::String && EqualNoCase(sText, u"true")) return true;
  return Number() != 0;
}

CondValue EvaluateCondition(LexicalScan& oScan, const CondNames& oNames, const CodePage& oPage) {
  return Expression(oScan, oNames, oPage).Read(0);
}
