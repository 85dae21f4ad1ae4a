#include "Printer.h"

#include <gtest/gtest.h>

#include "FailureOf.h"
#include "RecordingDevice.h"
#include "SeveralDocuments.h"
#include "TableRows.h"

namespace {

using Paper::Printer;

/// Deeds as words; in texts "<" stands for CR and ">" for LF, and "-" is the empty one.
void Work(Printer& o, const std::string& deeds) {
  std::istringstream in(deeds);
  std::int32_t number = 0;
  for (std::string verb, text; in >> verb;) {
    if (verb == "print" || verb == "title") {
      in >> text;
      std::replace(text.begin(), text.end(), '<', '\r');
      std::replace(text.begin(), text.end(), '>', '\n');
      const Text wide = text == "-" ? Text() : FromUtf8(text);
      verb == "print" ? o.Print(wide) : o.SetTitle(wide);
    }
    if (verb == "x") in >> number, o.SetCurrentX(number);
    if (verb == "y") in >> number, o.SetCurrentY(number);
    if (verb == "paper") in >> number, o.SetPaperSize(number);
    if (verb == "turn") in >> number, o.SetOrientation(number);
    if (verb == "bold") o.SetFontBold(true);
    if (verb == "page") o.NewPage();
    if (verb == "end") o.EndDoc();
    if (verb == "kill") o.KillDoc();
  }
}

/// What the device was told, each thing behind a ";".
std::string Told(std::string record) {
  std::replace(record.begin(), record.end(), '\n', ';');
  return record;
}

TEST(Printer, TurnsCallsIntoDocumentsAndPages) {
  for (const auto& row : Rows(R"(
      nothing printed, nothing made | end |
      a text moves down and to the left | x 50 y 70 print a print b end
                                    | document ;page 12240 x 15840;1 50 70 a;1 0 270 b;end;
      lines of one text stand under each other | x 50 print a<>b><c
                                    | document ;page 12240 x 15840;1 50 0 a;1 50 200 b;1 50 600 c;
      an empty text opens the page  | print - | document ;page 12240 x 15840;
      a new page begins at its corner | bold y 900 page print b
                                    | document ;page 12240 x 15840;page 12240 x 15840;2 0 0 b*;
      title and turned paper hold from the next document on
                                    | title T paper 9 turn 2 print - title U end print b
                | document T;page 16838 x 11906;end;document U;page 16838 x 11906;2 0 0 b;
      a killed document is gone     | print a kill end | killed;)")) {
    SCOPED_TRACE(row[0]);
    RecordingDevice device;
    Printer printer(device);
    Work(printer, row[1]);
    EXPECT_EQ(Told(device.sRecord), row[2]);
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

TEST(SeveralDocuments, AreOneUnderOneTitleAndDroppedWithoutAClose) {
  for (const bool close : {true, false}) {
    RecordingDevice device;
    {
      Paper::SeveralDocuments together(device, u"All");
      Printer printer(together);
      Work(printer, "title a print a end title b print b end");
      if (close) together.Close(), together.Close();
    }
    EXPECT_EQ(Told(device.sRecord), close ? "document All;page 12240 x 15840;1 0 0 a;"
                                            "page 12240 x 15840;2 0 0 b;end;"
                                          : "killed;");
  }
}

}  // namespace
