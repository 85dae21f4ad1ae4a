// The property sheet: its layout in twips, what each kind of row offers, and the user's changes.
// Names are 90 twips a character wide here, headings 105.
#include "PropertyList.h"

#include "Form.h"
#include "FormsFixture.h"
#include "Parts.h"
#include "TableRows.h"

namespace {

using namespace Forms;

class PropertyListTest : public FormsTest {
 protected:
  PropertyListTest() {
    for (const TextView s : {u"None", u"VB", u"Firewall"}) moChoices.Add(s, ++mlId, u"");
    oSheet.Move(0, 0, 6000, 3000);
    moForm.Show();
    moLink = oSheet.PropertyChange.Connect([this](TextView sName, TextView sValue) {
      moLog.Note(ToUtf8(sName) + "=" + ToUtf8(sValue));
    });
  }
  void Fill() {
    oSheet.AddHeading(u"Pending", 1);
    oSheet.AddRow(u"Boundary", u"VB", PropertyType::List, true, &moChoices, u"mixed", 11);
    oSheet.AddRow(u"Comment", u"ab", PropertyType::FreeText, true, nullptr, u"", 99);
    oSheet.AddRow(u"File", u"x.bas", PropertyType::FreeText, false, nullptr, u"", 0);
    oSheet.AddRow(u"Retry", u"Line", PropertyType::List, false, &moChoices, u"", 0);
    oSheet.SetTip(11, u"Where errors stop.");
    oSheet.ShowProperties();
  }
  template <class T = Label>
  T& Get(TextView sName, std::int32_t lIndex = -1) {
    return Part<T>(oSheet, sName, lIndex);
  }
  Label& Value(std::int32_t lRow) { return Get(u"lblValue", lRow); }
  TextBox& Box() { return Get<TextBox>(u"txtValue"); }
  CommandButton& Arrow() { return Get<CommandButton>(u"cmdPopup"); }
  ListBox& List() { return Get<ListBox>(u"lstPopup"); }
  std::string Tips() {
    return ToUtf8(Get(u"lblTip", 1).Caption() + u"," + Get(u"lblTip", 2).Caption());
  }
  static void Press(Control& o, std::int32_t nButton = Button::Left) {
    o.UserMouseDown(nButton, 0, 15, 15);
  }

  CXLookup moChoices;
  std::int32_t mlId = 0;
  Form moForm{moToolkit, u"FSheet"};
  TextBox txtOther{moForm, u"txtOther"};
  PropertyList oSheet{moForm, u"prl"};
  EventLog moLog;
  Connection moLink;
};

TEST_F(PropertyListTest, PlacesFollowNamesAndSize) {
  oSheet.ShowProperties();
  EXPECT_EQ(PlaceOf(Get(u"lblTip", 0)), "30 45 5940 2925");
  EXPECT_FALSE(Get<Line>(u"linVert").Visible());
  Fill();
  EXPECT_TRUE(Get(u"lblName", 1).Font().bBold && !Get(u"lblName", 2).Font().bBold);
  EXPECT_TRUE(Get(u"lblNote", 2).Visible() && !Get(u"lblNote", 2).Enabled());
  EXPECT_FALSE(Get(u"lblNote", 3).Visible());  // an empty one would lie over the value
  // A part, its index, its place, and that in a sheet narrower than the names.
  const auto asPart = Rows(R"(
         lblName   | 1  | 30 45 780 240        | 30 45 780 240
         lblValue  | 2  | 840 300 5130 240     | 840 300 300 240
         lblNote   | 2  | 1840 300 1500 240    | 1840 300 1500 240
         linHorz   | 2  | 0 525 6000 525       | 0 525 15 525
         linVert   | -1 | 810 0 810 1290       | 810 0 810 1290
         txtValue  | -1 | 840 -1000 5130 240   | 840 -1000 300 240
         cmdPopup  | -1 | 5715 -1000 255 240   | 885 -1000 255 240
         lblTip    | 0  | 30 1320 5940 1650    | 30 1320 0 0
         lblTip    | 1  | 45 1335 3000 195     | 45 1335 3000 195
         lblTip    | 2  | 45 1575 5910 1395    | 45 1575 0 0
         linBorder | 0  | 0 0 0 2985           | 0 0 0 0
         linBorder | 5  | 15 15 5970 15        |
         linBorder | 6  | 15 2970 5970 2970    |
         linBorder | 7  | 0 2985 5985 2985     | 0 0 0 0)");
  const auto PlaceOfPart = [&](const std::vector<std::string>& as) {
    return PlaceOf(Get<Control>(FromUtf8(as[0]), std::stoi(as[1])));
  };
  for (const auto& as : asPart) EXPECT_EQ(PlaceOfPart(as), as[2]) << as[0];
  oSheet.Move(0, 0, 15, 15);
  for (const auto& as : asPart) EXPECT_TRUE(as[3].empty() || PlaceOfPart(as) == as[3]) << as[0];
  oSheet.ShowProperties();
  EXPECT_EQ(Value(2).Width(), 0);
  EXPECT_EQ(moToolkit.LockedControl(), nullptr);
}

TEST_F(PropertyListTest, EachKindOfRowOffersItsOwn) {
  Fill();
  // Text box and arrow, the place of the box, the tips, the line that is chosen in the list.
  for (std::int16_t nRow = 0; const auto& as : Rows(R"(
         heading       |       | 840 -1000 5130 240 | Pending,                    | -1
         list          | box v | 840 -3000 5130 240 | Boundary,Where errors stop. | 1
         text          | box   | 840 555 5130 240   | Comment,                    | 1
         disabled text |       | 840 810 5130 240   | ,                           | 1
         disabled list | box   | 840 -3000 5130 240 | ,                           | -1)")) {
    SCOPED_TRACE(as[0]);
    oSheet.SetRow(++nRow);
    EXPECT_EQ(std::string(Box().Visible() ? "box" : "") + (Arrow().Visible() ? " v" : ""), as[1]);
    EXPECT_EQ(PlaceOf(Box()), as[2]);
    EXPECT_EQ(Tips(), as[3]);
    EXPECT_EQ(std::to_string(List().ListIndex()), as[4]);
    EXPECT_EQ(oSheet.HasFocus(), nRow > 1);
    EXPECT_EQ(Get(u"lblName", nRow).BackColor(), SystemColor::Highlight);
    EXPECT_NE(Get(u"lblName", nRow == 1 ? 2 : 1).BackColor(), SystemColor::Highlight);
  }
  for (const int nRow : {6, 0, -1}) oSheet.SetRow(static_cast<std::int16_t>(nRow));
  EXPECT_EQ(oSheet.Row(), 5);
  EXPECT_EQ(moLog.Take(), "");
}

TEST_F(PropertyListTest, ArrowKeysGoOverAllRowsAndTheFocusShows) {
  Fill();
  Press(Get(u"lblName", 2));
  moLog.Watch(oSheet.ExitFocus, "exit");
  moLog.Watch(Box().KeyDown, "key in the box");
  std::string sRows;
  for (const char c : std::string("uudddddu")) {
    moForm.ActiveControl()->UserKey(c == 'u' ? Key::Up : Key::Down);
    sRows += std::to_string(oSheet.Row());
  }
  EXPECT_EQ(sRows, "11234554");
  EXPECT_EQ(moLog.Take(), "");
  txtOther.UserFocus();
  EXPECT_EQ(Get(u"lblName", 4).BackColor(), SystemColor::ButtonFace);
  oSheet.UserFocus();
  EXPECT_EQ(Get(u"lblName", 4).BackColor(), SystemColor::Highlight);
}

TEST_F(PropertyListTest, TheListOpensBelowItsRowOrAboveAndCloses) {
  Fill();
  Press(Value(2), Button::Right);
  EXPECT_EQ(PlaceOf(List()), "810 525 5160 615");
  EXPECT_TRUE(List().HasFocus() && oSheet.Controls().back() == &List());
  for (const std::int32_t nKey : {Key::Return, Key::Escape}) {
    List().UserKey(nKey);
    EXPECT_TRUE(!List().Visible() && Box().HasFocus());
    Press(Arrow());
  }
  List().UserMouseUp(Button::Left, 0, 15, 15);
  EXPECT_FALSE(List().Visible());
  for (const std::int32_t lHeight : {1140, 1139}) {
    oSheet.SetHeight(lHeight);
    Press(Arrow());
    EXPECT_EQ(List().Top(), lHeight == 1140 ? 525 : 525 - 615 - 225);
    Press(Arrow());
  }
  EXPECT_FALSE(Value(5).UserMouseDown(Button::Right, 0, 15, 15));
  Press(Value(3), Button::Right);  // free text has no list
  EXPECT_FALSE(List().Visible());
  EXPECT_EQ(moLog.Take(), "");
}

TEST_F(PropertyListTest, EachChangeOfTheUserIsToldOnce) {
  moChoices.Add(u"(none)", 0, u"");
  Fill();
  oSheet.AddRow(u"Mixed", u"", PropertyType::List, true, &moChoices, u"", 0);
  oSheet.ShowProperties();
  Press(Value(3));
  Box().UserSelection(2, 0);
  Box().UserType(u"cd");
  EXPECT_EQ(moLog.Take(), "Comment=abc Comment=abcd");
  Press(Value(2), Button::Right);
  EXPECT_EQ(Value(3).Caption(), u"abcd");
  List().UserSelect(1);  // as it is
  List().UserSelect(2);
  Value(2).UserDblClick();
  Value(2).UserDblClick();
  EXPECT_EQ(moLog.Take(), "Boundary=Firewall Boundary=(none) Boundary=None");
  Value(3).UserDblClick();
  Value(6).UserDblClick();  // no entry has its value: the first comes next
  EXPECT_EQ(moLog.Take(), "Mixed=None");
}

TEST_F(PropertyListTest, AHandlerMayBuildTheSheetAnew) {
  Fill();
  const auto oLink = oSheet.PropertyChange.Connect([this](TextView sName, TextView sValue) {
    oSheet.Clear();
    EXPECT_EQ(sName, u"Boundary");
    oSheet.AddRow(u"Boundary", sValue, PropertyType::List, true, &moChoices, u"", 11);
    oSheet.ShowProperties();
    oSheet.SetRow(1);
  });
  Press(Value(2), Button::Right);
  moLog.Watch(oSheet.ExitFocus, "exit");
  List().UserKey(Key::Down);
  EXPECT_EQ(Value(1).Caption(), u"Firewall");
  EXPECT_TRUE(!List().Visible() && Box().HasFocus());
  Value(1).UserDblClick();
  EXPECT_EQ(moLog.Take(), "Boundary=Firewall Boundary=None");
}

TEST_F(PropertyListTest, AClearedAndAReloadedSheetIsEmpty) {
  Fill();
  oSheet.SetRow(3);
  oSheet.Clear();
  EXPECT_EQ(oSheet.Row() + oSheet.RowCount(), 0);
  EXPECT_EQ(FailureOf([&] { Value(1); }), 340);
  oSheet.SetHeight(3300);  // a resize brings nothing back
  EXPECT_FALSE(Box().Visible() || Get(u"lblTip", 0).Visible() || Get<Line>(u"linVert").Visible());
  EXPECT_EQ(oSheet.Tip(11) + oSheet.Tip(12), u"Where errors stop.");
  Fill();
  moForm.Unload();
  EXPECT_EQ(oSheet.RowCount(), 0);
  Fill();  // loads the form, hidden: a row can be selected without the focus
  oSheet.SetRow(2);
  EXPECT_EQ(Tips() + moLog.Take(), "Boundary,Where errors stop.");
  EXPECT_EQ(FailureOf([&] { oSheet.AddRow(u"x", u"", PropertyType::List, true, nullptr, u"", 0); }),
            5);
}

}  // namespace
