#include "DiskIDE.h"

#include <array>
#include <map>

#include "PathText.h"
#include "ProjectTree.h"
#include "TableRows.h"

namespace {

using namespace std::string_literals;

constexpr const char* Code = "Attribute VB_Name = \"Helpers\"\r\nSub A()\r\nEnd Sub\r\n";

std::string Shown(VBComponent& oComponent) {
  std::string sShown = std::to_string(MQuillon::ToNumber(oComponent.Type())) + ' ' +
                       ToUtf8(oComponent.Name()) + " [" + ToUtf8(oComponent.DesignerID()) + ']';
  for (std::int32_t i = 1; i <= oComponent.FileCount(); ++i)
    sShown += ' ' + std::filesystem::path(PathOfText(oComponent.FileNames(i))).filename().string();
  try {
    VBControls* poControls = oComponent.DesignerControls();
    for (std::int32_t i = 1; poControls && i <= poControls->Count(); ++i)
      sShown += " +" + ToUtf8(poControls->ItemName(i));
    if (!oComponent.CodeModule()) sShown += " no code";
  } catch (const Failure& oFailure) {
    sShown += " failure " + std::to_string(oFailure.Number());
  }
  return sShown;
}

std::string Root(const std::string& sRoot, const std::string& sInside = {}) {
  return "VERSION 5.00\nBegin " + sRoot + " \n" + sInside + "End\nAttribute VB_Name = \"N\"\n";
}

TEST(DiskIDE, ShowsComponentsOfEveryKind) {
  const std::string sMenus = " Begin VB.Menu m \n  Begin VB.Menu n \n  End\n End\n";
  const std::string sChild = "  MDIChild = -1  'True\n", sNoChild = "  MDIChild = 0   'False\n";
  const std::string sMaker = "-5775-11D0-B388-00A0C9055D8E} D";
  const std::array<std::string, 4> aasRow[] = {
      // entry, file, its bytes, what is shown
      // The file's name wins over the entry's.
      {"Module=Old; m.bas", "m.bas", Code, "1 Helpers [] m.bas"},
      {"Module=Old; m.bas", "m.bas", "Sub A()\r\nEnd Sub", "1 Old [] m.bas"},
      // Forms and designers, by their root.
      {"Form=f.frm", "F.FRM", Root("VB.Form R", sMenus), "5 N [VB.Form] F.FRM +m +n"},
      {"Form=f.frm", "f.frm", Root("VB.Form F", sChild), "15 N [VB.Form] f.frm"},
      {"Form=f.frm", "f.frm", Root("VB.Form F", sNoChild), "5 N [VB.Form] f.frm"},
      {"Form=f.frm", "f.frm", Root("VB.MDIForm F"), "6 N [VB.MDIForm] f.frm"},
      {"UserControl=u.ctl", "u.ctl", Root("VB.UserControl U"), "8 N [] u.ctl"},
      {"PropertyPage=p.pag", "p.pag", Root("VB.PropertyPage P"), "7 N [] p.pag"},
      {"UserDocument=d.dob", "d.dob", Root("VB.UserDocument D"), "9 N [] d.dob"},
      {"Designer=d.Dsr", "d.dsr", Root("{C0E45035" + sMaker), "11 N [DataEnvironment] d.dsr"},
      {"Designer=d.dsr", "d.dsr", Root("{00000000" + sMaker), "11 N [] d.dsr"},
      {"Designer=d.dsr", "d.dsr", Root("{c62a69f0-16dc-11ce-9e98-00aa00574a4f} D"),
       "3 N [UserForm] d.dsr"},
      {"Designer=d.dsr", "d.dsr", Root("VB.Form D"), "5 N [VB.Form] d.dsr"},
      {"Form=bin\\main.frm", "Bin/Main.frm", Root("VB.Form M"), "5 N [VB.Form] Main.frm MAIN.FRX"},
      // What can't be read stays in the model.
      {"Form=f.frm", "f.frm", "ORDER SHEET\n", "5 f [VB.Form] f.frm failure 321"},
      {"Form=sub\\f.frm", "x", "", "5 f [VB.Form] f.frm failure 76"},
      {"Class=Gone; f.cls", "x", "", "2 Gone [] f.cls failure 53"},
      {"Class=Gone; sub", "sub/x", "", "2 Gone [] sub failure 75"},
      {"Module=D; /dev/zero", "x", "", "1 D [] zero failure 75"},
      {"Module=U; u.bas", "u.bas", "\xFF\xFE\x41"s, "1 U [] u.bas failure 321"},
      {"Module=U; u.bas", "u.bas", "\xFE\xFF\x41"s, "1 U [] u.bas failure 321"},
      {"Module=B; b.bas", "b.bas", std::string(511, ' ') + '\0', "1 B [] b.bas failure 321"},
      {"Module=B; b.bas", "b.bas", std::string(512, ' ') + '\0', "1 B [] b.bas"},
      {"Module=B; b.bas", "b.bas", "\xEF\xBB\xBF"s + Code, "1 Helpers [] b.bas"},
      // Entries without code.
      {"RelatedDoc=Read.Me.txt", "x", "", "10 Read.Me.txt [] Read.Me.txt no code"},
      {"ResFile32=\"r.res\"", "x", "", "4 r.res [] r.res no code"},
  };
  for (const auto& [sEntry, sFile, sBytes, sExpected] : aasRow) {
    SCOPED_TRACE(sExpected);
    ProjectTree oTree;
    oTree.Write("Bin/MAIN.FRX", "");
    oTree.Write(sFile, sBytes);
    auto pIDE = DiskIDE::Open(oTree.Write("P.vbp", "Type=Exe\n" + sEntry), {});
    EXPECT_EQ(Shown(pIDE->Root().VBProjects().Item(1).VBComponents().Item(1)), sExpected);
  }
}

TEST(DiskIDE, InstancingComesFromTheClassAttributes) {
  // The project's type; Exposed, Creatable, GlobalNameSpace, MultiUse; what they come to.
  for (const auto& as : Rows(R"(
           OleDll  | False | True  | True  | -1  'True | 1
           OleDll  | True  | False | False | -1        | 2
           OleExe  | True  | True  | False | 0  'False | 3
           OleExe  | True  | True  | True  | 0         | 4
           OleDll  | True  | True  | False | -1  'True | 5
           Control | True  | True  | True  | -1        | 6
           Exe     | True  | True  | False | -1  'True | 1)")) {
    SCOPED_TRACE(as[0] + as[5]);
    ProjectTree oTree;
    oTree.Write("c.cls", "VERSION 1.0 CLASS\nBEGIN\n  MultiUse = " + as[4] +
                             "\nEND\nAttribute VB_GlobalNameSpace = " + as[3] +
                             "\nAttribute VB_Creatable = " + as[2] +
                             "\nAttribute VB_Exposed = " + as[1] + "\n");
    auto pIDE = DiskIDE::Open(oTree.Write("P.vbp", "Type=" + as[0] + "\nClass=C; c.cls\n"), {});
    VBComponent& oClass = pIDE->Root().VBProjects().Item(1).VBComponents().Item(1);
    EXPECT_EQ(oClass.Property(u"Instancing"), std::stoi(as[5]));
    EXPECT_EQ(FailureNumber([&] { oClass.Property(u"Caption"); }), 380);
  }
}

// Projects by name with their count of components, then the notes as file:line.
std::string Group(const DiskIDE& oIDE, VBE& oRoot) {
  std::string sShown;
  for (std::int32_t i = 1; i <= oRoot.VBProjects().Count(); ++i) {
    VBProject& oProject = oRoot.VBProjects().Item(i);
    sShown += ToUtf8(oProject.Name()) + ':' + std::to_string(oProject.VBComponents().Count()) + ' ';
  }
  for (const auto& oNote : oIDE.Notes())
    sShown += std::filesystem::path(PathOfText(oNote.sFile)).filename().string() + '!' +
              std::to_string(oNote.lLine) + ' ';
  return sShown;
}

class OpenTest : public testing::Test {
 protected:
  OpenTest() {
    moTree.Write(
        "A/a.vbp",
        "Type=Exe\nName=\"A\"\nModule=M; m.bas\nForm=m.frm\nRelatedDoc=m.frm\nForm=.\\M.FRM\n");
    moTree.Write("A/m.frm", Root("VB.Form M"));
    moTree.Write("B/b.vbp", "Type=OleDll\nName=\"B\"\n");
    moTree.Write("B/B2.vbp", "Type=OleDll\nName=\"B2\"\n");
    moTree.Write("G/g.vbg", "VBGROUP 5.0\nProject=..\\b\\B.VBP\nStartupProject=..\\A\\a.vbp\n");
    moTree.Write("G/odd.vbg",
                 "Project=odd.vbg\nProject=g.vbg\nProject=gone.vbp\nProject=..\\A\\a.vbp\n"
                 "Project=..\\A\\A.vbp\nProject=junk.vbp\nProject=\n");
    moTree.Write("G/junk.vbp", "junk");
    moTree.Write("G/x.txt", "Type=Exe\n");
    moTree.Write("S/self.vbg", "VBGROUP 5.0\nProject=self.vbg\n");
    std::filesystem::create_directories(moTree.Path("E"));
    std::filesystem::create_directory_symlink("A", moTree.Path("Link"));
  }
  ProjectTree moTree;
};

TEST_F(OpenTest, TakesGroupsProjectsAndFolders) {
  for (const auto& as : Rows(R"(
      B:0 A:3 a.vbp!6                      | G/g.vbg
      A:3 a.vbp!6                          | A/a.vbp
      B:0 B2:0                             | B
      B:0 B2:0                             | B/
      B:0 B2:0 A:3 g.vbg!2 a.vbp!6         | B | G/g.vbg | Link/a.vbp | A
      A:3 odd.vbg!7 odd.vbg!1 odd.vbg!2 odd.vbg!3 odd.vbg!5 odd.vbg!6 a.vbp!6           | G/odd.vbg
      B:0 A:3 odd.vbg!7 odd.vbg!1 odd.vbg!2 odd.vbg!3 odd.vbg!4 odd.vbg!5 odd.vbg!6 a.vbp!6 | G)")) {
    SCOPED_TRACE(as[0]);
    std::vector<std::string> asPath;
    for (std::size_t i = 1; i < as.size(); ++i) asPath.push_back(moTree.Path(as[i]));
    auto pIDE = DiskIDE::Open(asPath, {});
    EXPECT_EQ(Group(*pIDE, pIDE->Root()), as[0] + ' ');
  }
}

TEST_F(OpenTest, RefusesWhatHoldsNoProject) {
  const std::map<const char*, std::int32_t> oNumbers = {
      {"G/gone.vbp", 53},  {"Gone/g.vbg", 76}, {"G/x.txt", 321},   {"E", 321},
      {"G/junk.vbp", 321}, {"E/gone", 53},     {"S/self.vbg", 321}};
  for (const auto& [sPath, lNumber] : oNumbers) {
    auto Open = [&, sFile = moTree.Path(sPath)] { DiskIDE::Open(sFile, {}); };
    EXPECT_EQ(FailureNumber(Open, sPath), lNumber) << sPath;
  }
}

TEST(DiskIDE, OneFileInTwoProjectsIsOneDocument) {
  ProjectTree oTree;
  oTree.Write("Common/Helpers.bas", Code);
  std::filesystem::create_symlink("Common/Helpers.bas", oTree.Path("linked.bas"));
  oTree.Write("a.vbp", "Type=Exe\nModule=H; common\\HELPERS.bas\n");
  oTree.Write("b.vbp", "Type=Exe\nModule=H; linked.bas\n");
  auto pIDE = DiskIDE::Open(oTree.Root(), {});
  VBProjects& oProjects = pIDE->Root().VBProjects();
  CodeModule& oFirst = *oProjects.Item(1).VBComponents().Item(1).CodeModule();
  CodeModule& oSecond = *oProjects.Item(2).VBComponents().Item(1).CodeModule();
  Member& oMember = oSecond.Members().Item(1);
  EXPECT_EQ(pIDE->Root().ActiveCodePane(), nullptr);
  pIDE->ShowCode(&oSecond.Parent());
  EXPECT_EQ(&pIDE->Root().ActiveCodePane()->CodeModule(), &oSecond);
  EXPECT_TRUE(pIDE->Save().asSaved.empty());
  oFirst.InsertLines(1, u"' one");
  EXPECT_EQ(oSecond.Lines(1, 2), u"' one\r\nSub A()");
  EXPECT_EQ(oMember.CodeLocation(), 2);
  oSecond.DeleteLines(1, 1);
  EXPECT_TRUE(pIDE->Changes().empty());
  oSecond.InsertLines(2, u"' two");
  std::string sPath = oTree.Path("Common/Helpers.bas");
  EXPECT_EQ(pIDE->ChangedPaths(), std::vector{sPath});
  EXPECT_EQ(pIDE->ChangeOf(sPath).sOldBytes, Code);
  EXPECT_EQ(pIDE->Save().asSaved, std::vector{sPath});
  EXPECT_EQ(oTree.Read("linked.bas"),
            "Attribute VB_Name = \"Helpers\"\r\nSub A()\r\n' two\r\nEnd Sub\r\n");
  EXPECT_TRUE(pIDE->Changes().empty());
}

TEST(DiskIDE, ASharedFileIsReadWithTheConstantsOfTheProjectInScope) {
  ProjectTree tree;
  tree.Write("M.bas",
             "Attribute VB_Name = \"M\"\r\n' Trial\r\n#Const K = 1\r\n#If Trial And K Then\r\n"
             "Sub A()\r\nEnd Sub\r\n#Else\r\nSub B()\r\nEnd Sub\r\n#End If\r\n");
  tree.Write("One.vbp", "Type=Exe\r\nModule=M; M.bas\r\nName=\"One\"\r\n");
  tree.Write("Two.vbp",
             "Type=Exe\r\nModule=M; M.bas\r\nName=\"Two\"\r\n"
             "CondComp=\"VBA6 = -1 : TRIAL = -1\"\r\n");
  const auto both = [](TextView) { return true; };
  const struct {
    const char* name;
    std::function<bool(TextView)> isInScope;
    std::vector<CondConstant> constants;
    TextView shown;
    const char* conflict;
  } rows[] = {
      {"the first of all", {}, {}, u"B", "M.bas:4 trial One 0 Two -1"},
      {"the first in scope", both, {}, u"B", "M.bas:4 trial One 0 Two -1"},
      {"the second alone", [](TextView name) { return name == u"Two"; }, {}, u"A", ""},
      {"none in scope", [](TextView) { return false; }, {}, u"B", ""},
      {"defined", both, {{u"trial", 7}}, u"A", ""},
      {"defined otherwise", both, {{u"trial", -1}, {u"trial", 0}}, u"B", ""},
      {"another defined", both, {{u"k", 1}}, u"B", "M.bas:4 trial One 0 Two -1"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const auto ide = DiskIDE::Open({tree.Path("One.vbp"), tree.Path("Two.vbp")},
                                   {.constants = row.constants, .isInScope = row.isInScope});
    ::CodeModule& module = *ide->Root().VBProjects().Item(1).VBComponents().Item(1).CodeModule();
    EXPECT_EQ(module.Members().Item(1).Name(), row.shown);
    EXPECT_EQ(ide->HiddenProcedures(module), 1);
    std::string told;
    for (const ConstantConflict& c : ide->ConstantConflicts()) {
      told += std::filesystem::path(ToUtf8(c.file)).filename().string() + ":" +
              std::to_string(c.line) + " " + ToUtf8(c.constant + u" " + c.project) + " " +
              std::to_string(c.value) + " " + ToUtf8(c.otherProject) + " " +
              std::to_string(c.otherValue);
    }
    EXPECT_EQ(told, row.conflict);
  }
}

TEST(DiskIDE, ReadsAgainWhatAnotherProgramChanged) {
  std::map<std::string, std::string> oOnDisk = {
      {"as it was", Code}, {"B", "Sub B()\r\nEnd Sub\r\n"}, {"edited", Code + "' mine\r\n"s}};
  // What is on the disk then, and whether the code is edited; what is read again, what is shown.
  for (const auto& as : Rows(R"vb(
           nothing happened        | as it was |        |          | Sub A()
           changed on disk         | B         |        | read     | Sub B()
           changed in memory       | as it was | edited |          | Sub A()
           changed in both         | B         | edited | conflict | Sub A()
           the same change in both | edited    | edited | read     | Sub A()
           removed                 | gone      |        |          | Sub A()
           removed under a change  | gone      | edited | conflict | Sub A())vb")) {
    SCOPED_TRACE(as[0]);
    ProjectTree oTree;
    const std::string sPath = oTree.Write("h.bas", Code);
    oTree.Write("p.vbp", "Type=Exe\nModule=H; h.bas\nModule=L; late.bas\n");
    auto pIDE = DiskIDE::Open(oTree.Root(), {});
    VBComponents& oComponents = pIDE->Root().VBProjects().Item(1).VBComponents();
    EXPECT_EQ(FailureNumber([&] { oComponents.Item(2).CodeModule(); }), 53);
    pIDE->ShowCode(&oComponents.Item(1));
    CodeModule& oModule = *oComponents.Item(1).CodeModule();
    if (as[2] == "edited") oModule.InsertLines(oModule.CountOfLines() + 1, u"' mine");
    std::filesystem::remove(sPath);
    if (as[1] != "gone") oTree.Write("h.bas", oOnDisk[as[1]]);
    oTree.Write("late.bas", Code);
    const DiskIDE::Refreshed oRefreshed = pIDE->Refresh();
    std::string sRefreshed;
    for (const auto& s : oRefreshed.asReread) sRefreshed += s == sPath ? "read" : "";
    for (const auto& s : oRefreshed.asConflict) sRefreshed += s == sPath ? "conflict" : "";
    EXPECT_EQ(sRefreshed, as[3]);
    EXPECT_EQ(ToUtf8(pIDE->Root().ActiveCodePane()->CodeModule().Lines(1, 1)), as[4]);
    EXPECT_EQ(ToUtf8(oComponents.Item(2).CodeModule()->Lines(1, 1)), "Sub A()");
    EXPECT_EQ(pIDE->Refresh().asReread.size(), 0u);
    EXPECT_EQ(pIDE->Save().oFailed.size(), oRefreshed.asConflict.size());
  }
}

TEST(DiskIDE, TellsOfProjectFilesThatAnotherProgramChanged) {
  ProjectTree oTree;
  const std::string sProject = oTree.Write("p.vbp", "Type=Exe\nModule=H; h.bas\n");
  const std::string sGroup = oTree.Write("g.vbg", "VBGROUP 5.0\nStartupProject=p.vbp\n");
  oTree.Write("h.bas", Code);
  auto pIDE = DiskIDE::Open(sGroup, {});
  using Paths = std::vector<std::string>;
  EXPECT_EQ(pIDE->Refresh().asProject, Paths());
  oTree.Write("p.vbp", "Type=Exe\nModule=H; h.bas\n");  // the same bytes at another time
  EXPECT_EQ(pIDE->Refresh().asProject, Paths());
  oTree.Write("p.vbp", "Type=Exe\nModule=H; h.bas\nModule=L; l.bas\n");
  EXPECT_EQ(pIDE->Refresh().asProject, Paths{sProject});
  EXPECT_EQ(pIDE->Refresh().asProject, Paths());
  std::filesystem::remove(sGroup);
  EXPECT_EQ(pIDE->Refresh().asProject, Paths{sGroup});
  EXPECT_EQ(pIDE->Refresh().asProject, Paths());
}

TEST(DiskIDE, ReadsNamesInTheCodePageOfTheProject) {
  ProjectTree oTree;
  oTree.Write("\xE8\xA1\xA8.bas", Code);
  oTree.Write("P.vbp", "Type=Exe\nModule=H; \x95\x5C.bas\n");  // the second byte is a backslash
  DiskIDE::Options oOptions;
  oOptions.sCodePage = "932";
  auto pIDE = DiskIDE::Open(oTree.Path("P.vbp"), oOptions);
  EXPECT_EQ(Shown(pIDE->Root().VBProjects().Item(1).VBComponents().Item(1)),
            "1 Helpers [] \xE8\xA1\xA8.bas");
}

}  // namespace
