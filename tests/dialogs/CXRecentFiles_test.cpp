// The recent files on a menu.
#include "CXRecentFiles.h"

#include <filesystem>

#include "DialogTest.h"
#include "TempFolder.h"

namespace {

using namespace Forms;

struct FMenus : Form {
  using Form::Form;
  void Design() override { mnuRecent(0).SetCaption(u"<recent>"); }
  Menu mnuFile{*this, u"mnuFile"};
  ControlArray<Menu> mnuRecent{mnuFile, u"mnuRecent"};
  Menu mnuExit{mnuFile, u"mnuExit"};
};

class CXRecentFilesTest : public DialogTest {
 protected:
  CXRecentFilesTest() {
    moForm.Load();
    moRecent.Initialize(moForm.mnuRecent, mhKey);
  }
  Text Make(const std::string& sName) {
    TempFolder::Write(moFolder / sName, "x");
    return FromUtf8(moFolder / sName);
  }
  void Add(const std::string& sNames) {
    for (const char c : sNames) moRecent.Add(Make(std::string(1, c)));
  }
  /// The captions that show behind the first item, with DIR for the test's folder.
  std::string Shown() const {
    std::string sAll;
    for (const Menu* po : moForm.mnuFile.Items())
      if (po->Visible() && po->Index() >= 1) sAll += "[" + ToUtf8(po->Caption()) + "]";
    for (std::size_t i; (i = sAll.find(moFolder.Path())) != std::string::npos;)
      sAll.replace(i, moFolder.Path().size(), "DIR");
    return sAll;
  }

  TempFolder moFolder;
  std::int32_t mhKey =
      MXRegistry::OpenRegKey(MXRegistry::HKEY_CURRENT_USER, u"Recent", MXRegistry::KEY_ALL_ACCESS);
  FMenus moForm{moToolkit, u"FMenus"};
  CXRecentFiles moRecent;
};

TEST_F(CXRecentFilesTest, NewestFirstWithASeparatorBelow) {
  EXPECT_EQ(Shown(), "");
  EXPECT_EQ(moRecent.Add(Make("a")), 1);
  moRecent.SetProperty(1, u"Proc", u"Alpha");
  Add("ba");
  EXPECT_EQ(Shown(), "[&1 DIR/a][&2 DIR/b][-]");
  EXPECT_EQ(moRecent.Property(1, u"Proc"), u"Alpha");
  EXPECT_EQ(moForm.mnuRecent(2).Tag(), Make("b"));
  EXPECT_EQ(moForm.mnuRecent(0).Caption(), u"<recent>");
  RecentFiles().SetMaxCount(12);
  Add("cdefghijkl");
  EXPECT_EQ(moRecent.Count(), 12);
  EXPECT_TRUE(Shown().ends_with("[&8 DIR/e][&9 DIR/d][-]")) << Shown();
}

TEST_F(CXRecentFilesTest, FilesThatAreGoneVanishFromMenuAndStore) {
  Add("abc");
  for (const char* s : {"b", "c"}) std::filesystem::remove(moFolder / s);
  std::filesystem::create_directory(moFolder / "c");  // no file any more
  moRecent.Initialize(moForm.mnuRecent, mhKey);
  EXPECT_EQ(Shown(), "[&1 DIR/a][-]");
  EXPECT_FALSE(MXRegistry::RegValueExists(mhKey, u"2"));
  std::filesystem::remove(moFolder / "a");
  moForm.Unload();  // takes the items away
  moRecent.Initialize(moForm.mnuRecent, mhKey);
  EXPECT_EQ(Shown(), "");
}

TEST_F(CXRecentFilesTest, LongPathsLoseFoldersAndAmpersandsMarkNothing) {
  // 30 characters fit.
  std::filesystem::create_directory(moFolder / "folder");
  for (const char* s : {"folder/Template.dat", "R&D.dat"}) moRecent.Add(Make(s));
  const std::string sLong(40, 'n');
  moRecent.Add(Make(sLong));
  EXPECT_EQ(Shown(), "[&1 " + sLong + "][&2 DIR/R&&D.dat][&3 /.../folder/Template.dat][-]");
  EXPECT_EQ(moForm.mnuRecent(1).Tag(), Make(sLong));
}

}  // namespace
