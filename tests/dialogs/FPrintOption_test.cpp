// What to print, and the page set-up beside it.
#include "FPrintOption.h"

#include "DialogTest.h"
#include "IPrintQueues.h"
#include "MOptions.h"
#include "PageSetup.h"

namespace {

using namespace Forms;

struct TwoQueues : Paper::IPrintQueues {
  std::vector<Paper::PrintQueue> List() override { return {{"hall & stairs", true}, {"office"}}; }
  std::int32_t PaperSizeOf(const std::string&) override { return 0; }
  Paper::Strips StripsOf(const std::string&, std::int32_t) override { return {}; }
  void Submit(const std::string&, const std::string&, TextView, std::int32_t) override {}
};

class FPrintOptionTest : public DialogTest {
 protected:
  FPrintOptionTest() { MOptions::Initialize(); }
  ~FPrintOptionTest() override {
    MOptions::lLeftMargin = MOptions::lTopMargin = MOptions::lRightMargin =
        MOptions::lBottomMargin = 500;
  }
  PrintChoice Show(std::function<void(FPrintOption&)> oAct) {
    User().Modal<FPrintOption>(std::move(oAct));
    return FPrintOption(moToolkit, moPrinters).Display();
  }
  TwoQueues moQueues;
  Paper::Printers moPrinters{nullptr, moQueues};
};

TEST_F(FPrintOptionTest, CaptionsAndPlaces) {
  Show([](FPrintOption& o) {
    EXPECT_EQ(Captions(o),
              "Print; lblPrinter Printer: hall & stairs; fraWhat Print What; "
              "chkProjectSummary Project &Summary; "
              "chkProcSettings Procedure Property &Settings for; "
              "optProcSettingsModule Current &Module; optProcSettingsProject Current &Project; "
              "cmdPrintSetup Page Set&up...; cmdOK OK; cmdCancel Cancel; cmdHelp &Help");
    EXPECT_FALSE(o.lblPrinter.UseMnemonic());
    ExpectRoom(o);
    o.cmdHelp.UserClick();
    o.UserMove(1200, 1350);
    o.UserClose();
  });
  EXPECT_EQ(Help(), "2400 ");
  EXPECT_EQ(moStore.GetLong(Key(u"FPrintOption"), u"Left"), 1200);
  SetHelp(false);
  Show([](FPrintOption& o) {
    EXPECT_FALSE(o.cmdHelp.Enabled());
    EXPECT_EQ(o.Top(), 1350);
    o.UserClose();
  });
}

TEST_F(FPrintOptionTest, WhatIsTickedIsTheAnswerUnlessCancelled) {
  const struct {
    const char* sName;
    bool bSummary, bSettings, bProject;
    std::int32_t nKey;
    PrintChoice oExpected;
  } aoRow[] = {{"nothing: OK is off", false, false, false, Key::Return, {}},
               {"summary", true, false, false, Key::Return, {true, false, false}},
               {"module, the first choice", false, true, false, Key::Return, {false, true, false}},
               {"project", false, true, true, Key::Return, {false, false, true}},
               {"both", true, true, true, Key::Return, {true, false, true}},
               {"cancelled", true, true, true, Key::Escape, {}}};
  for (const auto& oRow : aoRow) {
    SCOPED_TRACE(oRow.sName);
    const PrintChoice oChoice = Show([&](FPrintOption& o) {
      EXPECT_FALSE(o.cmdOK.Enabled() || o.optProcSettingsModule.Enabled() ||
                   o.optProcSettingsProject.UserClick());
      if (oRow.bSummary) o.chkProjectSummary.UserClick();
      if (oRow.bSettings) o.chkProcSettings.UserClick();
      if (oRow.bProject) o.optProcSettingsProject.UserClick();
      EXPECT_EQ(o.cmdOK.Enabled(), oRow.bSummary || oRow.bSettings);
      EXPECT_EQ(o.optProcSettingsModule.Enabled(), oRow.bSettings);
      o.UserKey(oRow.nKey, 0);
      if (o.Visible()) o.UserClose();
    });
    EXPECT_EQ(oChoice, oRow.oExpected);
  }
}

TEST_F(FPrintOptionTest, UntickingBothTurnsOkOffAgain) {
  Show([](FPrintOption& o) {
    o.chkProjectSummary.UserClick();
    o.chkProcSettings.UserClick();
    o.chkProjectSummary.UserClick();
    EXPECT_TRUE(o.cmdOK.Enabled());
    o.chkProcSettings.UserClick();
    EXPECT_FALSE(o.cmdOK.Enabled() || o.optProcSettingsModule.Enabled());
    o.cmdCancel.UserClick();
  });
}

TEST_F(FPrintOptionTest, PageSetUpKeepsMarginsAndPrinterThoughPrintingIsCancelled) {
  User().ChoosePage([](PageDialog& o) {
    EXPECT_EQ(o.eUnit, MarginUnit::ThousandthsOfInch);
    EXPECT_EQ(o.lLeft + o.lTop + o.lRight + o.lBottom, 2000);
    o.lLeft = 1, o.lTop = 2, o.lRight = 3, o.lBottom = 4;
    o.sDeviceName = u"office";
    return DialogAnswer{true, 0};
  });
  User().ChoosePage([](PageDialog& o) {
    EXPECT_EQ(o.lRight, 3);
    o.lRight = 99;
    return DialogAnswer{false, 0};
  });
  User().ChoosePage([](PageDialog&) { return DialogAnswer{false, 4095}; });
  Show([](FPrintOption& o) {
    for (int i = 0; i < 3; ++i) o.cmdPrintSetup.UserClick();
    EXPECT_EQ(o.lblPrinter.Caption(), u"Printer: office");
    o.cmdCancel.UserClick();
  });
  std::string sStored;
  for (const TextView s : {u"Left Margin", u"Top Margin", u"Right Margin", u"Bottom Margin"})
    sStored += std::to_string(moStore.GetLong(Key(u"Page Setup"), s).value_or(-1));
  EXPECT_EQ(sStored, "1234");
}

}  // namespace
