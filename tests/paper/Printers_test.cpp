// The collection, and how documents leave for files and queues.
#include "Printers.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>

#include "Failure.h"
#include "MXDate.h"
#include "TempFolder.h"

namespace {

using Paper::Printer;
using Paper::Printers;

class FakeQueues : public Paper::IPrintQueues {
 public:
  std::vector<Paper::PrintQueue> List() override { return oQueues; }
  std::int32_t PaperSizeOf(const std::string&) override { return ePaper; }
  Paper::Strips StripsOf(const std::string&, std::int32_t) override { return {10, 20, 30, 40}; }
  void Submit(const std::string& sQueue, const std::string& sFile, TextView sTitle,
              std::int32_t ePaperSize) override {
    sLastFile = sFile;
    struct stat oState = {};
    stat(sFile.c_str(), &oState);
    const bool bPrivate = (oState.st_mode & 077) == 0;
    sSubmitted += sQueue + " " + TempFolder::Read(sFile).substr(0, 4) + " " + ToUtf8(sTitle) + " " +
                  std::to_string(ePaperSize) + (bPrivate ? " private" : " open") + "\n";
    if (bFails) throw Failure(482);
  }

  std::vector<Paper::PrintQueue> oQueues;
  std::int32_t ePaper = 0;
  std::string sSubmitted, sLastFile;
  bool bFails = false;
};

std::string Names(Printers& oPrinters) {
  std::string sNames;
  for (std::int32_t i = 1; i <= oPrinters.Count(); ++i) {
    sNames += ToUtf8(oPrinters.DeviceName(i)) + ",";
  }
  return sNames + " " + ToUtf8(oPrinters.Current().DeviceName());
}

TEST(Printers, ListsQueuesAndAlwaysThePdfFile) {
  FakeQueues oQueues;
  Printers oPrinters({}, oQueues);
  EXPECT_EQ(Names(oPrinters), "PDF file, PDF file");
  oQueues.oQueues = {{"hall"}, {"office/draft", true}};
  EXPECT_EQ(Names(oPrinters), "PDF file, PDF file") << "looked up again without being told";
  oPrinters.Refresh();
  EXPECT_EQ(Names(oPrinters), "hall,office/draft,PDF file, PDF file") << "the choice stays";
  EXPECT_THROW(oPrinters.Item(0), Failure);
  EXPECT_THROW(oPrinters.Item(4), Failure);
  EXPECT_EQ(Names(*std::make_unique<Printers>(nullptr, oQueues)),
            "hall,office/draft,PDF file, office/draft");
}

TEST(Printers, ChoosesByTheFirst31CharactersOfAName) {
  FakeQueues oQueues;
  const std::string sLong(31, 'a');
  oQueues.oQueues = {{"hall"}, {sLong + "-second-floor"}};
  Printers oPrinters({}, oQueues);
  EXPECT_TRUE(oPrinters.SetCurrent(FromUtf8(sLong)));
  EXPECT_EQ(ToUtf8(oPrinters.Current().DeviceName()), sLong + "-second-floor");
  EXPECT_FALSE(oPrinters.SetCurrent(u"hal"));
  EXPECT_EQ(ToUtf8(oPrinters.Current().DeviceName()), sLong + "-second-floor");
  oQueues.oQueues.pop_back();
  oPrinters.Refresh();
  EXPECT_EQ(oPrinters.Current().DeviceName(), u"hall") << "the chosen one is gone";
}

TEST(Printers, KnowTheirPaperAndItsStrips) {
  FakeQueues oQueues;
  oQueues.oQueues = {{"hall"}};
  oQueues.ePaper = Paper::PaperA5;
  Printers oPrinters({}, oQueues);
  Printer& o = oPrinters.Current();
  EXPECT_EQ(o.PaperSize(), Paper::PaperA5);
  EXPECT_EQ(o.ScaleLeft() + o.ScaleWidth(), o.Width() - 30);
  EXPECT_EQ(o.ScaleTop() + o.ScaleHeight(), o.Height() - 40);
  o.SetOrientation(Paper::Landscape);
  EXPECT_EQ(o.ScaleLeft(), 40);
  EXPECT_EQ(o.ScaleWidth(), 11906 - 80);
}

TEST(QueueDevice, HandsThePdfOverAndCleansUp) {
  FakeQueues oQueues;
  oQueues.oQueues = {{"hall"}};
  Printers oPrinters({}, oQueues);
  Printer& o = oPrinters.Current();
  o.SetPaperSize(Paper::PaperLegal);
  for (const bool bFails : {true, false}) {
    oQueues.bFails = bFails;
    o.SetTitle(bFails ? u"A" : u"B");
    o.Print(u"x");
    if (bFails) {
      EXPECT_THROW(o.EndDoc(), Failure);
    } else {
      o.EndDoc();
    }
    EXPECT_FALSE(std::filesystem::exists(oQueues.sLastFile));
  }
  o.Print(u"y");
  o.KillDoc();
  EXPECT_EQ(oQueues.sSubmitted, "hall %PDF A 5 private\nhall %PDF B 5 private\n");
}

/// What a reader of PDF files finds in one.
std::string Shown(const std::string& sCommand) {
  std::string sResult;
  FILE* poPipe = popen((sCommand + " 2>&1").c_str(), "r");
  for (int c; poPipe && (c = fgetc(poPipe)) != EOF;) sResult += static_cast<char>(c);
  if (poPipe) pclose(poPipe);
  return sResult;
}

TEST(FileDevice, MakesPagesThatOtherProgramsRead) {
  const TempFolder oFolder;
  const std::string sPath = oFolder / "report.pdf";
  FakeQueues oNone;
  Printers oPrinters([&](TextView) { return FromUtf8(sPath); }, oNone);
  Printer& o = oPrinters.Current();
  const auto fnOldNow = std::exchange(MXDate::fnNow, [] { return 1717609509; });
  o.SetTitle(u"Gr\u00F6\u00DFe");
  o.SetPaperSize(Paper::PaperA4), o.SetOrientation(Paper::Landscape);
  o.SetCurrentX(720);
  o.Print(u"Gr\u00F6\u00DFe \u03A9 \u0416");
  o.NewPage();
  o.Print(u"second");
  o.EndDoc();
  MXDate::fnNow = fnOldNow;
  EXPECT_EQ(Shown("pdftotext '" + sPath + "' -"),
            "Gr\u00F6\u00DFe \u03A9 \u0416\n\n\fsecond\n\n\f");
  const std::string sInfo = Shown("TZ=UTC pdfinfo '" + sPath + "'");
  for (const char* sPart : {"Gr\u00F6\u00DFe\n", "Pages:           2\n", "841.9 x 595.3 pts (A4)",
                            "Jun  5 17:45:09 2024"}) {
    EXPECT_NE(sInfo.find(sPart), std::string::npos) << sPart << " isn't in\n" << sInfo;
  }
}

TEST(FileDevice, MeasuresAsItPrints) {
  Paper::PdfDevice oDevice([](const std::string&) {});
  Printer o(oDevice);
  EXPECT_NEAR(o.TextWidth(u"mmmm"), 4 * o.TextWidth(u"m"), 1);
  const double dWidth = o.TextWidth(u"Boundary"), dHeight = o.TextHeight(u"Boundary");
  EXPECT_GE(dHeight, 7.5 * 20 * 1.15) << "rows would touch";
  EXPECT_EQ(o.TextHeight(u"\u6F22\u05D0"), dHeight) << "other scripts must not move a row";
  o.SetFontSize(15);
  EXPECT_NEAR(o.TextWidth(u"Boundary"), 2 * dWidth, 2);
  o.SetFontBold(true);
  EXPECT_GT(o.TextWidth(u"Boundary"), 2 * dWidth);
}

TEST(FileDevice, DropsTheDocumentWhenNoFileIsNamed) {
  const TempFolder oFolder;
  FakeQueues oNone;
  std::vector<Text> asAsked;
  std::optional<Text> oAnswer;
  Printers oPrinters(
      [&](TextView sTitle) {
        asAsked.emplace_back(sTitle);
        return oAnswer;
      },
      oNone);
  Printer& o = oPrinters.Current();
  o.SetTitle(u"T");
  o.Print(u"a"), o.EndDoc();
  EXPECT_EQ(asAsked, std::vector<Text>{u"T"});
  EXPECT_EQ(oFolder.Entries(), 0u);
  oAnswer = FromUtf8(oFolder / "kept.pdf");
  o.Print(u"a"), o.EndDoc();
  EXPECT_EQ(oFolder.Entries(), 1u);
}

TEST(FileDevice, NamesThePathThatCantBeWrittenAndKeepsTheOldFile) {
  const TempFolder oFolder;
  TempFolder::Write(oFolder / "old.pdf", "old");
  chmod((oFolder / "old.pdf").c_str(), 0444);
  FakeQueues oNone;
  for (const char* sName : {"gone/a.pdf", "old.pdf", "."}) {
    SCOPED_TRACE(sName);
    const Text sPath = FromUtf8(oFolder / sName);
    Printers oPrinters([&](TextView) { return sPath; }, oNone);
    oPrinters.Current().Print(u"a");
    try {
      oPrinters.Current().EndDoc();
      ADD_FAILURE() << "written";
    } catch (const Failure& oFailure) {
      EXPECT_NE(oFailure.Description().find(sPath), Text::npos) << oFailure.what();
    }
  }
  EXPECT_EQ(TempFolder::Read(oFolder / "old.pdf"), "old");
}

// Replacing it would turn the device into a file.
TEST(WriteDocument, WritesStraightIntoWhatIsNoFile) {
  const TempFolder oFolder;
  const std::string sPipe = oFolder / "pipe";
  ASSERT_EQ(mkfifo(sPipe.c_str(), 0600), 0);
  FILE* poReader = popen(("cat '" + sPipe + "'").c_str(), "r");
  Paper::WriteDocument(sPipe, "bytes");
  char aRead[16] = {};
  EXPECT_EQ(fread(aRead, 1, sizeof aRead, poReader), 5u);
  pclose(poReader);
  EXPECT_TRUE(std::filesystem::is_fifo(sPipe));
  EXPECT_THROW(Paper::WriteDocument("/dev/full", "bytes"), Failure);
}

TEST(SystemPrintQueues, AreNoneWithoutAPrintService) {
  setenv("CUPS_SERVER", "/nowhere/cups.sock", 1);
  EXPECT_TRUE(Paper::SystemPrintQueues().List().empty());
  EXPECT_THROW(Paper::SystemPrintQueues().Submit("hall", "x.pdf", u"T", 9), Failure);
}

}  // namespace
