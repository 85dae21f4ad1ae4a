// What is refused before anything is changed, and what the program does with bad surroundings.
#include "WorkFolder.h"

namespace {

TEST(Usage, WrongUsageAndBadInputAreToldAndChangeNothing) {
  WorkFolder oPlace;
  oPlace.Write("src/empty/readme.txt", "no project here");
  oPlace.Write("src/Nothing.vbg", "VBGROUP 5.0\r\n");
  oPlace.Write("io/bad.dat", "<#Template name=X type=what>\r\n<#Stop>\r\n");
  oPlace.Write("io/damaged.reg", "Windows Registry Editor Version 5.00\n\n[HKEY_CURRENT_USER\\S\n");
  oPlace.Write("io/recent.reg",
               "Windows Registry Editor Version 5.00\r\n\r\n"
               "[HKEY_CURRENT_USER\\Software\\Morvelle\\Tarvane\\Quillon\\FMain\\Recent Files]\r\n"
               "\"1\"=\"" +
                   (oPlace.Folder() / "src/App/modMain.bas").string() + "\"\r\n");
  const auto oBefore = oPlace.Files();
  const std::string s;
  ExpectRuns(
      oPlace,
      {
          {"version", "--version", 0, "Tarvane Quillon 3.", s},
          {"help", "--help", 0, "COMMAND [options] PATH...", s},
          {"help of a command", "apply --help", 0, "quillon apply --suggested Orders.vbg", s},
          {"no command", "", 2, s, "a COMMAND is missing"},
          {"unknown command", "lits Demo.vbg", 2, s,
           "no command lits (did you mean list?): list, check,"},
          {"help of it", "help apply", 0, "quillon apply --suggested Orders.vbg", s},
          {"help without", "help", 0, "COMMAND [options] PATH...", s},
          {"mistyped option", "list --tempalte=x .", 2, s, "did you mean --template?"},
          {"mistyped value", "check --format sarfi .", 2, s, "sarfi not in {text,json,sarif,"},
          {"value that was meant", "check --format sarfi .", 2, s, "did you mean sarif?"},
          {"explained by scope", "explain Demo.vbg --procedure Main", 0,
           "modMain.Main\n    Template", Any},
          {"no path", "list", 2, s, "PATH is required"},
          {"option of another command", "list --set Trace=True .", 2, s, "--set"},
          {"form of another command", "check --format csv .", 2, s, "csv not in"},
          {"nothing to apply", "apply .", 2, s, "--set NAME=VALUE or --suggested"},
          {"no name", "apply --set Trace .", 2, s, "NAME=VALUE, not Trace"},
          {"unknown property", "apply --set Colour=1 .", 2, s, "Template, Locked, Boundary"},
          {"unknown value", "apply --set Retry=Often .", 2, s, "Line, Procedure or None"},
          {"unknown template", "apply --set Template=Mian .", 2, s, "(none), Module, Main"},
          {"signature is no choice", "apply --set Template=Signature .", 2, s, "no template"},
          {"bad pattern", "list --procedure '[z-a]*' .", 2, s, "Not a valid pattern"},
          {"bad code page", "list --codepage 77777 .", 2, s, "77777"},
          {"constant without a value", "list --define TRIAL .", 2, s,
           "NAME=VALUE, the value a whole"},
          {"constant of another kind", "list --define TRIAL=x .", 2, s,
           "number, True or False: TRIAL=x"},
          {"constant with no name", "list --define 1=1 .", 2, s, "False: 1=1"},
          {"unknown rule", "apply --suggested --allow err Demo.vbg", 2, s,
           "knows no rule err: err-read, name-clash, clean-up, number-twice, line-length,"},
          {"rules in a list", "explain", 0,
           "\nown-handling           note, off     The code handles errors on its own.\n", s},
          {"path missing", "list Nowhere.vbg", 2, s, "Nowhere.vbg"},
          {"folder without projects", "list -t TEMPLATE.DAT empty", 2, s, "empty"},
          {"empty group", "list Nothing.vbg", 2, s, "Nothing.vbg"},
          {"no template", "list App", 2, s, "--template FILE"},
          {"template beside the group", "list --settings ../io/recent.reg Demo.vbg", 0, "modMain",
           "Template file: TEMPLATE.DAT"},
          {"template that was used last", "list --settings ../io/recent.reg App", 2, s,
           "App/modMain.bas:1: "},
          {"template missing", "list -t none.dat .", 2, s, "none.dat"},
          {"template with errors", "apply --suggested -t ../io/bad.dat .", 2, s,
           "\n../io/bad.dat:2: Unknown Directive"},
          {"settings damaged", "rules show --settings ../io/damaged.reg", 0, "Trace Default=2",
           "damaged.reg:3: "},
          {"settings missing", "list --settings none.reg Demo.vbg", 2, s, "none.reg"},
          {"settings in memory", "list --settings \"\" Demo.vbg", 0, "modMain", Any},
          {"nothing stands there", "check --component frm* Demo.vbg", 2, s, "in the scope"},
          {"nothing to show", "list --component frm* Demo.vbg", 0, "Project", "in the scope"},
          {"exit code of what is written", "refresh --exit-code .", 2, s,
           "--exit-code goes with -n"},
          {"settings are a folder", "rules show --settings App", 2, s, "App"},
          {"unknown rule", "rules set 'Tempo=1'", 2, s, "Severity Default"},
          {"rule out of range", "rules set 'Retry Default=9'", 2, s, "1 to 3"},
          {"rule no number", "rules set 'Skip ReadOnly=maybe'", 2, s, "-1 (true) or 0 (false)"},
          {"nowhere to keep a rule",
           "--version; env -u HOME -u XDG_CONFIG_HOME " QUILLON_BIN_DIR
           "/quillon rules set 'Retry Default=2'",
           2, "Tarvane Quillon 3.", "--settings FILE"},
          {"reader goes away", "list -q Demo.vbg | head -n 1", 0, "Project", s},
          {"full disk", "list Demo.vbg >/dev/full", 2, s, "can't be written"},
          {"output closed", "list Demo.vbg >&-", 2, s, "can't be written"},
          {"full disk stops a run", "apply --suggested --diff Demo.vbg >/dev/full", 2, s,
           "no file was changed"},
      },
      [&] { EXPECT_EQ(oPlace.Files(), oBefore); });
}

}  // namespace
