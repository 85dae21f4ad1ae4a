#include <gtest/gtest.h>

#include "EngineFixture.h"

namespace {

using Set = EngineFixture::Settings;

TEST(Removal, GivesBackWhatAnInsertionWasGiven) {
  const struct {
    const char* sName;
    TextView sBefore;
    TextView sType = u"Sub";
  } oBodies[] = {
      {"empty body", u"Sub Run()|End Sub"},
      {"blank lines at both ends of the body", u"Sub Run()|||    x = 1|||End Sub||"},
      {"exits in every place",
       u"Function Run()|    Exit Function|If a Then Exit Function Else Exit Function|10 Exit "
       u"Function|"
       u"Done: Exit Function ' Exit Function|x = \"Exit Function\"|    If b Then|    Else: Exit "
       u"Function|"
       u"' a _|Exit Function|Rem Exit Function|Exit FunctionX|End Function",
       u"Function"},
      {"an inner handler like the template's own",
       u"Sub Run()|    On Error Resume Next|    On Error GoTo 0|    On Error GoTo Catch|End Sub"},
      {"continued lines that begin with digits", u"Sub Run()|    x = 1 + _|22 + 3|End Sub"},
      {"clean-up block", u"Sub Run()|    x|'FireExit:     a = 1|'FireExit: b|End Sub"},
      {"conditional compilation inside", u"Sub Run()|#If A Then|x|#Else|y|#End If|End Sub"},
      {"accents", u"Sub Run()|    s = \"\u00c9t\u00e9\"|End Sub"},
  };
  for (TextView sTemplate : {u"Plain", u"Fire", u"Gap"}) {
    for (bool bTrace : {false, true}) {
      for (const auto& oBody : oBodies) {
        SCOPED_TRACE(ToUtf8(sTemplate) + ", " + oBody.sName);
        EngineFixture oTest(Templates);
        const std::string sPut =
            oTest.Insert(oBody.sBefore, sTemplate, {bTrace, false, u"tvnBoundaryVB"}, oBody.sType);
        ASSERT_FALSE(sPut.starts_with("!")) << sPut;
        EXPECT_NE(sPut, ToUtf8(oBody.sBefore));
        EXPECT_EQ(oTest.Remove(FromUtf8(sPut), sTemplate, oBody.sType), ToUtf8(oBody.sBefore));
      }
    }
  }
}

TEST(Removal, TakesATemplateOutOfChangedCodeOrTellsWhyNot) {
  const struct {
    const char* sName;
    TextView sTemplate;
    TextView sBefore;
    const char* sAfter;
  } oRows[] = {
      {"numbers become blanks", u"Plain",
       u"Sub Run()|'Sig: Plain|On Error GoTo Catch|10 x = 1|Leave:|Exit Sub|Catch:|Resume "
       u"Leave|End Sub",
       "Sub Run()|   x = 1|End Sub"},
      {"trace exit of a procedure that had another name", u"Plain",
       u"Sub Run()|'Sig: Plain|T.Enter \"Old\"|On Error GoTo Catch|  T.TraceExit \"Old\": Exit Sub|"
       u"If a Then T.TraceExit \"Old\": Exit Sub|b: T.TraceExit \"Old\": c|Leave:|T.TraceExit "
       u"\"Old\"|"
       u"Exit Sub|Catch:|Resume Leave|End Sub",
       "Sub Run()|  Exit Sub|If a Then Exit Sub|b: c|End Sub"},
      {"clean-up code waits as comments, blank lines dropped", u"Fire",
       u"Sub Run()|'Sig: Fire|On Error GoTo Catch|x|Leave:|'clean|  a||b|'cleaned|Exit Sub|Catch:|"
       u"Resume Leave|End Sub",
       "Sub Run()|x|'FireExit:   a|'FireExit: b|End Sub"},
      {"blank rows of the template go, the user's stay", u"Gap",
       u"Sub Run()|'Sig: Gap|On Error GoTo Catch||||x|||Leave:|Exit Sub|Catch:|Resume Leave|End "
       u"Sub",
       "Sub Run()||x||End Sub"},
      {"an edited line", u"Plain",
       u"Sub Run()|'Sig: Plain|On Error GoTo Catch|Leave:|Exit Sub|Catch: ' me|Resume Leave|End "
       u"Sub",
       "! Code does not match Template; Line=6 [Catch: ' me]"},
      {"a line used twice", u"Plain",
       u"Sub Run()|'Sig: Plain|'Sig: Plain|On Error GoTo Catch|Leave:|Exit Sub|Catch:|Resume Leave|"
       u"End Sub",
       "! Code does not match Template; Line=3 ['Sig: Plain]"},
      {"no places at all", u"Fire", u"Sub Run()|x|End Sub",
       "! BodyStart Not Found BodyEnd Not Found FireStart Not Found FireEnd Not Found"},
      {"no end", u"Plain", u"Sub Run()|On Error GoTo Catch|Leave:", "! Procedure End Not Found"},
      {"places below the end", u"Plain",
       u"Sub Run()|On Error GoTo Catch|End Sub|Leave:|Exit Sub|Catch:|Resume Leave|End Sub",
       "! Procedure End Found before BodyEnd"},
      {"wrong order", u"Fire", u"Sub Run()|Leave:|'cleaned|'clean|On Error GoTo Catch|End Sub",
       "! BodyEnd Found before BodyStart FireEnd Found before FireStart"},
      {"a user's line in the place of the border", u"Plain",
       u"Sub Run()|'Sig: Plain|On Error GoTo Catch|x|Leave:|y|Leave:|Exit Sub|Catch:|Resume "
       u"Leave|End Sub",
       "! Code does not match Template; Line=6 [y] Code does not match Template; Line=7 [Leave:]"},
      {"a pattern that its own text can't fit", u"Bad",
       u"Sub Run()|'Sig: Bad|'begin|'end|#If Dbg Then|#End If|End Sub",
       "! Template Line does not fit its own Pattern [#If Dbg Then] Template Line does not fit its "
       "own Pattern [#End If]"},
  };
  for (const auto& oRow : oRows) {
    SCOPED_TRACE(oRow.sName);
    EngineFixture oTest(Templates);
    oTest.oRules.eLineNumAction = MQuillon::LineNumAction::Insert;
    EXPECT_EQ(oTest.Remove(oRow.sBefore, oRow.sTemplate), oRow.sAfter);
  }
}

TEST(Removal, TakesOutTraceExitsOfEveryModelAfterARenameToo) {
  const struct {
    const char* sName;
    TextView sModel;
    TextView sLine;
    const char* sTraced;
  } oRows[] = {
      {"its comment would make one of the Exit", u"T.TraceExit \"<%ProcName>\" ' bye",
       u"If a Then Exit Sub ' me", "If a Then T.TraceExit \"Run\": Exit Sub ' me"},
      {"a comment alone is no statement", u"Rem T.TraceExit (1)", u"Exit Sub", "Exit Sub"},
      {"the pattern fits the Then as well", u"<%ProcName>.TraceExit 1", u"If a Then Exit Sub",
       "If a Then Run.TraceExit 1: Exit Sub"},
      {"a number behind blanks", u"T.TraceExit \"<%ProcName>\"", u"  7 Exit Sub: Exit Sub",
       "  7 T.TraceExit \"Run\": Exit Sub: Exit Sub"},
      {"Then in the first column", u"T.TraceExit \"<%ProcName>\"", u"If a _|Then Exit Sub",
       "If a _|Then T.TraceExit \"Run\": Exit Sub"},
      {"a model with an Else of its own", u"T.TraceExit 1 Else T.TraceExit <%ProcName>",
       u"10 If a Then Exit Sub", "10 If a Then T.TraceExit 1 Else T.TraceExit Run: Exit Sub"},
      {"a statement under Then with nothing behind it", u"<%ProcName>.TraceExit 1",
       u"If a Then b.TraceExit 1", "If a Then b.TraceExit 1"},
  };
  for (const auto& oRow : oRows) {
    SCOPED_TRACE(oRow.sName);
    EngineFixture oTest(
        u"<#Template name=S type=signature>|<#Start>|'S: <%Signature>|<#End>|"
        u"<#Template name=T type=procedure>|    " +
        Text(oRow.sModel) + u"|<#Start>|'one|<#BodyStart>|<#BodyEnd>|'two|<#if trace>'t|<#End>");
    const Text sBefore = u"Sub Run()|" + Text(oRow.sLine) + u"|End Sub";
    const std::string sPut = oTest.Insert(sBefore, u"T", {true});
    EXPECT_EQ(sPut, "Sub Run()|'S: T|'one|" + std::string(oRow.sTraced) + "|'two|'t|End Sub");
    for (TextView sName : {u"Run", u"Other"})
      EXPECT_EQ(oTest.Remove(FromUtf8(sPut), u"T", u"Sub", sName), ToUtf8(sBefore));
  }
}

TEST(Removal, TellsABorderFromCodeLikeIt) {
  // The border above the body has a token, so a user's line can fit it as well.
  const TextView sTemplates =
      u"<#Template name=Sig type=signature>|<#Start>|'Sig: <%Signature>|<#End>|"
      u"<#Template name=T type=procedure>|<#Start>|'one|On Error GoTo <%ProcName>_x|<#BodyStart>|"
      u"<#BodyEnd>|'two|<#End>";
  EngineFixture oTest(sTemplates);
  EXPECT_EQ(
      oTest.Remove(u"Sub Run()|'Sig: T|'one|On Error GoTo Run_x|On Error GoTo Run_x|'two|End Sub",
                   u"T"),
      "Sub Run()|On Error GoTo Run_x|End Sub");
  EXPECT_EQ(
      oTest.Remove(u"Sub Run()|'Sig: T|'one|On Error GoTo Mine_x|On Error GoTo Run_x|'two|End Sub",
                   u"T"),
      "! BodyStart can't be told from other Code; Line=5 [On Error GoTo Run_x]");
  EXPECT_EQ(
      oTest.Remove(u"Sub Run()|'Sig: T|On Error GoTo Mine_x|'one|On Error GoTo Run_x|'two|End Sub",
                   u"T"),
      "! BodyStart can't be told from other Code; Line=5 [On Error GoTo Run_x]");
}

TEST(Removal, LeavesNoLineOfTheTemplateBeyondABorderOfItsOwnPattern) {
  // Each border is found by a row that isn't the one beside it.
  EngineFixture oTest(
      u"<#Template name=S type=signature>|<#Start>|'S: <%Signature>|<#End>|"
      u"<#Template name=A type=procedure>|<#Start>|x = 1|'one|<#BodyStart like='x = *'>|<#BodyEnd>|"
      u"'two|<#End>|"
      u"<#Template name=B type=procedure>|<#Start>|'one|<#BodyStart>|<#BodyEnd like='x = *'>|'two|"
      u"<#if boundary>b <%Boundary>|x = 1|<#End>|"
      u"<#Template name=C type=procedure>|<#Start>|'one|<#BodyStart>|<#BodyEnd>|'two|x = 1|'three|"
      u"<#FireExitStart like='x = *'>|<#FireExitEnd like='y = *'>|'four|y = 1|<#End>|"
      u"<#Template name=D type=procedure>|<#Start>|'one|<#BodyStart>|<#BodyEnd>|'two|End "
      u"<%ProcType>|"
      u"'three|<#End>");
  const struct {
    TextView sTemplate;
    const char* sRefusal;
  } oRows[] = {
      {u"A", "! BodyStart can't be told from other Code; Line=4 ['one]"},
      {u"B", "! BodyEnd can't be told from other Code; Line=8 [b tvnBoundaryVB]"},
      {u"D", "! Procedure End can't be told from other Code; Line=9 ['three]"},
      {u"C",
       "! FireStart can't be told from other Code; Line=8 ['three] FireEnd can't be told from "
       "other "
       "Code; Line=10 ['four]"},
  };
  for (const auto& oRow : oRows) {
    SCOPED_TRACE(ToUtf8(oRow.sTemplate));
    const std::string sPut = oTest.Insert(u"Sub Run()|a||'FireExit: c|End Sub", oRow.sTemplate,
                                          {false, false, u"tvnBoundaryVB"});
    EXPECT_EQ(oTest.Remove(FromUtf8(sPut), oRow.sTemplate), oRow.sRefusal) << sPut;
  }
}

TEST(Removal, TakesOutARowWhoseValueWasChangedByHand) {
  EngineFixture oTest(
      u"<#Template name=S type=signature>|<#Start>|'S: <%Signature>|<#End>|"
      u"<#Template name=T type=procedure>|<#Start>|'one|<#BodyStart>|<#BodyEnd>|'two|"
      u"E.R = <%Retry>|<#End>|<#Template name=M type=module>|<#Start>|Const R = <%Retry>|<#End>");
  EXPECT_EQ(oTest.Remove(u"Sub Run()|'S: T|'one|x|'two|E.R = 5|End Sub", u"T"),
            "Sub Run()|x|End Sub");
  EXPECT_EQ(oTest.Remove(u"Sub Run()|'S: T|'one|x|'two|E.R =|End Sub", u"T"),
            "! Template Line does not fit its own Pattern [E.R = <%Retry>]");
  EXPECT_EQ(oTest.Remove(u"'S: M|Const R = 5|Dim a", u"M", u"", u"(declarations)"), "Dim a|");
}

TEST(Removal, OfDeclarationsKeepsWhatIsTheUsers) {
  const struct {
    const char* sName;
    TextView sBefore;
    const char* sAfter;
  } oRows[] = {
      {"blank rows go as many as were written",
       u"Option Explicit|'Sig: Mod||Private Const M = \"Mod\"|||Dim a", "Option Explicit||Dim a|"},
      {"lines ahead of the signature are the user's",
       u"Private Const M = \"x\"|'Sig: Mod||Private Const M = \"Mod\"||",
       "Private Const M = \"x\"|"},
      {"a row serves one line", u"'Sig: Mod|Private Const M = \"Mod\"|Private Const M = \"b\"",
       "Private Const M = \"b\"|"},
      {"what doesn't fit stays", u"'Sig: Mod|Private Const N = 1", "Private Const N = 1|"},
      {"a blank line ahead of a template that ends the section stays",
       u"Dim a||'Sig: Mod||Private Const M = \"Mod\"|", "Dim a||"},
      {"all of it", u"'Sig: Mod||Private Const M = \"Mod\"|", ""},
  };
  for (const auto& oRow : oRows) {
    SCOPED_TRACE(oRow.sName);
    EngineFixture oTest(Templates);
    EXPECT_EQ(oTest.Remove(oRow.sBefore, u"mod", u"", u"(declarations)"), oRow.sAfter);
  }
}

}  // namespace
