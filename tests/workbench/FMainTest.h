// The main window without a display over an IDE in memory, with settings in memory and a template
// file of its own: what every test here starts from.
//
//   Add(u"MOne", u"Sub a()\nEnd Sub");
//   Run([&] { Click(u"MOne"); Pick(u"ViewCode"); EXPECT_EQ(Rows(oMain.lvwProcs), ...); });
//
// Run shows the window, lets the start-up timer fire, acts, and leaves by the program.
#pragma once

#include "CXRecent.h"
#include "FMain.h"
#include "FormsFixture.h"
#include "IPrintQueues.h"
#include "MOptions.h"
#include "MXHTMLHelp.h"
#include "MXRegistry.h"
#include "Model.h"
#include "Printers.h"
#include "RegistryStore.h"
#include "TempFolder.h"

/// The caller that the window only hands back.
class Connect {};

class NoQueues : public Paper::IPrintQueues {
 public:
  std::vector<Paper::PrintQueue> List() override {
    return bFails ? throw Failure(482) : std::vector<Paper::PrintQueue>();
  }
  std::int32_t PaperSizeOf(const std::string&) override { return 0; }
  Paper::Strips StripsOf(const std::string&, std::int32_t) override { return {}; }
  void Submit(const std::string&, const std::string&, TextView, std::int32_t) override {}
  bool bFails = false;
};

/// An IDE with a code pane in front, or one that fails when it is asked for its projects.
class PaneIDE : public FakeIDE, public ::CodePane {
 public:
  ::CodePane* ActiveCodePane() override {
    oLog.Ask("ActiveCodePane");
    return poShown ? this : nullptr;
  }
  ::CodeModule& CodeModule() override { return *poShown->CodeModule(); }
  ::VBProjects& VBProjects() override { return oLog.Ask("VBProjects"), FakeIDE::VBProjects(); }

  FakeComponent* poShown = nullptr;
};

class FMainTest : public FormsTest {
 protected:
  FMainTest() {
    goRegistry = &oStore;
    ResetRecentFiles();
    MRules::oRules = {};
    MRules::Initialize();
    MOptions::Initialize();
    MQuillon::Initialize();
    TempFolder::Write(oFolder / "Tarvane.htb", "");
    SetHelp(true);
    moToolkit.SetPath(FromUtf8(oFolder.Path()));
    TempFolder::Write(oFolder / "Template.dat", ToUtf8(TestTemplates));
  }
  ~FMainTest() override {
    goRegistry = nullptr;
    ResetRecentFiles();
    MRules::oRules = {};
    MXHTMLHelp::SetHelpFile({});
  }
  void SetHelp(bool bExists) {
    MXHTMLHelp::SetHelpFile(FromUtf8(oFolder / (bExists ? "Tarvane.htb" : "gone.htb")));
  }
  static Text Key(TextView sName) {
    return Text(u"HKEY_CURRENT_USER\\").append(MXRegistry::RootKey).append(sName);
  }
  Text File(const std::string& sName) const { return FromUtf8(oFolder / sName); }
  /// To the project P, unless the test has made another one.
  FakeComponent& Add(TextView sName, TextView sCode,
                     ::ComponentType nType = ComponentType::StdModule) {
    if (oIDE.Count() == 0) oIDE.AddProject(u"P");
    FakeComponent& o = oIDE.Add(Text(sName), nType, sCode);
    o.asFile = {u"/src/" + Text(sName) + u".bas"};
    return o;
  }

  void Run(const std::function<void()>& oAct) { Run(oIDE, oMain, oAct); }
  void Run(VBE& oOver, FMain& oWindow, const std::function<void()>& oAct) {
    User().Modal<FMain>([&](FMain& o) {
      moRenderer.Advance(99);
      EXPECT_EQ(o.Caption(), u"Tarvane Quillon") << "no template before the window is there";
      moRenderer.Advance(1);
      EXPECT_EQ(MXHTMLHelp::poOwner, &o);
      oAct();
      if (o.Loaded()) o.Hide();
      o.Unload();
    });
    oWindow.Display(oOver, oConnect);
    EXPECT_TRUE(!MXHTMLHelp::poOwner && !MQuillon::oLookupBoundary);
  }
  /// Leaves by the menu though something is pending.
  void Leave() {
    User().MsgBox(Forms::MsgBoxResult::Ok);
    Pick(u"FileExit");
  }
  /// The user picks the item `mnu` with that name.
  void Pick(TextView sName) {
    bool bPicked = false;
    for (const Forms::Menu* poTop : std::vector(oMain.Menus()))
      for (Forms::Menu* po : std::vector(poTop->Items()))
        bPicked = bPicked || (po->Name() == u"mnu" + Text(sName) && po->UserPick());
    EXPECT_TRUE(bPicked) << ToUtf8(sName);
  }
  /// A press of that button of the toolbar.
  void Press(ToolbarButton eButton) {
    auto& o = oMain.oToolbar.picButton(static_cast<std::int32_t>(eButton));
    EXPECT_TRUE(o.UserMouseDown(Forms::Button::Left, 0, 0, 0));
    EXPECT_TRUE(o.UserMouseUp(Forms::Button::Left, 0, 0, 0));
  }
  /// The answer to the next question for a template file; sDirectory: where it is to begin.
  void ChooseTemplate(const std::string& sName, std::optional<Text> sDirectory = {}) {
    User().ChooseFile([this, sName, sDirectory](Forms::FileDialog& o) {
      EXPECT_EQ(o.sTitle, u"Open Template");
      EXPECT_EQ(o.aoFilter.at(0).sDescription + u"|" + o.aoFilter.at(0).sPattern,
                u"Template Files (*.dat)|*.dat");
      EXPECT_EQ(o.sDirectory, sDirectory.value_or(o.sDirectory));
      o.asPath = {File(sName)};
      return Forms::DialogAnswer{.bConfirmed = true};
    });
  }
  /// A click on the first node of that text.
  void Click(TextView sText) {
    Forms::Nodes& oNodes = oMain.tvwProjects.Nodes();
    std::int32_t i = 1;
    while (i <= oNodes.Count() && oNodes.Item(i).Text() != sText) ++i;
    ASSERT_LE(i, oNodes.Count()) << "no node " << ToUtf8(sText);
    EXPECT_TRUE(oMain.tvwProjects.UserNodeClick(oNodes.Item(i)));
  }
  /// The user selects these rows with the mouse, all at once.
  static void Select(Forms::ListView& oList, const std::vector<std::int32_t>& alRow) {
    EXPECT_TRUE(oList.UserMouseDown(Forms::Button::Left, 0, 0, 0));
    EXPECT_TRUE(oList.UserSelection(alRow, alRow.empty() ? 0 : alRow.back()));
    EXPECT_TRUE(oList.UserMouseUp(Forms::Button::Left, 0, 0, 0));
  }
  void Edit(TextView sName, TextView sValue) { oMain.prlProperties.PropertyChange(sName, sValue); }

  /// What oTell gives for each number, each followed by "|".
  template <class Tell>
  static std::string Each(std::int32_t lFirst, std::int32_t lLast, Tell&& oTell) {
    std::string s;
    for (std::int32_t i = lFirst; i <= lLast; ++i) s += ToUtf8(oTell(i)) + "|";
    return s;
  }
  static void ExpectHolds(const std::string& sAll, const char* sPart) {
    EXPECT_NE(sAll.find(sPart), std::string::npos) << sAll;
  }
  std::string Panel(std::int32_t i) { return ToUtf8(oMain.StatusBar1.Panels(i).Text()); }
  std::string Tab() const {
    const auto* po = oMain.tabView.SelectedItem();
    return po ? ToUtf8(po->Key()) : "";
  }
  /// All that the Results pane or the Errors pane holds.
  static std::string Lines(const Scroller& oPane) {
    const auto* po = static_cast<const Forms::TextBox*>(oPane.Controls().front());
    return ToUtf8(po->Text());
  }
  /// `Shop[Standard EXE](MOne[Standard Module])`: text, picture, what is below; * when selected.
  std::string Tree() { return Tree(oMain.tvwProjects.Nodes().Roots()); }
  /// A line per row: the picture and the cells that hold something, * ahead of a selected one.
  static std::string Rows(Forms::ListView& oList) {
    std::string s = oList.Visible() ? "" : "hidden";
    for (std::int32_t i = 1; i <= oList.ListItems().Count(); ++i) {
      const auto& o = oList.ListItems().Item(i);
      s += (o.Selected() ? "*" : "") + ToUtf8(o.SmallIcon());
      for (std::int32_t j = 1; j <= oList.ColumnHeaders().Count(); ++j)
        if (!o.Cell(j).empty()) s += "|" + ToUtf8(o.Cell(j));
      s += "\n";
    }
    return s;
  }

  const TempFolder oFolder;
  RegistryStore oStore;
  PaneIDE oIDE;
  Connect oConnect;
  NoQueues oQueues;
  std::string sPrinted;  ///< titles of the documents that asked for a file, and got none
  Paper::Printers oPrinters{[this](TextView sTitle) {
                              sPrinted += ToUtf8(sTitle) + ";";
                              return std::nullopt;
                            },
                            oQueues};
  FMain oMain{moToolkit, oPrinters};

 private:
  static std::string Tree(const std::vector<Forms::Node*>& oNodes) {
    std::string s;
    for (const auto* po : oNodes) {
      s += (s.empty() ? "" : " ") + std::string(po->Selected() ? "*" : "") + ToUtf8(po->Text()) +
           "[" + ToUtf8(po->Image()) + "]";
      if (!po->Children().empty()) s += "(" + Tree(po->Children()) + ")";
    }
    return s;
  }
};
