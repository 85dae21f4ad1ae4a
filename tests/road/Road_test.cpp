// The windowed program as its user sees it, on a real renderer: the whole road of a request by
// mouse and keyboard, held against what the command line makes of the same request.
#include <gtest/gtest.h>

#include <filesystem>

#include "Desktop.h"
#include "DesktopProgram.h"
#include "FIDE.h"
#include "FMain.h"
#include "FormLook.h"
#include "Hand.h"
#include "ListBox.h"
#include "OwnSettings.h"
#include "TempFolder.h"

namespace {

namespace fs = std::filesystem;
using namespace Forms;

std::map<std::string, std::string> FilesOf(const fs::path& oFolder) {
  std::map<std::string, std::string> oFiles;
  for (const auto& oEntry : fs::recursive_directory_iterator(oFolder))
    if (oEntry.is_regular_file())
      oFiles[fs::relative(oEntry.path(), oFolder)] = TempFolder::Read(oEntry.path());
  return oFiles;
}

class RoadTest : public testing::Test, public Hand {
 protected:
  RoadTest() : Hand(testing::UnitTest::GetInstance()->current_test_info()->name()) {
    for (const char* sCopy : {"window", "line"})
      fs::copy(QUILLON_SOURCE_DIR "/samples", moFolder / sCopy, fs::copy_options::recursive);
  }
  /// Runs the program with the steps that the plan lays down, from RunDesktop to its end.
  void Run(const std::function<void()>& oPlan) {
    DesktopArguments oArguments;
    oArguments.sGroup = moFolder / "window/Atelier.vbg";
    oArguments.sTemplateFile = moFolder / "window/Template.dat";
    oArguments.sLogFile = moFolder / "quillon.log";
    OwnSettings oStore;
    const int nEnd = RunDesktop([&](Toolkit& oToolkit) {
      mpoToolkit = &oToolkit;
      oPlan();
      Start();
      const int nExit = RunDesktopProgram(oToolkit, oArguments, oStore, u"road");
      Stop();
      return nExit;
    });
    EXPECT_EQ(nEnd, 0);
    EXPECT_EQ(Left(), 0U);
    EXPECT_EQ(TempFolder::Read(moFolder / "quillon.log"), "");
  }
  Form* Shown(TextView sName) const {
    for (Form* po : mpoToolkit->LoadedForms())
      if (po->Name() == sName && po->Visible()) return po;
    return nullptr;
  }
  FIDE* IDE() const { return dynamic_cast<FIDE*>(Shown(u"FIDE")); }
  FMain* Main() const { return dynamic_cast<FMain*>(Shown(u"FMain")); }
  /// Whether the results are in front and tell it.
  bool Results(TextView sPart) const {
    const auto& oText = dynamic_cast<const TextBox&>(*Main()->srlResults.Controls().front());
    return oText.Showing() && oText.Text().find(sPart) != Text::npos;
  }
  int ProcRow(TextView sText) const {
    ListItems& oRows = Main()->lvwProcs.ListItems();
    for (std::int32_t i = 1; i <= oRows.Count(); ++i)
      if (oRows.Item(i).Text() == sText) return i - 1;
    return -1;
  }
  /// The first row of the property sheet with that name; 0 without one.
  std::int32_t SheetRow(TextView sName) const {
    for (const Control* po : ControlsOf(*Main()))
      if (po->Name() == u"lblName" && CaptionOf(*po) == sName) return po->Index();
    return 0;
  }
  Control& Value(TextView sName) const {
    return Find(*Main(), "lblValue(" + std::to_string(SheetRow(sName)) + ")");
  }
  ListBox& List() const { return dynamic_cast<ListBox&>(Find(*Main(), "lstPopup")); }
  /// Drops the list of the sheet's row.
  void DropList(TextView sName) {
    Await(ToUtf8(sName) + " has a button", [=, this] {
      return Main()->prlProperties.Row() == SheetRow(sName) && Find(*Main(), "cmdPopup").Showing();
    });
    Do("the button", [this] { Click(Find(*Main(), "cmdPopup")); });
    Await(ToUtf8(sName) + " has a list", [this] { return List().HasFocus(); });
  }
  void AwaitValue(TextView sName, TextView sValue) {
    Await(ToUtf8(sName) + " is " + ToUtf8(sValue),
          [=, this] { return CaptionOf(Value(sName)) == sValue && !List().Showing(); });
  }
  /// Chooses a value of the sheet from its list by the mouse.
  void ClickValue(TextView sName, TextView sValue) {
    Await("the sheet", [=, this] { return SheetRow(sName) > 0; });
    Do("the row", [=, this] { Click(Value(sName)); });
    DropList(sName);
    Do("the value", [=, this] {
      for (std::int32_t i = 0; i < List().ListCount(); ++i)
        if (List().List(i) == sValue) return ClickRow(List(), i);
      ADD_FAILURE() << "no such value: " << ToUtf8(sValue);
    });
    AwaitValue(sName, sValue);
  }
  /// Walks over the headings to a row, leaves its list once as it was, and then chooses the value
  /// that begins with the letter.
  void TypeValue(TextView sName, TextView sOld, TextView sValue) {
    KeyUntil("the first heading", WXK_UP, [this] { return Main()->prlProperties.Row() == 1; });
    KeyUntil(ToUtf8(sName), WXK_DOWN,
             [=, this] { return Main()->prlProperties.Row() == SheetRow(sName); });
    DropList(sName);
    Press("the list is left", WXK_ESCAPE);
    AwaitValue(sName, sOld);
    DropList(sName);
    Press("the list takes letters", sValue[0]);
    AwaitValue(sName, sValue);
  }
  void Press(const std::string& sWhat, int nKey, int nModifiers = wxMOD_NONE) {
    Do(sWhat, [=, this] { Key(nKey, nModifiers); });
  }
  /// Opens the main window from the stand-in with CPrices selected.
  void OpenMain() {
    Await("the add-in is loaded",
          [this] { return IDE() && IDE()->oMenu[u"mnuAddInsLoad"].Checked(); });
    Do("a component", [this] {
      const auto oNodes = IDE()->tvwGroup.VisibleNodes();
      for (std::size_t i = 0; i < oNodes.size(); ++i)
        if (oNodes[i]->Text() == u"CPrices") ClickRow(IDE()->tvwGroup, static_cast<int>(i));
    });
    Await("the code is shown", [this] { return IDE()->paneCode.LineCount() > 10; });
    Do("the add-in's button", [this] { Click(IDE()->cmdTool(1)); });
    Await("the component's procedures", [this] { return Main() && ProcRow(u"Append") >= 0; });
  }
  /// Picks an item by the access keys of its menu and its own.
  void Pick(char cMenu, char cItem) {
    Press("a menu", cMenu, wxMOD_ALT);
    Await(std::string("the menu ") + cMenu, [this] { return MenuShows(); });
    Press("an item", cItem);
  }
  /// Waits for a dialog and sees that everything on it has room, also when a title and a border
  /// take some: no window manager runs here, so the window is made smaller by them.
  void AwaitRoom(TextView sForm) {
    const std::string s = ToUtf8(sForm);
    Await(s, [=, this] { return Shown(sForm); });
    Do(s + " has room", [=, this] {
      Form& o = *Shown(sForm);
      EXPECT_TRUE(o.UserResize(o.Width() - 120, o.Height() - 465));
    });
    Do(s + " has room in its frame", [=, this] {
      SCOPED_TRACE(s);
      ExpectRoom(*Shown(sForm));
    });
  }
  /// The button that leaves a dialog without doing anything, or the only one.
  static const CommandButton& LeavingButton(const Form& oForm) {
    const CommandButton* poLast = nullptr;
    for (const Control* po : ControlsOf(oForm)) {
      const auto* poButton = dynamic_cast<const CommandButton*>(po);
      if (poButton && (poButton->Cancel() || po->Name() == u"cmdCancel")) return *poButton;
      if (poButton) poLast = poButton;
    }
    return *poLast;
  }

  TempFolder moFolder;
  Toolkit* mpoToolkit = nullptr;
};

TEST_F(RoadTest, RequestByMouseAndKeysGivesTheFilesOfTheCommandLine) {
  Run([this] {
    const auto Chosen = [this] { return Main()->lvwProcs.SelectedItem(); };
    OpenMain();
    KeyUntil("the list has the focus", WXK_TAB,
             [this] { return Main()->ActiveControl() == &Main()->lvwProcs; });
    Press("the last row", WXK_END);
    KeyUntil("first row", WXK_UP, [=] { return Chosen() && Chosen()->Text() == u"Append"; });
    Do("second row", [this] { ClickRow(Main()->lvwProcs, ProcRow(u"Load"), wxMOD_CONTROL); });
    Await("both are selected", [this] {
      ListItems& oRows = Main()->lvwProcs.ListItems();
      int lSelected = 0;
      for (std::int32_t i = 1; i <= oRows.Count(); ++i) lSelected += oRows.Item(i).Selected();
      return lSelected == 2;
    });
    Press("the sheet's tab", '1', wxMOD_CONTROL);
    Await("the sheet is in front", [this] { return Main()->prlProperties.Showing(); });
    ClickValue(u"Template", u"Standard");
    TypeValue(u"Boundary", u"", u"Firewall");
    Pick('T', 'A');
    Await("the scope is asked for", [this] { return Shown(u"FApplyPending"); });
    Press("none", WXK_ESCAPE);
    Await("nothing was applied",
          [this] { return !Shown(u"FApplyPending") && Results(u"0 Procedures"); });
    Do("the button", [this] { Click(Main()->oToolbar.picButton(5)); });
    Await("the scope is asked for again", [this] { return Shown(u"FApplyPending"); });
    Press("the selection", WXK_RETURN);
    Await("the results", [this] { return !Shown(u"FApplyPending") && Results(u"2 Procedures"); });
    Press("back", 'Q', wxMOD_CONTROL);
    Await("what changed", [this] { return !Main() && IDE()->oMenu[u"mnuFileSave"].Enabled(); });
    Pick('F', 'S');
    Await("all is saved", [this] { return !IDE()->oMenu[u"mnuFileSave"].Enabled(); });
    Pick('F', 'X');
  });
  const std::string sCommand =
      "cd " + (moFolder / "line") +
      " && " QUILLON_BIN_DIR
      "/quillon apply --settings '' -t Template.dat -q --set Template=Standard --set "
      "Boundary=Firewall --component CPrices --procedure Append --procedure Load Atelier.vbg";
  ASSERT_EQ(std::system(sCommand.c_str()), 0);
  EXPECT_EQ(FilesOf(moFolder / "window"), FilesOf(moFolder / "line"));
  EXPECT_NE(FilesOf(moFolder / "window"), FilesOf(QUILLON_SOURCE_DIR "/samples"));
}

TEST_F(RoadTest, EveryDialogOpensAndCloses) {
  struct Row {
    char cMenu, cItem;
    TextView sForm;
    const char* psButton = nullptr;  ///< to leave by; the one that does nothing without
  };
  static const Row aoRow[] = {
      {'F', 'P', u"FPrintOption"},
      {'S', 'C', u"FSelectCustom"},
      {'R', 'D', u"FRules"},
      {'P', 'C', u"FCopySuggest"},
      {'P', 'D', u"FUndoPending"},
      {'P', 'C', u"FCopySuggest", "cmdAction(2)"},
      {'T', 'A', u"FApplyPending"},
      {'T', 'A', u"FApplyPending", "cmdAction(2)"},
      {'T', 'I', u"FInsertLine"},
      {'T', 'M', u"FRemoveLine"},
      {'T', 'R', u"FRefreshTemplates"},
      {'T', 'O', u"FOptions"},
      {'H', 'A', u"FAbout"},
  };
  Run([this] {
    const auto Free = [this] { return mpoToolkit->ModalForm() == Main(); };
    OpenMain();
    for (const Row& oRow : aoRow) {
      const std::string sForm = ToUtf8(oRow.sForm);
      Await("the way is free for " + sForm, Free);
      Pick(oRow.cMenu, oRow.cItem);
      AwaitRoom(oRow.sForm);
      Do(sForm + " has been seen", [this, &oRow] {
        Form& oForm = *mpoToolkit->ModalForm();
        if (oRow.psButton) return Click(Find(oForm, oRow.psButton));
        const CommandButton& oButton = LeavingButton(oForm);
        oButton.Cancel() ? Key(WXK_ESCAPE) : Click(oButton);
      });
    }
    Await("the last dialog is closed", Free);
    Pick('F', 'X');
    Await("the main window is closed", [this] { return !Main(); });
    Pick('F', 'X');
    AwaitRoom(u"FSave");
    Do("not saved", [this] { Click(Find(*Shown(u"FSave"), "cmdDiscard")); });
  });
}

// In a process of its own: this one has a display.
TEST_F(RoadTest, NoDisplayIsToldInOneLine) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  for (const char* sDisplay : {"", ":65534"}) {
    SCOPED_TRACE(sDisplay);
    const auto Begin = [sDisplay] {
      setenv("DISPLAY", sDisplay, 1);
      std::exit(RunDesktop([](Toolkit&) { return 0; }));
    };
    EXPECT_EXIT(Begin(), testing::ExitedWithCode(3), "^There is no display to show windows on\n$");
  }
}

}  // namespace
