// The add-in's edge over the command bars of the disk host and the real main window.
#include "Connect.h"

#include "DiskIDE.h"
#include "FMain.h"
#include "FormsFixture.h"
#include "HostCommandBars.h"
#include "MStartUp.h"
#include "MXRegistry.h"
#include "Printers.h"
#include "RegistryStore.h"

namespace {

using namespace Forms;

constexpr TextView sKey = u"HKEY_CURRENT_USER\\Software\\Morvelle\\Tarvane\\Quillon\\IDEToolBar";

class ConnectTest : public FormsTest {
 protected:
  ConnectTest() {
    goRegistry = &moStore;
    MStartUp::StartUp(moToolkit);
    Bars().SetClipboard([this] { return Picture{ToUtf8(moToolkit.Clipboard().PictureKey())}; });
  }
  ~ConnectTest() override {
    goRegistry = nullptr;
    MStartUp::End();
  }
  HostCommandBars& Bars() { return moIDE->Bars(); }
  void OnConnection(std::int32_t nMode) { moConnect.OnConnection(moIDE->Root(), nMode); }
  /// Captions in the menu "Add-Ins", and what the toolbars hold.
  std::string Shown() {
    std::string sShown;
    HostControls& oMenu = Bars().Item(u"Add-Ins").Controls();
    for (std::int32_t i = 1; i <= oMenu.Count(); ++i)
      sShown += ToUtf8(oMenu.Item(i).Caption()) + '|';
    for (std::int32_t i = 2; i <= Bars().Count(); ++i) {
      HostCommandBar& oBar = Bars().Item(i);
      sShown += ' ' + ToUtf8(oBar.Name()) + (oBar.Visible() ? "+" : "-") +
                std::to_string(oBar.Protection()) + " at " + std::to_string(oBar.Position()) + ':';
      for (std::int32_t j = 1; j <= oBar.Controls().Count(); ++j)
        sShown += ToUtf8(oBar.Controls().Item(j).TooltipText()) +
                  oBar.Controls().Item(j).Face().sBytes + '|';
    }
    return sShown;
  }
  /// The user closes the main window as soon as it shows.
  void ExpectMain() {
    User().Modal<FMain>([this](FMain& o) {
      ++mlShown;
      mpoLast = &o;
      o.UserClose();
    });
  }

  RegistryStore moStore;
  std::unique_ptr<DiskIDE> moIDE = DiskIDE::Open(std::vector<std::string>(), {});
  Paper::Printers moPrinters{[](TextView) { return Text(); }};
  Connect moConnect{moToolkit, moPrinters};
  int mlShown = 0;
  FMain* mpoLast = nullptr;
};

constexpr const char* sMenus = "Tarvane Quillon...| Tarvane+1 at 1:Tarvane Quillon...Quillon|";

TEST_F(ConnectTest, ModeDecidesWhatConnectionBrings) {
  const auto Check = [&](std::int32_t nMode, const char* sShown, bool bWindow) {
    SCOPED_TRACE(nMode);
    if (bWindow) ExpectMain();
    const int lBefore = mlShown;
    OnConnection(nMode);
    EXPECT_EQ(Shown(), sShown);
    EXPECT_EQ(mlShown > lBefore, bWindow);
    EXPECT_NE(moConnect.Main(), nullptr);
    moConnect.OnAddInsUpdate();
    moConnect.OnDisconnection(0);
    EXPECT_EQ(Shown(), "");
    EXPECT_EQ(moConnect.Main(), nullptr);
  };
  Check(0, sMenus, false);
  Check(1, sMenus, false);
  Check(2, "", true);
  Check(3, "", false);
  Check(-1, "", false);
}

TEST_F(ConnectTest, SecondConnectionKeepsTheFirstIDEAndWindow) {
  OnConnection(1);
  const FMain* poMain = moConnect.Main();
  const auto pOther = DiskIDE::Open(std::vector<std::string>(), {});
  moConnect.OnConnection(pOther->Root(), 1);
  EXPECT_EQ(moConnect.Main(), poMain);
  EXPECT_EQ(Shown(), sMenus);
  EXPECT_EQ(pOther->Bars().Count(), 1);
}

TEST_F(ConnectTest, LeftoversOfACrashedRunGoFirst) {
  for (const TextView sCaption : {u"Tarvane Quillon...", u"Other", u"tarvane quillon...",
                                  u"Tarvane Quillon...", u"Tarvane Quillon..."})
    Bars().Item(u"Add-Ins").Controls().Add(1).SetCaption(sCaption);
  Bars().Add(u"Tarvane", 1);
  OnConnection(1);
  EXPECT_EQ(Shown(), std::string("Other|tarvane quillon...|") + sMenus);
  moConnect.RemoveAddInMenus();
  moConnect.RemoveAddInMenus();
  EXPECT_EQ(Shown(), "Other|tarvane quillon...|");
  moConnect.OnDisconnection(0);
  EXPECT_EQ(moConnect.Main(), nullptr);
}

TEST_F(ConnectTest, ToolbarKeepsItsPlace) {
  OnConnection(1);
  HostCommandBar& oBar = Bars().Item(u"Tarvane");
  EXPECT_FALSE(moStore.GetLong(sKey, u"Left"));
  oBar.SetPosition(4);
  oBar.SetRowIndex(2);
  oBar.SetLeft(-7);
  oBar.SetTop(90);
  moConnect.OnDisconnection(1);
  EXPECT_EQ(moStore.ValueNames(sKey).size(), 5U);
  EXPECT_EQ(moStore.GetLong(sKey, u"Visible"), -1);
  for (const std::int32_t lVisible : {0, 1, -1, 7}) {
    SCOPED_TRACE(lVisible);
    moStore.SetLong(sKey, u"Visible", lVisible);
    OnConnection(0);
    const HostCommandBar& o = Bars().Item(u"Tarvane");
    EXPECT_EQ(o.Visible(), lVisible != 0) << "whatever isn't 0";
    EXPECT_EQ(std::vector({o.Position(), o.RowIndex(), o.Left(), o.Top()}),
              std::vector({4, 2, -7, 90}));
    moConnect.OnDisconnection(0);
    EXPECT_EQ(moStore.GetLong(sKey, u"Visible"), lVisible != 0 ? -1 : 0);
  }
}

TEST_F(ConnectTest, ClicksOnMenuAndButtonShowTheOneMainWindow) {
  OnConnection(1);
  for (int i = 0; i < 3; ++i) ExpectMain();
  HostControls& oMenu = Bars().Item(u"Add-Ins").Controls();
  HostControls& oBar = Bars().Item(u"Tarvane").Controls();
  moIDE->Click(oMenu.Item(1));
  moIDE->Click(oBar.Item(1));
  moIDE->Click(oMenu.Item(1));
  EXPECT_EQ(mlShown, 3);
  EXPECT_EQ(mpoLast, moConnect.Main());
  EXPECT_EQ(mpoLast->poConnect(), &moConnect);
}

/// A toolbar whose button can't take a picture.
TEST_F(ConnectTest, StepThatFailsIsReportedAndTheRestStandsIfTheUserGoesOn) {
  ASSERT_TRUE(MStartUp::Main({moToolkit, u"", "/dev/null", {}, {}}));
  Bars().SetClipboard([] { return Picture(); });
  const auto Check = [&](MsgBoxResult eAnswer, const char* sShown) {
    User().MsgBox(eAnswer);
    if (eAnswer == MsgBoxResult::Ignore) User().MsgBox(eAnswer);  // for the button
    OnConnection(1);
    EXPECT_EQ(Shown(), sShown);
    EXPECT_EQ(User().Boxes().back().sPrompt.find(u"No picture is on the clipboard"), 0U);
    EXPECT_EQ(User().Boxes().back().eButtons, MsgBoxButtons::AbortRetryIgnore);
    moConnect.OnDisconnection(0);
    EXPECT_EQ(Shown(), "");
  };
  Check(MsgBoxResult::Ignore, "Tarvane Quillon...| Tarvane+1 at 1:Tarvane Quillon...|");
  Check(MsgBoxResult::Abort, "Tarvane Quillon...| Tarvane-1 at 1:Tarvane Quillon...|");
  User().MsgBox(MsgBoxResult::Ok);
  Connect(moToolkit, moPrinters).OnAddInsUpdate();  // not connected
  EXPECT_EQ(User().Boxes().back().eButtons, MsgBoxButtons::OkOnly)
      << "nothing that the IDE repeats";
}

TEST_F(ConnectTest, EndOfTheApplicationLeavesTheProgramAroundIt) {
  Form oHost(moToolkit, u"FIDE"), oOwn(moToolkit, u"FRules");
  CErrorClient oClient(moToolkit, {u"FIDE"});
  oHost.Show();
  OnConnection(1);
  User().Modal<FMain>([&](FMain& oMain) {
    oOwn.Show();
    oClient.EndApplication();
    EXPECT_FALSE(oOwn.Loaded());
    EXPECT_FALSE(oMain.Visible());
    EXPECT_TRUE(oMain.Loaded());
  });
  moIDE->Click(Bars().Item(u"Add-Ins").Controls().Item(1));
  EXPECT_EQ(Shown(), "");
  EXPECT_TRUE(oHost.Visible());
  moConnect.OnDisconnection(0);
  EXPECT_FALSE(std::ranges::any_of(moToolkit.LoadedForms(),
                                   [](const Form* po) { return po->Name() == u"FMain"; }));
}

}  // namespace
