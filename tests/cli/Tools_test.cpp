// template, text and rules: the commands that need no project.
#include <regex>

#include "JsonText.h"
#include "WorkFolder.h"

namespace {

TEST(Template, CheckAndListTellAboutAFile) {
  WorkFolder oPlace;
  oPlace.Write("src/lost.dat",
               oPlace.Read("src/TEMPLATE.DAT") +
                   "<#Template name=Lost type=procedure>\r\n<#Start>\r\n"
                   "    Trap.Call #1\r\n<#BodyStart>\r\n<#BodyEnd>\r\nQ:\r\n<#End>\r\n");
  oPlace.Write("src/bad.dat", "<#Template name=X>\r\n");
  ExpectRuns(
      oPlace,
      {
          {"sound", "template check " QUILLON_SOURCE_DIR "/samples/Template.dat", 0,
           "No Errors - Template File Loaded\r\n", Any},
          {"can't be found again", "template check lost.dat", 1, "lost.dat:34: ", Any},
          {"errors", "template check bad.dat", 2, "\nbad.dat:1: Type Parameter Missing", Any},
          {"list", "template list TEMPLATE.DAT", 0,
           "Signature\tsignature\nModule\tmodule\nMain\tprocedure\nOdd\tprocedure\n", Any},
          {"dump", "template dump TEMPLATE.DAT", 0, "   .sName=[Main]\n   .eType=3\n", Any},
          {"missing", "template list none.dat", 2, "", Any},
      });
}

TEST(Survey, ListsShapesAndLearnsTemplates) {
  WorkFolder oPlace;
  std::filesystem::remove(oPlace.Folder() / "src/TEMPLATE.DAT");
  oPlace.Write(
      "src/App/MODMAIN.BAS",
      oPlace.Dos("Attribute VB_Name = \"modMain\"\nSub Main()\n    On Error GoTo Main_Err\n"
                 "    Exit Sub\nMain_Err:\n    Log \"modMain.Main\"\nEnd Sub\n"
                 "Sub Two()\n    x\n    On Error Resume Next\nEnd Sub\n"));
  ExpectRuns(
      oPlace,
      {
          {"all", "survey --component modMain Demo.vbg", 0,
           "1      1           50%    1                  App/MODMAIN.BAS:2: modMain.Main  On Error "
           "GoTo <%Name>_Err | (body)",
           "2 procedures handle errors on their own, in 2 shapes"},
          {"one", "survey --shape 2 --component modMain Demo.vbg", 0,
           "App/MODMAIN.BAS:9: modMain.Two: code stands ahead of On Error", Any},
          {"as JSON", "survey --format json --shape 1 --component modMain Demo.vbg", 0,
           "\"rows\": [\"On Error GoTo <%Name>_Err\",\"(body)\",\"Exit <%ProcType>\"", Any},
          {"a shape that isn't there", "survey --shape 9 Demo.vbg", 2, "",
           "--shape takes a number from 1 to "},
          {"learned", "template learn --shape 1 --name Team Demo.vbg", 0,
           "<#Template name=Team type=procedure>\r\n<#Start>\r\n", Any},
          {"without a shape", "template learn Demo.vbg", 2, "", "needs --shape N"},
          {"a shape for a file", "template list --shape 1 a.dat", 2, "", "go with template learn"},
      });
}

TEST(Text, AnswersEachRequestInItsOrder) {
  WorkFolder oPlace;
  struct Row {
    const char *sName, *sOp, *sRequest, *sExpected;
    int nExit = 0;
  };
  for (
      const Row& oRow : {
          Row{"insert", "insert",
              R"({"id": [1], "name": "R", "module": "m", "type": "Sub", "template": "main",
                   "severity": "Fatal", "before": "Sub R()\r\nEnd Sub"})",
              R"({"id": [1], "messages": [], "after": "Sub R()\r\n'Sign: main\r\n    On Error GoTo Caught\r\n    Exit Sub\r\nCaught:\r\n    Trap.Level = tvnSeverityFatal\r\n    Trap.Caught \"m\", \"R\"\r\nEnd Sub"})"},
          Row{"remove", "remove",
              R"({"name": "R", "type": "Sub", "template": "Odd", "before": "Sub R()\r\n'Sign: Odd\r\n    On Error GoTo Odd\r\n    \u00e9\r\n    Exit Sub\r\nOdd:\r\nEnd Sub"})",
              R"({"after": "Sub R()\r\n    \u00e9\r\nEnd Sub"})"},
          Row{"refused", "remove", R"({"template": "Gone", "before": "Sub R()\r\nEnd Sub"})",
              R"({"after": null})", 1},
          Row{"number", "number", R"({"line_action": 0, "before": "    a\r\n    b"})",
              R"({"after": "1   a\r\n2   b\r\n"})"},
          Row{"extract", "extract",
              R"({"before": "Sub R()\r\n'Sign: MAIN&Locked\r\n    Trap.Edge = tvnBoundaryVB\r\nEnd Sub"})",
              R"({"settings": {"template": "Main", "locked": true, "boundary": "tvnBoundaryVB", "severity": "", "retry": "", "trace": false}})"},
          Row{"signature", "signature", R"({"locked": 2, "before": "Sub R()\r\nEnd Sub"})",
              R"({"after": "Sub R()\r\n'Sign: Locked\r\nEnd Sub"})"},
          Row{"unsignature", "unsignature", R"({"before": "Sub R()\r\n'Sign: Locked\r\nEnd Sub"})",
              R"({"after": "Sub R()\r\nEnd Sub"})"},
          Row{"no JSON", "number", "{", R"({"line": LINE})", 2},
          Row{"no object", "number", "[]",
              R"({"line": LINE, "error": "The line is no JSON object"})", 2},
          Row{"no text", "number", "{}", R"({"error": "before is missing: the text to work on"})",
              2},
          Row{"wrong kind", "number", R"({"before": "", "line_action": 7})",
              R"({"error": "line_action has to be a number from -1 to 2"})", 2},
          Row{"unknown value", "insert", R"({"before": "", "retry": "Often"})", R"({"line": LINE})",
              2},
          Row{"broken UTF-8", "number", "{\"before\": \"\xff\"}", R"({"line": LINE})", 2},
          Row{"broken surrogate", "number", R"({"before": "\ud800"})", R"({"line": LINE})", 2},
          Row{"low surrogate alone", "number", R"({"x": ["\udc00"], "before": ""})",
              R"({"line": LINE})", 2},
          Row{"name twice, of which the last holds", "number",
              R"({"before": "a", "x": 1.50, "before": "b"})", R"({"after": "b\r\n", "x": 1.5})"},
      }) {
    SCOPED_TRACE(oRow.sName);
    std::string sRequest = oRow.sRequest;
    std::erase(sRequest, '\n');
    WorkFolder::Result oResult =
        oPlace.Run(std::string("text -t TEMPLATE.DAT ") + oRow.sOp, sRequest + "\n\n" + sRequest);
    EXPECT_EQ(oResult.nExit, oRow.nExit) << oResult.sErr;
    std::istringstream oLines(oResult.sOut);
    for (std::size_t lLine : {1u, 3u}) {
      std::string sLine;
      ASSERT_TRUE(std::getline(oLines, sLine)) << oResult.sErr;
      ExpectFields(ParseJson(sLine),
                   std::regex_replace(oRow.sExpected, std::regex("LINE"), std::to_string(lLine)));
    }
  }
}

TEST(Text, SurvivesALineThatIsNestedAMillionTimes) {
  WorkFolder oPlace;
  WorkFolder::Result oResult =
      oPlace.Run("text number", R"({"before": "", "x": )" + std::string(1'000'000, '[') +
                                    std::string(1'000'000, ']') + "}\n{\"before\": \"a\"}\n");
  EXPECT_EQ(oResult.nExit, 2);
  EXPECT_HOLDS(oResult.sOut, std::string("\"after\":\"a\\r\\n\""));
}

TEST(Rules, AreKeptInTheFileThatWasNamed) {
  WorkFolder oPlace;
  const std::string sFile = " --settings ../io/team.reg";
  oPlace.Write("io/team.reg",
               "Windows Registry Editor Version 5.00\r\n\r\n"
               "[HKEY_CURRENT_USER\\Software\\Morvelle\\Tarvane\\Quillon\\FMain\\Recent Files]\r\n"
               "\"1\"=\"C:\\\\T.dat\"\r\n\"1_PropString\"=\"DefaultProcTemplate=Main\"\r\n"
               "\"Mine\"=hex(b):01\r\n");
  const std::string sShow = sFile + "; " QUILLON_BIN_DIR "/quillon rules show" + sFile;
  ExpectRuns(oPlace,
             {
                 {"set", "rules set 'severity default=3' 'Skip ReadOnly=FALSE'" + sShow, 0,
                  "Severity Default=3\n", ""},
                 {"the other one", "rules show" + sShow, 0, "Skip ReadOnly=0\n", ""},
                 {"all or nothing", "rules set 'Retry Default=2' 'Trace Default=5'" + sShow, 0,
                  "Retry Default=1\n", "Trace Default can't be 5"},
                 {"dry run", "-n rules set 'Retry Default=2'" + sShow, 0, "Retry Default=1\n", ""},
                 {"reset", "rules reset" + sShow, 0, "Severity Default=2\n", ""},
             });
  std::string sKept = oPlace.Read("io/team.reg");
  EXPECT_HOLDS(sKept, std::string("DefaultProcTemplate=Main"));
  EXPECT_HOLDS(sKept, std::string("\"Mine\"=hex(b):01"));
}

TEST(Rules, ThatAnotherProgramSetMeanwhileStay) {
  WorkFolder oPlace;
  const std::string sFile = " --settings ../io/team.reg ", sLock = "../io/team.reg.lock";
  oPlace.Run(
      "rules reset" + sFile + "; exec 9<" + sLock + "; flock 9; " QUILLON_BIN_DIR "/quillon" +
      sFile + "rules set 'Trace Default=1' 9<&- & sleep 0.3; " +
      "sed -i 's/^\"Severity Default\"=dword:00000002/\"Severity Default\"=dword:00000003/' " +
      "../io/team.reg; flock -u 9; wait");
  const std::string sShown = oPlace.Run("rules show" + sFile).sOut;
  EXPECT_HOLDS(sShown, std::string("\nSeverity Default=3\n"));
  EXPECT_HOLDS(sShown, std::string("\nTrace Default=1\n"));
}

}  // namespace
