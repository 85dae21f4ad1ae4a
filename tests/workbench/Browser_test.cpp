// The tree in both views, the lists that follow it, and modules that can't be read.
#include "FMainTest.h"

namespace {

using namespace Forms;

TEST_F(FMainTest, TreeShowsProjectsAndComponentsInBothViews) {
  oIDE.AddProject(u"Shop", 2);
  Add(u"mZoo", u"");
  Add(u"FTwo", u"", ComponentVBForm);
  Add(u"MArk", u"");
  oIDE.AddProject(u"Till", 0);
  Add(u"MArk", u"");
  Run([&] {
    EXPECT_EQ(Tree(),
              "*Shop[ActiveX DLL](Forms[Closed Folder](FTwo[Form Module]) Modules[Closed "
              "Folder](MArk[Standard Module] mZoo[Standard Module])) "
              "Till[Standard EXE](Modules[Closed Folder](MArk[Standard Module]))");
    Click(u"Modules");
    EXPECT_TRUE(oMain.oMenu.mnuViewProjectList.UserPick());
    EXPECT_EQ(Tree(),
              "*Shop[ActiveX DLL](FTwo[Form Module] MArk[Standard Module] mZoo[Standard Module]) "
              "Till[Standard EXE](MArk[Standard Module])")
        << "the folder's project";
    Click(u"mZoo");
    EXPECT_TRUE(oMain.oMenu.mnuViewProjectTree.UserPick());
    EXPECT_NE(Tree().find(" *mZoo["), std::string::npos) << Tree();
  });
}

}  // namespace
