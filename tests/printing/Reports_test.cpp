// Rows as the recording device keeps them: "*" behind bold text, "|" between columns that hold
// something. Letters are 100 twips wide there.
#include "Reports.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <utime.h>

#include "Failure.h"
#include "MOptions.h"
#include "MXDate.h"
#include "Model.h"
#include "RecordingDevice.h"
#include "SortedList.h"
#include "TempFolder.h"

namespace {

const std::string Head = "\nTarvane Quillon 3.", Address = "|https://tarvane.example/quillon";
constexpr const char* Foot = "|Page 1|05-Jun-24 17:45";
/// Nothing has to be cut in these.
const Reports::Widths Wide{2000, 1700, 1300, 1300, 2000, 1300, 1300, 1000};

struct ReportsTest : testing::Test {
  const TempFolder oFolder;
  Model oModel;
  RecordingDevice oDevice;
  Paper::Printer oPrinter{oDevice};
  std::function<std::int64_t()> fnOldNow = MXDate::fnNow;

  ReportsTest() {
    setenv("TZ", "UTC", 1);
    MXDate::fnNow = [] { return 1717609509; };
    TextArray asModule, asProcedure;
    oModel.oTemplate.GetModuleTemplates(asModule);
    oModel.oTemplate.GetProcTemplates(asProcedure);
    MQuillon::LoadLookups(asModule, asProcedure);
    oPrinter.SetPaperSize(Paper::PaperA3);
  }
  ~ReportsTest() override {
    MXDate::fnNow = fnOldNow;
    MQuillon::ReleaseLookups();
  }

  Text File(const std::string& sName, mode_t nMode = 0644) {
    const std::string sPath = oFolder / sName;
    TempFolder::Write(sPath, "x");
    const utimbuf oTimes{1717609509, 1717609509};
    utime(sPath.c_str(), &oTimes);
    chmod(sPath.c_str(), nMode);
    return FromUtf8(sPath);
  }
  /// Rows without the folder of the test.
  std::string Rows() const {
    std::string s = oDevice.sRows;
    for (std::size_t i; (i = s.find(oFolder.Path())) != std::string::npos;)
      s.erase(i, oFolder.Path().size() + 1);
    return s;
  }
};

TEST_F(ReportsTest, SummaryGroupsComponentsByFolderAndTheirFiles) {
  FakeProject& oProject = oModel.oIDE.AddProject(u"Shop", 2);
  oProject.sFileName = File("Shop.vbp", 0444);
  oModel.oIDE.Add(u"MZoo", ComponentStdModule, u"").asFile = {File("MZoo.bas")};
  FakeComponent& oClass = oModel.oIDE.Add(u"CBox", ComponentClass, u"");
  oClass.nInstancing = 5;
  oModel.oIDE.Add(u"mArk", ComponentStdModule, u"").asFile = {u""};
  FakeComponent& oForm = oModel.oIDE.Add(u"FMain", ComponentVBForm, u"");
  oForm.asFile = {File("FMain.frm"), File("FMain.frx"), File("FMain.log")};
  oModel.oIDE.oLog.Fail("CodeModule of FMain", 0);
  oModel.Open(false);
  Reports::PrintProjects(oModel.oHandler, oPrinter, Wide, 1);
  const std::string sWhen = "2024/06/05 17:45:09";
  EXPECT_EQ(Rows(), Head + "1" + Address + "\nProject*|Type*|ReadOnly*|Modified*|FileName*" +
                        "\nShop|ActiveX DLL|ReadOnly|" + sWhen + "|Shop.vbp" +
                        "\nModule*|Type*|Instancing*|ReadOnly*|Modified*|FileName*" +
                        "\nFMain|Form Module|" + sWhen + "|FMain.frm\n" + sWhen + "|FMain.frx\n" +
                        sWhen + "|FMain.log" +
                        "\nmArk|Standard Module|n/a|n/a|n/a\nMZoo|Standard Module|" + sWhen +
                        "|MZoo.bas\nCBox|Class Module|MultiUse\nProject Summary" + Foot);
  EXPECT_NE(oDevice.sRecord.find("document Project Summary - Shop\n"), std::string::npos);
}

// The rows of one component stand tight; half a line closes each.
TEST_F(ReportsTest, SummaryKeepsTheFilesOfAComponentTogether) {
  oModel.oIDE.AddProject(u"P", 0).sFileName = u"";
  oModel.oIDE.Add(u"A", ComponentVBForm, u"").asFile = {u"", u"", u""};
  oModel.oIDE.Add(u"B", ComponentVBForm, u"").asFile = {u""};
  oModel.Open(false);
  Reports::PrintProjects(oModel.oHandler, oPrinter, {3000, 100, 100, 1000, 1000}, 1);
  // Margins of 720 on top; each "n/a" of the first of three columns.
  std::string sPlaces;
  std::istringstream oLines(oDevice.sRecord);
  for (std::string s; std::getline(oLines, s);)
    if (s.starts_with("1 3920 ") && s.ends_with(" n/a")) sPlaces += s.substr(7, 4) + ",";
  EXPECT_EQ(sPlaces, "1520,2120,2320,2520,2820,");
}

TEST_F(ReportsTest, SummaryOutlivesAFileThatIsGone) {
  oModel.oIDE.AddProject(u"P", 0).sFileName = FromUtf8(oFolder / "P.vbp");
  oModel.Open(false);
  Reports::PrintProjects(oModel.oHandler, oPrinter, Reports::DefaultModWidths(), 1);
  EXPECT_NE(Rows().find("\nP|Standard EXE|n/a|P.vbp\n"), std::string::npos) << Rows();
}

const std::string Heading =
    "\nProcedure*|Type*|Scope*|Template*|Locked*|Boundary*|Severity*|Retry*|Trace*";

TEST_F(ReportsTest, PropertiesShowCurrentByComponentAndName) {
  oModel.oIDE.AddProject(u"Shop", 1);
  oModel.oIDE.Add(u"CTwo", ComponentClass, u"").nInstancing = 2;
  oModel.oIDE.Add(u"MOne", ComponentStdModule,
                  u"Const Sev = tvnSeverityFatal\n'@ Mod\n"
                  u"Private Sub Zap()\n'@ Std&Locked\n    On Error GoTo Trap\nTrap:\n"
                  u"    Fail tvnSeverityNormal\nEnd Sub\n"
                  u"Property Let b(v)\nEnd Property\nProperty Get B()\nEnd Property\n"
                  u"Function a1()\nOn Error Resume Next\nEnd Function\n"
                  u"Function a_1()\nEnd Function\n");
  oModel.Open(false);
  oModel.oHandler.LoadComponent(2);
  oModel.oHandler.SetBoundaryId(oModel.oHandler.Component(2).lFirstProcedure, MQuillon::BoundaryVB);
  Reports::PrintSettings(oModel.oHandler, oPrinter, Wide, 1, 0);
  EXPECT_EQ(Rows(), Head + "0" + Address + "\nShop - ActiveX EXE*\nMOne -  Standard Module*" +
                        Heading +
                        "\n(declarations)|Mod|Fatal\na_1|Function|Public|Fatal"
                        "\na1|Function|Public|(bespoke)\nb|Property Let|Public|Fatal"
                        "\nb|Property Get|Public|Fatal\nZap|Sub|Private|Std|Locked|Normal"
                        "\nCTwo - PublicNotCreatable Class Module*" +
                        Heading + "\n(declarations)\nProcedure Properties" + Foot);
}

TEST_F(ReportsTest, PropertiesOfOneComponentShowThatOne) {
  oModel.oIDE.AddProject(u"P", 0);
  oModel.oIDE.Add(u"A", ComponentStdModule, u"Sub x()\nEnd Sub");
  oModel.oIDE.Add(u"B", ComponentStdModule, u"Sub y()\nEnd Sub");
  oModel.Open(false);
  Reports::PrintSettings(oModel.oHandler, oPrinter, Wide, 1, 2);
  EXPECT_EQ(Rows(), Head + "0" + Address + "\nP - Standard EXE*\nB -  Standard Module*" + Heading +
                        "\n(declarations)\ny|Sub|Public\nProcedure Properties" + Foot);
  EXPECT_FALSE(oModel.oHandler.Component(1).bLoaded);
}

TEST_F(ReportsTest, PropertiesNameComponentsWithoutProcedures) {
  oModel.oIDE.AddProject(u"P", 0);
  oModel.oIDE.Add(u"Fixed", ComponentStdModule, u"Sub x()\nEnd Sub").asFile = {
      File("Fixed.bas", 0444)};
  oModel.oIDE.Add(u"Lost", ComponentStdModule, u"Sub y()\nEnd Sub");
  oModel.oIDE.oLog.Fail("CodeModule of Lost", 0);
  oModel.oIDE.AddProject(u"Empty", 0);
  oModel.Open(false);
  MRules::oRules.bSkipReadOnly = true;
  Reports::PrintSettings(oModel.oHandler, oPrinter, Wide, 1, 0);
  Reports::PrintSettings(oModel.oHandler, oPrinter, Wide, 2, 0);
  EXPECT_EQ(Rows(), Head + "0" + Address + "\nP - Standard EXE*\nFixed -  Standard Module*" +
                        Heading + "\nLost -  Standard Module*" + Heading +
                        "\nProcedure Properties" + Foot + Head + "0" + Address +
                        "\nEmpty - Standard EXE*\nProcedure Properties" + Foot);
}

// The body of A5 on its side ends at 7171; B would begin at 2520 and 200 for each procedure of A.
TEST_F(ReportsTest, AComponentBeginsWhereTenLinesAreLeft) {
  struct Row {
    const char* sName;
    std::size_t lProcedures;
    std::int32_t hComponent, lBottomMargin;
    const char* sPlaceOfB;
  };
  const TextView sNames = u"abcdefghijklmn";
  for (const Row& oRow : {
           Row{"51 twips to spare", 13, 0, 500, "\n1 720 5120 B -"},
           Row{"149 twips too little", 14, 0, 500, "\n2 720 1220 B -"},
           Row{"asked on each page anew, even where ten never fit", 0, 0, 4000, "\n4 720 1220 B -"},
           Row{"a single component doesn't ask", 0, 2, 4000, "\n1 720 1520 B -"},
       }) {
    SCOPED_TRACE(oRow.sName);
    Model oOwn;
    RecordingDevice oRecord;
    Paper::Printer oSmall(oRecord);
    oSmall.SetPaperSize(Paper::PaperA5), oSmall.SetOrientation(Paper::Landscape);
    Text sCode;
    for (const char16_t c : sNames.substr(0, oRow.lProcedures))
      sCode += Text(u"Sub ") + c + u"()\nEnd Sub\n";
    oOwn.oIDE.Add(u"A", ComponentStdModule, sCode);
    oOwn.oIDE.Add(u"B", ComponentStdModule, u"");
    oOwn.Open(false);
    MOptions::lBottomMargin = oRow.lBottomMargin;
    Reports::PrintSettings(oOwn.oHandler, oSmall, Wide, 1, oRow.hComponent);
    MOptions::lBottomMargin = 500;
    EXPECT_NE(oRecord.sRecord.find(oRow.sPlaceOfB), std::string::npos) << oRecord.sRecord;
  }
}

TEST_F(ReportsTest, MarginsComeFromTheOptionsInThousandthsOfAnInch) {
  oModel.oIDE.AddProject(u"P", 0);
  oModel.Open(false);
  MOptions::lLeftMargin = 333;
  MOptions::lRightMargin = -2147483647;
  Reports::PrintProjects(oModel.oHandler, oPrinter, Wide, 1);
  MOptions::lLeftMargin = MOptions::lRightMargin = 500;
  EXPECT_NE(oDevice.sRecord.find("\n1 480 720 Tarvane"), std::string::npos) << oDevice.sRecord;
  EXPECT_NE(oDevice.sRecord.find("\n1 13738 720 https"), std::string::npos) << oDevice.sRecord;
}

TEST_F(ReportsTest, FailureDropsTheDocumentAndReachesTheCaller) {
  struct Row {
    const char* sName;
    Reports::Widths alWidth;
    std::int32_t hProject;
    int lFailAtPage, lFailure;
  };
  oModel.oIDE.AddProject(u"P", 0);
  for (int i = 0; i < 200; ++i) oModel.oIDE.Add(u"A", ComponentStdModule, u"");
  oModel.Open(false);
  for (const Row& oRow : {
           Row{"a page can't begin", Wide, 1, 3, 482},
           Row{"a width is missing", {1, 2, 3, 4}, 1, 0, 9},
           Row{"a project outside the model", Wide, 2, 0, 9},
       }) {
    SCOPED_TRACE(oRow.sName);
    oDevice.lFailAtPage = oRow.lFailAtPage;
    try {
      Reports::PrintProjects(oModel.oHandler, oPrinter, oRow.alWidth, oRow.hProject);
      ADD_FAILURE() << "printed";
    } catch (const Failure& oFailure) {
      EXPECT_EQ(oFailure.Number(), oRow.lFailure);
    }
    EXPECT_EQ(oPrinter.Page(), 1);
  }
  EXPECT_EQ(oDevice.sRecord, "killed\n");
  MQuillon::ReleaseLookups();
  EXPECT_THROW(Reports::PrintSettings(oModel.oHandler, oPrinter, Wide, 1, 1), Failure);
}

TEST(SortedList, OrdersAsASortedListBox) {
  SortedList oList;
  const std::vector<Text> asText{u"Zoo", u"\u00E9clair",    u"a1", u"AB",     u"a_b", u"ez",
                                 u"ea",  u"(declarations)", u"ab", u"Eclair", u"_x",  u"9"};
  for (std::size_t i = 0; i < asText.size(); ++i) {
    oList.AddItem(asText[i], static_cast<std::int32_t>(i));
  }
  std::string sOrder;
  for (const auto i : oList.ItemData()) sOrder += ToUtf8(asText[static_cast<std::size_t>(i)]) + " ";
  EXPECT_EQ(sOrder, "(declarations) _x 9 a_b a1 AB ab ea Eclair \u00E9clair ez Zoo ");
}

}  // namespace
