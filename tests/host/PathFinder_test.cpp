#include "PathFinder.h"

#include "PathText.h"
#include "ProjectTree.h"

namespace {

class PathFinderTest : public testing::Test {
 protected:
  PathFinderTest() {
    for (const char* sName :
         {"Orders/Main.vbp", "Orders/Sub Folder/Module.BAS", "Orders/a.bas", "Orders/A.bas",
          "Common/helpers.bas", "Common/Long Name.bas", "Common/Long Number.bas",
          "Common/Extraordinary.frm", "Orders/Caf\xC3\xA9.cls"})
      moTree.Write(sName, "x");
    std::filesystem::create_symlink("../Common/helpers.bas", moTree.Path("Orders/link.bas"));
    std::filesystem::create_directory_symlink("Common", moTree.Path("Shared"));
  }
  ProjectTree moTree;
  PathFinder moFinder{SystemFileOps()};
};

TEST_F(PathFinderTest, FindsWhatWindowsWouldFind) {
  struct Row {
    const char* sName;
    Text sEntry;
    const char* sFound;  // below the root of the tree; with "?" behind it: it isn't there
  };
  Text sRoot = TextOfPath(moTree.Root());
  const Row Rows[] = {
      {"same folder", u"Main.vbp", "Orders/Main.vbp"},
      {"exact case first", u"A.bas", "Orders/A.bas"},
      {"the other exact case", u"a.bas", "Orders/a.bas"},
      {"case of every part", u"SUB FOLDER\\module.bas", "Orders/Sub Folder/Module.BAS"},
      {"slashes of both kinds, repeated", u".\\Sub Folder//Module.bas",
       "Orders/Sub Folder/Module.BAS"},
      {"parent", u"..\\common\\HELPERS.BAS", "Common/helpers.bas"},
      {"parent of a part that isn't there", u"Gone\\..\\a.bas", "Orders/a.bas"},
      {"letters beyond ASCII", u"CAF\u00C9.CLS", "Orders/Caf\xC3\xA9.cls"},
      {"missing file", u"sub folder\\Gone.bas", "Orders/Sub Folder/Gone.bas?"},
      {"missing folder", u"..\\Gone\\x.bas", "Gone/x.bas?"},
      {"a file where a folder should be", u"a.bas\\b.bas", "Orders/a.bas/b.bas?"},
      {"short name", u"..\\Common\\EXTRAO~1.FRM", "Common/Extraordinary.frm"},
      {"short name that fits two", u"..\\Common\\LONGN~1.BAS", "Common/LONGN~1.BAS?"},
      {"root of this machine", sRoot + u"/Orders/a.bas", "Orders/a.bas"},
      {"drive at the root", u"C:" + sRoot + u"\\Orders\\main.vbp", "Orders/Main.vbp"},
      {"drive of another machine", u"d:\\Work\\ORDERS\\Sub Folder\\Module.bas",
       "Orders/Sub Folder/Module.BAS"},
      {"network path", u"\\\\server\\d$\\orders\\Main.vbp", "Orders/Main.vbp"},
  };
  for (const Row& oRow : Rows) {
    SCOPED_TRACE(oRow.sName);
    std::string sExpected = moTree.Path(oRow.sFound);
    bool bMissing = sExpected.ends_with('?');
    if (bMissing) sExpected.pop_back();
    PathFinder::Found oFound = moFinder.Find(moTree.Path("Orders"), oRow.sEntry);
    EXPECT_EQ(oFound.sPath, sExpected);
    EXPECT_EQ(oFound.bExists, !bMissing);
  }
  for (TextView sEntry : {u"e:\\Elsewhere\\x.bas", u"\\\\server\\share\\x.bas", u"C:", u"\\\\"})
    EXPECT_FALSE(moFinder.Find(moTree.Path("Orders"), sEntry).bExists) << ToUtf8(sEntry);
}

TEST_F(PathFinderTest, OneFileHasOneIdentity) {
  std::string sReal = moTree.Path("Common/helpers.bas");
  for (const char* sName : {"Common/helpers.bas", "Orders/link.bas", "Shared/helpers.bas"})
    EXPECT_EQ(moFinder.Identity(moTree.Path(sName)), sReal) << sName;
  EXPECT_EQ(moFinder.Identity(moTree.Path("Gone/x.bas")), moTree.Path("Gone/x.bas"));
}

}  // namespace
