// undo from outside: runs that were taken back leave the bytes of before.
#include "WorkFolder.h"

namespace {

TEST(Undo, TakesTheLastRunBackAndThenTheOneBefore) {
  WorkFolder place;
  std::map<std::string, std::string> before = place.Files(), after;
  ASSERT_EQ(place.Run("apply -q --set Template=Main Demo.vbg").nExit, 0);
  const std::map<std::string, std::string> first = place.Files();
  ASSERT_NE(first, before);
  ASSERT_EQ(place.Run("number -q --component clsStock .").nExit, 0);
  const std::map<std::string, std::string> second = place.Files();
  ASSERT_NE(second, first);
  struct Row {
    RunRow run;
    const std::map<std::string, std::string>& files;
  };
  const std::string flock =
      "--version; flock ../io/tarvane-quillon/locks/* " QUILLON_BIN_DIR "/quillon ";
  const Row rows[] = {
      {{"a list", "undo --list", 0, "2  20", ""}, second},
      {{"a trial", "undo -n --diff Demo.vbg", 0, "--- a/Core/clsStock.cls", "would be taken back"},
       second},
      {{"another run", flock + "number --wait 0 .", 2, Any, "Another run is at work in "}, second},
      {{"reading meanwhile", flock + "list .", 0, Any, Any}, second},
      {{"the last run", "undo Demo.vbg", 0, "", "1 file taken back"}, first},
      {{"the one before", "undo -v", 0, "", "Taken back: App/modMain.bas"}, before},
      {{"no more", "undo", 2, "", "There is no run to take back in ."}, before},
      {{"a list behind it", "undo --list", 0,
        "taken back  quillon number -q --component clsStock .", ""},
       before},
      {{"one again", "undo --run 1", 1, "", "clsStock.cls: not taken back: The file was changed"},
       before},
      {{"no such run", "undo --run 3", 2, "", "There is no run 3"}, before},
      {{"another group", "undo App", 2, "", "There is no run"}, before},
      {{"no time", "undo --wait soon", 2, "", "--wait takes whole seconds, not soon"}, before},
  };
  for (const auto& [run, files] : rows) {
    ExpectRuns(place, {run});
    EXPECT_EQ(place.Files(), files) << run.sName;
  }
}

TEST(Undo, SettingsAndFoldersDecideWhetherRunsAreRecorded) {
  WorkFolder place;
  place.Write("off.reg",
              "Windows Registry Editor Version 5.00\n\n[HKEY_CURRENT_USER\\Software\\Morvelle\\"
              "Tarvane\\Quillon\\Undo]\n\"Kept Runs\"=dword:00000000\n");
  const std::string apply = "apply -q --set Template=Main .",
                    none = "apply -q --set Template=Odd .";
  ExpectRuns(place, {{"off", "--settings ../off.reg " + apply, 0, "", Any},
                     {"nothing was recorded", "undo --list", 0, "", ""},
                     {"no home",
                      "--version; env -u HOME -u XDG_STATE_HOME " QUILLON_BIN_DIR
                      "/quillon --settings \"\" --log ../io/log " +
                          none,
                      0, Any,
                      "this run can"
                      "'"
                      "t be taken back"},
                     {"nothing was recorded then", "undo --list", 0, "", ""}});
}

}  // namespace
