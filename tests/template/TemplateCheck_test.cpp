// Template files are written with "|" for CR LF and words in braces for what most of them hold.
// The row of the signature is line 3; what is under test begins in line 5.
#include "TemplateCheck.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "CTemplate.h"
#include "MXString.h"

namespace {

Text Expand(Text sText) {
  const std::pair<TextView, TextView> atWord[] = {
      {u"{signature}", u"{first}'Q: <%Signature>|<#End>|"},
      {u"{first}", u"<#Template name=S type=signature>|<#Start>|"},
      {u"{body}", u"'>|<#BodyStart>|<#BodyEnd>|'<|<#End>"},
      {u"|", CrLf}};
  for (const auto& [sWord, sMeant] : atWord) sText = MXString::StringReplace(sText, sWord, sMeant);
  return sText;
}

std::string Check(const Text& sText) {
  const MRules::Values oRules;
  CTemplate oTemplate(oRules);
  oTemplate.LoadTemplateText(u"t.dat", Expand(sText));
  std::string sFound;
  for (const TemplateFinding& oFinding : CheckTemplate(oTemplate)) {
    sFound += std::to_string(oFinding.line) + ": " + ToUtf8(oFinding.message) + "\n";
  }
  return sFound;
}

constexpr TextView Procedure = u"<#Template name=P type=procedure>|";

struct Row {
  const char* sName;
  TextView sText;
  std::string sLine;      ///< of the first finding
  std::string sFragment;  ///< of its message
  int lFindings = 1;
};

void ExpectFindings(const Row& oRow, const Text& sText) {
  SCOPED_TRACE(oRow.sName);
  const std::string sFound = Check(sText);
  EXPECT_EQ(std::count(sFound.begin(), sFound.end(), '\n'), oRow.lFindings) << sFound;
  if (oRow.lFindings == 0) return;
  EXPECT_TRUE(sFound.starts_with(oRow.sLine + ": ")) << sFound;
  EXPECT_NE(sFound.find(oRow.sFragment), std::string::npos) << sFound;
}

// Behind the signature.
const Row atRow[] = {
    {"nothing wrong",
     u"<#Template name=P type=procedure>|<#Start>|<#if trace> T.Enter "
     u"\"<%ProcName>\"|'>|<#BodyStart>|<#BodyEnd>|'<|<#if trace> T.TraceExit "
     u"1|'f>|<#FireExitStart>|<#FireExitEnd>|'<f|<#if boundary>B = <%Boundary>|<#End>|<#Template "
     u"name=M type=module>|<#Start>|<#if retry>Const q = <%Retry>|<#End>",
     "", "", 0},
    {"the signature itself is the start of the body",
     u"<#Template name=P type=procedure>|<#Start>|<#BodyStart>|<#BodyEnd>|'<|<#End>", "", "", 0},

    {"digit sign", u"<#Start>|Print #1|{body}", "7",
     "The line reads [print #1] in code, which doesn't fit its pattern [print #1]"},
    {"list", u"<#Start>|a[b]|{body}", "7", "[ ] for one character"},
    {"list that isn't closed", u"<#Start>|a[b|{body}", "7", "pattern [a[b] can't be read"},
    {"value that may be empty", u"<#Start>|F <%Retry>|{body}", "7",
     "In a procedure without retry the line reads [f]"},
    {"such a value under its condition", u"<#Start>|<#if retry>F <%Retry>|{body}", "", "", 0},
    {"condition with a blank", u"<#Start>|<#if Trace >F|{body}", "7", "write <#if trace> without"},
    {"unknown condition", u"<#Start>|<#if fire>F|{body}", "7", "[fire] is never met"},
    {"open condition", u"<#Start>|<#if trace F|{body}", "7", "condition has no \">\""},
    {"token in another case", u"<#Start>|F <%procname>|{body}", "7", "write <%ProcName>"},
    {"unknown token", u"<#Start>|F <%Line>|{body}", "7", "The token <%Line> would stay"},
    {"open token", u"<#Start>|F <%Line|{body}", "7", "no \">\" behind"},
    {"line feed inside", u"<#Start>|F\nG|{body}", "7", "a LF"},
    {"end of a procedure", u"<#Start>|'>|<#BodyStart>|<#BodyEnd>|'<|End <%ProcType>|<#End>", "11",
     "taken for the end"},

    {"trace exit of two statements", u"T.TraceExit 1: x|<#Start>|<#if trace>T|{body}", "6",
     "must be one statement"},
    {"trace exit that goes on", u"T.TraceExit _|<#Start>|<#if trace>T|{body}", "6", "on one line"},
    {"trace exit that is a comment", u"Rem T.TraceExit 1|<#Start>|<#if trace>T|{body}", "6",
     "without a comment"},
    {"line that goes on into the body",
     u"<#Start>|'>|'a _|<#BodyStart like=\"'>\">|<#BodyEnd>|'<|<#End>", "8",
     "goes on into the next one", 2},
    {"line that goes on under other conditions", u"<#Start>|F 1, _|<#if trace>2|{body}", "7",
     "goes on into the next one"},
    {"lines of one statement under one condition",
     u"<#Start>|<#if trace>F 1, _|<#if trace>2|{body}", "", "", 0},
    {"trace exit with a value that it isn't given",
     u"<%Retry>.TraceExit 1|<#Start>|<#if trace>T|{body}", "6", "The token <%Retry> would stay"},
    {"trace exit with a digit sign, never written by itself",
     u"T.TraceExit #1|<#Start>|<#if trace>T|{body}", "6", "doesn't fit its pattern"},
    {"trace without a line of its own", u"T.TraceExit 1|<#Start>|{body}", "5",
     "on a Sub with trace fails: trace isn't read back"},
    {"boundary that isn't always written", u"<#Start>|<#if severity>S = <%Boundary>|{body}", "7",
     "In a procedure without boundary"},
    {"boundary in a line that trace leaves out",
     u"<#Start>|<#if trace>'x<%Boundary>x|<#if boundary>B = <%Boundary>|{body}", "5",
     "on a Sub fails: Boundary isn't read back from the code; the first line with <%Boundary> is "
     "line 7"},

    {"no line behind the body", u"<#Start>|'>|<#BodyStart>|<#BodyEnd>|<#End>", "", "", 0},
    {"no line behind the clean-up code",
     u"<#Start>|'>|<#BodyStart>|<#BodyEnd>|'<|'f|<#FireExitStart>|<#FireExitEnd>|<#End>", "", "",
     0},
    {"no line ahead of the clean-up code",
     u"<#Start>|'>|<#BodyStart>|<#BodyEnd>|<#FireExitStart>|<#FireExitEnd>|'f|<#End>", "9",
     "No line tells where #BodyEnd is; write a line behind it", 2},
    {"pattern in capitals", u"<#Start>|'X>|<#BodyStart like=\"'X>\">|<#BodyEnd>|'<|<#End>", "8",
     "write ['x>]"},
    {"pattern with an open list", u"<#Start>|'>|<#BodyStart like='[a'>|<#BodyEnd>|'<|<#End>", "8",
     "[[a] of #BodyStart can't be read"},
    {"pattern that fits anything", u"<#Start>|'>|<#BodyStart like='*'>|<#BodyEnd>|'<|<#End>", "8",
     "fits [x = 1] too"},
    {"place that looks like an early exit",
     u"<#Start>|'>|<#BodyStart>|<#BodyEnd>|'<|Exit <%ProcType>|<#FireExitStart>|<#FireExitEnd>|"
     u"'f|<#End>",
     "12", "fits [exit sub] too"},
    {"early exit behind the body", u"<#Start>|'>|<#BodyStart>|<#BodyEnd>|Exit <%ProcType>|<#End>",
     "", "", 0},
    {"optional line", u"<#Start>|<#if optional>' note|'>|<#BodyStart>|<#BodyEnd>|'<|<#End>", "", "",
     0},

    {"label that is no name on a property", u"<#Start>|<%ProcName>_x:|{body}", "7",
     "<%ProcName> reads Total [Get] on a property, which is no name; write <%Name>"},
    {"the same in texts and comments", u"<#Start>|a \"<%ProcName><%File>\" ' <%File>|{body}", "",
     "", 0},
    {"names in code", u"<#Start>|<%Name>_<%Project>_<%ModuleName>:|{body}", "", "", 0},
    {"file in code, behind a text", u"<#Start>|a \"\", <%File>|{body}", "7", "<%File> holds a dot"},
    {"kind of procedure that isn't left", u"<#Start>|x_<%ProcType> = 1|{body}", "7",
     "<%ProcType> is a word of the language"},
    {"pattern of a line elsewhere", u"<#Start>|'>|<#BodyStart like='y'>|<#BodyEnd>|'<|<#End>", "8",
     "No line that is written ahead of #BodyStart fits its pattern [y]"},
    {"place under a condition", u"<#Start>|'>|<#BodyStart>|<#BodyEnd>|<#if trace>'<|y|<#End>", "9",
     "written under a condition only; write one without a condition behind"},
    {"line of the start twice", u"<#Start>|'-|y|'-|<#BodyStart>|<#BodyEnd>|'<|<#End>", "10",
     "of #BodyStart is found in line 7 and not in line 9"},
    {"end found in the start", u"<#Start>|'-x|'>|<#BodyStart>|<#BodyEnd like=\"'-?\">|'-y|<#End>",
     "10", "of #BodyEnd is found in line 7 and not in line 11"},
    {"end found too late", u"<#Start>|'>|<#BodyStart>|<#BodyEnd like=y>|'<|y|<#End>", "9",
     "of #BodyEnd is found in line 11 and not in line 10, so what stands above would stay"},
    {"end of the body and start of the clean-up in one line",
     u"<#Start>|'>|<#BodyStart>|<#BodyEnd>|'<|<#FireExitStart>|<#FireExitEnd>|'f|<#End>", "11",
     "found in the same line"},
    {"start behind the body", u"<#BodyStart>|<#BodyEnd>|'<|<#Start>|x|<#End>", "9",
     "#Start must stand ahead"},
    {"end ahead of the body", u"<#Start>|'>|<#End>|<#BodyStart>|<#BodyEnd>|'<", "8",
     "#End must be the last directive", 2},
};

TEST(TemplateCheck, FindsWhatCouldNotBeFoundAgain) {
  for (const Row& oRow : atRow) {
    const bool bWhole = oRow.sText.starts_with(u"<#Template");
    ExpectFindings(oRow, u"{signature}" + Text(bWhole ? u"" : Procedure) + Text(oRow.sText));
  }
}

constexpr TextView Rest = u"<#End>|<#Template name=M type=module>|<#Start>|<#End>";
const Row atFile[] = {
    {"empty file", u"<## c", "1", "no template"},
    {"no signature template", u"<#Template name=M type=module>|<#Start>|<#End>", "1",
     "must have type=signature"},
    {"signature without a line", u"{first}<#End>", "3", "must hold <%Signature>"},
    {"signature without its token", u"{first}'Q|", "3", "must hold <%Signature>"},
    {"signature that any comment fits", u"{first}' <%Signature>|", "3", "fits [' a comment] too"},
    {"signature twice in a line", u"{first}'Q <%Signature> <%Signature>|", "3",
     "The signature ['Q Locked Locked] can't be read back"},
    {"second row of the signature template", u"{first}'Q: <%Signature>||'Q|", "5", "never written"},
    {"module line that the user writes too",
     u"{signature}<#Template name=a type=module>|<#Start>|Option Explicit|", "7",
     "fits [option explicit] too"},
    {"module line with a token that is empty there",
     u"{signature}<#Template name=a type=module>|<#Start>|'a <%ProcType>|", "7", "may be empty"},
    {"name of a procedure in a module line",
     u"{signature}<#Template name=a type=module>|<#Start>|Const <%Name> = 1|", "7",
     "<%Name> is (declarations) in a module template", 2},
    {"two names", u"{signature}<#Template name=m type=module>|<#Start>|", "8",
     "The template in line 5 has the name M too"},
    {"template named like a lock", u"{signature}<#Template name=LOCKED type=module>|<#Start>|", "5",
     "can't be named LOCKED"},
};

TEST(TemplateCheck, LooksAtTheFileAsAWhole) {
  for (const Row& oRow : atFile) {
    ExpectFindings(oRow, Text(oRow.sText) + Text(oRow.sText.ends_with(u'|') ? Rest : u""));
  }
}

TEST(TemplateCheck, FindsNothingInTheSample) {
  const MRules::Values oRules;
  CTemplate oTemplate(oRules);
  oTemplate.LoadTemplateFile(FromUtf8(QUILLON_SOURCE_DIR "/samples/Template.dat"));
  EXPECT_EQ(oTemplate.LoadErrors(), 0);
  for (const TemplateFinding& oFinding : CheckTemplate(oTemplate)) {
    ADD_FAILURE() << oFinding.line << ": " << ToUtf8(oFinding.message);
  }
}

}  // namespace
