// The add-in's edge over the command bars of the disk host and the real main window.
#include "Connect.h"

#include "DiskIDE.h"
#include "FMain.h"
#include "FormsFixture.h"
#include "HostCommandBars.h"
#include "MStartUp.h"
#include "MXRegistry.h"
#include "OwnSettings.h"
#include "Printers.h"

namespace {

using namespace Forms;

constexpr TextView sKey = u"HKEY_CURRENT_USER\\Software\\Morvelle\\Tarvane\\Quillon\\IDEToolBar";

class ConnectTest : public FormsTest {
 protected:
  ConnectTest() {
    MStartUp::StartUp(moToolkit);
    Bars().SetClipboard([this] { return Picture{ToUtf8(moToolkit.Clipboard().PictureKey())}; });
  }
  ~ConnectTest() override { MStartUp::End(); }
  HostCommandBars& Bars() { return moIDE->Bars(); }
  HostCommandBar& ToolBar() { return Bars().Item(u"Tarvane"); }
  HostControls& AddIns() { return Bars().Item(u"Add-Ins").Controls(); }
  void OnConnection(std::int32_t nMode) {
    moConnect.OnConnection(moIDE->Root(), MQuillon::FromNumber<ConnectMode>(nMode));
  }
  /// Captions in the menu "Add-Ins", and what the toolbars hold.
  std::string Shown() {
    std::string s;
    for (std::int32_t i = 1; i <= AddIns().Count(); ++i)
      s += ToUtf8(AddIns().Item(i).Caption()) + '|';
    for (std::int32_t i = 2; i <= Bars().Count(); ++i) {
      HostCommandBar& o = Bars().Item(i);
      s += ' ' + ToUtf8(o.Name()) + (o.Visible() ? "+" : "-") + std::to_string(o.Protection()) +
           " at " + std::to_string(o.Position()) + ':';
      for (std::int32_t j = 1; j <= o.Controls().Count(); ++j)
        s += ToUtf8(o.Controls().Item(j).TooltipText()) + o.Controls().Item(j).Face().sBytes + '|';
    }
    return s;
  }
  /// The user closes the main window as soon as it shows.
  void ExpectMain() {
    User().Modal<FMain>([this](FMain& o) {
      EXPECT_EQ(&o, moConnect.Main());
      EXPECT_EQ(o.poConnect(), &moConnect);
      o.UserClose();
    });
  }

  OwnSettings moStore;
  std::unique_ptr<DiskIDE> moIDE = DiskIDE::Open(std::vector<std::string>(), {});
  Paper::Printers moPrinters{[](TextView) { return Text(); }};
  Connect moConnect{moToolkit, moPrinters};
};

constexpr const char16_t* sTitle = u"Tarvane Quillon...";
constexpr const char* sMenus = "Tarvane Quillon...| Tarvane+1 at 1:Tarvane Quillon...Quillon|";

TEST_F(ConnectTest, ModeDecidesWhatConnectionBrings) {
  for (const std::int32_t nMode : {0, 1, 2, 3, -1}) {
    SCOPED_TRACE(nMode);
    if (nMode == 2) ExpectMain();
    OnConnection(nMode);
    EXPECT_EQ(Shown(), nMode == 0 || nMode == 1 ? sMenus : "");
    EXPECT_NE(moConnect.Main(), nullptr);
    EXPECT_EQ(User().Unused(), 0U);
    moConnect.OnAddInsUpdate();
    moConnect.OnDisconnection(0);
    EXPECT_EQ(Shown(), "");
    EXPECT_EQ(moConnect.Main(), nullptr);
  }
}

TEST_F(ConnectTest, SecondConnectionKeepsTheFirstIDEAndWindow) {
  OnConnection(1);
  const FMain* poMain = moConnect.Main();
  const auto pOther = DiskIDE::Open(std::vector<std::string>(), {});
  moConnect.OnConnection(pOther->Root(), ConnectMode::Startup);
  EXPECT_EQ(moConnect.Main(), poMain);
  EXPECT_EQ(Shown(), sMenus);
  EXPECT_EQ(pOther->Bars().Count(), 1);
  for (HostControls* po : {&AddIns(), &ToolBar().Controls(), &AddIns()}) {
    ExpectMain();
    moIDE->Click(po->Item(1));
    EXPECT_EQ(User().Unused(), 0U) << "each click shows the window";
  }
}

TEST_F(ConnectTest, LeftoversOfACrashedRunGoFirst) {
  for (const auto& s : {sTitle, u"Other", u"tarvane quillon...", sTitle, sTitle})
    AddIns().Add(1).SetCaption(s);
  Bars().Add(u"Tarvane", 1);
  OnConnection(1);
  EXPECT_EQ(Shown(), std::string("Other|tarvane quillon...|") + sMenus);
  for (int i = 0; i < 2; ++i) moConnect.RemoveAddInMenus();
  EXPECT_EQ(Shown(), "Other|tarvane quillon...|");
  moConnect.OnDisconnection(0);
  EXPECT_EQ(moConnect.Main(), nullptr);
}

TEST_F(ConnectTest, ToolbarKeepsItsPlace) {
  OnConnection(1);
  ToolBar().SetPosition(4);
  ToolBar().SetRowIndex(2);
  ToolBar().SetLeft(-7);
  ToolBar().SetTop(90);
  EXPECT_FALSE(moStore.GetLong(sKey, u"Left"));
  moConnect.OnDisconnection(1);
  for (const auto& [sName, lKept] :
       {std::pair{u"Position", 4}, {u"RowIndex", 2}, {u"Left", -7}, {u"Top", 90}, {u"Visible", -1}})
    EXPECT_EQ(moStore.GetLong(sKey, sName), lKept) << ToUtf8(sName);
  for (const std::int32_t lVisible : {0, 1, -1, 7}) {  // whatever isn't 0
    SCOPED_TRACE(lVisible);
    moStore.SetLong(sKey, u"Visible", lVisible);
    OnConnection(0);
    const HostCommandBar& o = ToolBar();
    EXPECT_EQ(std::vector({o.Position(), o.RowIndex(), o.Left(), o.Top(), o.Visible() ? 1 : 0}),
              std::vector({4, 2, -7, 90, lVisible != 0 ? 1 : 0}));
    moConnect.OnDisconnection(0);
    EXPECT_EQ(moStore.GetLong(sKey, u"Visible"), lVisible != 0 ? -1 : 0);
  }
}

/// A toolbar whose button can't take a picture.
TEST_F(ConnectTest, StepThatFailsIsReportedAndTheRestStandsIfTheUserGoesOn) {
  ASSERT_TRUE(MStartUp::Main({moToolkit, u"", "/dev/null", {}, {}}));
  Bars().SetClipboard([] { return Picture(); });
  for (const auto eAnswer : {MsgBoxResult::Ignore, MsgBoxResult::Abort}) {
    const bool bGoesOn = eAnswer == MsgBoxResult::Ignore;
    for (int i = bGoesOn ? 0 : 1; i < 2; ++i) User().MsgBox(eAnswer);
    OnConnection(1);
    EXPECT_EQ(Shown(), std::string("Tarvane Quillon...| Tarvane") + (bGoesOn ? "+" : "-") +
                           "1 at 1:Tarvane Quillon...|");
    EXPECT_TRUE(User().Boxes().back().sPrompt.starts_with(u"No picture is on the clipboard"));
    EXPECT_EQ(User().Boxes().back().eButtons, MsgBoxButtons::AbortRetryIgnore);
    moConnect.OnDisconnection(0);
  }
  User().MsgBox(MsgBoxResult::Ok);
  Connect(moToolkit, moPrinters).OnAddInsUpdate();  // not connected
  EXPECT_EQ(User().Boxes().back().eButtons, MsgBoxButtons::OkOnly) << "the IDE repeats nothing";
}

TEST_F(ConnectTest, EndOfTheApplicationLeavesTheProgramAroundIt) {
  Form oHost(moToolkit, u"FIDE"), oOwn(moToolkit, u"FRules");
  CErrorClient oClient(moToolkit, {u"FIDE"});
  oHost.Show();
  OnConnection(1);
  User().Modal<FMain>([&](FMain& oMain) {
    oOwn.Show();
    oClient.EndApplication();
    EXPECT_TRUE(oMain.Loaded() && !oMain.Visible() && !oOwn.Loaded());
  });
  moIDE->Click(AddIns().Item(1));
  EXPECT_EQ(Shown(), "");
  EXPECT_TRUE(oHost.Visible());
  moConnect.OnDisconnection(0);
  for (const Form* po : moToolkit.LoadedForms()) EXPECT_NE(po->Name(), u"FMain");
}

}  // namespace
