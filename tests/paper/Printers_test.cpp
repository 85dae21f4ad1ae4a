// The collection, and how documents leave for files and queues.
#include "Printers.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>

#include "FailureOf.h"
#include "MXDate.h"
#include "TempFolder.h"

namespace {

using Paper::Printer;
using Paper::Printers;

struct FakeQueues : Paper::IPrintQueues {
  explicit FakeQueues(std::vector<Paper::PrintQueue> all = {}) : queues(std::move(all)) {}
  std::vector<Paper::PrintQueue> List() override { return queues; }
  std::int32_t PaperSizeOf(const std::string&) override { return Paper::PaperA5; }
  Paper::Strips StripsOf(const std::string&, std::int32_t) override { return {10, 20, 30, 40}; }
  void Submit(const std::string& queue, const std::string& file, TextView title,
              std::int32_t paper) override {
    lastFile = file;
    const auto others = std::filesystem::status(file).permissions() & std::filesystem::perms(077);
    submitted += queue + " " + TempFolder::Read(file).substr(0, 4) + " " + ToUtf8(title) + " " +
                 std::to_string(paper) +
                 (others == std::filesystem::perms() ? " private\n" : " open\n");
    if (fails) throw Failure(482);
  }

  std::vector<Paper::PrintQueue> queues;
  std::string submitted, lastFile;
  bool fails = false;
};

/// All names, and the current one.
std::string Names(Printers& printers) {
  std::string all;
  for (std::int32_t i = 1; i <= printers.Count(); ++i) all += ToUtf8(printers.DeviceName(i)) + ",";
  return all + " " + ToUtf8(printers.Current().DeviceName());
}

TEST(Printers, ListsQueuesAndAlwaysThePdfFile) {
  FakeQueues queues;
  Printers printers({}, queues);
  EXPECT_EQ(Names(printers), "PDF file, PDF file");
  queues.queues = {{"hall"}, {"office/draft", true}};
  EXPECT_EQ(Names(printers), "PDF file, PDF file") << "looked up again without being told";
  printers.Refresh();
  EXPECT_EQ(Names(printers), "hall,office/draft,PDF file, PDF file") << "the choice stays";
  for (const std::int32_t out : {0, 4}) EXPECT_EQ(FailureOf([&] { printers.Item(out); }), 9);
  Printers anew({}, queues);
  EXPECT_EQ(Names(anew), "hall,office/draft,PDF file, office/draft");
}

TEST(Printers, ChoosesByTheFirst31CharactersOfAName) {
  const std::string name(31, 'a');
  FakeQueues queues({{"hall"}, {name + "-second-floor"}});
  Printers printers({}, queues);
  EXPECT_TRUE(printers.SetCurrent(FromUtf8(name)));
  EXPECT_FALSE(printers.SetCurrent(u"hal"));
  EXPECT_EQ(ToUtf8(printers.Current().DeviceName()), name + "-second-floor");
  queues.queues.pop_back();
  printers.Refresh();
  EXPECT_EQ(printers.Current().DeviceName(), u"hall") << "the chosen one is gone";
}

TEST(Printers, KnowTheirPaperAndItsStrips) {
  FakeQueues queues({{"hall"}});
  Printers printers({}, queues);
  Printer& o = printers.Current();
  EXPECT_EQ(o.PaperSize(), Paper::PaperA5);
  EXPECT_EQ(o.ScaleLeft() + o.ScaleWidth(), o.Width() - 30);
  EXPECT_EQ(o.ScaleTop() + o.ScaleHeight(), o.Height() - 40);
  o.SetOrientation(Paper::Landscape);
  EXPECT_EQ(o.ScaleLeft(), 40);
  EXPECT_EQ(o.ScaleWidth(), 11906 - 80);
}

TEST(QueueDevice, HandsThePdfOverAndCleansUp) {
  FakeQueues queues({{"hall"}});
  Printers printers({}, queues);
  Printer& o = printers.Current();
  o.SetPaperSize(Paper::PaperLegal);
  for (const bool fails : {true, false}) {
    queues.fails = fails;
    o.SetTitle(fails ? u"A" : u"B");
    o.Print(u"x");
    EXPECT_EQ(FailureOf([&] { o.EndDoc(); }), fails ? 482 : 0);
    EXPECT_FALSE(std::filesystem::exists(queues.lastFile));
  }
  o.Print(u"y");
  o.KillDoc();
  EXPECT_EQ(queues.submitted, "hall %PDF A 5 private\nhall %PDF B 5 private\n");
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
  const TempFolder folder;
  const std::string path = folder / "report.pdf";
  FakeQueues none;
  Printers printers([&](TextView) { return FromUtf8(path); }, none);
  Printer& o = printers.Current();
  const auto oldNow = std::exchange(MXDate::fnNow, [] { return 1717609509; });
  o.SetTitle(u"Gr\u00F6\u00DFe");
  o.SetPaperSize(Paper::PaperA4), o.SetOrientation(Paper::Landscape);
  o.SetCurrentX(720);
  o.Print(u"Gr\u00F6\u00DFe \u03A9 \u0416"), o.NewPage();
  o.Print(u"second"), o.EndDoc();
  MXDate::fnNow = oldNow;
  EXPECT_EQ(Shown("pdftotext '" + path + "' -"), "Gr\u00F6\u00DFe \u03A9 \u0416\n\n\fsecond\n\n\f");
  const std::string info = Shown("TZ=UTC pdfinfo '" + path + "'");
  for (const char* part : {"Gr\u00F6\u00DFe\n", "Pages:           2\n", "841.9 x 595.3 pts (A4)",
                           "Jun  5 17:45:09 2024"})
    EXPECT_NE(info.find(part), std::string::npos) << part << " isn't in\n" << info;
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
  const TempFolder folder;
  FakeQueues none;
  Text asked;
  std::optional<Text> answer;
  Printers printers([&](TextView title) { return asked += title, answer; }, none);
  Printer& o = printers.Current();
  for (const std::size_t files : {0U, 1U}) {
    if (files > 0) answer = FromUtf8(folder / "kept.pdf");
    o.SetTitle(u"T");
    o.Print(u"a"), o.EndDoc();
    EXPECT_EQ(folder.Entries(), files);
  }
  EXPECT_EQ(asked, u"TT");
}

TEST(FileDevice, NamesThePathThatCantBeWrittenAndKeepsTheOldFile) {
  const TempFolder folder;
  TempFolder::Write(folder / "old.pdf", "old");
  chmod((folder / "old.pdf").c_str(), 0444);
  FakeQueues none;
  for (const char* name : {"gone/a.pdf", "old.pdf", "."}) {
    SCOPED_TRACE(name);
    const Text path = FromUtf8(folder / name);
    Printers printers([&](TextView) { return path; }, none);
    printers.Current().Print(u"a");
    try {
      printers.Current().EndDoc();
      ADD_FAILURE() << "written";
    } catch (const Failure& failure) {
      EXPECT_NE(failure.Description().find(path), Text::npos) << failure.what();
    }
  }
  EXPECT_EQ(TempFolder::Read(folder / "old.pdf"), "old");
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
