// The windowed program as its user sees it, on a real renderer: the whole road of a request by
// the mouse, held against what the command line makes of the same request.
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
  /// Chooses a value of the sheet from its list by the mouse.
  void ChooseValue(Toolkit& o, TextView sName, TextView sValue) {
    const std::string sWhat = ToUtf8(sName);
    moHand.Step(
        sWhat + " is in the sheet", [&o, sName] { return SheetRow(*Main(o), sName) > 0; },
        [&o, sName, this] {
          moHand.Click(*ControlOf(*Main(o), u"lblValue", SheetRow(*Main(o), sName)));
        });
    moHand.Step(
        sWhat + " has a button", [&o] { return ControlOf(*Main(o), u"cmdPopup")->Showing(); },
        [&o, this] { moHand.Click(*ControlOf(*Main(o), u"cmdPopup")); });
    moHand.Step(
        sWhat + " has a list", [&o] { return ControlOf(*Main(o), u"lstPopup")->Showing(); },
        [&o, sValue, this] {
          auto& oList = dynamic_cast<ListBox&>(*ControlOf(*Main(o), u"lstPopup"));
          for (std::int32_t i = 0; i < oList.ListCount(); ++i)
            if (oList.List(i) == sValue) return moHand.ClickRow(oList, i);
          ADD_FAILURE() << "no such value: " << ToUtf8(sValue);
        });
    moHand.Step(
        sWhat + " is pending",
        [&o, sName, sValue] {
          const auto* po = ControlOf(*Main(o), u"lblValue", SheetRow(*Main(o), sName));
          return dynamic_cast<const Label&>(*po).Caption() == sValue;
        },
        [] {});
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
  /// Picks an item of the window in front, both told by their access keys.
  void Pick(const Toolkit& o, char cMenu, char cItem) {
    const std::string sWhat = std::string("the menu ") + cMenu + " and its item " + cItem;
    const auto cTitle = static_cast<char16_t>(cMenu | 0x20);
    const auto cEntry = static_cast<char16_t>(cItem | 0x20);
    moHand.Step(
        sWhat, [] { return true; },
        [&o, cTitle, this] { moHand.ClickMenu(*o.ActiveForm(), cTitle); });
    moHand.Step(
        sWhat, [] { return true; },
        [&o, cTitle, cEntry, this] { moHand.ClickItem(*o.ActiveForm(), cTitle, cEntry); });
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

TEST_F(RoadTest, RequestByMouseGivesTheFilesOfTheCommandLine) {
  Run([this](Toolkit& o) {
    OpenMain(o);
    moHand.Step(
        "first row", [] { return true; },
        [&o, this] { moHand.ClickRow(Main(o)->lvwProcs, RowOf(Main(o)->lvwProcs, u"Append")); });
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
        "the results are in front", [] { return true; },
        [&o, this] { moHand.ClickFirstTab(Main(o)->tabView); });
    moHand.Step(
        "the sheet is in front", [&o] { return Main(o)->prlProperties.Showing(); }, [] {});
    ChooseValue(o, u"Template", u"Standard");
    ChooseValue(o, u"Boundary", u"Firewall");
    moHand.Step(
        "the values are pending", [] { return true; },
        [&o, this] { moHand.Click(Main(o)->oToolbar.picButton(5)); });
    moHand.Step(
        "the scope is asked for", [&o] { return FormOf(o, u"FApplyPending") != nullptr; },
        [&o, this] { moHand.Click(*ControlOf(*FormOf(o, u"FApplyPending"), u"cmdAction", 1)); });
    moHand.Step(
        "the results are there",
        [&o] { return !FormOf(o, u"FApplyPending") && Main(o)->srlResults.Showing(); }, [] {});
    Pick(o, 'F', 'X');
    moHand.Step(
        "the stand-in shows what changed",
        [&o] { return !Main(o) && IDE(o)->mnuFileSave.Enabled(); }, [] {});
    Pick(o, 'F', 'S');
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
  };
  static const Row aoRow[] = {
      {'F', 'P', u"FPrintOption"}, {'S', 'C', u"FSelectCustom"}, {'R', 'D', u"FRules"},
      {'P', 'C', u"FCopySuggest"}, {'P', 'D', u"FUndoPending"},  {'T', 'A', u"FApplyPending"},
      {'T', 'I', u"FInsertLine"},  {'T', 'M', u"FRemoveLine"},   {'T', 'R', u"FRefreshTemplates"},
      {'T', 'O', u"FOptions"},     {'H', 'A', u"FAbout"},
  };
  Run([this](Toolkit& o) {
    OpenMain(o);
    for (const Row& oRow : aoRow) {
      const std::string sForm = ToUtf8(oRow.sForm);
      moHand.Step(
          "the way is free for " + sForm, [&o] { return o.ModalForm() == Main(o); }, [] {});
      Pick(o, oRow.cMenu, oRow.cItem);
      moHand.Step(
          sForm, [&o, &oRow] { return FormOf(o, oRow.sForm) != nullptr; }, [] {});
      moHand.Step(
          sForm + " has been seen", [] { return true; },
          [&o, this] { moHand.Click(LeavingButton(*o.ModalForm())); });
    }
    moHand.Step(
        "the last dialog is closed", [&o] { return o.ModalForm() == Main(o); }, [] {});
    Pick(o, 'F', 'X');
    moHand.Step(
        "the main window is closed", [&o] { return !Main(o); }, [] {});
    Pick(o, 'F', 'X');
  });
}

}  // namespace
