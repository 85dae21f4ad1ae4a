// The windowed program as its user sees it, on a real renderer: the whole road of a request by
// mouse and keyboard, held against what the command line makes of the same request.
#include <gtest/gtest.h>

#include <array>
#include <filesystem>

#include "Desktop.h"
#include "DesktopProgram.h"
#include "FIDE.h"
#include "FMain.h"
#include "Hand.h"
#include "Label.h"
#include "ListBox.h"
#include "TempFolder.h"
#include "TextBox.h"

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

class RoadTest : public testing::Test {
 protected:
  RoadTest() {
    for (const char* sCopy : {"window", "line"})
      fs::copy(QUILLON_SOURCE_DIR "/samples", moFolder / sCopy, fs::copy_options::recursive);
  }
  /// Runs the program with the steps of oHand, from RunDesktop to its end.
  void Run(const std::function<void(Toolkit&)>& oPlan) {
    DesktopArguments oArguments;
    oArguments.sGroup = moFolder / "window/Atelier.vbg";
    oArguments.sTemplateFile = moFolder / "window/Template.dat";
    oArguments.sLogFile = moFolder / "quillon.log";
    RegistryStore oStore;
    goRegistry = &oStore;
    EXPECT_EQ(RunDesktop([&](Toolkit& oToolkit) {
                oPlan(oToolkit);
                moHand.Start();
                const int nExit = RunDesktopProgram(oToolkit, oArguments, oStore, u"road");
                moHand.Stop();
                return nExit;
              }),
              0);
    EXPECT_EQ(moHand.Left(), 0U);
    EXPECT_EQ(TempFolder::Read(moFolder / "quillon.log"), "");
    goRegistry = nullptr;
  }
  static FIDE* IDE(const Toolkit& oToolkit) {
    return dynamic_cast<FIDE*>(FormOf(oToolkit, u"FIDE"));
  }
  static FMain* Main(const Toolkit& oToolkit) {
    return dynamic_cast<FMain*>(FormOf(oToolkit, u"FMain"));
  }
  /// Whether the results are in front and tell it.
  static bool Results(const FMain& oMain, TextView sPart) {
    const auto& oText = dynamic_cast<const TextBox&>(*oMain.srlResults.Controls().front());
    return oText.Showing() && oText.Text().find(sPart) != Text::npos;
  }
  /// The row of a node in the order shown; -1 without one.
  static int RowOf(const TreeView& oTree, TextView sText) {
    const auto oNodes = oTree.VisibleNodes();
    for (std::size_t i = 0; i < oNodes.size(); ++i)
      if (oNodes[i]->Text() == sText) return static_cast<int>(i);
    return -1;
  }
  static int RowOf(ListView& oList, TextView sText) {
    for (std::int32_t i = 1; i <= oList.ListItems().Count(); ++i)
      if (oList.ListItems().Item(i).Text() == sText) return i - 1;
    return -1;
  }
  /// The first row of the property sheet with that name; 0 without one.
  static std::int32_t SheetRow(const FMain& oMain, TextView sName) {
    for (std::int32_t i = 1; i < 20; ++i) {
      const auto* poName = dynamic_cast<Label*>(ControlOf(oMain, u"lblName", i));
      if (poName && poName->Caption() == sName) return i;
    }
    return 0;
  }
  /// Goes to a row of the sheet, and drops its list.
  void DropList(Toolkit& o, TextView sName, const std::function<void()>& oGo) {
    const std::string sWhat = ToUtf8(sName);
    moHand.Step(
        sWhat + " is in the sheet", [&o, sName] { return SheetRow(*Main(o), sName) > 0; }, oGo);
    moHand.Step(
        sWhat + " has a button",
        [&o, sName] {
          const FMain& oMain = *Main(o);
          return oMain.prlProperties.Row() == SheetRow(oMain, sName) &&
                 ControlOf(oMain, u"cmdPopup")->Showing();
        },
        [&o, this] { moHand.Click(*ControlOf(*Main(o), u"cmdPopup")); });
    moHand.Step(
        sWhat + " has a list", [&o] { return ControlOf(*Main(o), u"lstPopup")->HasFocus(); },
        [] {});
  }
  void WaitForValue(Toolkit& o, TextView sName, TextView sValue) {
    moHand.Step(
        ToUtf8(sName) + " is " + ToUtf8(sValue),
        [&o, sName, sValue] {
          const auto* po = ControlOf(*Main(o), u"lblValue", SheetRow(*Main(o), sName));
          return dynamic_cast<const Label&>(*po).Caption() == sValue &&
                 !ControlOf(*Main(o), u"lstPopup")->Showing();
        },
        [] {});
  }
  /// Chooses a value of the sheet from its list by the mouse.
  void ClickValue(Toolkit& o, TextView sName, TextView sValue) {
    DropList(o, sName, [&o, sName, this] {
      moHand.Click(*ControlOf(*Main(o), u"lblValue", SheetRow(*Main(o), sName)));
    });
    moHand.Step(
        "the list is there", [] { return true; },
        [&o, sValue, this] {
          auto& oList = dynamic_cast<ListBox&>(*ControlOf(*Main(o), u"lstPopup"));
          for (std::int32_t i = 0; i < oList.ListCount(); ++i)
            if (oList.List(i) == sValue) return moHand.ClickRow(oList, i);
          ADD_FAILURE() << "no such value: " << ToUtf8(sValue);
        });
    WaitForValue(o, sName, sValue);
  }
  /// Walks over the headings to a row, leaves its list once as it was, and then chooses the value
  /// that begins with the letter.
  void TypeValue(Toolkit& o, TextView sName, TextView sOld, TextView sValue) {
    const auto Row = [&o] { return Main(o)->prlProperties.Row(); };
    moHand.KeyUntil("the first heading", WXK_UP, [Row] { return Row() == 1; });
    moHand.KeyUntil(ToUtf8(sName), WXK_DOWN,
                    [&o, Row, sName] { return Row() == SheetRow(*Main(o), sName); });
    DropList(o, sName, [] {});
    moHand.Step(
        "the list is to be left", [] { return true; }, [this] { moHand.Key(WXK_ESCAPE); });
    WaitForValue(o, sName, sOld);
    DropList(o, sName, [] {});
    moHand.Step(
        "the list takes letters", [] { return true; }, [sValue, this] { moHand.Key(sValue[0]); });
    WaitForValue(o, sName, sValue);
  }
  /// Opens the main window from the stand-in with CPrices selected.
  void OpenMain(Toolkit& o) {
    moHand.Step(
        "the group is open and the add-in loaded",
        [&o] { return IDE(o) && IDE(o)->mnuAddInsLoad.Checked(); },
        [&o, this] { moHand.ClickRow(IDE(o)->tvwGroup, RowOf(IDE(o)->tvwGroup, u"CPrices")); });
    moHand.Step(
        "the code is shown", [&o] { return IDE(o)->paneCode.LineCount() > 10; },
        [&o, this] { moHand.Click(IDE(o)->cmdTool(1)); });
    moHand.Step(
        "the main window shows the component",
        [&o] { return Main(o) && RowOf(Main(o)->lvwProcs, u"Append") >= 0; }, [] {});
  }
  /// Picks an item of the window in front by the mouse, menu and item told by their access keys.
  void Pick(const Toolkit& o, char cMenu, char cItem) {
    const std::string sWhat = std::string("the menu ") + cMenu + " and its item " + cItem;
    const auto cTitle = static_cast<char16_t>(cMenu | 0x20);
    const auto cEntry = static_cast<char16_t>(cItem | 0x20);
    moHand.Step(
        sWhat, [] { return true; },
        [&o, cTitle, this] { moHand.ClickMenu(*o.ActiveForm(), cTitle); });
    moHand.Step(
        sWhat + ", dropped", [this] { return moHand.MenuShows(); },
        [&o, cTitle, cEntry, this] { moHand.ClickItem(*o.ActiveForm(), cTitle, cEntry); });
  }
  /// The same by these keys.
  void TypePick(char cMenu, char cItem) {
    const std::string sWhat = std::string("the keys ") + cMenu + " and " + cItem;
    moHand.Step(
        sWhat, [] { return true; }, [cMenu, this] { moHand.Key(cMenu, wxMOD_ALT); });
    moHand.Step(
        sWhat + ", dropped", [this] { return moHand.MenuShows(); },
        [cItem, this] { moHand.Key(cItem); });
  }
  /// The button that leaves a dialog without doing anything, or the only one.
  static const CommandButton& LeavingButton(const Form& oForm) {
    const CommandButton* poLast = nullptr;
    for (const Component* po : oForm.Components()) {
      const auto* poButton = dynamic_cast<const CommandButton*>(po);
      if (poButton && (poButton->Cancel() || po->Name() == u"cmdCancel")) return *poButton;
      if (poButton) poLast = poButton;
    }
    return *poLast;
  }

  TempFolder moFolder;
  Hand moHand{testing::UnitTest::GetInstance()->current_test_info()->name()};
};

TEST_F(RoadTest, RequestByMouseAndKeysGivesTheFilesOfTheCommandLine) {
  Run([this](Toolkit& o) {
    OpenMain(o);
    moHand.KeyUntil("the list has the focus", WXK_TAB,
                    [&o] { return Main(o)->ActiveControl() == &Main(o)->lvwProcs; });
    moHand.Step(
        "the last row", [] { return true; }, [this] { moHand.Key(WXK_END); });
    moHand.KeyUntil("first row", WXK_UP, [&o] {
      const ListItem* const po = Main(o)->lvwProcs.SelectedItem();
      return po && po->Text() == u"Append";
    });
    moHand.Step(
        "second row", [&o] { return Main(o)->lvwProcs.SelectedItem()->Text() == u"Append"; },
        [&o, this] {
          moHand.ClickRow(Main(o)->lvwProcs, RowOf(Main(o)->lvwProcs, u"Load"), wxMOD_CONTROL);
        });
    moHand.Step(
        "both are selected",
        [&o] {
          auto& oRows = Main(o)->lvwProcs.ListItems();
          int lSelected = 0;
          for (std::int32_t i = 1; i <= oRows.Count(); ++i)
            lSelected += oRows.Item(i).Selected() ? 1 : 0;
          return lSelected == 2;
        },
        [] {});
    moHand.Step(
        "the results are in front", [] { return true; }, [this] { moHand.Key('P', wxMOD_ALT); });
    moHand.Step(
        "the sheet is in front", [&o] { return Main(o)->prlProperties.Showing(); }, [] {});
    ClickValue(o, u"Template", u"Standard");
    TypeValue(o, u"Boundary", u"", u"Firewall");
    TypePick('T', 'A');
    moHand.Step(
        "the scope is asked for", [&o] { return FormOf(o, u"FApplyPending") != nullptr; },
        [this] { moHand.Key(WXK_ESCAPE); });
    moHand.Step(
        "nothing was applied",
        [&o] { return !FormOf(o, u"FApplyPending") && Results(*Main(o), u"0 Procedures"); },
        [&o, this] { moHand.Click(Main(o)->oToolbar.picButton(5)); });
    moHand.Step(
        "the scope is asked for again", [&o] { return FormOf(o, u"FApplyPending") != nullptr; },
        [this] { moHand.Key(WXK_RETURN); });
    moHand.Step(
        "the results are there",
        [&o] { return !FormOf(o, u"FApplyPending") && Results(*Main(o), u"2 Procedures"); },
        [this] { moHand.Key('Q', wxMOD_CONTROL); });
    moHand.Step(
        "the stand-in shows what changed",
        [&o] { return !Main(o) && IDE(o)->mnuFileSave.Enabled(); }, [] {});
    TypePick('F', 'S');
    moHand.Step(
        "all is saved", [&o] { return !IDE(o)->mnuFileSave.Enabled(); }, [] {});
    Pick(o, 'F', 'X');
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
    bool bKeys;  ///< opened by them; tabs of the window have some of the access keys first
  };
  static const Row aoRow[] = {
      {'F', 'P', u"FPrintOption", true},
      {'S', 'C', u"FSelectCustom", true},
      {'R', 'D', u"FRules", false},
      {'P', 'C', u"FCopySuggest", false},
      {'P', 'D', u"FUndoPending", false},
      {'T', 'A', u"FApplyPending", true},
      {'T', 'I', u"FInsertLine", true},
      {'T', 'M', u"FRemoveLine", false},
      {'T', 'R', u"FRefreshTemplates", true},
      {'T', 'O', u"FOptions", true},
      {'H', 'A', u"FAbout", true},
  };
  Run([this](Toolkit& o) {
    OpenMain(o);
    for (const Row& oRow : aoRow) {
      const std::string sForm = ToUtf8(oRow.sForm);
      moHand.Step(
          "the way is free for " + sForm, [&o] { return o.ModalForm() == Main(o); }, [] {});
      oRow.bKeys ? TypePick(oRow.cMenu, oRow.cItem) : Pick(o, oRow.cMenu, oRow.cItem);
      moHand.Step(
          sForm, [&o, &oRow] { return FormOf(o, oRow.sForm) != nullptr; }, [] {});
      moHand.Step(
          sForm + " has been seen", [] { return true; },
          [&o, &oRow, this] {
            const CommandButton& oButton = LeavingButton(*o.ModalForm());
            oRow.bKeys&& oButton.Cancel() ? moHand.Key(WXK_ESCAPE) : moHand.Click(oButton);
          });
    }
    moHand.Step(
        "the last dialog is closed", [&o] { return o.ModalForm() == Main(o); }, [] {});
    Pick(o, 'F', 'X');
    moHand.Step(
        "the main window is closed", [&o] { return !Main(o); }, [] {});
    Pick(o, 'F', 'X');
  });
}

// In a process of its own: this one has a display.
TEST_F(RoadTest, NoDisplayIsToldInOneLine) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  for (const char* sDisplay : {"", ":65534"}) {
    SCOPED_TRACE(sDisplay);
    const auto Run = [sDisplay] {
      setenv("DISPLAY", sDisplay, 1);
      std::exit(RunDesktop([](Toolkit&) { return 0; }));
    };
    EXPECT_EXIT(Run(), testing::ExitedWithCode(3), "^There is no display to show windows on\n$");
  }
}

}  // namespace
