// Columns whose widths are kept, and rows from plain arguments.
#include "CXListView.h"

#include "Form.h"
#include "FormsFixture.h"
#include "MXRegistry.h"
#include "RegistryStore.h"

namespace {

using namespace Forms;

class FList : public Form {
 public:
  explicit FList(Toolkit& oToolkit) : Form(oToolkit, u"FList") {}
  ImageList imlIcons{*this, u"imlIcons"};
  ListView lvw{*this, u"lvw"};

 private:
  void Design() override {
    imlIcons.Add(u"Module");
    lvw.SetSmallIcons(&imlIcons);
    lvw.Move(0, 0, 3000, 3000);
  }
};

class CXListViewTest : public FormsTest {
 protected:
  CXListViewTest() {
    goRegistry = &moStore;
    mhKey =
        MXRegistry::OpenRegKey(MXRegistry::HKEY_CURRENT_USER, u"Lists", MXRegistry::KEY_ALL_ACCESS);
    moForm.lvw.ListItems().Add(u"old");
    moList.SetListView(moForm.lvw);
    moList.SethRegNode(mhKey);
  }
  ~CXListViewTest() override { goRegistry = nullptr; }
  ColumnHeader& Column(std::int32_t lIndex) { return moForm.lvw.ColumnHeaders().Item(lIndex); }
  std::int32_t Kept(TextView sName) { return MXRegistry::GetRegLong(mhKey, sName, -9); }

  RegistryStore moStore;
  std::int32_t mhKey = 0;
  FList moForm{moToolkit};
  CXListView moList;
};

TEST_F(CXListViewTest, WidthsComeFromTheStoreTheCallerOrTheList) {
  const struct {
    const char* sName;
    TextView sLayout;
    std::int32_t lKept, lDefault, lWidth;
    TextView sTag;
  } aoRow[] = {
      {"kept", u"Any", 700, 1500, 700, u""},
      {"nothing kept", u"Any", -9, 1500, 1500, u""},
      {"kept, but without layout", u"", 700, 1500, 1500, u"1500"},
      {"the list's own", u"", -9, -1, 1440, u"1440"},
      {"the list's own with layout", u"Any", -9, -1, 1440, u""},
      {"kept -1", u"Any", -1, 1500, 1500, u""},
      {"kept rubbish", u"Any", -77, -1, 1440, u""},
  };
  for (const auto& o : aoRow) {
    SCOPED_TRACE(o.sName);
    MXRegistry::DeleteRegValue(mhKey, u"ColWidth1");
    if (o.lKept != -9) MXRegistry::SetRegLong(mhKey, u"ColWidth1", o.lKept);
    moList.SetListView(moForm.lvw);
    moList.SetLayout(o.sLayout);
    moList.AddHeading(u"Name", o.lDefault);
    EXPECT_EQ(Column(1).Width(), o.lWidth);
    EXPECT_EQ(Column(1).Tag(), o.sTag);
  }
}

TEST_F(CXListViewTest, WidthsThatTheUserMadeReturn) {
  moList.AddHeading(u"Name", 1000);
  moList.AddHeading(u"Type", 500);
  moForm.Show();
  moForm.lvw.UserColumnWidth(2, 333);
  moList.ClearRows();
  EXPECT_EQ(Kept(u"ColWidth2"), -9);  // no layout yet
  moList.SetLayout(u"List");
  moForm.lvw.UserColumnWidth(2, 444);
  moList.ClearRows();
  EXPECT_EQ(Kept(u"ColWidth2"), 444);
  EXPECT_EQ(Kept(u"ColWidth1"), 1000);
  Column(2).SetWidth(50);
  moList.SetLayout(u"List");
  EXPECT_EQ(Column(2).Width(), 444);
}

TEST_F(CXListViewTest, SharesAndGivenWidths) {
  moList.ResizeColumns();  // no columns
  for (std::int32_t i = 0; i < 4; ++i) moList.AddHeading(u"x", 100);
  moList.ResizeColumns();
  EXPECT_EQ(Column(4).Width(), 450);
  moForm.lvw.SetWidth(1000);
  moList.ResizeColumns();
  EXPECT_EQ(Column(4).Width(), 0);
  moList.SetWidths({0, 11, 22});
  EXPECT_EQ(Column(2).Width(), 22);
  EXPECT_EQ(Column(3).Width(), 0);
}

TEST_F(CXListViewTest, RowsFromTexts) {
  ListItems& oRows = moForm.lvw.ListItems();
  EXPECT_EQ(oRows.Count(), 0);
  EXPECT_EQ(FailureOf([&] { moList.AddRowItems({u"x"}); }), 91);
  moList.NewRow();
  moList.AddRowItems({u"a"});
  moList.AddRowItems({u"b", u"c"});
  EXPECT_EQ(oRows.Item(1).Text(), u"a");
  EXPECT_EQ(oRows.Item(1).SubItems(2), u"c");
  moList.NewRow();
  moList.AddRowItems({u"d"});
  EXPECT_EQ(oRows.Item(2).Text(), u"d");
  moList.AddIconRow(u"Module", {u"e", u"f"});
  EXPECT_EQ(oRows.Item(3).SmallIcon(), u"Module");
  EXPECT_EQ(oRows.Item(3).SubItems(1), u"f");
  EXPECT_EQ(moList.AddRow({}).Index(), 4);
  EXPECT_EQ(FailureOf([&] { moList.AddIconRow(u"None", {u"g"}); }), 35601);
  moList.ClearRows();
  EXPECT_EQ(FailureOf([&] { moList.AddRowItems({u"x"}); }), 91);
  EXPECT_EQ(FailureOf([] { CXListView().NewRow(); }), 91);
}

}  // namespace
