#include "Survey.h"

#include <gtest/gtest.h>

#include "../template/EngineFixture.h"
#include "LearnedTemplate.h"
#include "TemplateCheck.h"

namespace {

std::optional<OwnHandler> Taken(TextView piped, TextView name = u"Total", TextView type = u"Sub") {
  const Text text = Code(piped);
  return TakeHandlerApart(ProcText(text), {u"Prices", name, type, u"Shop"}, 1);
}

/// `rows | with | (body) | and (clean-up)`, and behind them obstacles with their lines.
std::string Told(TextView piped) {
  const auto handler = Taken(piped);
  if (!handler) return "none";
  std::string told;
  for (std::size_t i = 0; i <= handler->rows.size(); ++i) {
    if (i == handler->above) told += "(body)|";
    if (i > 0 && i == handler->cleanUp) told += "(clean-up)|";
    if (i < handler->rows.size()) told += ToUtf8(handler->rows[i].key) + "|";
  }
  for (const FoundObstacle& found : handler->obstacles)
    told += " " + std::to_string(found.line) + " " + ToUtf8(TextOf(found.obstacle));
  return told;
}

TEST(OwnHandler, IsTakenApart) {
  const struct {
    const char* name;
    TextView code;
    const char* told;
  } rows[] = {
      {"below the body, between comments and blank lines",
       u"Sub Total()|10  ON Error  GoTo Total_Err '|x = 1||Exit Sub||' c|Total_Err: ' c|Log Err, _|"
       u"  \"Prices.Total\"|End Sub",
       "on error goto <1>|(body)|exit <%proctype>|<1>:|log err, \"...\"|"},
      {"falling into it", u"Sub Total()|On Error GoTo E|x|E:|Log Erl|Resume Next|End Sub",
       "on error goto <1>|(body)|<1>:|log erl|resume next|"},
      {"a way out behind it",
       u"Sub Total()|Dim a|On Error GoTo E|x|GoTo Q|E:|H Err|If Err Then Resume Q|Q:|On Error "
       u"Resume Next|Close|End Sub",
       "on error goto <1>|(body)|goto <2>|<1>:|h err|if err then resume <2>|<2>:|on error resume "
       "next|(clean-up)|"},
      {"a way out ahead of it",
       u"Sub Total()|On Error GoTo E|x|Q:|Close|Exit Sub|E:|H|Resume Q|End Sub",
       "on error goto <1>|(body)|<2>:|(clean-up)|exit <%proctype>|<1>:|h|resume <2>|"},
      {"a label for another try",
       u"Sub Total()|On Error GoTo E|A:|x|Exit Sub|E:|If b Then Resume A|Resume Q|Q:|b|End Sub",
       "on error goto <1>|<2>:|(body)|exit <%proctype>|<1>:|if b then resume <2>|resume "
       "<3>|<3>:|(clean-up)|"},
      {"nothing behind it", u"Sub Total()|On Error Resume Next|x|End Sub",
       "on error resume next|(body)|"},
      {"none", u"Sub Total()|x = \"On Error Resume Next\" ' On Error GoTo x|End Sub", "none"},

      {"code ahead", u"Sub Total()|Dim a|a = 1|On Error Resume Next|End Sub",
       "on error resume next|(body)| 3 code stands ahead of On Error"},
      {"a second one", u"Sub Total()|On Error Resume Next|x|On Error GoTo 0|End Sub",
       "on error resume next|(body)| 4 more than one On Error"},
      {"a jump", u"Sub Total()|On Error GoTo E|If a Then GoTo e|Exit Sub|E:|End Sub",
       "on error goto <1>|(body)|exit <%proctype>|<1>:| 3 another jump names the label"},
      {"no label", u"Sub Total()|On Error GoTo E|x|End Sub",
       "on error goto e|(body)| 2 the label of On Error isn't there"},
      {"a number", u"Sub Total()|On Error GoTo E|Exit Sub|E:|Resume 10|End Sub",
       "on error goto <1>|(body)|exit <%proctype>|<1>:|resume 10| 5 Resume names a line number"},
      {"a shared line", u"Sub Total()|If a Then On Error Resume Next|End Sub",
       "if a then on error resume next|(body)| 2 On Error shares its line"},
      {"conditional code", u"Sub Total()|On Error GoTo E|x|E:|#If D Then|H|#End If|End Sub",
       "on error goto <1>|(body)|<1>:|#if d then|h|#end if| 5 conditional compilation stands among "
       "its lines 7 conditional compilation stands among its lines"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(Told(row.code), row.told);
  }
}

/// Sixty members, of which every seventh has the name of another procedure in its text.
std::vector<Shape> SurveyedSixty() {
  Survey survey;
  for (std::size_t i = 0; i < 60; ++i) {
    const Text name = u"P" + ToText(static_cast<long long>(i));
    const TextView type = i % 2 == 0 ? u"Sub" : u"Property Get";
    const Text text = u"{} " + name + u"()|" + (i % 3 == 0 ? u"Dim n|" : u"") + u"On Error GoTo " +
                      name + u"_Err|n = 1|Exit {}|" + name + u"_Err:|LogError Err, \"Prices." +
                      (i % 20 == 7 ? Text(u"Old") : name) + u"\"|End {}";
    const Text code = MXString::StringReplace(text, u"{}", BaseType(type));
    survey.Add(i, *Taken(code, name, type));
  }
  survey.Add(60, *Taken(u"Sub Total()|On Error GoTo E|Exit Sub|E:|LogError Err, \"a\"|Resume "
                        u"Next|End Sub"));
  return survey.Finish();
}

TEST(Survey, GathersAndLearnsAShape) {
  const std::vector<Shape> shapes = SurveyedSixty();
  ASSERT_EQ(shapes.size(), 2u);
  EXPECT_EQ(shapes[0].Adoptable(), 60u);
  EXPECT_EQ(shapes[0].behindDeclarations, 20u);
  const auto apart = OneRowApart(shapes[0], shapes[1]);
  ASSERT_TRUE(apart);
  EXPECT_EQ(ToUtf8(apart->mine + u"/" + apart->other), "/resume next");

  const LearnedTemplate learned = LearnTemplate(shapes[0], u"Team");
  Text text = u"<#Template name=S type=signature>|<#Start>|'S: <%Signature>|<#End>|";
  for (const Text& line : learned.lines) text += line + u"|";
  EXPECT_EQ(ToUtf8(text.substr(text.find(u"<#Template name=Team"))),
            "<#Template name=Team type=procedure>|<#Start>|    On Error GoTo "
            "<%Name>_Err|<#BodyStart>|<#BodyEnd>|    Exit <%ProcType>|<%Name>_Err:|    LogError "
            "Err, \"<%ModuleName>.<%Name>\"|<#End>|");
  ASSERT_EQ(learned.others.size(), 3u);
  EXPECT_EQ(learned.others[0].member, 7u);
  EXPECT_EQ(ToUtf8(learned.others[0].text), "LogError Err, \"<%ModuleName>.Old\"");

  // What the template writes has the shape that it was learned from.
  EngineFixture test(text);
  EXPECT_TRUE(CheckTemplate(test.oEngine).empty());
  const std::string managed =
      test.Insert(u"Function Run()|n = 1|End Function", u"Team", {}, u"Function");
  Survey survey;
  survey.Add(
      0, *TakeHandlerApart(ProcText(Code(FromUtf8(managed))), {u"Mod", u"Run", u"Function"}, 1));
  EXPECT_EQ(survey.Finish().front().rows, shapes[0].rows) << managed;
}

TEST(Survey, TakesNoTokenThatFewerThanNineOfTenHave) {
  Survey survey;
  for (int i = 0; i < 10; ++i) {
    survey.Add(0, *Taken(i < 8 ? u"Sub Total()|On Error GoTo Total_E|Total_E:|H \"Total\"|End Sub"
                               : u"Sub Total()|On Error GoTo E|E:|H \"x\"|End Sub"));
  }
  const LearnedTemplate learned = LearnTemplate(survey.Finish().front(), u"T");
  EXPECT_EQ(ToUtf8(learned.lines[2]), "    On Error GoTo E");
  EXPECT_EQ(learned.others.size(), 24u);
}

}  // namespace
