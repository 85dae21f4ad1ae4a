#include <gtest/gtest.h>

#include "EngineFixture.h"

namespace {

using Set = EngineFixture::Settings;

struct Row {
  const char* sName;
  TextView sBefore;
  TextView sTemplate;
  Set oSet;
  const char* sAfter;
  TextView sType = u"Sub";
  TextView sProc = u"Run";
  std::int32_t lBody = 1;
};

const Row Rows[] = {
    {"plain body",
     u"Sub Run()|    x = 1|End Sub",
     u"plain",
     {},
     "Sub Run()|'Sig: plain|    On Error GoTo Catch|    x = 1|Leave:|    Exit Sub|Catch:|"
     "    Resume Leave|End Sub"},
    {"conditions and trace",
     u"Sub Run()|    If a Then Exit Sub|End Sub|' note",
     u"Plain",
     {true, true, u"tvnBoundaryVB"},
     "Sub Run()|'Sig: Plain&Locked|    T.Enter \"Run\"|    On Error GoTo Catch|"
     "    If a Then T.TraceExit \"Run\": Exit Sub|Leave:|    T.TraceExit \"Run\"|    Exit Sub|"
     "Catch:|    E.B tvnBoundaryVB|    Resume Leave|End Sub|' note"},
    {"property shows its kind",
     u"Property Get Total()|End  PROPERTY",
     u"Plain",
     {true},
     "Property Get Total()|'Sig: Plain|    T.Enter \"Total [Get]\"|    On Error GoTo Catch|Leave:|"
     "    T.TraceExit \"Total [Get]\"|    Exit Property|Catch:|    Resume Leave|End  PROPERTY",
     u"Property Get",
     u"Total"},
    {"continued head, tab ahead of the underscore, comments above",
     u"' a|Sub Run(a,\t_ |  b _|)|x|End Sub",
     u"Plain",
     {},
     "' a|Sub Run(a,\t_ |  b _|)|'Sig: Plain|    On Error GoTo Catch|x|Leave:|    Exit Sub|Catch:|"
     "    Resume Leave|End Sub",
     u"Sub",
     u"Run",
     2},
    {"blank last lines stay",
     u"Sub Run()|End Sub|||",
     u"Plain",
     {},
     "Sub Run()|'Sig: Plain|    On Error GoTo Catch|Leave:|    Exit Sub|Catch:|    Resume Leave|"
     "End Sub|||"},
    {"clean-up code comes out of its comments, with and without the blank",
     u"Sub Run()|    x|'FireExit:     a.Close|'fireexit:b|y|End Sub",
     u"Fire",
     {},
     "Sub Run()|'Sig: Fire|    On Error GoTo Catch|    x|y|Leave:|    'clean|    a.Close|b|"
     "    'cleaned|    Exit Sub|Catch:|    Resume Leave|End Sub"},
    {"what continues a comment is no exit",
     u"Sub Run()|    x ' note _|    Exit Sub|End Sub",
     u"Plain",
     {.bTrace = true},
     "Sub Run()|'Sig: Plain|    T.Enter \"Run\"|    On Error GoTo Catch|    x ' note _|"
     "    Exit Sub|Leave:|    T.TraceExit \"Run\"|    Exit Sub|Catch:|    Resume Leave|End Sub"},
    {"clean-up comments stay where no place is for them",
     u"Sub Run()|'FireExit: a|End Sub|'FireExit: b",
     u"Plain",
     {},
     "Sub Run()|'Sig: Plain|    On Error GoTo Catch|'FireExit: a|Leave:|    Exit Sub|Catch:|"
     "    Resume Leave|End Sub|'FireExit: b"},
    {"a block behind the end is no clean-up code",
     u"Sub Run()|x|End Sub|'FireExit: b",
     u"Fire",
     {},
     "Sub Run()|'Sig: Fire|    On Error GoTo Catch|x|Leave:|    'clean|    'cleaned|    Exit Sub|"
     "Catch:|    Resume Leave|End Sub|'FireExit: b"},
    {"a lock's own signature gives way",
     u"Sub Run()|'Sig: Locked||    x|End Sub",
     u"Plain",
     {false, true},
     "Sub Run()|'Sig: Plain&Locked|    On Error GoTo Catch||    x|Leave:|    Exit Sub|Catch:|"
     "    Resume Leave|End Sub"},
    {"End in a continued comment isn't the end",
     u"Sub Run()|' x _|End Sub|y|End Sub",
     u"Plain",
     {},
     "Sub Run()|'Sig: Plain|    On Error GoTo Catch|' x _|End Sub|y|Leave:|    Exit Sub|Catch:|"
     "    Resume Leave|End Sub"},
    {"declarations",
     u"' head|Option Explicit|DefInt A-Z ' x|Dim a",
     u"Mod",
     {},
     "' head|Option Explicit|DefInt A-Z ' x|'Sig: Mod||Private Const M = \"Mod\"||Dim a",
     u"",
     u"(declarations)"},
    {"declarations of one line",
     u"Option Explicit",
     u"Mod",
     {},
     "Option Explicit|'Sig: Mod||Private Const M = \"Mod\"|",
     u"",
     u"(declarations)"},
    {"empty declarations",
     u"",
     u"Mod",
     {},
     "'Sig: Mod||Private Const M = \"Mod\"|",
     u"",
     u"(declarations)"},
    {"blank declarations get no line end more",
     u"||",
     u"Mod",
     {},
     "||'Sig: Mod||Private Const M = \"Mod\"||",
     u"",
     u"(declarations)"},
    {"a continued comment isn't split",
     u"' a _|Option b|Dim c",
     u"Mod",
     {},
     "' a _|Option b|'Sig: Mod||Private Const M = \"Mod\"||Dim c",
     u"",
     u"(declarations)"},
    {"numbers",
     u"Sub Run()|    x = 1|    y = 2|End Sub",
     u"Plain",
     {.eNumbers = 0},
     "Sub Run()|'Sig: Plain|    On Error GoTo Catch|1   x = 1|2   y = 2|Leave:|    Exit Sub|Catch:|"
     "    Resume Leave|End Sub"},
    // Refusals.
    {"no name", u"Sub Run()|End Sub", u"  ", {}, "! No Template Specified"},
    {"unknown name", u"Sub Run()|End Sub", u"Nix", {}, "! Template not Found [Nix]"},
    {"module template in a procedure",
     u"Sub Run()|End Sub",
     u"Mod",
     {},
     "! Template is not of type procedure [Mod]"},
    {"procedure template in declarations",
     u"Dim a",
     u"Plain",
     {},
     "! Template is not of type module [Plain]",
     u"",
     u"(declarations)"},
    {"no end", u"Sub Run()|x", u"Plain", {}, "! Procedure End Not Found"},
    {"end with a comment, other code behind",
     u"Sub Run()|End Sub ' x|Sub B()|End Sub",
     u"Plain",
     {},
     "! Procedure End Not Found"},
    {"end behind a label",
     u"Sub Run()|Done: End Sub|#If 0|End Sub",
     u"Plain",
     {},
     "! Procedure End Not Found"},
    {"head and end on one line",
     u"Sub Run(): x: End Sub",
     u"Plain",
     {},
     "! Procedure Head and End share a Line"},
    {"two heads, one body",
     u"#If A Then|Sub Run(x)|#Else|Sub Run()|#End If|y|End Sub",
     u"Plain",
     {},
     "#If A Then|Sub Run(x)|#Else|Sub Run()|#End If|'Sig: Plain|    On Error GoTo Catch|y|Leave:|"
     "    Exit Sub|Catch:|    Resume Leave|End Sub",
     u"Sub",
     u"Run",
     4},
    {"head line outside the text",
     u"Sub Run()|End Sub",
     u"Plain",
     {},
     "! Procedure Head Not Found",
     u"Sub",
     u"Run",
     3},
    {"a template is there already",
     u"Sub Run()|'Sig: Fire|End Sub",
     u"Plain",
     {},
     "! Code holds a Template already; Line=2 ['Sig: Fire]"},
};

TEST(Insertion, WritesTheWholeProcedureOrRefuses) {
  for (const Row& oRow : Rows) {
    SCOPED_TRACE(oRow.sName);
    EngineFixture oTest(Templates);
    oTest.oRules.bLineNumSkipShort = false;
    EXPECT_EQ(
        oTest.Insert(oRow.sBefore, oRow.sTemplate, oRow.oSet, oRow.sType, oRow.sProc, oRow.lBody),
        oRow.sAfter);
  }
}

TEST(Insertion, TakesOnlyTheSameHeadInSeveralFormsForOne) {
  const struct {
    const char* name;
    TextView head;
    std::int32_t line;
    bool balanced;
  } rows[] = {
      {"each of two", u"#If A Then|Sub Run(x)|#Else|Sub Run()|#End If|", 2, true},
      {"three with comments and continuations",
       u"' a|# If A Then|Private Sub Run(x, _|y)|' b _|c||#ElseIf B Then|Sub RUN$(x)|# Else|Rem c|"
       u"Sub Run()|#EndIf ' d|",
       12, true},
      {"one head", u"#If A Then|Sub Run()|#End If|", 2, false},
      {"a branch without", u"#If A Then|Sub Run()|#Else|#End If|", 2, false},
      {"two in one branch", u"#If A Then|Sub Run(x)|Sub Run(y)|#Else|Sub Run()|#End If|", 5, false},
      {"one of three branches without",
       u"#If A Then|Sub Run(x)|#ElseIf B Then|#Else|Sub Run()|#End If|", 2, false},
      {"another name", u"#If A Then|Sub Runs(x)|#Else|Sub Run()|#End If|", 4, false},
      {"another type", u"#If A Then|Function Run(x)|#Else|Sub Run()|#End If|", 4, false},
      {"a statement in a branch", u"#If A Then|Sub Run(x)|y|#Else|Sub Run()|#End If|", 5, false},
      {"a declaration ahead", u"#If A Then|Dim x|Sub Run(x)|#Else|Sub Run()|#End If|", 3, false},
      {"a constant in a branch", u"#If A Then|#Const B = 1|Sub Run(x)|#Else|Sub Run()|#End If|", 3,
       false},
      {"no end", u"#If A Then|Sub Run(x)|#Else|Sub Run()|", 2, false},
      {"no start", u"Sub Run(x)|#Else|Sub Run()|#End If|", 1, false},
      {"start of another block", u"#If A Then|#End If|Sub Run(x)|#Else|Sub Run()|#End If|", 3,
       false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EngineFixture test(Templates);
    const Text text = Text(row.head) + u"#If B Then|    x = 1|#End If|End Sub";
    const std::string put = test.Insert(text, u"Gap", {}, u"Sub", u"Run", row.line);
    if (!row.balanced) {
      EXPECT_EQ(put, "! Conditional Compilation in Procedure is not balanced");
      continue;
    }
    EXPECT_TRUE(put.starts_with(ToUtf8(row.head) + "'Sig: Gap|")) << put;
    EXPECT_EQ(test.Remove(FromUtf8(put), u"Gap", u"Sub", u"Run", row.line), ToUtf8(text));
  }
}

TEST(Insertion, RefusesASignatureThatCouldNotBeReadBack) {
  struct {
    const char* sName;
    TextView sLine;
  } const oLines[] = {{"no token", u"'Sig"},
                      {"token twice", u"'<%Signature> <%Signature>"},
                      {"hidden by a pattern", u"'#<%Signature>"},
                      {"bare", u"<%Signature><%ProcName>"}};
  for (const auto& oLine : oLines) {
    SCOPED_TRACE(oLine.sName);
    EngineFixture oTest(u"<#Template name=Sig type=signature>|<#Start>|" + Text(oLine.sLine) +
                        u"|<#End>|<#Template name=P type=procedure>|<#Start>|'a|<#BodyStart>|"
                        u"<#BodyEnd>|'b|<#End>");
    EXPECT_EQ(oTest.Insert(u"Sub Run()|End Sub", u"P", {}),
              "! Signature of Template [P] could not be read back");
  }
}

TEST(Insertion, RefusesANumberThatDoesNotFitItsField) {
  EngineFixture oTest(Templates);
  Text sBody = u"Sub Run()";
  for (int i = 0; i < 10000; ++i) sBody += u"|    x";
  EXPECT_EQ(oTest.Insert(sBody + u"|End Sub", u"Plain", {.eNumbers = 0}),
            "! Line number 10000 does not fit its field of four digits");
}

}  // namespace
