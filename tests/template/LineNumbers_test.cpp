#include <gtest/gtest.h>

#include "../vocabulary/Ids.h"
#include "EngineFixture.h"
#include "LineNumbers.h"
#include "ProcText.h"

namespace {

std::string Number(TextView sPiped, MQuillon::LineNumAction eAction, const MRules::Values& oRules) {
  const Text sCode = Code(sPiped);
  const ProcText oProc(sCode);
  std::vector<TextView> asLine;
  for (std::size_t i = 0; i < oProc.Count(); ++i) asLine.push_back(oProc.Line(i));
  Text sResult = LineNumbers::DoLineNumbers(asLine, eAction, oRules);
  sResult.resize(sResult.size() - CrLf.size());
  return Piped(sResult);
}

struct Row {
  const char* sName;
  TextView sBefore;
  const char* sAfter;
  std::int32_t eWhat = 0;
  bool bSkipEnd = true;
  std::int32_t lShort = 0;
  std::int32_t lInterval = 3;
};

const Row Rows[] = {
    {"in the margin", u"    x = 1|        y = 2|", "1   x = 1|2       y = 2|"},
    {"no room: all lines move", u"  x = 1||y = 2|    z", "1     x = 1|    |2   y = 2|3       z"},
    {"old numbers go first", u"10  x|7   y", "1   x|2   y"},
    {"a narrow old margin", u"10 x = 1", "1      x = 1"},
    {"label alone, label with a statement", u"Start:|Start: x = 1|    y",
     "Start:|1   Start: x = 1|2   y"},
    {"its second numbering", u"1   Start: x = 1|2   y", "1   Start: x = 1|2   y"},
    {"underscore is no label", u"My_Label:|    x", "1   My_Label:|2       x"},
    {"comments, blanks and directives", u"    ' a||    #If A Then|    x|    # End If",
     "    ' a||    #If A Then|1   x|    # End If"},
    {"continued statement", u"    x = 1 + _|22 + _|  3|    y",
     "1       x = 1 + _|    22 + _|      3|2       y"},
    {"digits that continue a statement are no number", u"    x = 1 + _|    2|    y",
     "1   x = 1 + _|    2|2   y"},
    {"last line continued", u"    x = 1 _", "1   x = 1 _"},
    {"continued comment", u"    ' a _|    b|    x", "    ' a _|    b|1   x"},
    {"short lines keep their text", u"End|a|    x = 1", "1   End|2   a|3   x = 1"},
    {"data declarations", u"    Dim a|    Const b = 1|    Static c|    x",
     "    Dim a|    Const b = 1|    Static c|1   x"},
    {"ends skipped", u"    If a Then|    x|    Else|    End If|    Next|    Return|    End With",
     "1   If a Then|2   x|    Else|    End If|    Next|    Return|    End With"},
    {"ends numbered", u"    x|    End If|    End With", "1   x|2   End If|3   End With", 0, false},
    {"first Case has no number",
     u"    Select Case x|    ' c|    Case 1|    y|    Case 2|    End Select",
     "1   Select Case x|    ' c|    Case 1|2   y|3   Case 2|    End Select"},
    {"Case on the same line", u"    Select Case x: Case 1|    Case 2",
     "1   Select Case x: Case 1|2   Case 2"},
    {"Select Case on the first Case", u"    Select Case x|    Case 1: Select Case y|    Case 2",
     "1   Select Case x|    Case 1: Select Case y|    Case 2"},
    {"each Case that a branch can make the first",
     u"    Select Case x|#If A Then|    Case 1|#ElseIf B Then|    Case 2|#End If|    Case 3|    "
     u"Case 4",
     "1       Select Case x|    #If A Then|        Case 1|    #ElseIf B Then|        Case 2|    "
     "#End If|"
     "        Case 3|2       Case 4"},
    {"a first Case in every branch", u"Select Case x|#If A Then|Case 1|#Else|Case 2|#End If|Case 3",
     "1   Select Case x|    #If A Then|    Case 1|    #Else|    Case 2|    #End If|2   Case 3"},
    {"every third", u"    a = 1|    b = 1|    c = 1|    d = 1",
     "1   a = 1|    b = 1|    c = 1|2   d = 1", 1},
    {"an interval of one is one of two", u"    a = 1|    b = 1|    c = 1",
     "1   a = 1|    b = 1|2   c = 1", 1, true, 0, 1},
    {"logic only", u"    x = 1|    If x Then|    End With|    End If",
     "    x = 1|1   If x Then|    End With|2   End If", 2},
    {"short procedure loses its numbers", u"    Dim a|1   x", "    Dim a|    x", 0, true, 2},
    {"a literal is no keyword", u"    x = \" if then \"", "    x = \" if then \"", 2},
    {"numbers written as labels stay and are not given twice", u"1: x = 1|    y| 5 z",
     "    1: x = 1|2       y|     5 z"},
    {"tabs", u"\tx = 1", "1   \tx = 1"},
    {"the first Case behind a tab", u"\tSelect Case x|\tCase 1|\t Case\t2",
     "1   \tSelect Case x|    \tCase 1|2   \t Case\t2"},
    {"a declaration and nothing behind tabs", u"\tDim a|\t|\tx", "    \tDim a|    \t|1   \tx"},
    {"a number beside tabs stays", u"1\tx|\t2 y|\t3\tz", "    1\tx|    \t2 y|    \t3\tz"},
    {"the first Case of a Select Case with a number of its own", u"1: Select Case x|    Case 1",
     "1: Select Case x|    Case 1"},
    {"a continued comment doesn't hide its statement", u"    x ' a _|    b|    y ' c",
     "1   x ' a _|    b|2   y ' c", 0, true, 2},
};

TEST(LineNumbers, ArePutInByTheRulesAndTwiceEqualsOnce) {
  for (const Row& oRow : Rows) {
    SCOPED_TRACE(oRow.sName);
    MRules::Values oRules;
    oRules.eLineNumWhat = Id{oRow.eWhat};
    oRules.bLineNumSkipEnd = oRow.bSkipEnd;
    oRules.lLineNumInterval = oRow.lInterval;
    oRules.lLineNumSkipShortSize = oRow.lShort;
    EXPECT_EQ(Number(oRow.sBefore, Id{0}, oRules), oRow.sAfter);
    EXPECT_EQ(Number(FromUtf8(oRow.sAfter), Id{0}, oRules), oRow.sAfter);
  }
}

TEST(LineNumbers, StayOrBecomeBlanksOfTheSameWidth) {
  const MRules::Values oRules;
  const TextView sBody = u"120 x = 1 + _|22 + 3|12a y| 7 z|5";
  EXPECT_EQ(Number(sBody, Id{1}, oRules), ToUtf8(sBody));
  EXPECT_EQ(Number(sBody, Id{2}, oRules), "    x = 1 + _|22 + 3|12a y| 7 z| ");
}

TEST(LineNumbers, OfFourDigitsStayWordsOfTheirOwn) {
  MRules::Values oRules;
  Text sBody;
  for (int i = 0; i < 1000; ++i) sBody += u"    x|";
  const std::string sOnce = Number(sBody, Id{0}, oRules);
  EXPECT_TRUE(sOnce.ends_with("|999 x|1000 x|")) << sOnce.substr(sOnce.size() - 30);
  EXPECT_EQ(Number(FromUtf8(sOnce), Id{0}, oRules), sOnce);
}

}  // namespace
