#include "PathFinder.h"

#include "MXString.h"
#include "PathText.h"
#include "ProjectTree.h"
#include "TableRows.h"

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
  const Text sRoot = TextOfPath(moTree.Root());
  // What is found stands below the root of the tree, which entries call ROOT; with "?" behind it:
  // it isn't there.
  for (const auto& as : Rows(R"(
           same folder                        | Main.vbp                                        | Orders/Main.vbp
           exact case first                   | A.bas                                           | Orders/A.bas
           the other exact case               | a.bas                                           | Orders/a.bas
           case of every part                 | SUB FOLDER\module.bas                           | Orders/Sub Folder/Module.BAS
           slashes of both kinds, repeated    | .\Sub Folder//Module.bas                        | Orders/Sub Folder/Module.BAS
           parent                             | ..\common\HELPERS.BAS                           | Common/helpers.bas
           parent of a part that isn't there  | Gone\..\a.bas                                   | Orders/a.bas
           letters beyond ASCII               | CAFÉ.CLS                                        | Orders/Café.cls
           missing file                       | sub folder\Gone.bas                             | Orders/Sub Folder/Gone.bas?
           missing folder                     | ..\Gone\x.bas                                   | Gone/x.bas?
           a file where a folder should be    | a.bas\b.bas                                     | Orders/a.bas/b.bas?
           short name                         | ..\Common\EXTRAO~1.FRM                          | Common/Extraordinary.frm
           short name that fits two           | ..\Common\LONGN~1.BAS                           | Common/LONGN~1.BAS?
           parents of parts that aren't there | Gone\Lost\..\x\..\..\a.bas                      | Orders/a.bas
           parents beyond the root            | ..\..\..\..\..\..\..\..\..\..ROOT\Orders\a.bas  | Orders/a.bas
           root of this machine               | ROOT/Orders/a.bas                               | Orders/a.bas
           drive at the root                  | C:ROOT\Orders\main.vbp                          | Orders/Main.vbp
           drive of another machine           | d:\Work\ORDERS\Sub Folder\Module.bas            | Orders/Sub Folder/Module.BAS
           drive, parent of the folder's name | d:\Gone\..\ORDERS\..\Common\Gone\..\helpers.bas | Common/helpers.bas
           network path                       | \\server\d$\orders\Main.vbp                     | Orders/Main.vbp)")) {
    SCOPED_TRACE(as[0]);
    const Text sEntry = MXString::StringReplace(FromUtf8(as[1]), u"ROOT", sRoot);
    std::string sExpected = moTree.Path(as[2]);
    bool bMissing = sExpected.ends_with('?');
    if (bMissing) sExpected.pop_back();
    PathFinder::Found oFound = moFinder.Find(moTree.Path("Orders"), sEntry);
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
