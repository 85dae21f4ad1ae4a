// Columns whose widths are kept, and rows from plain arguments.
#include "CXListView.h"

#include "Form.h"
#include "FormsFixture.h"
#include "MXRegistry.h"
#include "RegistryStore.h"

namespace {

using namespace Forms;
using namespace MXRegistry;

class CXListViewTest : public FormsTest {
 protected:
  CXListViewTest() {
    goRegistry = &moStore;
    mhKey = OpenRegKey(HKEY_CURRENT_USER, u"Lists", KEY_ALL_ACCESS);
    moForm.Show();
    lvw.SetWidth(3000);
    lvw.ListItems().Add(u"old");
    moList.SetListView(lvw);
    moList.SethRegNode(mhKey);
  }
  ~CXListViewTest() override { goRegistry = nullptr; }
  ColumnHeader& Column(std::int32_t lIndex) { return lvw.ColumnHeaders().Item(lIndex); }

  RegistryStore moStore;
  std::int32_t mhKey = 0;
  Form moForm{moToolkit, u"FList"};
  ListView lvw{moForm, u"lvw"};
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
      {"kept, but without layout", u"", 700, 1500, 1500, u"1500"},
      {"the list's own", u"", 700, -1, 1440, u"1440"},
      {"kept -1", u"Any", -1, 1500, 1500, u""},
      {"kept rubbish", u"Any", -77, -1, 1440, u""},
  };
  for (const auto& o : aoRow) {
    SCOPED_TRACE(o.sName);
    SetRegLong(mhKey, u"ColWidth1", o.lKept);
    moList.SetListView(lvw);
    moList.SetLayout(o.sLayout);
    moList.AddHeading(u"Name", o.lDefault);
    EXPECT_EQ(Column(1).Width(), o.lWidth);
    EXPECT_EQ(Column(1).Tag(), o.sTag);
  }
}

TEST_F(CXListViewTest, WidthsThatTheUserMadeReturn) {
  moList.ResizeColumns();  // no columns
  for (std::int32_t i = 0; i < 4; ++i) moList.AddHeading(u"x", 100);
  moList.ResizeColumns();
  EXPECT_EQ(Column(4).Width(), 450);
  moList.ClearRows();
  EXPECT_FALSE(RegValueExists(mhKey, u"ColWidth4"));  // no layout yet
  moList.SetLayout(u"List");
  lvw.UserColumnWidth(4, 444);
  moList.ClearRows();
  lvw.SetWidth(1000);
  moList.ResizeColumns();
  moList.SetWidths({0, 11, 22});
  EXPECT_EQ(Column(2).Width() + Column(4).Width(), 22);
  moList.SetLayout(u"List");
  EXPECT_EQ(Column(4).Width(), 444);
}

TEST_F(CXListViewTest, RowsFromTexts) {
  ListItems& oRows = lvw.ListItems();
  moList.NewRow();
  moList.AddRowItems({u"a"});
  moList.AddRowItems({u"b", u"c"});
  moList.NewRow();
  moList.AddRowItems({u"d"});
  EXPECT_EQ(moList.AddRow({u"e", u"f"}).SubItems(1), u"f");
  EXPECT_EQ(moList.AddRow({}).Index(), 4);
  EXPECT_EQ(oRows.Item(1).Text() + oRows.Item(1).SubItems(2) + oRows.Item(2).Text(), u"acd");
  moList.ClearRows();
  EXPECT_EQ(FailureOf([&] { moList.AddRowItems({u"x"}); }), 91);
}

}  // namespace
