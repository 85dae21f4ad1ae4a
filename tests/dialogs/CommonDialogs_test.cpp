// What the system's dialogs are asked, and what becomes of their answers.
#include "CXChooseFile.h"
#include "CXChooseFont.h"
#include "CXChoosePage.h"
#include "FormsFixture.h"
#include "IPrintQueues.h"
#include "Printers.h"

namespace {

using namespace Forms;

constexpr DialogAnswer Ok{true, 0}, Cancel{false, 0}, Failed{false, 12291};

class CommonDialogsTest : public FormsTest {
 protected:
  /// Shows the dialog with that answer, and gives what it was asked.
  FileDialog Ask(bool bSave, const DialogAnswer& oAnswer = Cancel, std::vector<Text> asPath = {}) {
    FileDialog oAsked;
    User().ChooseFile([&](FileDialog& o) {
      oAsked = o;
      o.asPath = asPath;
      o.lFilterIndex = 2;
      o.bReadOnly = true;
      return oAnswer;
    });
    EXPECT_EQ(moFile.Show(bSave), oAnswer.bConfirmed);
    return oAsked;
  }
  std::string Filters(std::vector<Text> asFilter) {
    moFile.OFilters = std::move(asFilter);
    std::string sAll;
    for (const auto& o : Ask(false).aoFilter) {
      sAll += "<" + ToUtf8(o.sDescription) + "," + ToUtf8(o.sPattern) + ">";
    }
    return sAll;
  }
  CXChooseFile moFile{moToolkit};
};

TEST_F(CommonDialogsTest, FiltersArePairsPartedByEitherMark) {
  EXPECT_EQ(Filters({}), "");
  EXPECT_EQ(Filters({u"Template Files (*.dat) | *.dat"}), "<Template Files (*.dat),*.dat>");
  EXPECT_EQ(Filters({u"A:*.a", u"B|*.b;*.c"}), "<A,*.a><B,*.b;*.c>");
  EXPECT_EQ(Filters({u"A|*.a|B:*.b"}), "<A,*.a><B,*.b>");
  EXPECT_EQ(Filters({u"A|*.a", u"no pattern"}), "<A,*.a>");
}

TEST_F(CommonDialogsTest, ChosenFiles) {
  const struct {
    const char* sName;
    std::vector<Text> asPath;
    TextView sDirectory, sFileName;
    std::vector<Text> asName;
  } aoRow[] = {
      {"one", {u"/home/a b/T.dat"}, u"/home/a b/", u"/home/a b/T.dat", {}},
      {"one with backslashes", {u"C:\\T\\T.dat"}, u"C:\\T\\", u"C:\\T\\T.dat", {}},
      {"a backslash in a name", {u"/h/a\\b"}, u"/h/", u"/h/a\\b", {}},
      {"several", {u"/h/a", u"/h/b"}, u"/h/", u"", {u"a", u"b"}},
      {"several, of two folders", {u"/h/a", u"/x/b"}, u"/h/", u"", {u"a", u"/x/b"}},
  };
  for (const auto& o : aoRow) {
    SCOPED_TRACE(o.sName);
    moFile.FileName = u"old";
    moFile.FileNames = {u"old"};
    Ask(false, Ok, o.asPath);
    EXPECT_EQ(moFile.Directory, o.sDirectory);
    EXPECT_EQ(moFile.FileName, o.sFileName);
    EXPECT_EQ(moFile.FileNames, o.asName);
    EXPECT_TRUE(moFile.FilterIndex == 2 && moFile.ReadOnly);
  }
}

TEST_F(CommonDialogsTest, CancelChangesNothingAndAFailureIsThrown) {
  moFile.MultiSelect = true;
  moFile.FileName = u"old";
  moFile.Directory = u"/old/";
  FileDialog oAsked = Ask(false, Cancel, {u"/new/T.dat"});
  EXPECT_TRUE(oAsked.bFileMustExist && oAsked.bMultiSelect && !oAsked.bOverwritePrompt);
  oAsked = Ask(true);
  EXPECT_TRUE(!oAsked.bFileMustExist && !oAsked.bMultiSelect && oAsked.bOverwritePrompt);
  EXPECT_EQ(moFile.FileName + moFile.Directory, u"old/old/");
  EXPECT_EQ(moFile.FilterIndex, 1);
  User().ChooseFile([](FileDialog&) { return Failed; });
  try {
    moFile.Show(true);
    FAIL();
  } catch (const Failure& o) {
    EXPECT_EQ(o.Number(), 12291);
    EXPECT_EQ(o.Description(), u"Common Dialog Error 12291");
    EXPECT_EQ(o.Source(), u"comdlg32.dll");
  }
}

TEST_F(CommonDialogsTest, FontsWithLimits) {
  // Given, and what the dialog is asked.
  const std::int32_t alRow[][4] = {{0, 0, 0, 0},   {6, 72, 6, 72},    {6, 0, 6, 144},
                                   {0, 72, 0, 72}, {20, 10, 20, 144}, {-5, -7, 0, 0}};
  for (const auto& al : alRow) {
    CXChooseFont oChoose(moToolkit);
    oChoose.MinSize = al[0];
    oChoose.MaxSize = al[1];
    const bool bConfirm = al[0] == 0;
    User().ChooseFont([&](FontDialog& o) {
      EXPECT_TRUE(o.lMinSize == al[2] && o.lMaxSize == al[3]) << al[0] << ' ' << al[1];
      EXPECT_TRUE(o.bScreen && o.bPrinter && !o.bScript);
      o.oFont.dSize = 10.5;
      return bConfirm ? Ok : Cancel;
    });
    EXPECT_EQ(oChoose.Show(), bConfirm);
    EXPECT_EQ(oChoose.OFont.value_or(FontSpec{}).dSize, bConfirm ? 10.5 : 8.25);
  }
}

struct Queues : Paper::IPrintQueues {
  std::vector<Paper::PrintQueue> List() override { return {{"office", true}, {"hall"}}; }
  std::int32_t PaperSizeOf(const std::string&) override { return 9; }
  Paper::Strips StripsOf(const std::string&, std::int32_t) override { return {}; }
  void Submit(const std::string&, const std::string&, TextView, std::int32_t) override {}
};

class PageTest : public CommonDialogsTest {
 protected:
  bool Show(TextView sDevice, std::int32_t lPaper, const DialogAnswer& oAnswer = Ok) {
    User().ChoosePage([&, sDevice = Text(sDevice)](PageDialog& o) {
      moAsked = o;
      o.lLeft += 100;
      o.sDeviceName = sDevice;
      o.lPaperSize = lPaper;
      o.lOrientation = 2;
      return oAnswer;
    });
    return moPage.Show();
  }
  Queues moQueues;
  Paper::Printers moPrinters{nullptr, moQueues};
  CXChoosePage moPage{moToolkit, moPrinters};
  PageDialog moAsked;
};

TEST_F(PageTest, TheChosenPrinterBecomesTheCurrentOne) {
  moPage.LeftMargin = 500;
  EXPECT_FALSE(Show(u"hall", 1, Cancel));
  EXPECT_EQ(moAsked.sDeviceName, u"office");
  EXPECT_EQ(moAsked.lPaperSize, 9);
  EXPECT_EQ(moAsked.eUnit, MarginUnit::ThousandthsOfInch);
  EXPECT_EQ(moPage.LeftMargin, 500);
  EXPECT_TRUE(Show(Text(u"hall\0rest", 9), 1));
  EXPECT_EQ(moPage.LeftMargin, 600);
  EXPECT_EQ(moPage.DeviceName, u"hall");
  EXPECT_EQ(moPrinters.Current().DeviceName(), u"hall");
  EXPECT_EQ(moPrinters.Current().PaperSize(), 1);
  EXPECT_EQ(moPrinters.Current().Orientation(), 2);
  EXPECT_TRUE(Show(u"gone", 5));
  EXPECT_EQ(moPrinters.Current().PaperSize(), 1);
}

TEST_F(PageTest, ThePrinterStaysOnDemandAndPaperThatItLacksIsAFailure) {
  moPage.SetDefaultPrinter = false;
  EXPECT_TRUE(Show(u"hall", 1));
  EXPECT_EQ(moPrinters.Current().DeviceName(), u"office");
  moPage.SetDefaultPrinter = true;
  moPage.ScaleMode = CXChoosePage::Millimeters;
  EXPECT_EQ(FailureOf([&] { Show(u"hall", 31000); }), 380);
  EXPECT_EQ(moAsked.eUnit, MarginUnit::HundredthsOfMillimeter);
  EXPECT_EQ(moPage.LeftMargin, 200);
}

}  // namespace
