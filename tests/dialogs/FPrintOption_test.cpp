// What to print, and the page set-up beside it.
#include "FPrintOption.h"

#include "DialogTest.h"

namespace {

using namespace Forms;

using FPrintOptionTest = DialogTest;

TEST_F(FPrintOptionTest, WhatIsTickedIsTheAnswerUnlessCancelled) {
  const std::string sOptions = " +optProcSettingsModule +optProcSettingsProject";
  // What is done, what that turns on, how it ends, and the answer.
  for (const auto& as : Rows(R"(
         nothing    | !cmdOK; !optProcSettingsProject | | close |
         module, the first choice | chkProcSettings   | opt OK | Return | module
         both       | chkProjectSummary; chkProcSettings; optProcSettingsProject
                    | opt OK | cmdOK | summary project
         cancelled  | chkProjectSummary; chkProcSettings | opt OK | Escape |
         one unticked | chkProjectSummary; chkProcSettings; chkProjectSummary | opt OK | close |
         settings unticked again
                    | chkProcSettings; optProcSettingsProject; chkProcSettings; chkProjectSummary
                    | OK | Return | summary
         both unticked again | chkProcSettings; chkProcSettings; !cmdOK | | cmdCancel |)")) {
    SCOPED_TRACE(as[0]);
    const PrintChoice oChoice = Open(FPrintOption(moToolkit, moPrinters), [&](FPrintOption& o) {
      EXPECT_FALSE(o.lblPrinter.UseMnemonic());
      EXPECT_EQ(Switched(o, as[1]), (as[2].starts_with("opt") ? sOptions : "") +
                                        (as[2].ends_with("OK") ? " +cmdOK" : ""));
      Do(o, as[3]);
    });
    const auto Has = [&](const char* s) { return as[4].find(s) != std::string::npos; };
    EXPECT_EQ(oChoice, (PrintChoice{Has("summary"), Has("module"), Has("project")}));
  }
}

TEST_F(FPrintOptionTest, PageSetUpKeepsMarginsAndPrinterThoughPrintingIsCancelled) {
  for (const DialogAnswer& oAnswer : {DialogAnswer{true, 0}, {false, 0}, {false, 4095}}) {
    User().ChoosePage([oAnswer](PageDialog& o) {
      EXPECT_EQ(o.eUnit, MarginUnit::ThousandthsOfInch);
      EXPECT_EQ(o.lLeft + o.lTop + o.lRight + o.lBottom, oAnswer.bConfirmed ? 2000 : 10);
      o.lLeft = 1, o.lTop = 2, o.lRight = oAnswer.bConfirmed ? 3 : 99, o.lBottom = 4;
      o.sDeviceName = u"office";
      return oAnswer;
    });
  }
  Open(FPrintOption(moToolkit, moPrinters), [](FPrintOption& o) {
    Do(o, "cmdPrintSetup; cmdPrintSetup; cmdPrintSetup");
    EXPECT_EQ(o.lblPrinter.Caption(), u"Printer: office");
    Do(o, "cmdCancel");
  });
  std::int32_t lExpected = 1;
  for (const TextView s : {u"Left Margin", u"Top Margin", u"Right Margin", u"Bottom Margin"})
    EXPECT_EQ(moStore.GetLong(Key(u"Page Setup"), s), lExpected++);
}

}  // namespace
