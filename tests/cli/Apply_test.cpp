// apply, refresh, number, unnumber and check on files.
#include <sys/stat.h>

#include "JsonText.h"
#include "WorkFolder.h"

namespace {

const std::string sSuggest = "apply -q --suggested --procedure Main Demo.vbg";

TEST(Apply, WritesTheCodeThatWasAskedForAndTellsTheAccount) {
  WorkFolder oPlace;
  WorkFolder::Result oResult = oPlace.Run(
      "apply --set template=main --set BOUNDARY=vb --set Trace=True --component modMain Demo.vbg");
  EXPECT_EQ(oResult.nExit, 0);
  EXPECT_EQ(oResult.sOut, "");
  EXPECT_EQ(oResult.sErr,
            "Template file: TEMPLATE.DAT\n"
            "Processing modMain.Main\nProcessing modMain.Jumps\n"
            "2 Procedures Processed - No Failures\n1 file written\n");
  EXPECT_HOLDS(oPlace.Read("src/App/modMain.bas"),
               WorkFolder::Dos("Public Sub Main()\n'Sign: Main\n    On Error GoTo Caught\n"
                               "    Debug.Print \"Gr\xf6\xdf"
                               "e\"\n    Exit Sub\nCaught:\n"
                               "    Trap.Edge = tvnBoundaryVB\n    Trap.Traced\n"
                               "    Trap.Caught \"modMain\", \"Main\"\nEnd Sub\n\n"));
}

TEST(Apply, ARewriteThatChangesTheMeaningIsRefusedUnlessItIsAllowed) {
  WorkFolder place;
  const std::string module = "Attribute VB_Name = \"modMain\"\nPrivate Trap As Object\n";
  const auto write = [&](const std::string& code) {
    place.Write("src/App/modMain.bas", WorkFolder::Dos(module + code));
  };
  const std::string apply = "apply --set Template=Main -n --procedure Main --component modMain ";
  write("Sub Main()\n    MsgBox Err.Description\nEnd Sub\n");
  ExpectRuns(place, {
                        {"name", apply + "Demo.vbg", 1, "", "the name trap, which this module"},
                        {"Err", apply + "--allow name-clash Demo.vbg", 1, "",
                         "modMain.bas:4: The template would clear Err"},
                        {"both", apply + "--allow name-clash --allow err-read Demo.vbg", 0, "",
                         "No Failures"},
                        {"no proof", apply + "--no-verify Demo.vbg", 0, "", "No Failures"},
                        {"check", "check --allow name-clash --component modMain Demo.vbg", 1,
                         "[unproved-meaning]", Any},
                        {"suggested", "list --suggested --component modMain Demo.vbg", 0,
                         "Main [Clears Err]  ", Any},
                        {"as a note", "list --format json --component modMain Demo.vbg", 0,
                         R"("notes": {"template": "[Clears Err]")", Any},
                        {"in words", "explain Main Demo.vbg", 0,
                         "Template Main: the default of the rules, but it would clear Err ", Any},
                    });
  std::string code;
  for (int i = 0; i < 65527; ++i) code += "'\n";
  write(code + "Sub Main()\nEnd Sub\n");
  ExpectRuns(place, {
                        {"lines", apply + "--allow name-clash Demo.vbg", 1, "",
                         "beyond 65,534 lines (module-lines), to 65535"},
                        {"allowed", apply + "--allow name-clash --allow module-lines Demo.vbg", 0,
                         "", "No Failures"},
                    });
}

TEST(Apply, AFileOfTwoProjectsFollowsTheFirst) {
  WorkFolder oPlace;
  const std::string sEntry = "Class=CPub; ..\\Core\\CPub.cls\r\n";
  oPlace.Write("src/Core/CPub.cls",
               WorkFolder::Dos("VERSION 1.0 CLASS\nBEGIN\n  MultiUse = -1\nEND\n"
                               "Attribute VB_Creatable = True\nAttribute VB_Exposed = True\n"
                               "Option Explicit\n\nPublic Sub Go()\n    Beep\nEnd Sub\n"));
  oPlace.Write("src/Lib.vbp", "Type=OleDll\r\nClass=CPub; Core\\CPub.cls\r\nName=\"Lib\"\r\n");
  oPlace.Write("src/App/Demo.vbp", oPlace.Read("src/App/Demo.vbp") + sEntry);
  EXPECT_EQ(oPlace.Run("apply -q --suggested Lib.vbp App/Demo.vbp").nExit, 0);
  const auto oApplied = oPlace.Files();
  EXPECT_HOLDS(oPlace.Read("src/Core/CPub.cls"), std::string("tvnBoundaryActiveX"));
  EXPECT_EQ(oPlace.Run("apply -q --suggested Lib.vbp App/Demo.vbp").nExit, 0);
  EXPECT_TRUE(oPlace.Files() == oApplied);
  EXPECT_EQ(oPlace.Run("check Lib.vbp App/Demo.vbp").sOut, "");
}

TEST(Apply, AComponentOutsideOfTheRootsIsReadAndNotWritten) {
  WorkFolder oPlace;
  const std::string sApply = "apply -t TEMPLATE.DAT --suggested --component clsStock ";
  const std::string sOther = "Core/clsStock.cls lies outside";
  // What a repository brings along counts for nothing, what the user allowed does.
  const std::string sGroup = (oPlace.Folder() / "src/App/Demo.vbp").string();
  const std::string sAllowed =
      "REGEDIT4\n\n[HKEY_CURRENT_USER\\Software\\Morvelle\\Tarvane\\Quillon\\Roots]\n\"" + sGroup +
      "\"=\"+" + (oPlace.Folder() / "src/Core").string() + "\"\n";
  oPlace.Write("src/team.reg", sAllowed);
  const auto oBefore = oPlace.Files();
  ExpectRuns(oPlace,
             {
                 {"refused", sApply + "App/Demo.vbp", 1, "", sOther},
                 {"the option is named", sApply + "App/Demo.vbp", 1, "", "--root /"},
                 {"a setting of the repository", sApply + "--settings team.reg App/Demo.vbp", 1, "",
                  sOther},
                 {"not there", sApply + "--root gone App/Demo.vbp", 2, "", "no folder gone"},
                 {"its failures are its own", "apply -t TEMPLATE.DAT -n --suggested App/Demo.vbp",
                  1, "", "1 file would"},
                 {"listed", "list -t TEMPLATE.DAT --format json App/Demo.vbp", 0,
                  "\"readOnlyReason\": \"/", sOther},
             },
             [&] { EXPECT_TRUE(oPlace.Files() == oBefore); });
  oPlace.Write("io/tarvane-quillon/settings.reg", sAllowed);
  ExpectRuns(oPlace, {{"allowed before", sApply + "-n App/Demo.vbp", 0, "", "1 file would"}});
  std::filesystem::remove(oPlace.Folder() / "io/tarvane-quillon/settings.reg");
  ExpectRuns(oPlace, {{"root", sApply + "--root Core --root io App/Demo.vbp", 2, "", "no folder"},
                      {"roots", sApply + "--root . App/Demo.vbp", 0, "", "1 file written"}});
}

TEST(Apply, AProjectThatIsMissingIsNoSuccess) {
  WorkFolder oPlace;
  oPlace.Write("src/Two.vbg", WorkFolder::Dos("VBGROUP 5.0\nProject=Gone.vbp\n") +
                                  "StartupProject=App\\Demo.vbp\r\n");
  oPlace.Run("apply -q --suggested App/Demo.vbp");
  const std::string sPlace = "Two.vbg:2: ";
  ExpectRuns(oPlace,
             {
                 {"check", "check Two.vbg", 1, sPlace, Any},
                 {"apply", "apply --suggested Two.vbg", 1, Any, sPlace},
                 {"list names it", "list Two.vbg", 0, Any, sPlace},
                 {"another project was asked for", "check --project Demo Two.vbg", 0, Any, sPlace},
                 {"it may be one of these", "check --project '*' Two.vbg", 1, sPlace, Any},
             });
}

TEST(Apply, SettingsComeAndGoWithoutATrace) {
  WorkFolder oPlace;
  const auto oBefore = oPlace.Files();
  struct Row {
    const char *sName, *sLine;
    int nExit;
    bool bChanges;
  };
  for (const Row& oRow : {
           Row{"dry run", "apply -n --suggested Demo.vbg", 0, false},
           Row{"dry run, asked", "apply -n --exit-code --suggested Demo.vbg", 1, false},
           Row{"findings", "check Demo.vbg", 1, false},
           Row{"apply", "apply --suggested Demo.vbg", 0, true},
           Row{"apply twice", "apply --suggested Demo.vbg", 0, false},
           Row{"no findings", "check Demo.vbg", 0, false},
           Row{"traces go first", "rules set 'Trace Precedence=true'", 0, false},
           Row{"a trace of declarations is no finding", "check Demo.vbg", 0, false},
           Row{"boundary for a template without", "apply --set Template=Odd Demo.vbg", 0, true},
           Row{"values without a line are no finding", "check Demo.vbg", 0, false},
           Row{"back to the other", "apply --set Template=Main Demo.vbg", 0, true},
           Row{"refresh", "refresh Demo.vbg", 0, false},
           Row{"nothing would change", "refresh -n --exit-code Demo.vbg", 0, false},
           Row{"number", "number --component clsStock Demo.vbg", 0, true},
           Row{"number twice", "number --component clsStock Demo.vbg", 0, false},
           Row{"unnumber", "unnumber --component clsStock Demo.vbg", 0, true},
           Row{"lock", "apply --set Locked=true --procedure Count Demo.vbg", 0, true},
           Row{"passes the locked", "apply --set Retry=None --procedure Count Demo.vbg", 0, false},
           Row{"unlocks first", "apply --set Retry=None --set Locked=False Demo.vbg", 0, true},
           Row{"locks last", "apply --set Locked=True --set Retry=Line Demo.vbg", 0, true},
           Row{"taken out", "apply --set Locked=False --set 'Template=(none)' Demo.vbg", 0, true},
       }) {
    SCOPED_TRACE(oRow.sName);
    const auto oEarlier = oPlace.Files();
    WorkFolder::Result oResult = oPlace.Run(oRow.sLine);
    EXPECT_EQ(oResult.nExit, oRow.nExit) << oResult.sErr;
    EXPECT_EQ(oPlace.Files() != oEarlier, oRow.bChanges) << oResult.sErr;
  }
  EXPECT_EQ(oPlace.Files(), oBefore);
}

TEST(Apply, SaysAsMuchAsWasAskedFor) {
  WorkFolder oPlace;
  ASSERT_EQ(oPlace.Run("apply -q --set Locked=True --procedure Count Demo.vbg").sErr, "");
  EXPECT_EQ(oPlace.Run("apply -n -q --suggested Demo.vbg").sErr, "");
  std::string sErr = oPlace.Run("apply -n -v --suggested Demo.vbg").sErr;
  for (const char* sPart :
       {"Processing Template \"Main\"", "Passed over, locked: 1", "Passed over, foreign: 0",
        "Processing modMain.Main", "Nothing was written: 2 files would change"})
    EXPECT_HOLDS(sErr, std::string(sPart));
}

TEST(Apply, DifferencesRebuildTheFilesByOtherPrograms) {
  for (const char* sTool : {"git apply --whitespace=nowarn", "patch -s --binary -p1"}) {
    SCOPED_TRACE(sTool);
    WorkFolder oPlace;
    oPlace.Write("src/My \xE9 App/mod \"x\".bas", "Public Sub Run()\nEnd Sub");
    oPlace.Write("src/My \xE9 App/x.vbp", "Type=Exe\nModule=modX; mod \"x\".bas\n");
    const std::string sRun = "apply --suggested Demo.vbg 'My \xE9 App' ";
    const auto oBefore = oPlace.Files();
    WorkFolder::Result oResult =
        oPlace.Run(sRun + "-n --diff > ../io/all.diff && " + sTool + " < ../io/all.diff");
    ASSERT_EQ(oResult.nExit, 0) << oResult.sErr;
    const auto oPatched = oPlace.Files();
    EXPECT_NE(oPatched, oBefore);
    for (const auto& [sPath, sBytes] : oBefore) oPlace.Write(sPath, sBytes);
    ASSERT_EQ(oPlace.Run(sRun).nExit, 0);
    EXPECT_EQ(oPlace.Files(), oPatched);
  }
}

TEST(Apply, DifferencesShowHunksAndTheMissingLineEnd) {
  WorkFolder oPlace;
  WorkFolder::Result oResult =
      oPlace.Run("apply -n --diff --color always --set Template=Odd --procedure Jumps Demo.vbg");
  EXPECT_EQ(oResult.sOut,
            "\x1b[1m--- a/App/modMain.bas\x1b[m\n\x1b[1m+++ b/App/modMain.bas\x1b[m\n"
            "\x1b[36m@@ -7,6 +7,10 @@\x1b[m\n End Sub\r\n \r\n"
            " Private Function Jumps(ByVal n As Long) As Long\r\n"
            "\x1b[32m+'Sign: Odd\r\x1b[m\n\x1b[32m+    On Error GoTo Odd\r\x1b[m\n"
            " 10  n = n - 1\r\n     If n > 0 Then GoTo 10\r\n"
            "\x1b[32m+    Exit Function\r\x1b[m\n\x1b[32m+Odd:\r\x1b[m\n End Function\n"
            "\\ No newline at end of file\n");
}

// A module in which nearly every line changes takes no longer than its size asks for.
TEST(Apply, ForeignNamesAndLinesAreVisible) {
  WorkFolder oPlace;
  const std::string sTurned = "\xE2\x80\xAE\x1B[2J";
  oPlace.Write("src/Evil.vbp", "Type=Exe\r\nName=\"" + sTurned + "\"\r\nModule=N; n.bas\r\n");
  oPlace.Write("src/n.bas", "Attribute VB_Name = \"N" + sTurned + "\"\r\nSub A()\r\n'" + sTurned +
                                "\r\nEnd Sub\r\n");
  const auto onTerminal = [](const std::string& sLine) {
    return "--version; script -qec \"" QUILLON_BIN_DIR "/quillon -q " + sLine + "\" /dev/null";
  };
  for (const std::string& sLine :
       {std::string("list Evil.vbp"), std::string("check Evil.vbp"),
        std::string("report summary Evil.vbp"), std::string("apply --suggested -n Evil.vbp"),
        onTerminal("apply --suggested -n --diff Evil.vbp"),
        onTerminal("list --format csv Evil.vbp"), onTerminal("list --format json Evil.vbp"),
        onTerminal("check --format json Evil.vbp")}) {
    SCOPED_TRACE(sLine);
    const WorkFolder::Result oResult = oPlace.Run(sLine);
    const std::string sAll = oResult.sOut + oResult.sErr;
    EXPECT_HOLDS(sAll, std::string("<U+202E>"));
    EXPECT_EQ(sAll.find(sTurned.substr(0, 3)), std::string::npos) << sAll;
    EXPECT_EQ(sAll.find("\x1B[2J"), std::string::npos) << sAll;
  }
  EXPECT_HOLDS(oPlace.Run("apply --suggested -n --diff Evil.vbp").sOut, "'" + sTurned + "\r\n");
}

TEST(Apply, DifferencesOfALongModuleAreWhole) {
  WorkFolder oPlace;
  std::string sCode = "Attribute VB_Name = \"modLong\"\r\n";
  for (int i = 0; i < 40; ++i) {
    sCode += "Sub P" + std::to_string(i) + "()\r\n";
    for (int j = 0; j < 990; ++j) sCode += j % 3 ? "    x = x + 1\r\n" : "    Beep\r\n";
    sCode += "End Sub\r\n";
  }
  oPlace.Write("src/App/long.bas", sCode);
  oPlace.Write("src/App/Demo.vbp", "Type=Exe\nModule=modLong; long.bas\n");
  ASSERT_EQ(oPlace.Run(sSuggest + " --procedure 'P*'").nExit, 0);
  const std::string sBefore = oPlace.Read("src/App/long.bas");
  WorkFolder::Result oResult = oPlace.Run("number -q --diff Demo.vbg");
  ASSERT_EQ(oResult.nExit, 0) << oResult.sErr;
  const std::string sAfter = oPlace.Read("src/App/long.bas");
  EXPECT_NE(sAfter, sBefore);
  oPlace.Write("src/App/long.bas", sBefore);
  oPlace.Write("io/long.diff", oResult.sOut);
  ASSERT_EQ(oPlace.Run("--version && git apply --whitespace=nowarn ../io/long.diff").nExit, 0);
  EXPECT_EQ(oPlace.Read("src/App/long.bas"), sAfter);
}

TEST(Apply, FilesThatCannotBeWrittenAreFailures) {
  WorkFolder oPlace;
  const auto oBefore = oPlace.Files();
  chmod((oPlace.Folder() / "src/App/modMain.bas").c_str(), 0444);
  EXPECT_EQ(oPlace.Run("apply -v --suggested --component modMain Demo.vbg").nExit, 0);
  EXPECT_EQ(oPlace.Files(), oBefore) << "read-only files are passed over by the rule";
  ASSERT_EQ(oPlace.Run("rules set 'Skip ReadOnly=false'").nExit, 0);
  WorkFolder::Result oResult = oPlace.Run(sSuggest);
  EXPECT_EQ(oResult.nExit, 1);
  EXPECT_HOLDS(oResult.sErr, std::string("App/modMain.bas: not written: "));
  EXPECT_HOLDS(oPlace.Run("apply --suggested --component modMain Demo.vbg").sErr,
               std::string("1 file not: what was to change there in 3 procedures is as it was"));
  EXPECT_EQ(oPlace.Files(), oBefore);
}

TEST(Check, TellsWhatWouldChangeAndWhatIsRefused) {
  WorkFolder oPlace;
  ASSERT_EQ(oPlace.Run("rules set 'Line Number Action=0'").nExit, 0);
  WorkFolder::Result oText = oPlace.Run("check --component modMain --type '[FS]*' Demo.vbg");
  EXPECT_EQ(oText.nExit, 1);
  const std::string sChange =
      ": Template (none) -> Main, Boundary unset -> None, Severity unset -> Normal, "
      "Retry unset -> Line, Trace unset -> True [missing-template]\n";
  EXPECT_EQ(oText.sOut, "App/modMain.bas:5: modMain.Main" + sChange +
                            "App/modMain.bas:9: modMain.Jumps" + sChange +
                            "App/modMain.bas:9: modMain.Jumps: refused: "
                            "Line number 10 is the target of a jump [would-refuse]\n");
  const auto oCheck = ParseJson(oPlace.Run("check --format json --procedure Jumps Demo.vbg").sOut);
  const auto oFindings = oCheck["findings"].GetArray();
  ASSERT_EQ(oFindings.Size(), 2u);
  EXPECT_EQ(JsonText(oFindings[0]["changes"][0]),
            R"-({"property":"Template","from":"(none)","to":"Main"})-");
  ExpectFields(oFindings[0], R"({"kind": "change", "rule": "missing-template", "mend":
      "quillon apply --suggested --component modMain --procedure Jumps Demo.vbg"})");
  ExpectFields(oFindings[1], R"({"kind": "refused", "line": 9, "endLine": 9, "mend": null,
      "message": "Line number 10 is the target of a jump"})");
  const std::string sApply = "apply -q --suggested --component modMain Demo.vbg";
  EXPECT_HOLDS(oPlace.Run(sApply + " -n").sErr, std::string("App/modMain.bas:9: Line number 10"));
  WorkFolder::Result oApply = oPlace.Run(sApply);
  EXPECT_EQ(oApply.nExit, 1);
  EXPECT_HOLDS(oApply.sErr,
               std::string("Processing modMain.Jumps\nApp/modMain.bas:22: Line number 10"));
  oPlace.Write("src/App/modMain.bas",  // the Let is rewritten first
               WorkFolder::Dos("Option Explicit\nProperty Get P()\n10  GoTo 10\nEnd Property\n"
                               "Property Let P(v)\nEnd Property\n"));
  EXPECT_HOLDS(oPlace.Run(sApply + " -n").sErr, std::string("App/modMain.bas:2: Line number 10"));
}

TEST(Check, DeclarationsThatLoseTheirLinesAreFoundAsApplyFindsThem) {
  WorkFolder oPlace;
  oPlace.Write("src/Note.dat", WorkFolder::Dos("<#Template name=S type=signature>\n<#Start>\n"
                                               "'S: <%Signature>\n<#End>\n<#Template name=M "
                                               "type=module>\n<#Start>\n' kept\n<#End>\n"));
  oPlace.Write("src/P/P.vbp", "Type=Exe\r\nModule=A; a.bas\r\nModule=B; b.bas\r\n");
  oPlace.Write("src/P/a.bas", "Sub A()\r\nEnd Sub\r\n");
  oPlace.Write("src/P/b.bas", "Option Explicit\r\nDim x\r\nSub B()\r\nEnd Sub\r\n");
  const std::string sRefused = "P/a.bas:1: A.(declarations): refused: These lines would fall";
  EXPECT_HOLDS(oPlace.Run("check -t Note.dat P").sOut, sRefused);
  const WorkFolder::Result oApply = oPlace.Run("apply --suggested -t Note.dat P");
  EXPECT_HOLDS(oApply.sErr, std::string("P/a.bas:1: These lines would fall"));
  EXPECT_HOLDS(oApply.sErr, std::string("2 Procedures Processed - 1 Failures"));
}

TEST(Check, ConditionalCodeIsToldAndCounted) {
  WorkFolder oPlace;
  oPlace.Write("src/P/A.vbp",
               "Type=Exe\r\nModule=M; m.bas\r\nName=\"A\"\r\nCondComp=\"Batch=1\"\r\n");
  oPlace.Write("src/P/B.vbp", "Type=Exe\r\nModule=M; m.bas\r\nName=\"B\"\r\n");
  oPlace.Write("src/P/m.bas", WorkFolder::Dos("Option Explicit\n#If Batch Then\nSub S()\nEnd Sub\n"
                                              "#Else\nSub T()\nEnd Sub\n#End If\n"));
  const std::string sCheck = "check -v --ignore missing-template -t TEMPLATE.DAT ";
  const std::string sInactive = "conditional compilation leaves out: 1\n";
  const std::string sConflict =
      "P/m.bas:2: M: batch is 1 in A, by which the file is read, and 0 in B "
      "[conflicting-constants]\n";
  ExpectRuns(oPlace, {{"both", sCheck + "P", 1, sConflict, sInactive},
                      {"one", sCheck + "--project B P", 0, "", sInactive}});
}

}  // namespace
