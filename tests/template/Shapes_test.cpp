// The hand-written shapes of samples/Shapes.dat as templates, with the proof on: around generated
// procedures, and where the code stands in their way.
#include <gtest/gtest.h>

#include "EngineFixture.h"
#include "Rewriter.h"
#include "TemplateCheck.h"

namespace {

using MQuillon::LineNumAction;

class ShapesTest : public ::testing::Test {
 protected:
  ShapesTest() { engine.LoadTemplateFile(FromUtf8(QUILLON_SOURCE_DIR "/samples/Shapes.dat")); }

  /// As the text reads with the template, or without one for an empty name; "! " and the message of
  /// a refusal.
  Text Put(const Text& text, TextView type, TextView templateName,
           LineNumAction numbering = LineNumAction::Leave, TextView name = u"Total") {
    const ParsedProcedure procedure(engine.Set(), text,
                                    {u"Prices", name, type, u"Shop", u"Prices.cls"}, 1);
    Rewrite rewrite = RewriteProcedure(
        procedure, {.templateName = templateName, .hasTemplate = !templateName.empty()},
        {.numbering = numbering, .prove = true}, rules);
    return rewrite.Refused() ? u"! " + MessageOf(rewrite.refusals.front()) : rewrite.text;
  }

  MRules::Values rules;
  CTemplate engine{rules};
};

constexpr TextView Names[] = {u"Below", u"BelowAndOn", u"Control", u"Logged", u"Quiet"};

/// A procedure of that type whose bits choose what its body holds.
Text Procedure(TextView type, unsigned parts) {
  static constexpr TextView Parts[] = {
      u"    Dim n As Long, s As String ' both|    Static total As Long|",
      u"    If n = 0 Then Exit {}|",
      u"    For n = 1 To 3|        If n = 2 Then|            Exit {}|        End If|    Next|",
      u"    s = \"On Error GoTo: \" & _|        \"Exit {}\": n = n + 1|",
      u"    On Error Resume Next|    Kill s|    On Error GoTo 0|",
      u"|Again:|    ' Exit {}|    If n < 9 Then GoTo Again|",
      u"    Exit {}|",
      u"'FireExit:     Close|'FireExit:     n = 0|"};
  Text text = u"Public " + Text(type) + u" Total(ByVal a As Long)|";
  for (std::size_t i = 0; i < std::size(Parts); ++i) {
    if ((parts >> i & 1U) != 0) text += Parts[i];
  }
  const Text base(type.substr(0, type.find(u' ')));
  return Code(MXString::StringReplace(text + u"End {}", u"{}", base));
}

TEST_F(ShapesTest, GoInAreRefreshedNumberedAndComeOutAgain) {
  for (const TextView name : Names) {
    for (const TextView type :
         {u"Sub", u"Function", u"Property Get", u"Property Let", u"Property Set"}) {
      for (unsigned parts = 0; parts < 256; parts += 3) {
        SCOPED_TRACE(ToUtf8(name) + ", " + ToUtf8(type) + ", " + std::to_string(parts));
        const Text before = Procedure(type, parts);
        const Text managed = Put(before, type, name);
        ASSERT_FALSE(managed.starts_with(u"!")) << ToUtf8(managed);
        EXPECT_EQ(Piped(Put(managed, type, name)), Piped(managed));
        const Text numbered = Put(managed, type, name, LineNumAction::Insert);
        EXPECT_EQ(Piped(Put(numbered, type, name, LineNumAction::Insert)), Piped(numbered));
        EXPECT_EQ(Piped(Put(numbered, type, name, LineNumAction::Remove)), Piped(managed));
        EXPECT_EQ(Piped(Put(managed, type, {})), Piped(before));
        EXPECT_EQ(Piped(Put(managed, type, {}, LineNumAction::Leave, u"Renamed")), Piped(before));
      }
    }
  }
}

TEST_F(ShapesTest, TellWhereTheCodeStandsInTheirWay) {
  const TextView below =
      u"Sub Total()|'Quillon: Below|    On Error GoTo Total_Err|    Exit Sub|    x|    Exit "
      u"Sub|%Total_Err:|"
      u"    LogError Err.Number, Err.Description, \"Prices.Total\", Erl|End Sub";
  const auto with = [&](TextView rows) { return MXString::StringReplace(below, u"%", rows); };
  const struct {
    const char* name;
    Text code;
    TextView templateName;
    const char* result;
  } rows[] = {
      {"a label of the template's name", u"Sub Total()|TOTAL_ERR:|    x|End Sub", u"Below",
       "! The template uses the name total_err with another meaning (name-clash); rename one of "
       "them; Line=2 [TOTAL_ERR:]"},
      {"a label that another procedure's name would make", u"Sub Total()|Sum_Err:|    x|End Sub",
       u"Quiet", "Sub Total()|'Quillon: Quiet|    On Error Resume Next|Sum_Err:|    x|End Sub"},
      {"neither the optional row nor the blank one", with(u""), u"",
       "Sub Total()|    Exit Sub|    x|End Sub"},
      {"both", with(u"|' Errors of the body end up here.|"), u"",
       "Sub Total()|    Exit Sub|    x|End Sub"},
      {"no optional row, and the border's words in the body",
       u"Sub Total()|'Quillon: Logged|    On Error GoTo ErrHandler|    On Error GoTo ErrHandler|"
       u"ErrHandler:|    If Err.Number <> 0 Then WriteLog \"a, b.c: \" & Err.Description|End Sub",
       u"", "Sub Total()|    On Error GoTo ErrHandler|End Sub"},
      {"a comment of the user's in the tail", with(u"' mine|"), u"",
       "! Code does not match Template; Line=7 [' mine]"},
      {"the user's own lines below the tail's first",
       u"Sub Total()|'Quillon: Below|    On Error GoTo Total_Err|    Exit Sub|    x|Total_Err:|"
       u"    LogError Err.Number, Err.Description, \"Prices.Total\", Erl|End Sub",
       u"", "! Code does not match Template; Line=5 [    x]"},
      {"a jump to the way out, and its words in the clean-up code",
       u"Sub Total()|'Quillon: Control|    On Error GoTo ControlError|    GoTo ExitProc|    x|"
       u"    GoTo ExitProc|ControlError:|    HandleError Err, \"Total\", ModuleTitle|"
       u"    If Err.Number Then Resume ExitProc|ExitProc:|    On Error Resume Next|    Close|"
       u"    On Error Resume Next|    GoTo ExitProc|End Sub",
       u"",
       "Sub Total()|    GoTo ExitProc|    x|'FireExit:     Close|'FireExit:     On Error Resume "
       "Next|'FireExit:     GoTo ExitProc|End Sub"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(Piped(Put(Code(row.code), u"Sub", row.templateName)), row.result);
  }
}

TEST_F(ShapesTest, NameProcedureProjectAndFile) {
  EXPECT_EQ(Piped(Put(Code(u"Property Get Total()|End Property"), u"Property Get", u"Logged")),
            "Property Get Total()|'Quillon: Logged|    ' Failures are logged below.|"
            "    On Error GoTo ErrHandler|ErrHandler:|"
            "    If Err.Number <> 0 Then WriteLog \"Prices.cls, Prices.Total [Get]: \" & "
            "Err.Description|End Property");
  for (const TemplateFinding& finding : CheckTemplate(engine)) {
    ADD_FAILURE() << finding.line << ": " << ToUtf8(finding.message);
  }
}

}  // namespace
