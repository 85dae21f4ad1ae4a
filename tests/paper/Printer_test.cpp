#include "Printer.h"

#include <gtest/gtest.h>

#include <functional>

#include "Failure.h"
#include "RecordingDevice.h"
#include "SeveralDocuments.h"

namespace {

using Paper::Printer;

TEST(Printer, TurnsCallsIntoDocumentsAndPages) {
  struct Row {
    const char* sName;
    std::function<void(Printer&)> oWork;
    const char* sRecord;
  };
  for (const Row& oRow : {
           Row{"nothing printed, nothing made", [](Printer& o) { o.EndDoc(); }, ""},
           Row{"a text moves down and to the left",
               [](Printer& o) {
                 o.SetCurrentX(50), o.SetCurrentY(70);
                 o.Print(u"a"), o.Print(u"b");
                 o.EndDoc();
               },
               "document \npage 12240 x 15840\n1 50 70 a\n1 0 270 b\nend\n"},
           Row{"lines of one text stand under each other",
               [](Printer& o) {
                 o.SetCurrentX(50);
                 o.Print(u"a\r\nb\n\rc");
               },
               "document \npage 12240 x 15840\n1 50 0 a\n1 50 200 b\n1 50 600 c\n"},
           Row{"an empty text opens the page", [](Printer& o) { o.Print(u""); },
               "document \npage 12240 x 15840\n"},
           Row{"a new page begins at its corner",
               [](Printer& o) {
                 o.SetFontBold(true), o.SetCurrentY(900);
                 o.NewPage(), o.Print(u"b");
               },
               "document \npage 12240 x 15840\npage 12240 x 15840\n2 0 0 b*\n"},
           Row{"title and turned paper hold from the next document on",
               [](Printer& o) {
                 o.SetTitle(u"T"), o.SetPaperSize(9), o.SetOrientation(2);
                 o.Print(u""), o.SetTitle(u"U"), o.EndDoc();
                 o.Print(u"b");
               },
               "document T\npage 16838 x 11906\nend\ndocument U\npage 16838 x 11906\n2 0 0 b\n"},
           Row{"a killed document is gone",
               [](Printer& o) { o.Print(u"a"), o.KillDoc(), o.EndDoc(); }, "killed\n"},
       }) {
    SCOPED_TRACE(oRow.sName);
    RecordingDevice oDevice;
    Printer oPrinter(oDevice);
    oRow.oWork(oPrinter);
    EXPECT_EQ(oDevice.sRecord, oRow.sRecord);
  }
}

TEST(Printer, MeasuresTheWidestLineAndAllOfThem) {
  RecordingDevice oDevice;
  Printer oPrinter(oDevice);
  EXPECT_EQ(oPrinter.TextWidth(u"ab\r\nabcd\r\nabc"), 400);
  EXPECT_EQ(oPrinter.TextHeight(u"ab\r\nabcd\r\nabc"), 600);
  EXPECT_EQ(oPrinter.TextHeight(u""), 200);
  oPrinter.SetFontBold(true);
  EXPECT_EQ(oPrinter.TextWidth(u"ab"), 240);
}

int FailureOf(const std::function<void()>& oWork) {
  try {
    oWork();
  } catch (const Failure& oFailure) {
    return oFailure.Number();
  }
  return 0;
}

TEST(Printer, RefusesWhatItCantBeAndKeepsWhatItWas) {
  RecordingDevice oDevice;
  Printer oPrinter(oDevice);
  EXPECT_EQ(FailureOf([&] { oPrinter.SetPaperSize(4711); }), 380);
  EXPECT_EQ(FailureOf([&] { oPrinter.SetOrientation(3); }), 380);
  EXPECT_EQ(FailureOf([&] { oPrinter.SetScaleMode(3); }), 380);
  EXPECT_EQ(FailureOf([&] { oPrinter.SetFontSize(0); }), 380);
  oPrinter.Print(u"a");
  EXPECT_EQ(FailureOf([&] { oPrinter.SetOrientation(2); }), 396);
  EXPECT_EQ(oPrinter.Width(), 12240);
  oPrinter.EndDoc();
  EXPECT_EQ(FailureOf([&] { oPrinter.SetOrientation(2); }), 0);
}

TEST(Printer, IsReadyForTheNextDocumentAfterAPageThatCouldNotBegin) {
  RecordingDevice oDevice;
  oDevice.lFailAtPage = 2;
  Printer oPrinter(oDevice);
  oPrinter.Print(u"a");
  EXPECT_EQ(FailureOf([&] { oPrinter.NewPage(); }), 482);
  oPrinter.KillDoc();
  oPrinter.Print(u"b");
  EXPECT_EQ(oDevice.sRecord, "killed\ndocument \npage 12240 x 15840\n2 0 0 b\n");
}

TEST(SeveralDocuments, AreOneUnderOneTitle) {
  RecordingDevice oDevice;
  {
    Paper::SeveralDocuments oTogether(oDevice, u"All");
    Printer oPrinter(oTogether);
    for (const char16_t* sText : {u"a", u"b"}) {
      oPrinter.SetTitle(sText);
      oPrinter.Print(sText), oPrinter.EndDoc();
    }
    oTogether.Close();
    oTogether.Close();
  }
  EXPECT_EQ(oDevice.sRecord,
            "document All\npage 12240 x 15840\n1 0 0 a\npage 12240 x 15840\n2 0 0 b\nend\n");
}

TEST(SeveralDocuments, AreDroppedWithoutAClose) {
  RecordingDevice oDevice;
  {
    Paper::SeveralDocuments oTogether(oDevice, u"All");
    Printer oPrinter(oTogether);
    oPrinter.Print(u"a"), oPrinter.EndDoc();
  }
  EXPECT_EQ(oDevice.sRecord, "killed\n");
}

}  // namespace
