// What is refused before anything is changed, and what the program does with bad surroundings.
#include "WorkFolder.h"

namespace {

struct Row {
  const char* sName;
  std::string sLine;
  int nExit;
  std::string sOut, sErr;
};

void PrepareFaults(WorkFolder& oPlace) {
  oPlace.Write("src/empty/readme.txt", "no project here");
  oPlace.Write("src/Nothing.vbg", "VBGROUP 5.0\r\n");
  oPlace.Write("io/bad.dat", "<#Template name=X type=what>\r\n<#Stop>\r\n");
  oPlace.Write("io/damaged.reg", "Windows Registry Editor Version 5.00\n\n[HKEY_CURRENT_USER\\S\n");
}

TEST(Usage, WrongUsageAndBadInputAreToldAndChangeNothing) {
  WorkFolder oPlace;
  PrepareFaults(oPlace);
  const auto oBefore = oPlace.Files();
  const std::string s;
  for (const Row& oRow : {
           Row{"version", "--version", 0, "Tarvane Quillon 3.", s},
           Row{"help", "--help", 0, "COMMAND [options] PATH...", s},
           Row{"help of a command", "apply --help", 0, "quillon apply --suggested Orders.vbg", s},
           Row{"no command", "", 2, s, "a COMMAND is missing"},
           Row{"unknown command", "lits Demo.vbg", 2, s, "there is no command lits: list, check,"},
           Row{"no path", "list", 2, s, "PATH is required"},
           Row{"option of another command", "list --set Trace=True .", 2, s, "--set"},
           Row{"form of another command", "check --format csv .", 2, s, "csv not in"},
           Row{"nothing to apply", "apply .", 2, s, "--set NAME=VALUE or --suggested"},
           Row{"no name", "apply --set Trace .", 2, s, "NAME=VALUE, not Trace"},
           Row{"unknown property", "apply --set Colour=1 .", 2, s, "Template, Locked, Boundary"},
           Row{"unknown value", "apply --set Retry=Often .", 2, s, "Line, Procedure or None"},
           Row{"unknown template", "apply --set Template=Mian .", 2, s, "(none), Module, Main"},
           Row{"signature is no choice", "apply --set Template=Signature .", 2, s, "no template"},
           Row{"bad pattern", "list --procedure '[z-a]*' .", 2, s, "Not a valid pattern"},
           Row{"bad code page", "list --codepage 77777 .", 2, s, "77777"},
           Row{"path missing", "list Nowhere.vbg", 2, s, "Nowhere.vbg"},
           Row{"folder without projects", "list -t TEMPLATE.DAT empty", 2, s, "empty"},
           Row{"empty group", "list Nothing.vbg", 2, s, "Nothing.vbg"},
           Row{"no template", "list App", 2, s, "--template FILE"},
           Row{"template missing", "list -t none.dat .", 2, s, "none.dat"},
           Row{"template with errors", "apply --suggested -t ../io/bad.dat .", 2, s,
               "nothing was changed"},
           Row{"settings damaged", "rules show --settings ../io/damaged.reg", 0, "Trace Default=2",
               "damaged.reg:3: "},
           Row{"settings missing", "list --settings none.reg Demo.vbg", 0, "modMain", "none.reg"},
           Row{"settings are a folder", "rules show --settings App", 2, s, "App"},
           Row{"unknown rule", "rules set 'Tempo=1'", 2, s, "Severity Default"},
           Row{"rule out of range", "rules set 'Retry Default=9'", 2, s, "1 to 3"},
           Row{"rule no number", "rules set 'Skip ReadOnly=maybe'", 2, s, "-1 (true) or 0 (false)"},
           Row{"nowhere to keep a rule",
               "--version; env -u HOME -u XDG_CONFIG_HOME " QUILLON_BIN_DIR
               "/quillon rules set 'Retry Default=2'",
               2, "Tarvane Quillon 3.", "--settings FILE"},
           Row{"reader goes away", "list Demo.vbg | head -n 1", 0, "Project", s},
           Row{"full disk", "list Demo.vbg >/dev/full", 2, s, "can't be written"},
           Row{"output closed", "list Demo.vbg >&-", 2, s, "can't be written"},
           Row{"full disk stops a run", "apply --suggested --diff Demo.vbg >/dev/full", 2, s,
               "no file was changed"},
       }) {
    SCOPED_TRACE(oRow.sName);
    WorkFolder::Result oResult = oPlace.Run(oRow.sLine);
    EXPECT_EQ(oResult.nExit, oRow.nExit) << oResult.sErr;
    EXPECT_HOLDS(oResult.sOut, oRow.sOut);
    EXPECT_HOLDS(oResult.sErr, oRow.sErr);
    EXPECT_EQ(oPlace.Files(), oBefore);
  }
}

}  // namespace
