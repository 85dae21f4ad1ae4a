// list: its three forms and its scope.
#include "JsonText.h"
#include "WorkFolder.h"

namespace {

TEST(List, ShowsARowPerProcedureInColumns) {
  WorkFolder oPlace;
  WorkFolder::Result oResult = oPlace.Run("list Demo.vbg");
  EXPECT_EQ(oResult.nExit, 0);
  EXPECT_EQ(oResult.sErr, "Template file: TEMPLATE.DAT\n");
  EXPECT_EQ(
      oResult.sOut,
      "Project  Component  Procedure       Type          Scope    Template  Locked  Boundary  "
      "Severity  Retry  Trace\n"
      "Demo     modMain    (declarations)                         (none)    False\n"
      "Demo     modMain    Main            Sub           Public   (none)    False\n"
      "Demo     modMain    Jumps           Function      Private  (none)    False\n"
      "Demo     clsStock   (declarations)                         (none)    False\n"
      "Demo     clsStock   Count           Property Get  Public   (none)    False\n");
}

TEST(List, TakesTheScopeThatWasAskedFor) {
  WorkFolder oPlace;
  const std::string s, sList = "-t TEMPLATE.DAT list --format csv ",
                       sNames = " . | cut -d, -f3 | paste -sd \" \"";
  ExpectRuns(
      oPlace,
      {
          {"component in other case", sList + "--component CLS*" + sNames, 0,
           "procedure (declarations) Count\n", s},
          {"procedure and type", sList + "--procedure '*a*' --type sub" + sNames, 0,
           "procedure Main\n", s},
          {"several patterns", sList + "--procedure Main --procedure Jumps" + sNames, 0,
           "procedure Main Jumps\n", s},
          {"range in a list", sList + "--procedure '[A-L]*'" + sNames, 0, "procedure Jumps Count\n",
           s},
          {"declarations", sList + "--type declarations" + sNames, 0,
           "procedure (declarations) (declarations)\n", s},
          {"property kinds", sList + "--type 'Property *'" + sNames, 0, "procedure Count\n", s},
          {"ahead of the command and behind it",
           "--project d* " + sList + "--procedure Main" + sNames, 0, "procedure Main\n", s},
          {"nothing", sList + "--project Other" + sNames, 0, "procedure\n", "No procedure is in"},
      });
}

// A signature that names no template of the file is shown as it stands in the code.
TEST(List, QuotesWhatCsvWouldBreak) {
  WorkFolder oPlace;
  oPlace.Write("src/App/modMain.bas", "Sub Main()\r\n'Sign: a, \"b\"\r\nEnd Sub\r\n");
  EXPECT_EQ(oPlace.Run("list --format csv --procedure Main Demo.vbg").sOut,
            "project,component,procedure,type,scope,template,locked,boundary,severity,retry,trace\n"
            "Demo,modMain,Main,Sub,Public,\"[a, \"\"b\"\"]\",False,,,,\n");
}

TEST(List, JsonTellsPlacesSuggestionsAndLoadFailures) {
  WorkFolder oPlace;
  oPlace.Write("src/App/Demo.vbp",
               oPlace.Read("src/App/Demo.vbp") +
                   "Module=modGone; gone.bas\r\nForm=bare.frm\r\nClass=CTorn; torn.cls\r\n");
  oPlace.Write("src/App/torn.cls", "VERSION 1.0 CLASS\r\nBEGIN\r\n  MultiUse = -1\r\nDim a\r\n");
  oPlace.Write("src/App/bare.frm", "Sub A()\r\nEnd Sub\r\n");
  WorkFolder::Result oResult = oPlace.Run("list --suggested --format json Demo.vbg");
  EXPECT_EQ(oResult.nExit, 0);
  EXPECT_HOLDS(oResult.sErr, std::string("gone.bas"));
  auto oList = ParseJson(oResult.sOut);
  ExpectFields(oList, R"({"template": "./TEMPLATE.DAT",
      "projects": [{"name":"Demo","type":"Standard EXE","file":"App/Demo.vbp"}]})");
  ASSERT_EQ(oList["procedures"].Size(), 5u);
  ExpectFields(oList["procedures"][1], R"({"procedure": "Main", "template": "Main",
      "locked": false, "boundary": "None", "severity": "Normal", "retry": "Line", "trace": true,
      "file": "App/modMain.bas", "line": 5, "firstLine": 3, "foreign": false, "readOnly": false,
      "boundaryInherited": false, "notes": {"boundary": "[Property Expert]"}})");
  ExpectFields(oList["procedures"][4], R"({"line": 9})");  // behind the header of the class
  ASSERT_EQ(oList["loadFailures"].Size(), 3u);
  ExpectFields(oList["loadFailures"][0], R"({"component": "modGone"})");
  EXPECT_HOLDS(JsonText(oList["loadFailures"][0]["reason"]), std::string("gone.bas"));
  EXPECT_HOLDS(oResult.sErr, std::string("bare can't be read: its controls can't be listed"));
  EXPECT_HOLDS(oResult.sErr, std::string("CTorn can't be read: The header block"));
  oPlace.Run("apply --set Template=Module --set Severity=Fatal --component clsStock Demo.vbg");
  oList = ParseJson(oPlace.Run("list --format json --component clsStock Demo.vbg").sOut);
  // Declarations have no trace to leave.
  ExpectFields(oList["procedures"][0],
               R"({"notes": {"template": "[Leave]", "boundary": "[Property Expert]",
                             "severity": "[Leave]"}})");
}

TEST(List, APathOfAnyBytesHasOneFormThatIsReadBack) {
  WorkFolder oPlace;
  oPlace.Write("src/caf\xE9/Demo.vbp", "Type=Exe\r\nModule=A; a.bas\r\nModule=B; gone.bas\r\n");
  oPlace.Write("src/caf\xE9/a.bas", "Sub A()\r\nEnd Sub\r\n");
  oPlace.Write("src/caf\xE9/T.dat", oPlace.Read("src/TEMPLATE.DAT"));
  const std::string sRest = " -t 'caf\\xE9/T.dat' 'caf\\xE9'", sGone = "/caf\\xE9/gone.bas";
  ExpectRuns(
      oPlace,
      {
          {"template", "list --format json" + sRest, 0, R"("template": "caf\\xE9/T.dat")", sGone},
          {"project", "list --format json" + sRest, 0, R"("file": "caf\\xE9/Demo.vbp")", sGone},
          {"component", "list --format json" + sRest, 0, R"("file": "caf\\xE9/a.bas")", sGone},
          {"reason", "list --format json" + sRest, 0, R"(/caf\\xE9/gone.bas")", sGone},
          {"finding as JSON", "check --format json" + sRest, 1, R"("file": "caf\\xE9/a.bas")", Any},
          {"reason as JSON", "check --format json" + sRest, 1, R"(/caf\\xE9/gone.bas")", Any},
          {"finding", "check" + sRest, 1, "\ncaf\\xE9/a.bas:1: A.A: ", Any},
          {"message", "apply -v --suggested" + sRest, 1, "", "Written: caf\\xE9/a.bas\n"},
      });
}

}  // namespace
