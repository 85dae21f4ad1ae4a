#include "MXStringVB.h"

#include "TextRows.h"

using namespace MXStringVB;

namespace {

TEST(MXStringVB, SplitsLinesOutsideLiteralsAndComments) {
  // A line: without its comment, without its literals, masked; then its statements.
  ExpectRows(
      u"~|||^|; "
      u"x = `it's`  ' n~|x = `it's`  |x =   ' n|x = `####`  ' n^|x = `it's`  |' n; "
      u"a = 1: b = `: `~|a = 1: b = `: `|a = 1: b = |a = 1: b = `##`^|a = 1|b = `: `; "
      u"a = 1 ' x: y~|a = 1 |a = 1 ' x: y|a = 1 ' x: y^|a = 1 |' x: y; "
      u"'only: this~||'only: this|'only: this^||'only: this; a:b~|a:b|a:b|a:b^|a:b; "
      u"a `b``c: '`: d~|a `b``c: '`: d|a : d|a `#``####`: d^|a `b``c: '`|d; "
      u"a `open: '~|a `open: '|a |a `#######^|a `open: '; : ~|: |: |: ^||; "
      u"a:: :~|a:: :|a:: :|a:: :^|a:|:; a: : b:~|a: : b:|a: : b:|a: : b:^|a||b:; "
      u"a:'b: ~|a:|a:'b: |a:'b: ^|a:|'b: ",
      [](TextView s) {
        return Bars({u"", Text(TrimVBComments(s)), TrimVBLiterals(s), MaskVBLiterals(s, u"#")}) +
               u'^' + Bars(SplitStatements(s));
      });
  EXPECT_EQ(MaskVBLiterals(u"\"ab\"", u"xy"), u"\"xyxy\"");
}

TEST(MXStringVB, TellsLineLabels) {
  ExpectRows(
      u"Start: x = 1~leads; Start:~alone; Start:  ~alone; Start:\t~leads; : x~leads; "
      u"    Start:~; My_Label:~; a = b~; \x00C4rger:~alone; 1/2:~alone; a.b:~; a@b:~; "
      u"Z9z[:~; :~alone; a{:~; ~; a b:~; ::~leads",
      [](TextView s) {
        bool bAlone = false, bOther = true;
        const bool bLabel = IsVBLineLabel(s, bAlone);
        EXPECT_EQ(IsVBLineLabel(s, bOther), bLabel);
        EXPECT_EQ(bAlone != bOther, !bLabel) << "without a label the argument stays";
        return Text(!bLabel ? u"" : bAlone ? u"alone" : u"leads");
      });
}

TEST(MXStringVB, BlanksALineNumberInColumnOne) {
  ExpectRows(
      u"120 x = 1~    x = 1; 120~   ; 12a x~12a x; \x0661 x~\x0661 x; 10\tx~10\tx; "
      u" 120 x~ 120 x; 10: x = 1~10: x = 1; ~",
      [](TextView s) {
        Text sLine(s);
        RemoveVBLineNumber(sLine);
        return sLine;
      });
}

TEST(MXStringVB, ClassifiesStatements) {
  const std::pair<bool (*)(TextView), char16_t> Tests[] = {
      {IsVBProcDataDeclaration, 'D'}, {StartsVBSelectContext, 'S'}, {ClearsVBSelectContext, 'C'},
      {IsVBEndStatement, 'E'},        {IsVBSimpleEnd, 'e'},         {IsVBLogicStatement, 'L'},
      {IsVBCompilerDirective, '#'},   {HasVBContinuation, '_'}};
  ExpectRows(
      u"~; dim~; Dim a~; cased = 1~; case:~; end  if~; if x~; x = 1~; a_~; "
      u"next1 = fortune~; exit sub~; #endif~; _~; x = elseif~; Select Case x~; "
      u"dim a~D; static x as long~D; const c = 1~D; select case x~SL; "
      u"select case case 1~SL; select case~SL; select case ~SL; "
      u"select case x: case 1~L; select case x case~L; xselect case y~L; do while~L; "
      u"else:~L; end if ~L; x end select: y~L; if x then~L; then x elseif~L; loop:~L; "
      u"foo: next~L; on x gosub y~L; x for~L; case~CL; case 1~CL; case else~CEL; "
      u"else~EL; end if~EL; exit do~EL; end with~Ee; return~EeL; #if x then~#; "
      u"#iffy~#; #end ifs~#; a _~_;  _~_",
      [&](TextView s) {
        Text sClasses;
        for (const auto& [Holds, cClass] : Tests) sClasses.append(Holds(s), cClass);
        return sClasses;
      });
}

}  // namespace
