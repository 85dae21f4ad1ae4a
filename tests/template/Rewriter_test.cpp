#include "Rewriter.h"

#include <gtest/gtest.h>

#include "EngineFixture.h"
#include "MQuillon.h"

namespace {

using MQuillon::LineNumAction;

/// A procedure template with one row put ahead of its body, behind it, and as its trace exit.
Text WithRow(TextView row) {
  return u"<#Template name=Sig type=signature>|<#Start>|'Sig: <%Signature>|<#End>|"
         u"<#Template name=P type=procedure>|<#Start>|" +
         Text(row) +
         u"|    On Error GoTo Catch|<#BodyStart>|<#BodyEnd>|Leave:|    Exit <%ProcType>|Catch:|" +
         u"    Resume Leave|<#End>|<#Template name=M type=module>|<#Start>|'own|" + Text(row) +
         u"|<#End>";
}

struct Outcome {
  Rewrite rewrite;
  std::string Told() const {
    return rewrite.Refused() ? ToUtf8(MessageOf(rewrite.refusals.front())) : "accepted";
  }
};

Outcome Apply(const EngineFixture& engine, const Text& code, const WantedSettings& wanted,
              const RewriteOptions& options = {.prove = true}, TextView type = u"Sub",
              TextView name = u"Run") {
  const ParsedProcedure procedure(engine.oEngine.Set(), code, {u"Mod", name, type}, 1);
  return {RewriteProcedure(procedure, wanted, options, engine.oRules)};
}

TEST(Rewriter, RefusesWhatAModuleWouldReadAsSomethingElse) {
  const struct {
    const char* name;
    TextView row;
    const char* message;  ///< what it begins with
  } rows[] = {
      {"a line feed at the end", u"    x = 1\n", "A line of the template holds a line end"},
      {"a carriage return at the end", u"    x = 1\r", "A line of the template holds a line end"},
      {"a line feed inside", u"    x = 1\ny = 2", "A line of the template holds a line end"},
      {"head", u"Sub x()",
       "A line of the template would begin another procedure; Line=3 [Sub x()]"},
      {"head with access", u"Private Static  Property Get x() As Long",
       "A line of the template would begin another procedure"},
      {"head behind a colon", u"x = 1: Function y()",
       "A line of the template would begin another procedure"},
      {"attribute", u"Attribute x.VB_Description = \"d\"",
       "A line of the template would be read as a hidden attribute"},
      {"attribute with tabs", u"\tattribute\tx.vb_userMemId = 0",
       "A line of the template would be read as a hidden attribute"},
      {"end", u"End Sub", "A line of the template would end the procedure"},
      {"end of another type", u"End Function", "A line of the template would end the procedure"},
      {"end behind a label", u"Over: End Sub", "A line of the template would end the procedure"},
      {"end over two lines", u"End _|    Sub", "A line of the template would end the procedure"},
      {"end behind a continued statement", u"    x = 1 _|    : End Sub",
       "A line of the template would end the procedure"},
      {"call of something named so", u"    Subtotal x: Properties y", "accepted"},
      {"a head in a literal", u"    Log \"x: Sub y()\"", "accepted"},
      {"a head in a comment", u"    ' Sub y()", "accepted"},
      {"another attribute", u"    Attribute x.Name", "accepted"},
      {"exit", u"    If a Then Exit Sub", "accepted"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EngineFixture engine(WithRow(row.row));
    const Text code = Code(u"Sub Run()|    y = 2|End Sub");
    const Outcome proved = Apply(engine, code, {.templateName = u"P"});
    EXPECT_TRUE(proved.Told().starts_with(row.message)) << proved.Told();
    EXPECT_EQ(proved.rewrite.text == code, proved.rewrite.Refused());
    const Text declarations = Code(u"Option Explicit|Dim a");
    const Outcome module = Apply(engine, declarations, {.templateName = u"M"}, {.prove = true}, u"",
                                 MQuillon::DeclarationsName);
    EXPECT_EQ(module.rewrite.Refused(), proved.rewrite.Refused()) << module.Told();
  }
}

TEST(Rewriter, RefusesLineEndsInATraceExit) {
  EngineFixture engine(
      u"<#Template name=Sig type=signature>|<#Start>|'Sig: <%Signature>|<#End>|"
      u"<#Template name=P type=procedure>|T.TraceExit 1\ny = 2|<#Start>|    On Error GoTo Catch|"
      u"<#BodyStart>|<#BodyEnd>|Catch:|<#End>");
  const Text code = Code(u"Sub Run()|    Exit Sub|End Sub");
  EXPECT_TRUE(Apply(engine, code, {.templateName = u"P", .trace = true}).rewrite.Refused());
  EXPECT_FALSE(Apply(engine, code, {.templateName = u"P"}).rewrite.Refused());
}

TEST(Rewriter, ParsesTheOldTextOnceAndTheNewOneForTheProof) {
  EngineFixture engine(Templates);
  Text code = Code(u"Sub Run()|    x = 1|    Exit Sub|End Sub");
  const auto parses = [&](TextView name, bool prove) {
    const std::size_t before = ParsedProcedure::Count();
    const Outcome outcome =
        Apply(engine, code, {.templateName = name, .retry = u"tvnRetryLine", .trace = true},
              {.prove = prove});
    EXPECT_EQ(outcome.Told(), "accepted");
    code = outcome.rewrite.text;
    return ParsedProcedure::Count() - before;
  };
  EXPECT_EQ(parses(u"Plain", true), 2u) << "into bare code";
  EXPECT_EQ(parses(u"Fire", true), 2u) << "in the place of another";
  EXPECT_EQ(parses(u"Plain", false), 1u) << "without proof";
}

// Every way from one state to another gives the text that the direct way gives.
TEST(Rewriter, LeadsFromAnyStateToAnyOther) {
  const WantedSettings states[] = {
      {.hasTemplate = false},
      {.hasTemplate = false, .locked = true},
      {.templateName = u"Plain", .boundary = u"tvnBoundaryVB", .retry = u"tvnRetryLine"},
      {.templateName = u"Plain", .locked = true, .trace = true},
      {.templateName = u"Fire"},
      {.templateName = u"Gap"},
  };
  const TextView bodies[] = {
      u"",
      u"    x = 1|",
      u"|    x = 1|||",
      u"    If a Then Exit Sub|    s = \"Exit Sub\" ' Exit Sub|    Exit Sub|",
      u"    x = 1 _||    'FireExit: Close #1|    'FireExit:     y|",
      u"    #If A Then|    x|    #Else|    y|    #End If|",
      u"    GoTo 10|10  x = 1: y = 2|",
  };
  EngineFixture engine(Templates);
  for (const TextView body : bodies) {
    SCOPED_TRACE(Piped(body));
    const Text bare = Code(u"' above|Public Sub Run(a, _|    b)|" + Text(body) + u"End Sub ");
    const Text code = bare.substr(0, bare.size() - 1);
    const auto state = [&](const Text& from, const WantedSettings& wanted) {
      const ParsedProcedure procedure(engine.oEngine.Set(), from, {u"Mod", u"Run", u"Sub"}, 2);
      const Rewrite rewrite = RewriteProcedure(procedure, wanted, {.prove = true}, engine.oRules);
      EXPECT_FALSE(rewrite.Refused()) << ToUtf8(MessageOf(rewrite.refusals.front()));
      EXPECT_EQ(rewrite.changed, rewrite.text != from || rewrite.blankLines != 0);
      return rewrite.text;
    };
    for (const WantedSettings& first : states) {
      for (const WantedSettings& second : states) {
        const Text there = state(state(code, first), second);
        EXPECT_EQ(Piped(state(there, second)), Piped(there)) << "a second time";
        // A clean-up section moves the block that waits for it to the end of the body for good.
        if (first.templateName == u"Fire" && body.find(u"FireExit") != TextView::npos) continue;
        EXPECT_EQ(Piped(there), Piped(state(code, second)));
      }
    }
  }
}

TEST(Rewriter, ListsTheLinesThatChanged) {
  EngineFixture engine(Templates);
  const Text code = Code(u"Sub Run()|    x = 1|End Sub");
  const Rewrite rewrite =
      Apply(engine, code, {.templateName = u"Gap"}, {.prove = true, .listChanges = true}).rewrite;
  const std::vector<LineChange> expected = {{1, 1, 1, 5}, {2, 2, 6, 11}};
  EXPECT_EQ(rewrite.changes, expected) << Piped(rewrite.text);
  const Rewrite same =
      Apply(engine, rewrite.text, {.templateName = u"Gap"}, {.prove = true, .listChanges = true})
          .rewrite;
  EXPECT_FALSE(same.changed);
  EXPECT_TRUE(same.changes.empty());
}

TEST(Rewriter, KeepsBlankLinesAtTheEndApart) {
  EngineFixture engine(Templates);
  const struct {
    const char* name;
    TextView code;
    const char* text;
    std::int32_t blankLines;
  } rows[] = {
      {"ahead of a template", u"Dim a|||'Sig: Mod||Private Const M = \"Mod\"", "Dim a", 2},
      {"ahead of a lock", u"'Sig: Mod||Private Const M = \"Mod\"||Dim a||'Sig: Locked", "Dim a", 1},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const Text code = Code(row.code);
    const ParsedProcedure procedure(engine.oEngine.Set(), code,
                                    {u"Mod", MQuillon::DeclarationsName, u""}, 1);
    const Rewrite rewrite =
        RewriteProcedure(procedure, {.hasTemplate = false}, {.prove = true}, engine.oRules);
    EXPECT_EQ(Piped(rewrite.text), row.text);
    EXPECT_EQ(rewrite.blankLines, row.blankLines);
  }
}

}  // namespace
