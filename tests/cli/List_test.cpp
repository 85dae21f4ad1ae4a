// list: its three forms and its scope.
#include "JsonText.h"
#include "WorkFolder.h"

namespace {

TEST(List, ShowsARowPerProcedureInColumns) {
  WorkFolder oPlace;
  WorkFolder::Result oResult = oPlace.Run("list Demo.vbg");
  EXPECT_EQ(oResult.nExit, 0);
  EXPECT_EQ(oResult.sErr, "");
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
  const std::string sStart =
      "project,component,procedure,type,scope,template,locked,boundary,"
      "severity,retry,trace\n";
  struct Row {
    const char *sName, *sOptions, *sRows;
  };
  for (const Row& oRow : {
           Row{"component in other case", "--component CLS*", "(declarations) Count "},
           Row{"procedure and type", "--procedure '*a*' --type sub", "Main "},
           Row{"several patterns", "--procedure Main --procedure Jumps", "Main Jumps "},
           Row{"range in a list", "--procedure '[A-L]*'", "Jumps Count "},
           Row{"declarations", "--type declarations", "(declarations) (declarations) "},
           Row{"property kinds", "--type 'Property *'", "Count "},
           Row{"ahead of the command and behind it", "--project d* --procedure Main", "Main "},
           Row{"nothing", "--project Other", ""},
       }) {
    SCOPED_TRACE(oRow.sName);
    WorkFolder::Result oResult =
        oPlace.Run("-t TEMPLATE.DAT list --format csv " + std::string(oRow.sOptions) + " .");
    ASSERT_EQ(oResult.sOut.substr(0, sStart.size()), sStart) << oResult.sErr;
    std::string sNames;
    std::istringstream oLines(oResult.sOut.substr(sStart.size()));
    for (std::string sLine; std::getline(oLines, sLine);) {
      std::istringstream oCells(sLine);
      for (int i = 0; i < 3; ++i) std::getline(oCells, sLine, ',');
      sNames += sLine + ' ';
    }
    EXPECT_EQ(sNames, oRow.sRows);
  }
}

// A signature that names no template of the file is shown as it stands in the code.
TEST(List, QuotesWhatCsvWouldBreak) {
  WorkFolder oPlace;
  oPlace.Write("src/App/modMain.bas", "Sub Main()\r\n'Sign: a, \"b\"\r\nEnd Sub\r\n");
  EXPECT_HOLDS(oPlace.Run("list --format csv --procedure Main Demo.vbg").sOut,
               std::string("\nDemo,modMain,Main,Sub,Public,\"[a, \"\"b\"\"]\",False,,,,\n"));
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
  oPlace.Run("apply --set Template=Module --component clsStock Demo.vbg");
  oList = ParseJson(oPlace.Run("list --format json --component clsStock Demo.vbg").sOut);
  // Declarations have no trace to leave.
  ExpectFields(oList["procedures"][0],
               R"({"notes": {"template":"[Leave]","boundary":"[Property Expert]"}})");
}

}  // namespace
