// Rewrites that would compile and change what the program does: each rule by texts that it refuses
// and their neighbours that it lets be.
#include "Meaning.h"

#include <gtest/gtest.h>

#include "EngineFixture.h"
#include "MQuillon.h"
#include "Rewriter.h"

namespace {

/// Standard declares, labels and uses names and takes clean-up code; Other declares another name.
constexpr TextView Standard =
    u"<#Template name=Sig type=signature>|<#Start>|'Sig: <%Signature>|<#End>|"
    u"<#Template name=Std type=procedure>|<#Start>|    Dim kept As CKept|"
    u"<#if severity>    Const Level As Long = <%Severity>|    On Error GoTo Caught|"
    u"<#BodyStart>|<#BodyEnd>|Leave:|    'clean|<#FireExitStart>|<#FireExitEnd>|    'cleaned|"
    u"    Exit <%ProcType>|Caught:|    gTrap.Keep Err.Number, TrapEdge, \"x: Boxed\" ' Noted|"
    u"    Set kept = New CKept|    Resume Leave|<#End>|"
    u"<#Template name=Other type=procedure>|<#Start>|    Dim other As Long|    Trace|"
    u"<#BodyStart>|<#BodyEnd>|Leave:|<#End>|"
    u"<#Template name=Mod type=module>|<#Start>|Private Const TrapEdge = 1, TrapMore& = 2|<#End>|";

struct Case {
  const char* name;
  TextView code;
  const char* told;  ///< the id of the rule, a message in full, or "accepted"
  TextView templateName = u"Std";
};

class MeaningTest : public ::testing::Test {
 protected:
  Rewrite Put(TextView code, TextView templateName, RewriteOptions options = {.prove = true},
              TextView name = u"Run") {
    mText = Code(code);
    const ParsedProcedure procedure(mEngine.oEngine.Set(), mText, {u"Mod", name, u"Sub"}, 1);
    return RewriteProcedure(procedure, {.templateName = templateName}, options, mEngine.oRules);
  }
  static std::string IdOf(const Rewrite& rewrite) {
    if (!rewrite.Refused()) return "accepted";
    const TextView id = MeaningIdOf(rewrite.refusals.front().kind);
    return id.empty() ? ToUtf8(MessageOf(rewrite.refusals.front())) : ToUtf8(id);
  }
  void Check(std::span<const Case> cases) {
    for (const Case& one : cases) {
      SCOPED_TRACE(one.name);
      const Rewrite rewrite = Put(one.code, one.templateName);
      EXPECT_EQ(IdOf(rewrite), one.told) << Piped(rewrite.text);
      EXPECT_EQ(rewrite.Refused(), Same(rewrite.text, mText));
      AllowedRules allowed;
      if (!rewrite.Refused() || !allowed.Allow(FromUtf8(one.told))) continue;
      EXPECT_EQ(IdOf(Put(one.code, one.templateName, {.prove = true, .allowed = allowed})),
                "accepted");
      EXPECT_EQ(IdOf(Put(one.code, one.templateName, {.prove = false})), "accepted");
    }
  }

  EngineFixture mEngine{Standard};
  Text mText;
};

TEST_F(MeaningTest, ErrIsReadBeforeATemplateWouldClearIt) {
  const Case cases[] = {
      {"shown", u"Sub Run()|    MsgBox Err.Description|End Sub", "err-read"},
      {"compared", u"Sub Run()|    If Err Then x|End Sub", "err-read"},
      {"behind a colon", u"Sub Run()|    a = 1: b = Err.Number|End Sub", "err-read"},
      {"over two lines", u"Sub Run()|    Log _|        Err.Number|End Sub", "err-read"},
      {"raised again with its number", u"Sub Run()|    Err.Raise Err.Number|End Sub", "err-read"},
      {"with the library's name", u"Sub Run()|    x = 1: n = VBA.Err|End Sub", "err-read"},
      {"by its text", u"Sub Run()|    MsgBox Error$|End Sub", "err-read"},
      {"ahead of handling of its own",
       u"Sub Run()|    n = Err.Number|    On Error Resume Next|    On Error GoTo 0|End Sub",
       "err-read"},
      {"behind handling of its own",
       u"Sub Run()|    On Error Resume Next|    Kill f|    If Err.Number Then x|    On Error GoTo "
       u"0|"
       u"End Sub",
       "accepted"},
      {"raised, cleared, set, a text by its number",
       u"Sub Run()|10  Err = 1: If a Then Err.Number = 2 Else Err = 3|    s = Error$(5)|    "
       u"VBA.Err.Number = 5|    VBA.Err.Raise 5|    Err.Raise 5|   "
       u" Err.Clear|    Err = 0|    Err.Number = 7|End Sub",
       "accepted"},
      {"a member, a text, a comment, another name",
       u"Sub Run()|    x.Err = rs!Err|    s = \"Err\" ' Err|    Errors = Err1|    Do Err:=1|End "
       u"Sub",
       "accepted"},
      {"a template was there already",
       u"Sub Run()|'Sig: Other|    Dim other As Long|    Trace|    MsgBox Err|Leave:|End Sub",
       "accepted"},
      {"a template that handles nothing", u"Sub Run()|    MsgBox Err|End Sub", "accepted",
       u"Other"},
  };
  Check(cases);
}

TEST_F(MeaningTest, NamesOfTheTemplateMeanSomethingElse) {
  const Case cases[] = {
      {"parameter", u"Sub Run(ByVal Err As Long)|    x = 1|End Sub", "name-clash"},
      {"second parameter", u"Sub Run(a() As Long, _|    Optional gtrap = 1)|End Sub", "name-clash"},
      {"variable", u"Sub Run()|    x = 1|    Dim a(1 To 3, 2), gTrap As Long|End Sub",
       "name-clash"},
      {"variable in a continued line", u"Sub Run()|    Dim a, _|        gTrap|End Sub",
       "name-clash"},
      {"constant behind a colon", u"Sub Run()|    Const a = 1: Static TrapEdge$|End Sub",
       "name-clash"},
      {"label", u"Sub Run()|    GoTo caught|Caught: x = 1|End Sub", "name-clash"},
      {"declared twice", u"Sub Run()|    Static Kept|End Sub", "name-clash"},
      {"something of the module's", u"Sub Run()|    x = Kept(1)|End Sub", "name-clash"},
      {"under a condition of the template's", u"Sub Run()|    x = Level|End Sub", "name-clash"},
      {"what the template uses, used as well", u"Sub Run()|    gTrap.Note TrapEdge|End Sub",
       "accepted"},
      {"types, members, texts and comments of the template",
       u"Sub Run(CKept, Keep, Number)|    Dim Boxed, Noted, x, ProcType, Severity|End Sub",
       "accepted"},
      {"members, texts, arguments, types",
       u"Sub Run(a As Err)|    x.Kept = \"Kept\"|    Do Kept:=rs!Kept ' Kept|    Dim b As gTrap|"
       u"End Sub",
       "accepted"},
      {"words of the language", u"Sub Run(Resume, Error)|    Dim b|End Sub", "accepted"},
      {"used since it is there",
       u"Sub Run()|'Sig: Other|    Dim other As Long|    TRACE|    x = other|Leave:|End Sub",
       "accepted", u"Other"},
      {"declared since",
       u"Sub Run()|'Sig: Other|    Dim other As Long|    TRACE|    Dim Trace|Leave:|End Sub",
       "name-clash", u"Other"},
      {"another template's name",
       u"Sub Run()|'Sig: Other|    Dim other As Long|    Trace|    x = kept|Leave:|End Sub",
       "name-clash"},
  };
  Check(cases);
  EXPECT_EQ(ToUtf8(MessageOf(Put(u"Sub Run(Err)|End Sub", u"Std").refusals.front())),
            "The template uses the name err with another meaning (name-clash); rename one of them; "
            "Line=1 [Sub Run(Err)]");
}

TEST_F(MeaningTest, NamesOfTheModuleCountUnlessAModuleTemplateDeclaresThem) {
  for (const auto& [name, told] : {std::pair{u"gtrap", "name-clash"},
                                   {u"trapedge", "accepted"},
                                   {u"kept", "accepted"},
                                   {u"other", "accepted"}}) {
    const Meaning::ModuleNames names = {name};
    EXPECT_EQ(IdOf(Put(u"Sub Run()|End Sub", u"Std", {.prove = true, .moduleNames = &names})), told)
        << ToUtf8(name);
  }
  EXPECT_EQ(IdOf(Put(u"Dim a|Dim TrapMore", u"Mod", {.prove = true}, MQuillon::DeclarationsName)),
            "name-clash");
}

TEST_F(MeaningTest, CleanUpCodeStandsInOnePlaceAndLast) {
  const Case cases[] = {
      {"two blocks", u"Sub Run()|'FireExit: a|    x = 1|'FireExit: b|End Sub", "clean-up"},
      {"two blocks, a blank line between", u"Sub Run()|'FireExit: a||'FireExit: b|End Sub",
       "clean-up"},
      {"code behind", u"Sub Run()|'FireExit: a|    x = 1|End Sub", "clean-up"},
      {"in a branch", u"Sub Run()|#If A Then|'FireExit: a|#End If|End Sub", "clean-up"},
      {"comments behind", u"Sub Run()|    x = 1|'FireExit: a|'FireExit: b||    ' c|End Sub",
       "accepted"},
      {"for a template without", u"Sub Run()|'FireExit: a|    x = 1|End Sub", "accepted", u"Other"},
  };
  Check(cases);
}

TEST_F(MeaningTest, NumbersStandOnce) {
  const Case cases[] = {
      {"twice", u"Sub Run()|10  x = 1|20  y = 2|010 z = 3|End Sub", "number-twice"},
      {"indented and with a colon", u"Sub Run()|  10 x = 1|10: y = 2|End Sub", "number-twice"},
      {"out of order", u"Sub Run()|20  x = 1|9   y = 2|100 z = 3|End Sub", "accepted"},
      {"once, and in a continued line", u"Sub Run()|10  x = 1 + _|10 + 2|100 y = 2|End Sub",
       "accepted"},
  };
  Check(cases);
}

TEST_F(MeaningTest, NothingGrowsBeyondTheLimitsOfTheLanguage) {
  const Text wide(1020, u'x');
  const auto told = [&](const Text& body, RewriteOptions options = {.prove = true}) {
    return IdOf(Put(u"Sub Run()|" + body + u"|End Sub", u"Std", options));
  };
  const RewriteOptions numbered{.numbering = MQuillon::LineNumAction::Insert, .prove = true};
  mEngine.oRules.bLineNumSkipShort = false;
  EXPECT_EQ(told(wide), "accepted");
  EXPECT_EQ(told(wide, numbered), "line-length");
  EXPECT_EQ(SourceLine(Put(u"Sub Run()|" + wide + u"|End Sub", u"Std", numbered).refusals[0]), 2u);
  EXPECT_EQ(told(wide + u"xxxx"), "accepted") << "was too long before";
  Text large;
  for (int i = 0; i < 5945; ++i) large += u"    x = 1|";  // 11 units a line, with its line end
  EXPECT_EQ(told(large), "procedure-size");
  EXPECT_EQ(told(large.substr(0, large.size() - 800)), "accepted");
  for (const auto& [rows, id] : {std::pair{24, "accepted"}, {25, "continuations"}}) {
    Text continued;
    for (int i = 0; i < rows; ++i) continued += u"    a, _|";
    EngineFixture engine(Text(Standard) + u"<#Template name=Long type=procedure>|<#Start>|" +
                         continued + u"    b|<#BodyStart>|<#BodyEnd>|Leave:|<#End>");
    const Text code = Code(u"Sub Run()|End Sub");
    const ParsedProcedure procedure(engine.oEngine.Set(), code, {u"Mod", u"Run", u"Sub"}, 1);
    EXPECT_EQ(IdOf(RewriteProcedure(procedure, {.templateName = u"Long"}, {.prove = true},
                                    engine.oRules)),
              id);
  }
}

TEST_F(MeaningTest, NotesTellWhatRefusesNothing) {
  const struct {
    const char* name;
    TextView code;
    const char* notes;
    TextView templateName = u"Std";
  } rows[] = {
      {"switched off",
       u"Sub Run()|    On Error Resume Next|    x|    On Error GoTo 0|    y|End Sub",
       "The template's handler is off behind this line (handler-off); Line=4 [On Error GoTo 0]"},
      {"at the end", u"Sub Run()|    On Error Resume Next|    x|    On Error GoTo 0||End Sub", ""},
      {"another handler",
       u"Sub Run()|    On Error Resume Next|    x|    On Error GoTo 0|    y|End Sub", "", u"Other"},
      {"exit ahead of clean-up code",
       u"Sub Run()|    If a Then Exit Sub|    Exit Sub|'FireExit: b|End Sub",
       "This exit passes the template's clean-up code by (clean-up); Line=2 [If a Then Exit Sub]"},
      {"exit of another block", u"Sub Run()|    Exit Do|'FireExit: b|End Sub", ""},
      {"exit without clean-up code", u"Sub Run()|    Exit Sub|End Sub", ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const Rewrite rewrite = Put(row.code, row.templateName);
    EXPECT_FALSE(rewrite.Refused());
    std::string told;
    for (const Refusal& note : rewrite.notes) told += ToUtf8(MessageOf(note));
    EXPECT_EQ(told, row.notes);
  }
}

TEST_F(MeaningTest, PlacesAreThoseOfTheTextAsItStands) {
  using MQuillon::LineNumAction;
  const struct {
    const char* name;
    TextView code;
    std::size_t line;
    LineNumAction numbering = LineNumAction::Leave;
  } rows[] = {
      {"ahead of a template", u"Sub Run()|    MsgBox Err|End Sub", 2},
      {"behind a lock's signature", u"Sub Run()|'Sig:|    MsgBox Err|End Sub", 3},
      {"in a template's body",
       u"Sub Run()|'Sig: Other|    Dim other As Long|    Trace|    kept = 1|Leave:|End Sub", 5},
      {"a note in a template's body",
       u"Sub Run()|'Sig: Other|    Dim other As Long|    Trace|    On Error GoTo 0|    y|Leave:|"
       u"End Sub",
       5},
      {"a line whose number goes",
       u"Sub Run()|'Sig: Other|    Dim other As Long|    Trace|10  x = 1|20  kept = 2|Leave:|"
       u"End Sub",
       6, LineNumAction::Insert},
      {"a number twice", u"Sub Run()|10  x = 1|20  y = 2|10  z = 3|End Sub", 4},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    mEngine.oRules.eLineNumAction = row.numbering;
    const Rewrite rewrite = Put(row.code, u"Std", {.numbering = row.numbering, .prove = true});
    const auto& told = rewrite.Refused() ? rewrite.refusals : rewrite.notes;
    ASSERT_EQ(told.size(), 1u);
    EXPECT_EQ(SourceLine(told.front()), row.line) << ToUtf8(MessageOf(told.front()));
  }
}

TEST(MeaningRulesTest, EachIdIsKnownAndOthersAreNot) {
  AllowedRules allowed;
  EXPECT_FALSE(allowed.Allow(u"err"));
  for (const MeaningRule& rule : MeaningRules()) {
    allowed.Allow(rule.id);
    EXPECT_EQ(allowed.Has(rule.kind), !rule.isNote);
    EXPECT_NE(MessageOf({rule.kind}).find(u"(" + Text(rule.id) + u")"), Text::npos);
  }
  EXPECT_FALSE(allowed.Has(RefusalKind::LineLost));
}

}  // namespace
