// Template files are written with "|" for CR LF and with {type} for the first two lines of a
// template named a.
#include "TemplateLoader.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "ErrorRuntimeFake.h"
#include "Failure.h"
#include "MXString.h"

namespace {

const MRules::Values oRules;

Text Lines(Text sText) {
  for (const Text sType : {u"module", u"procedure", u"signature"}) {
    const Text sHead = u"<#Template name=a type=" + sType + u">|<#Start>";
    sText = MXString::StringReplace(sText, u"{" + sType + u"}", sHead);
  }
  return MXString::StringReplace(sText, u"|", CrLf);
}

struct Loaded {
  CTemplate oTemplate{oRules};
  std::string sReport;  ///< messages, each ended by "|"
  Connection oLink = oTemplate.ReportError.Connect(
      [this](TextView s) { sReport += ToUtf8(MXString::StringReplace(s, CrLf, u"^")) + "|"; });

  Loaded() = default;
  explicit Loaded(TextView sText) { oTemplate.LoadTemplateText(u"t.dat", Lines(Text(sText))); }

  const TemplateRow& Template() const { return oTemplate.Templates().back(); }
  /// The last row and the last template in short.
  std::string Summary() const {
    const LineRow& l = oTemplate.Lines().back();
    const TemplateRow& t = Template();
    std::string sText = "text=[" + ToUtf8(l.sLine) + "] if=[" + ToUtf8(l.sIfCondition) +
                        "] like=[" + ToUtf8(l.sLike.Pattern()) +
                        "] line=" + std::to_string(l.fileLine) + " rows=";
    for (auto lRow : t.lStart.values) sText += std::to_string(lRow) + ",";
    sText += std::to_string(oTemplate.Lines().size()) + " roles=";
    for (auto lRow : {t.lBoundary, t.lSeverity, t.lRetry, t.lTrace, t.lTraceExit}) {
      sText += std::to_string(lRow) + ",";
    }
    sText += " places=";
    for (const LikePattern& oPlace : t.sLike.values) sText += "[" + ToUtf8(oPlace.Pattern()) + "]";
    return sText;
  }
};

constexpr TextView GoodModule = u"<#Template name=M type=module>|<#Start>|<#End>|";

struct Report {
  const char* sName;
  TextView sText;
  std::string sReport;  ///< between the first message and the count
};

std::string At(int lLine, const std::string& sMessage) {
  return "    Line " + std::to_string(lLine) + " " + sMessage + "|";
}
std::string Begins(const std::string& sTemplate) {
  return "Processing Template \"" + sTemplate + "\"|";
}

const std::string A = Begins("a");
const std::string NoTemplateScript = "Script line found without preceding #Template directive";
const std::string NoTemplate = "Directive found without preceding #Template directive";

const Report atReport[] = {
    {"only comments", u"<## a|  <## b", ""},
    {"empty file", u"", ""},
    {"blank line ahead of the first template", u"<## c|| |{module}|<#End>",
     At(2, NoTemplateScript) + At(3, NoTemplateScript) + A},
    {"comment mark without a blank", u"<##",
     At(1, "Close Chevron missing from Directive <##") + At(1, NoTemplate)},
    {"unknown directive without a template", u"<#Foo a=1>",
     At(1, "Unknown Directive <#foo") + At(1, NoTemplate)},
    {"nothing is wrong behind an end", u"{module}|<#End>|x||<## c", A},
    {"unknown directive behind an end", u"{module}|<#End>|<#Stop >",
     A + At(4, "Unknown Directive <#stop")},
    {"chevron missing", u"{module}|  <#END|<#End>",
     A + At(3, "Close Chevron missing from Directive <#end")},
    {"no name, no type", u"<#Template>|<#Start>|<#End>",
     Begins("") + At(1, "Name Parameter Missing from Template Directive") +
         At(1, "Type Parameter Missing from Template Directive")},
    {"bad name, bad type", u"<#Template name=a-b type=class>|<#End>",
     Begins("a-b") + At(1, "Name Parameter contains Invalid Characters") +
         At(1, "Type Parameter Invalid")},
    {"names with dots, types in capitals", u"<#template NAME=a_b.c1 TYPE=Module>|<#start>|<#eNd>|",
     Begins("a_b.c1")},
    {"duplicate place", u"{module}|<#Start>|<#End>", A + At(3, "Duplicate Directive")},
    {"end missing, told when the next begins",
     u"<## c|{signature}|<#Template name=b type=module>|<#End>",
     A + At(2, "#End Directive not found in Template") + Begins("b") +
         At(4, "#Start Directive not found in Template")},
    {"end missing in the last", u"{module}|", A + At(1, "#End Directive not found in Template")},
    {"body places in a signature", u"{signature}|<#BodyStart>|<#BodyEnd>|<#End>",
     A + At(1, "#BodyStart Directive found in Signature type Template") +
         At(1, "#BodyEnd Directive found in Signature type Template")},
    {"clean-up places in a module", u"{module}|<#FireExitStart>|<#FireExitEnd>|<#End>",
     A + At(1, "#FireExitStart Directive found in Module type Template") +
         At(1, "#FireExitEnd Directive found in Module type Template")},
    {"procedure without a body", u"{procedure}|<#End>",
     A + At(1, "#BodyStart Directive not found in Template") +
         At(1, "#BodyEnd Directive not found in Template")},
    {"procedure in the wrong order",
     u"{procedure}|<#FireExitEnd>|<#FireExitStart>|<#BodyEnd>|<#BodyStart>|<#End>",
     A + At(1, "#BodyEnd Directive found before #BodyStart Directive") +
         At(1, "#FireExitEnd Directive found before #FireExitStart Directive") +
         At(1, "#FireExitStart Directive found before #BodyEnd Directive") +
         At(1, "#FireExitEnd Directive found before #BodyEnd Directive")},
    {"optional lines that must be there",
     u"{procedure}|<#if optional>x|<#if optional>' c||<#BodyStart>|<#BodyEnd>|<#if optional>|"
     u"<#if optional>Rem c|x|<#End>",
     A + At(3, "Optional Line holds Code; only a Comment or a blank Line may be optional") +
         At(4, "Optional Line found beside the Body or the Clean-up Code") +
         At(9, "Optional Line found beside the Body or the Clean-up Code")},
    {"optional line in a signature", u"{signature}|<#if optional>' c|<#End>",
     A + At(3, "Optional Line found in Signature type Template")},
    {"half a pair", u"{procedure}|<#BodyStart>|<#BodyEnd>|<#FireExitEnd>|<#End>",
     A + At(1, "#FireExitEnd Directive found without corresponding #FireExitStart")},
    {"other half of a pair", u"{procedure}|<#BodyStart>|<#BodyEnd>|<#FireExitStart>|<#End>",
     A + At(1, "#FireExitStart Directive found without corresponding #FireExitEnd")},
    {"lines that end in LF alone", u"<#Template name=a type=module>\n<#Start>\n<#End>\n",
     At(1, "The lines of \"t.dat\" end in LF alone; convert the file to CR LF line ends")},
};

TEST(TemplateLoader, ReportsEveryFaultWithItsLine) {
  for (const Report& oRow : atReport) {
    SCOPED_TRACE(oRow.sName);
    const Loaded oLoaded(oRow.sText);
    const auto lErrors = MXString::StringCount(FromUtf8(oRow.sReport), u"    Line ");
    EXPECT_EQ(oLoaded.oTemplate.LoadErrors(), lErrors);
    EXPECT_EQ(oLoaded.sReport, "Processing Template File \"t.dat\"|" + oRow.sReport +
                                   (lErrors == 0 ? "No Errors - Template File Loaded^|"
                                                 : std::to_string(lErrors) + " Errors Found|"));
  }
}

struct Table {
  const char* sName;
  TextView sText;  ///< behind a <#Template> of type procedure
  std::string sExpected;
};

const Table atTable[] = {
    {"text stays as written", u"  If  <%ProcName> ", "text=[  If  <%ProcName> ] if=[]"},
    {"pattern: folded, tokens starred", u"  If  <%Proc Name>,<%x><% y", "like=[if *,*<% y]"},
    {"condition in capitals", u" <#IF Boundary >  A>b", "text=[  A>b] if=[boundary ] like=[a>b]"},
    {"condition that isn't closed is text", u"<#if trace x", "text=[<#if trace x] if=[]"},
    {"file line behind comments", u"<## c||x", "line=4"},
    {"BodyStart takes the line above, blank lines aside", u"<#Start>|A|B <%x>||<#BodyStart>|c",
     "places=[][][b *][][][][]"},
    {"BodyEnd takes the first line below", u"<#BodyEnd>||<#if trace>B|C", "places=[][][][b]["},
    {"FireExit places alike", u"<#BodyEnd>|a|<#FireExitStart>|x|<#FireExitEnd>|b", "[a][a][b][]"},
    {"like goes first, in its own case", u"a|<#BodyStart like='X*'>|<#BodyEnd like=y>|z",
     "places=[][][X*][y]["},
    {"Start and End have no pattern of their own", u"a|<#Start>|b|<#End>", "[][][][][][][]"},
    {"last pattern outlives a template", u"<#Start>|a|<#Template name=b>|<#Start>|<#BodyStart>",
     "places=[][][a]["},
    {"first row of a value, last row of a trace exit",
     u"|<%Retry> <%SEVERITY>|<%Retry>|e.TraceExit(1)|<#if trace>x|<#if trace>e.TRACEEXIT a|",
     "roles=0,3,3,6,7,"},
    {"a broken directive opens a closed template to lines", u"<#End>|<#Stop>|x", "text=[x]"},
    {"a row for each place, one more behind the end; the first of two stays",
     u"<#Start>|<#Start>|x|<#BodyStart>|<#End>|y", "rows=1,2,5,-1,-1,-1,6,8"},
};

TEST(TemplateLoader, FillsTheTables) {
  for (const Table& oRow : atTable) {
    SCOPED_TRACE(oRow.sName);
    const Loaded oLoaded(u"<#Template name=a type=procedure>|" + Text(oRow.sText));
    EXPECT_NE(oLoaded.Summary().find(oRow.sExpected), std::string::npos) << oLoaded.Summary();
  }
}

TEST(CTemplate, LooksUpTemplates) {
  const Loaded o(
      u"<#Template name=a type=signature>|<#Template name=b type=procedure inherit=no "
      u"usemoduledefaults=true>|<#Template name=c inherit='' type=MODULE "
      u"usemoduledefaults=TRUE>|<#Template name=d inherit=True>|<#Template name=D>");
  std::string sInherits;
  for (TextView s : {u"a", u"b", u"c", u"d", u"D", u"e"}) {
    sInherits += o.oTemplate.Inherit(s) ? 'y' : 'n';
  }
  EXPECT_EQ(sInherits, "nnyynn");
  EXPECT_EQ(o.oTemplate.LookupTemplate(u"D"), 4);
  TextArray asModule, asProc;
  o.oTemplate.GetModuleTemplates(asModule);
  o.oTemplate.GetProcTemplates(asProc);
  EXPECT_EQ(asModule, (TextArray{u"", u"", u"", u"c", u"", u""}));
  EXPECT_EQ(asProc, (TextArray{u"", u"", u"b", u"", u"", u""}));
}

TEST(TemplateLoader, RefusesMoreLinesThanItCanCount) {
  Text sText(GoodModule);
  for (int i = 3; i < 32767; ++i) sText += u"|";
  EXPECT_EQ(Loaded(sText).oTemplate.LoadErrors(), 0);
  const Loaded oLoaded(sText + u"|");
  EXPECT_EQ(oLoaded.oTemplate.LoadErrors(), 1);
  EXPECT_EQ(oLoaded.oTemplate.Templates().size(), 1u);
  EXPECT_NE(oLoaded.sReport.find("Line 32768 The file \"t.dat\" has more"), std::string::npos);
}

// The name of the one template that a file of these bytes gives.
std::string NameLoadedFrom(const std::string& sBytes) {
  const auto sPath = std::filesystem::temp_directory_path() /
                     ("quillon_loader_" + std::to_string(getpid()) + ".dat");
  std::ofstream(sPath, std::ios::binary) << sBytes;
  Loaded oLoaded;
  oLoaded.oTemplate.LoadTemplateFile(FromUtf8(sPath.string()));
  std::filesystem::remove(sPath);
  return ToUtf8(oLoaded.Template().sName) + std::to_string(oLoaded.oTemplate.LoadErrors());
}

TEST(TemplateLoader, ReadsFilesInTheirCodePage) {
  const std::string sHead = "<#Template type=module name=", sRest = ">\r\n<#Start>\r\n<#End>";
  const std::pair<std::string, std::string> asRow[] = {
      {sHead + "\xE4" + sRest,
       "\xC3\xA4"
       "1"},  // 1252; a letter that a name must not hold
      {sHead + "\xC3\xA4" + sRest,
       "\xC3\xA4"
       "1"},
      {"\xEF\xBB\xBF" + sHead + "a" + sRest, "a0"},
      {sHead + std::string("a\0", 2) + sRest, std::string("a\0"
                                                          "1",
                                                          3)},
      {"\xFF\xFE<\r\nx", "1"},
  };
  for (const auto& [sBytes, sExpected] : asRow) EXPECT_EQ(NameLoadedFrom(sBytes), sExpected);
}

TEST(TemplateLoader, FailsWithThePathOfAFileThatCannotBeRead) {
  Loaded oLoaded;
  try {
    oLoaded.oTemplate.LoadTemplateFile(u"/nowhere/t.dat");
    FAIL() << "no failure";
  } catch (const Failure& oFailure) {
    EXPECT_NE(oFailure.Description().find(u"/nowhere/t.dat"), Text::npos);
    EXPECT_EQ(oLoaded.oTemplate.LoadErrors(), 0);
  }
}

TEST(TemplateLoader, CountsAFileThatWasPassedOverAsAFault) {
  Loaded oLoaded;
  AnswersWith oAnswers(ErrorIds::ActionNext);
  oLoaded.oTemplate.LoadTemplateFile(u"/nowhere/t.dat");
  EXPECT_EQ(oLoaded.oTemplate.LoadErrors(), 1);
  EXPECT_TRUE(oLoaded.sReport.find("t.dat\" could not be read") != std::string::npos);
  EXPECT_EQ(oAnswers.nReports, 1);
}

TEST(CTemplate, KeepsTheAccountOfABatch) {
  Loaded o;
  o.oTemplate.BatchSummary();
  for (int i = 0; i < 12; ++i) o.oTemplate.BatchItem(u"M", i == 0 ? u"F" : u"P");
  o.oTemplate.BatchError();
  o.oTemplate.BatchSummary();
  o.oTemplate.BatchStart();
  o.oTemplate.BatchSummary();
  EXPECT_TRUE(o.sReport.starts_with(
      "0 Procedures Processed - No Failures^|Processing M.F|Processing M.P|"));
  EXPECT_TRUE(o.sReport.ends_with(
      "12 Procedures Processed - 1 Failures^|0 Procedures Processed - No Failures^|"));
}

TEST(CTemplate, DumpsItsTables) {
  Loaded o(
      u"<#Template name=a type=procedure>|<#Start>|<#if trace> X|<#BodyStart>|<#BodyEnd>|"
      u"<#FireExitStart like=q>|<#FireExitEnd>|<#End>");
  std::string sDump;
  auto oLink = o.oTemplate.ReportDump.Connect([&](TextView s) { sDump += ToUtf8(s) + "\n"; });
  o.oTemplate.PrintTemplateFile();
  const std::string sRule(37, '-');
  EXPECT_TRUE(
      sDump.starts_with("matTemplate(1)\n   .sName=[a]\n   .eType=3\n   .bFire=True\n \n"
                        "   .lStart(Global   )=1\n   .lStart(Start    )=2\n"))
      << sDump;
  EXPECT_NE(sDump.find("   .sLike(FireStart)=[q]\n   .sLike(FireEnd  )=[]\n   .sLike(End      )=[]"
                       "\n" +
                       sRule + "\n \n \nmatLine(1)\n"),
            std::string::npos);
  EXPECT_NE(sDump.find("matLine(3)\n   .eType=[1]\n   .sIfCondition=[trace]\n   .sLine=[ X]\n"
                       "   .sLike=[x]\n" +
                       sRule),
            std::string::npos);
}

}  // namespace
