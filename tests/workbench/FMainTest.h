// The main window without a display over an IDE in memory, with settings in memory and a template
// file of its own: what every test here starts from.
//
//   Add(u"MOne", u"Sub a()\nEnd Sub");
//   Run([&] { Play(R"(a module | >MOne; ViewCode | count, tab | 2 Object(s) Selected, Code)"); });
//
// Run shows the window, lets the start-up timer fire, acts, and leaves by the program.
#pragma once

#include "CXRecent.h"
#include "FAction.h"
#include "FMain.h"
#include "FormsFixture.h"
#include "IPrintQueues.h"
#include "MOptions.h"
#include "MXHTMLHelp.h"
#include "MXRegistry.h"
#include "Model.h"
#include "OwnSettings.h"
#include "Printers.h"
#include "TableRows.h"
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
      EXPECT_EQ(MXHTMLHelp::poOwner, o.Loaded() ? &o : nullptr);
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
  /// A press of the toolbar's button with that picture.
  void Press(TextView sPicture) {
    std::int32_t i = 0;
    while (oMain.oToolbar.picButton(i).Tag() != sPicture) ++i;
    auto& o = oMain.oToolbar.picButton(i);
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
  /// Picks a command and answers its dialog by the button of that number, 0 is Cancel.
  void Command(TextView sItem, std::int32_t nButton) {
    User().Modal<FAction>([this, nButton](FAction& o) {
      sOffered = ToUtf8(o.Name());
      for (const std::int32_t i : {1, 2, 3, 4}) sOffered += o.cmdAction(i).Enabled() ? " on" : " -";
      EXPECT_EQ(moRenderer.ShownPointer(), Forms::Pointer::Default);
      nButton == 0 ? o.cmdCancel.UserClick() : o.cmdAction(nButton).UserClick();
    });
    sItem == u"!Apply" ? Press(u"Star") : Pick(sItem);
    EXPECT_EQ(moRenderer.ShownPointer(), Forms::Pointer::Default);
  }
  /// `>MOne` clicks a node, `#2 3` selects rows of the list in front, `Locked=True` edits the
  /// sheet, `PropsUndoPending(1)` is a command with its dialog's button, `ViewCode` picks an item.
  void Does(const std::string& s) {
    if (const auto lMark = s.find_first_of("=("); lMark != std::string::npos) {
      const Text sName = FromUtf8(s.substr(0, lMark)), sRest = FromUtf8(s.substr(lMark + 1));
      return s[lMark] == '=' ? Edit(sName, sRest) : Command(sName, sRest[0] - u'0');
    }
    if (s[0] == '>') return Click(FromUtf8(s.substr(1)));
    if (s[0] != '#') return Pick(FromUtf8(s));
    std::istringstream oNumbers(s.substr(1));
    Select(oMain.lvwMods.Visible() ? oMain.lvwMods : oMain.lvwProcs,
           {std::istream_iterator<std::int32_t>(oNumbers), {}});
  }
  /// What one of these words stands for. Line ends are " / " in it, and marks between cells ",".
  std::string Look(const std::string& sWord) {
    const auto& o = oMain;
    const std::map<std::string, std::string> sLooks = {
        {"count", Panel(1)},
        {"path", Panel(2)},
        {"tab", Tab()},
        {"tree", Tree()},
        {"rows", Rows(o.lvwMods.Visible() ? oMain.lvwMods : oMain.lvwProcs)},
        {"list", ToUtf8(o.lblList.GetCaption())},
        {"title", ToUtf8(o.lblProperties.GetCaption())},
        {"codetitle", ToUtf8(o.lblCode.GetCaption())},
        {"sheet", std::to_string(o.prlProperties.RowCount())},
        {"code", ToUtf8(o.txtCode.Text())},
        {"offered", sOffered}};
    std::string s;
    for (const char c : sLooks.at(sWord))
      s += c == '|' ? "," : c == '\n' ? " / " : c == '\r' ? "" : std::string(1, c);
    return s;
  }
  /// Goes through a table row by row: its name, what the user does, parted by "; ", what is looked
  /// at, parted by ", ", and what is seen there, parted in the same way.
  void Play(const std::string& sTable) {
    const auto Parts = [](std::string s, const std::string& sMark) {
      std::vector<std::string> as;
      for (s += s.empty() ? "" : sMark; !s.empty(); s.erase(0, s.find(sMark) + sMark.size()))
        as.push_back(s.substr(0, s.find(sMark)));
      return as;
    };
    for (const auto& as : ::Rows(sTable)) {
      SCOPED_TRACE(as[0]);
      for (const std::string& s : Parts(as[1], "; ")) Does(s);
      std::string sSeen;
      for (const std::string& s : Parts(as[2], ", "))
        sSeen += (sSeen.empty() ? "" : ", ") + Look(s);
      EXPECT_EQ(ToUtf8(Trim(FromUtf8(sSeen))), as[3]);
    }
  }

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
  OwnSettings oStore;
  PaneIDE oIDE;
  Connect oConnect;
  NoQueues oQueues;
  std::string sPrinted;          ///< titles of the documents that asked for a file
  std::optional<Text> oPrintTo;  ///< and the file
  Paper::Printers oPrinters{[this](TextView sTitle) {
                              sPrinted += ToUtf8(sTitle) + ";";
                              return oPrintTo;
                            },
                            oQueues};
  FMain oMain{moToolkit, oPrinters};
  std::string sOffered;  ///< which buttons the last dialog had

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
