// What the system's dialogs are asked, and what becomes of their answers.
#include "CXChooseFile.h"
#include "CXChooseFont.h"
#include "CXChoosePage.h"
#include "DialogTest.h"

namespace {

using namespace Forms;

constexpr DialogAnswer Ok{true, 0}, Cancel{false, 0};

class CommonDialogsTest : public DialogTest {
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
  static std::vector<Text> Split(const std::string& sTexts) {
    std::vector<Text> as;
    std::istringstream o(sTexts);
    for (std::string s; std::getline(o, s, ';');) as.push_back(FromUtf8(s));
    return as;
  }
  CXChooseFile moFile{moToolkit};
};

TEST_F(CommonDialogsTest, FiltersArePairsPartedByEitherMark) {
  const std::pair<std::vector<Text>, const char*> aoRow[] = {
      {{}, ""},
      {{u"Template Files (*.dat) | *.dat"}, "<Template Files (*.dat),*.dat>"},
      {{u"A:*.a", u"B|*.b;*.c"}, "<A,*.a><B,*.b;*.c>"},
      {{u"A|*.a|B:*.b"}, "<A,*.a><B,*.b>"},
      {{u"A|*.a", u"no pattern"}, "<A,*.a>"}};
  for (const auto& [asFilter, sFilters] : aoRow) {
    moFile.OFilters = asFilter;
    std::string sAll;
    for (const auto& o : Ask(false).aoFilter)
      sAll += "<" + ToUtf8(o.sDescription) + "," + ToUtf8(o.sPattern) + ">";
    EXPECT_EQ(sAll, sFilters);
  }
}

TEST_F(CommonDialogsTest, ChosenFiles) {
  // Their paths; the folder, the one file, and the several ones.
  for (const auto& as : Rows(R"(
         one                     | /home/a b/T.dat | /home/a b/ | /home/a b/T.dat |
         one with backslashes    | C:\T\T.dat      | C:\T\      | C:\T\T.dat      |
         a backslash in a name   | /h/a\b          | /h/        | /h/a\b          |
         several                 | /h/a;/h/b       | /h/        |                 | a;b
         several, of two folders | /h/a;/x/b       | /h/        |                 | a;/x/b)")) {
    SCOPED_TRACE(as[0]);
    moFile.FileName = u"old";
    moFile.FileNames = {u"old"};
    Ask(false, Ok, Split(as[1]));
    EXPECT_EQ(ToUtf8(moFile.Directory + u" " + moFile.FileName), as[2] + " " + as[3]);
    EXPECT_EQ(moFile.FileNames, Split(as[4]));
    EXPECT_TRUE(moFile.FilterIndex == 2 && moFile.ReadOnly);
  }
}

TEST_F(CommonDialogsTest, CancelChangesNothingAndAFailureIsThrown) {
  moFile.MultiSelect = true;
  moFile.FileName = u"old";
  moFile.Directory = u"/old/";
  for (const bool bSave : {false, true}) {
    const FileDialog o = Ask(bSave, Cancel, {u"/new/T.dat"});
    EXPECT_TRUE(o.bFileMustExist != bSave && o.bMultiSelect != bSave &&
                o.bOverwritePrompt == bSave);
    EXPECT_TRUE(o.bHideReadOnly && !o.bReadOnly && o.lFilterIndex == 1);
  }
  EXPECT_EQ(moFile.FileName + moFile.Directory, u"old/old/");
  User().ChooseFile([](FileDialog&) { return DialogAnswer{false, 12291}; });
  EXPECT_EQ(FailureOf([&] { moFile.Show(true); }), 12291);
}

TEST_F(CommonDialogsTest, FontsWithLimits) {
  // Given, and what the dialog is asked.
  const std::int32_t alRow[][4] = {{0, 0, 0, 0},   {6, 72, 6, 72},    {6, 0, 6, 144},
                                   {0, 72, 0, 72}, {20, 10, 20, 144}, {-5, -7, 0, 144}};
  for (const auto& al : alRow) {
    CXChooseFont oChoose(moToolkit);
    oChoose.MinSize = al[0];
    oChoose.MaxSize = al[1];
    const bool bConfirm = al[0] == 0;
    User().ChooseFont([&](FontDialog& o) {
      EXPECT_TRUE(o.lMinSize == al[2] && o.lMaxSize == al[3]) << al[0] << ' ' << al[1];
      EXPECT_TRUE(o.bScreen && o.bPrinter && !o.bScript);
      o.oFont.dSize = 10.5;
      o.lColor = 255;
      return bConfirm ? Ok : Cancel;
    });
    EXPECT_EQ(oChoose.Show(), bConfirm);
    EXPECT_EQ(oChoose.OFont.value_or(FontSpec{}).dSize, bConfirm ? 10.5 : 8.25);
    EXPECT_EQ(oChoose.OColor, bConfirm ? 255 : 0);
  }
}

class PageTest : public CommonDialogsTest {
 protected:
  /// What was asked, the margin afterwards, and the printer with its paper and orientation.
  std::string Show(TextView sDevice, std::int32_t lPaper, const DialogAnswer& oAnswer = Ok) {
    std::string sAsked;
    User().ChoosePage([&](PageDialog& o) {
      sAsked = ToUtf8(o.sDeviceName) + (o.eUnit == MarginUnit::ThousandthsOfInch ? " inch" : " mm");
      o.lLeft += 100;
      o.sDeviceName = sDevice;
      o.lPaperSize = lPaper;
      o.lOrientation = 2;
      return oAnswer;
    });
    EXPECT_EQ(moPage.Show(), oAnswer.bConfirmed);
    const Paper::Printer& o = moPrinters.Current();
    return sAsked + " " + std::to_string(moPage.LeftMargin) + " " + ToUtf8(o.DeviceName()) + " " +
           std::to_string(o.PaperSize()) + "," + std::to_string(o.Orientation());
  }
  CXChoosePage moPage{moToolkit, moPrinters};
};

TEST_F(PageTest, TheChosenPrinterBecomesTheCurrentOne) {
  moPage.LeftMargin = 500;
  EXPECT_EQ(Show(u"office", 1, Cancel), "hall & stairs inch 500 hall & stairs 9,1");
  moPage.SetDefaultPrinter = false;
  EXPECT_EQ(Show(u"office", 1), "hall & stairs inch 600 hall & stairs 9,1");
  moPage.SetDefaultPrinter = true;
  EXPECT_EQ(Show(Text(u"office\0rest", 11), 1), "hall & stairs inch 700 office 1,2");
  EXPECT_EQ(moPage.DeviceName, u"office");
  EXPECT_EQ(Show(u"gone", 5), "office inch 800 office 1,2");
  moPage.ScaleMode = CXChoosePage::Millimeters;
  EXPECT_EQ(Show(u"office", 5), "office mm 900 office 5,2");
  EXPECT_EQ(FailureOf([&] { Show(u"office", 31000); }), 380) << "paper that it lacks";
}

}  // namespace
