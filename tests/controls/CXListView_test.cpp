// Columns whose widths are kept, and rows from plain arguments.
#include "CXListView.h"

#include "Form.h"
#include "FormsFixture.h"
#include "MXRegistry.h"
#include "OwnSettings.h"
#include "TableRows.h"

namespace {

using namespace Forms;
using namespace MXRegistry;

struct CXListViewTest : FormsTest {
  CXListViewTest() {
    moForm.Show();
    lvw.SetWidth(3000);
    lvw.ListItems().Add(u"old");
    moList.SetListView(lvw);
    moList.SethRegNode(mhKey);
  }
  ColumnHeader& Column(std::int32_t index) { return lvw.ColumnHeaders().Item(index); }

  OwnSettings settings;
  std::int32_t mhKey = OpenRegKey(HKEY_CURRENT_USER, u"Lists", KEY_ALL_ACCESS);
  Form moForm{moToolkit, u"FList"};
  ListView lvw{moForm, u"lvw"};
  CXListView moList;
};

TEST_F(CXListViewTest, WidthsComeFromTheStoreTheCallerOrTheList) {
  // The layout, the kept width and the caller's; the width that comes of it, and the tag.
  for (const auto& as : Rows(R"(
         kept                     | Any | 700 | 1500 | 700  |
         kept, but without layout |     | 700 | 1500 | 1500 | 1500
         the list's own           |     | 700 | -1   | 1440 | 1440
         kept -1                  | Any | -1  | 1500 | 1500 |
         kept rubbish             | Any | -77 | -1   | 1440 |)")) {
    SCOPED_TRACE(as[0]);
    SetRegLong(mhKey, u"ColWidth1", std::stoi(as[2]));
    moList.SetListView(lvw);
    moList.SetLayout(FromUtf8(as[1]));
    moList.AddHeading(u"Name", std::stoi(as[3]));
    EXPECT_EQ(std::to_string(Column(1).Width()), as[4]);
    EXPECT_EQ(ToUtf8(Column(1).Tag()), as[5]);
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
