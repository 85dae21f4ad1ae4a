#include <gtest/gtest.h>

#include "EngineFixture.h"
#include "JumpTargets.h"
#include "Proof.h"

namespace {

std::string Read(const CTemplate& oEngine, TextView sPiped) {
  CProcSettings oSet;
  oEngine.ExtractProcSettings(Code(sPiped), oSet);
  return ToUtf8(oSet.sTemplate()) + " L" + std::to_string(MQuillon::ToNumber(oSet.eLocked())) +
         " B" + std::to_string(MQuillon::ToNumber(oSet.eBoundary())) + " R" +
         std::to_string(MQuillon::ToNumber(oSet.eRetry())) + " T" +
         std::to_string(MQuillon::ToNumber(oSet.eTrace()));
}

TEST(Extract, ReadsSettingsBackFromCode) {
  const struct {
    const char* sName;
    TextView sCode;
    const char* sSettings;
  } oRows[] = {
      {"nothing", u"Sub Run()|End Sub", " L1 B0 R0 T0"},
      {"name in any case, as the file has it", u"Sub Run()|'sig:   PLAIN|End Sub",
       "Plain L1 B0 R0 T1"},
      {"values and trace",
       u"Sub R()|'Sig: Plain&Locked|T.Enter \"R\"|E.B tvnBoundaryVB|E.R tvnRetryNone|End Sub",
       "Plain L2 B2 R3 T2"},
      {"the first value that is known counts",
       u"'Sig: Plain|E.B foo|E.B tvnBoundaryVB|E.B tvnBoundaryNone", "Plain L1 B2 R0 T1"},
      {"lock alone", u"Sub R()|'Sig: Locked|End Sub", " L2 B0 R0 T0"},
      {"only the first part can be a name", u"'Sig: Locked&Plain", " L2 B0 R0 T0"},
      {"a template of another file", u"'Sig: Other&x&locked", "[other] L2 B0 R0 T0"},
      {"own handling", u"Sub R()|On Error GoTo Handler|End Sub", "(bespoke) L1 B0 R0 T0"},
      {"balanced pair", u"On Error Resume Next|On Error GoTo 0", " L1 B0 R0 T0"},
      {"Resume Next alone", u"On Error Resume Next", "(bespoke) L1 B0 R0 T0"},
      {"GoTo 0 alone", u"On Error GoTo 0", "(bespoke) L1 B0 R0 T0"},
      {"literals and comments", u"x = \"On Error GoTo H\"|' On Error GoTo H", " L1 B0 R0 T0"},
  };
  EngineFixture oTest(Templates);
  for (const auto& oRow : oRows) {
    SCOPED_TRACE(oRow.sName);
    EXPECT_EQ(Read(oTest.oEngine, oRow.sCode), oRow.sSettings);
  }
  // The word is found wherever it stands in a long text, and words like it aren't.
  for (const TextView sHead : {u"' ", u"rrr' CurrentError"}) {
    for (std::size_t lAhead = 100; lAhead < 400; ++lAhead) {
      const Text sAhead = Text(sHead) + Text(lAhead, u'x') + u"|";
      EXPECT_EQ(Read(oTest.oEngine, sAhead + u"On eRRor GoTo H"), "(bespoke) L1 B0 R0 T0")
          << lAhead;
      EXPECT_EQ(Read(oTest.oEngine, sAhead + u"Narrower Errol"), " L1 B0 R0 T0") << lAhead;
    }
  }
  CTemplate oEmpty(oTest.oRules);
  EXPECT_EQ(Read(oEmpty, u"'Sig: Plain"), " L1 B0 R0 T0");
}

TEST(Extract, TakesNoPlainCommentForAWideSignature) {
  EngineFixture oTest(u"<#Template name=S type=signature>|<#Start>|'<%Signature>|<#End>");
  EXPECT_EQ(Read(oTest.oEngine, u"Sub R()|' adds one|'S&Locked|End Sub"), "S L2 B0 R0 T1");
}

TEST(Signatures, AreWrittenAndTakenOutAlone) {
  const struct {
    const char* sName;
    TextView sProc, sCode;
    std::int32_t lBody;
    const char* sLocked;
    const char* sBack;
  } oRows[] = {
      {"continued head", u"R", u"Sub R( _|a _ |)|x|End Sub", 1,
       "Sub R( _|a _ |)|'Sig: Locked|x|End Sub", "Sub R( _|a _ |)|x|End Sub"},
      {"never two", u"R", u"Sub R()|'Sig: Locked|x|End Sub", 1, "Sub R()|'Sig: Locked|x|End Sub",
       "Sub R()|x|End Sub"},
      {"a lone Option Explicit", u"(declarations)", u"Option Explicit", 1,
       "Option Explicit|'Sig: Locked", "Option Explicit"},
      {"empty declarations", u"(declarations)", u"", 1, "'Sig: Locked", ""},
      {"a blank line behind goes with it, one ahead stays", u"R", u"' n||Sub R()||x|End Sub||", 3,
       "' n||Sub R()|'Sig: Locked||x|End Sub||", "' n||Sub R()|x|End Sub||"},
      {"head and end on one line", u"R", u"Sub R(): End Sub", 1,
       "! Procedure Head and End share a Line", "Sub R(): End Sub"},
      {"the rest of a comment stays", u"R", u"Sub R()|' a _|'Sig: Locked|x|End Sub", 1,
       "Sub R()|'Sig: Locked|' a _|'Sig: Locked|x|End Sub", "Sub R()|' a _|'Sig: Locked|x|End Sub"},
      {"no head where it should be", u"R", u"Sub R()|End Sub", 3, "! Procedure Head Not Found",
       "Sub R()|End Sub"},
      {"a head without its end", u"R", u"Sub R( _", 1, "! Procedure Head Not Found", "Sub R( _"},
  };
  for (const auto& oRow : oRows) {
    SCOPED_TRACE(oRow.sName);
    EngineFixture oTest(Templates);
    Text sCode = Code(oRow.sCode);
    bool bErrors = false;
    oTest.oEngine.InsertSignatureOnly(oRow.sProc, u"Sub", sCode, oRow.lBody, true, bErrors);
    EXPECT_EQ(oTest.Result(sCode, oRow.sCode, bErrors), oRow.sLocked);
    oTest.oEngine.RemoveSignatureOnly(sCode, bErrors);
    EXPECT_EQ(Piped(sCode), oRow.sBack);
  }
}

TEST(Proof, FindsTheFirstDifference) {
  const struct {
    const char* sName;
    TextView sBefore, sBack;
    bool bNumbered;
    const char* sMessage;
  } oRows[] = {
      {"equal", u"a|b", u"a|b", false, ""},
      {"changed", u"a|b", u"a|c", false, "Line 2 would come back as [c] and not as [b]"},
      {"lost", u"a|b", u"a", false, "Line 2 would not come back [b]"},
      {"added", u"a", u"a|b", false, "A line would come back that was not there [b]"},
      {"numbers where numbers change", u"    x|10 y", u"1   x|    y", true, ""},
      {"numbers where none may change", u"    x", u"1   x", false,
       "Line 1 would come back as [1   x] and not as [    x]"},
      {"digits of a continued line are no number", u"x _|22 + 3", u"x _|+ 3", true,
       "Line 2 would come back as [+ 3] and not as [22 + 3]"},
      {"clean-up block moved", u"'FireExit: a|x", u"x|'FireExit: a", false, ""},
      {"clean-up block changed", u"'FireExit: a|x", u"x|'FireExit: b", false,
       "The clean-up code would come back changed"},
  };
  for (const auto& oRow : oRows) {
    SCOPED_TRACE(oRow.sName);
    const Text sBefore = Code(oRow.sBefore), sBack = Code(oRow.sBack);
    const auto oFault = Proof::FirstDifference(ProcText(sBefore), ProcText(sBack), oRow.bNumbered);
    EXPECT_EQ(oFault ? ToUtf8(MessageOf(*oFault)) : "", oRow.sMessage);
  }
}

TEST(Proof, KeepsTheTargetsOfJumps) {
  const struct {
    const char* sName;
    TextView sBefore, sAfter;
    bool bLost;
  } oRows[] = {
      {"GoTo renumbered", u"GoTo 10|10 x", u"1   GoTo 10|2  x", true},
      {"GoTo kept", u"GoTo 10|10 x", u"GoTo 10|10 x", false},
      {"same number on another statement", u"GoTo 1|1 x|y", u"GoTo 1|  x|1 y", true},
      {"trace exit in front", u"GoTo 10|10 Exit Sub", u"GoTo 10|10 T: Exit Sub", false},
      {"On GoTo list", u"On x GoTo 5, 10|10 x", u"On x GoTo 5, 10|   x", true},
      {"Then", u"If a Then 10|10 x", u"If a Then 10|   x", true},
      {"Resume", u"Resume 10|10 x", u"Resume 10|   x", true},
      {"Erl", u"If Erl >= 10 Then y|10 x", u"If Erl >= 10 Then y|   x", true},
      {"Select Case Erl", u"Select Case Erl|Case 1 To 10|End Select|10 x",
       u"Select Case Erl|Case 1 To 10|End Select|   x", true},
      {"other numbers", u"x = 10|10 y", u"x = 10|   y", false},
      {"in a comment or literal", u"' GoTo 10|s = \"GoTo 10\"|10 y",
       u"' GoTo 10|s = \"GoTo 10\"|   y", false},
      {"a line feed ahead of the text", u"\nGoTo 10|10 x", u"\nGoTo 10|   x", true},
      {"a label with digits", u"GoTo 10|10: x", u"GoTo 10|10: x", false},
  };
  for (const auto& oRow : oRows) {
    SCOPED_TRACE(oRow.sName);
    const Text sBefore = Code(oRow.sBefore), sAfter = Code(oRow.sAfter);
    EXPECT_EQ(JumpTargets::FirstLost(ProcText(sBefore), ProcText(sAfter)).has_value(), oRow.bLost);
  }
}

}  // namespace
