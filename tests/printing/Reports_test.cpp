// Rows as the recording device keeps them: "*" behind bold text, "|" between columns that hold
// something. Letters are 100 twips wide there.
#include "Reports.h"

#include <sys/stat.h>
#include <utime.h>

#include "MOptions.h"
#include "Model.h"
#include "PrintTest.h"
#include "SortedList.h"
#include "TempFolder.h"

namespace {

const std::string Head = "\nTarvane Quillon 3.", Address = "|https://tarvane.example/quillon";
constexpr const char* Foot = "|Page 1|05-Jun-24 17:45";
/// Nothing has to be cut in these.
const Reports::Widths Wide{2000, 1700, 1300, 1300, 2000, 1300, 1300, 1000};

struct ReportsTest : PrintTest {
  const TempFolder oFolder;
  Model oModel;

  ReportsTest() {
    TextArray asModule, asProcedure;
    oModel.oTemplate.GetModuleTemplates(asModule);
    oModel.oTemplate.GetProcTemplates(asProcedure);
    MQuillon::LoadLookups(asModule, asProcedure);
    oPrinter.SetPaperSize(Paper::PaperA3);
  }
  ~ReportsTest() override {
    MQuillon::ReleaseLookups();
    MOptions::lLeftMargin = MOptions::lRightMargin = MOptions::lBottomMargin = 500;
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
  FakeIDE& ide = oModel.oIDE;
  ide.AddProject(u"Shop", ProjectType::ActiveXDll).sFileName = File("Shop.vbp", 0444);
  ide.Add(u"MZoo", ComponentType::StdModule, u"").asFile = {u"/" + Text(90, u'x') + u"/Gone.bas"};
  ide.Add(u"CBox", ComponentType::Class, u"").nInstancing = 5;
  ide.Add(u"mArk", ComponentType::StdModule, u"").asFile = {u""};
  ide.Add(u"FMain", ComponentType::VBForm, u"").asFile = {File("FMain.frm"), File("FMain.frx"),
                                                          File("FMain.log")};
  ide.oLog.Fail("CodeModule of FMain", 0);
  ide.AddProject(u"New").sFileName = u"";
  oModel.Open(false);
  Reports::PrintProjects(oModel.oHandler, oPrinter, Wide, 1_project);
  const std::string when = "2024/06/05 17:45:09";
  EXPECT_EQ(Rows(), Head + "1" + Address + "\nProject*|Type*|ReadOnly*|Modified*|FileName*" +
                        "\nShop|ActiveX DLL|ReadOnly|" + when + "|Shop.vbp" +
                        "\nModule*|Type*|Instancing*|ReadOnly*|Modified*|FileName*" +
                        "\nFMain|Form Module|" + when + "|FMain.frm\n" + when + "|FMain.frx\n" +
                        when + "|FMain.log\nmArk|Standard Module|n/a|n/a|n/a" +
                        "\nMZoo|Standard Module|/.../Gone.bas\nCBox|Class Module|MultiUse" +
                        "\n1 File(s) without a date: missing on disk\nProject Summary" + Foot);
  // Half a line closes each component; the rows of one stand tight.
  std::string places;
  std::istringstream lines(oDevice.sRecord);
  for (std::string s; std::getline(lines, s);)
    if (s.find("FMain.") != std::string::npos || s.ends_with("mArk") || s.ends_with("MZoo"))
      places += s.substr(s.find(' ', 2) + 1, 5);
  EXPECT_EQ(places, "2120 2320 2520 2820 3120 ");

  // Margins in thousandths of an inch; a project that was never saved.
  MOptions::lLeftMargin = 333;
  MOptions::lRightMargin = -2147483647;
  Reports::PrintProjects(oModel.oHandler, oPrinter, Wide, 2_project);
  for (const char* part :
       {"document Project Summary - Shop\n", "\n2 480 720 Tarvane", "\n2 13738 720 https"})
    EXPECT_NE(oDevice.sRecord.find(part), std::string::npos) << part << oDevice.sRecord;
  EXPECT_NE(Rows().find("\nNew|Standard EXE|n/a|n/a|n/a\n"), std::string::npos) << Rows();
}

const std::string Heading =
    "\nProcedure*|Type*|Scope*|Template*|Locked*|Boundary*|Severity*|Retry*|Trace*";

TEST_F(ReportsTest, PropertiesShowCurrentByComponentAndName) {
  oModel.oIDE.AddProject(u"Shop", ProjectType::ActiveXExe);
  oModel.oIDE.Add(u"CTwo", ComponentType::Class, u"").nInstancing = 2;
  oModel.oIDE.Add(u"MOne", ComponentType::StdModule,
                  u"Const Sev = tvnSeverityFatal\n'@ Mod\n"
                  u"Private Sub Zap()\n'@ Std&Locked\n    On Error GoTo Trap\nTrap:\n"
                  u"    Fail tvnSeverityNormal\nEnd Sub\n"
                  u"Property Let b(v)\nEnd Property\nProperty Get B()\nEnd Property\n"
                  u"Function a1()\nOn Error Resume Next\nEnd Function\n"
                  u"Function a_1()\nEnd Function\n");
  oModel.Open(false);
  oModel.oHandler.LoadComponent(2_component);
  oModel.oHandler.SetBoundaryId(oModel.oHandler.Component(2_component).lFirstProcedure,
                                MQuillon::Boundary::VB);
  const std::string sOne = "\nMOne -  Standard Module*" + Heading +
                           "\n(declarations)|Mod|Fatal\na_1|Function|Public|Fatal"
                           "\na1|Function|Public|(bespoke)\nb|Property Let|Public|Fatal"
                           "\nb|Property Get|Public|Fatal\nZap|Sub|Private|Std|Locked|Normal";
  const std::string sTwo =
      "\nCTwo - PublicNotCreatable Class Module*" + Heading + "\n(declarations)";
  for (const auto& [hComponent, sComponents] :
       {std::pair{2_component, sOne}, {0_component, sOne + sTwo}}) {
    EXPECT_FALSE(oModel.oHandler.Component(1_component).bLoaded);
    Reports::PrintSettings(oModel.oHandler, oPrinter, Wide, 1_project, hComponent);
    const std::string sFoot = std::string("\nProcedure Properties") + Foot;
    EXPECT_EQ(TakeRows(), Head + "0" + Address + "\nShop - ActiveX EXE*" + sComponents + sFoot);
  }
}

TEST_F(ReportsTest, PropertiesNameComponentsWithoutProcedures) {
  oModel.oIDE.AddProject(u"P");
  oModel.oIDE.Add(u"Fixed", ComponentType::StdModule, u"Sub x()\nEnd Sub").asFile = {
      File("Fixed.bas", 0444)};
  oModel.oIDE.Add(u"Lost", ComponentType::StdModule, u"Sub y()\nEnd Sub");
  oModel.oIDE.oLog.Fail("CodeModule of Lost", 0);
  oModel.oIDE.AddProject(u"Empty");
  oModel.Open(false);
  MRules::oRules.bSkipReadOnly = true;
  Reports::PrintSettings(oModel.oHandler, oPrinter, Wide, 1_project, {});
  Reports::PrintSettings(oModel.oHandler, oPrinter, Wide, 2_project, {});
  EXPECT_EQ(Rows(), Head + "0" + Address + "\nP - Standard EXE*\nFixed -  Standard Module*" +
                        Heading + "\nLost -  Standard Module*" + Heading +
                        "\nProcedure Properties" + Foot + Head + "0" + Address +
                        "\nEmpty - Standard EXE*\nProcedure Properties" + Foot);
}

// The body of A5 on its side ends at 7171; B would begin at 2520 and 200 for each procedure of A.
TEST_F(ReportsTest, AComponentBeginsWhereTenLinesAreLeft) {
  // Procedures of A, the component to print, the bottom margin, the place of B.
  for (const auto& as : ::Rows(R"(
         51 twips to spare                | 13 | 0 | 500  | 1 720 5120 B -
         149 twips too little             | 14 | 0 | 500  | 2 720 1220 B -
         asked on each page, even where ten never fit | 0 | 0 | 4000 | 4 720 1220 B -
         a single component doesn't ask   | 0  | 2 | 4000 | 1 720 1520 B -)")) {
    SCOPED_TRACE(as[0]);
    Model oOwn;
    RecordingDevice oRecord;
    Paper::Printer oSmall(oRecord);
    oSmall.SetPaperSize(Paper::PaperA5), oSmall.SetOrientation(Paper::Landscape);
    Text sCode;
    for (int i = 0; i < std::stoi(as[1]); ++i) sCode += u"Sub a" + ToText(i) + u"()\nEnd Sub\n";
    oOwn.oIDE.Add(u"A", ComponentType::StdModule, sCode);
    oOwn.oIDE.Add(u"B", ComponentType::StdModule, u"");
    oOwn.Open(false);
    MOptions::lBottomMargin = std::stoi(as[3]);
    Reports::PrintSettings(oOwn.oHandler, oSmall, Wide, 1_project,
                           ComponentHandle(std::stoi(as[2])));
    EXPECT_NE(oRecord.sRecord.find("\n" + as[4]), std::string::npos) << oRecord.sRecord;
  }
}

TEST_F(ReportsTest, FailureDropsTheDocumentAndReachesTheCaller) {
  oModel.oIDE.AddProject(u"P");
  for (int i = 0; i < 200; ++i) oModel.oIDE.Add(u"A", ComponentType::StdModule, u"");
  oModel.Open(false);
  // The number of widths, the project, the page that can't begin, the failure.
  for (const auto& row : ::Rows(R"(
         a page can't begin          | 8 | 1 | 3 | 482
         a width is missing          | 4 | 1 | 0 | 9
         a project outside the model | 8 | 2 | 0 | 9)")) {
    SCOPED_TRACE(row[0]);
    oDevice.lFailAtPage = std::stoi(row[3]);
    const Reports::Widths widths{Wide.begin(), Wide.begin() + std::stoi(row[1])};
    const auto Print = [&] {
      Reports::PrintProjects(oModel.oHandler, oPrinter, widths, ProjectHandle(std::stoi(row[2])));
    };
    EXPECT_EQ(FailureOf(Print), std::stoi(row[4]));
    EXPECT_EQ(oPrinter.Page(), 1);
  }
  EXPECT_EQ(oDevice.sRecord, "killed\n");
  MQuillon::ReleaseLookups();
  EXPECT_THROW(Reports::PrintSettings(oModel.oHandler, oPrinter, Wide, 1_project, 1_component),
               Failure);
}

TEST(SortedList, OrdersAsASortedListBox) {
  SortedList list;
  const std::vector<Text> texts{u"Zoo", u"\u00E9clair",    u"a1", u"AB",     u"a_b", u"ez",
                                u"ea",  u"(declarations)", u"ab", u"Eclair", u"_x",  u"9"};
  for (std::size_t i = 0; i < texts.size(); ++i)
    list.AddItem(texts[i], static_cast<std::int32_t>(i));
  std::string order;
  for (const auto i : list.ItemData()) order += ToUtf8(texts[static_cast<std::size_t>(i)]) + " ";
  EXPECT_EQ(order, "(declarations) _x 9 a_b a1 AB ab ea Eclair \u00E9clair ez Zoo ");
}

}  // namespace
