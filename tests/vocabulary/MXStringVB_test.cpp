#include "MXStringVB.h"

#include <gtest/gtest.h>

using namespace MXStringVB;

namespace {

TEST(MXStringVB, SplitsLinesOutsideLiteralsAndComments) {
  const struct {
    TextView sLine;
    const char *sCode, *sWithoutLiterals, *sMasked;
    std::vector<TextView> asStatement;
  } Rows[] = {
      {u"", "", "", "", {u""}},
      {u"x = \"it's\"  ' note",
       "x = \"it's\"  ",
       "x =   ' note",
       "x = \"####\"  ' note",
       {u"x = \"it's\"  ", u"' note"}},
      {u"a = 1: b = \": \"",
       "a = 1: b = \": \"",
       "a = 1: b = ",
       "a = 1: b = \"##\"",
       {u"a = 1", u"b = \": \""}},
      {u"a = 1 ' x: y", "a = 1 ", "a = 1 ' x: y", "a = 1 ' x: y", {u"a = 1 ", u"' x: y"}},
      {u"a:b", "a:b", "a:b", "a:b", {u"a:b"}},
      {u"'only: this", "", "'only: this", "'only: this", {u"", u"'only: this"}},
      {u"a \"b\"\"c: '\": d",
       "a \"b\"\"c: '\": d",
       "a : d",
       "a \"#\"\"####\": d",
       {u"a \"b\"\"c: '\"", u"d"}},
      {u"a \"open: '", "a \"open: '", "a ", "a \"#######", {u"a \"open: '"}},
      {u": ", ": ", ": ", ": ", {u"", u""}},
      {u"a:: :", "a:: :", "a:: :", "a:: :", {u"a:", u":"}},
      {u"a: : b:", "a: : b:", "a: : b:", "a: : b:", {u"a", u"", u"b:"}},
      {u"a:'b: ", "a:", "a:'b: ", "a:'b: ", {u"a:", u"'b: "}},
  };
  for (const auto& o : Rows) {
    SCOPED_TRACE(ToUtf8(o.sLine));
    EXPECT_EQ(ToUtf8(Text(TrimVBComments(o.sLine))), o.sCode);
    EXPECT_EQ(ToUtf8(TrimVBLiterals(o.sLine)), o.sWithoutLiterals);
    EXPECT_EQ(ToUtf8(MaskVBLiterals(o.sLine, u"#")), o.sMasked);
    TextArray asExpected(1);
    asExpected.insert(asExpected.end(), o.asStatement.begin(), o.asStatement.end());
    EXPECT_EQ(SplitStatements(o.sLine), asExpected);
  }
  EXPECT_EQ(MaskVBLiterals(u"\"ab\"", u"xy"), u"\"xyxy\"");
}

TEST(MXStringVB, TellsLineLabels) {
  enum Label { No, Leads, Alone };
  const struct {
    TextView sStatement;
    Label eLabel;
  } Rows[] = {
      {u"Start: x = 1", Leads}, {u"Start:", Alone}, {u"Start:  ", Alone},
      {u"Start:\t", Leads},     {u"My_Label:", No}, {u"    Start:", No},
      {u"a = b", No},           {u": x", Leads},    {u":", Alone},
      {u"1/2:", Alone},         {u"a.b:", No},      {u"a@b:", No},
      {u"\x00C4rger:", Alone},  {u"a{:", No},       {u"", No},
      {u"Z9z[:", No},
  };
  for (const auto& o : Rows) {
    for (const bool bBefore : {false, true}) {
      SCOPED_TRACE(ToUtf8(o.sStatement));
      bool bAlone = bBefore;
      EXPECT_EQ(IsVBLineLabel(o.sStatement, bAlone), o.eLabel != No);
      EXPECT_EQ(bAlone, o.eLabel == No ? bBefore : o.eLabel == Alone);
    }
  }
}

TEST(MXStringVB, BlanksALineNumberInColumnOne) {
  const struct {
    TextView sLine, sExpected;
  } Rows[] = {
      {u"120 x = 1", u"    x = 1"}, {u"120", u"   "},
      {u"12a x", u"12a x"},         {u" 120 x", u" 120 x"},
      {u"10: x = 1", u"10: x = 1"}, {u"", u""},
      {u"10\tx", u"10\tx"},         {u"\x0661 x", u"\x0661 x"},
  };
  for (const auto& o : Rows) {
    Text sLine(o.sLine);
    RemoveVBLineNumber(sLine);
    EXPECT_EQ(ToUtf8(sLine), ToUtf8(o.sExpected));
  }
}

// Letters of the classes that a statement is in: D data, S starts a select, C clears it, E end
// statement, e simple end, L logic, # directive, _ continued.
std::string ClassesOf(TextView s) {
  std::string sResult;
  if (IsVBProcDataDeclaration(s)) sResult += 'D';
  if (StartsVBSelectContext(s)) sResult += 'S';
  if (ClearsVBSelectContext(s)) sResult += 'C';
  if (IsVBEndStatement(s)) sResult += 'E';
  if (IsVBSimpleEnd(s)) sResult += 'e';
  if (IsVBLogicStatement(s)) sResult += 'L';
  if (IsVBCompilerDirective(s)) sResult += '#';
  if (HasVBContinuation(s)) sResult += '_';
  return sResult;
}

TEST(MXStringVB, ClassifiesStatements) {
  const struct {
    TextView sStatement;
    const char* sClasses;
  } Rows[] = {
      {u"", ""},
      {u"dim a", "D"},
      {u"dim", ""},
      {u"static x as long", "D"},
      {u"Dim a", ""},
      {u"select case x", "SL"},
      {u"select case x: case 1", "L"},
      {u"select case case 1", "SL"},
      {u"select case x case", "L"},
      {u"select case", "SL"},
      {u"select case ", "SL"},
      {u"xselect case y", "L"},
      {u"case", "CL"},
      {u"case else", "CEL"},
      {u"cased = 1", ""},
      {u"case:", ""},
      {u"else", "EL"},
      {u"else:", "L"},
      {u"end if", "EL"},
      {u"end if ", "L"},
      {u"end  if", ""},
      {u"x end select: y", "L"},
      {u"end with", "Ee"},
      {u"return", "EeL"},
      {u"if x then", "L"},
      {u"then x elseif", "L"},
      {u"if x", ""},
      {u"x = 1", ""},
      {u"foo: next", "L"},
      {u"fortune = next1", ""},
      {u"exit do", "EL"},
      {u"exit sub", ""},
      {u"on x gosub y", "L"},
      {u"do while", "L"},
      {u"loop:", "L"},
      {u"#if x then", "#"},
      {u"#iffy", "#"},
      {u"#end ifs", "#"},
      {u"#endif", ""},
      {u"a _", "_"},
      {u"_", ""},
      {u"a_", ""},
  };
  for (const auto& o : Rows) {
    SCOPED_TRACE(ToUtf8(o.sStatement));
    EXPECT_EQ(ClassesOf(o.sStatement), o.sClasses);
  }
}

}  // namespace
