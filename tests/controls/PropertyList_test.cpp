// The property sheet: its layout in twips, what each kind of row offers, and the user's changes.
// Names are 90 twips a character wide here, headings 105.
#include "PropertyList.h"

#include "Parts.h"
#include "Play.h"

namespace {

using namespace Forms;

class PropertyListTest : public PlayTest {
 protected:
  PropertyListTest() {
    for (const TextView s : {u"None", u"VB", u"Firewall"}) choices.Add(s, ++lastId, u"");
    sheet.Move(0, 0, 6000, 3000);
    form.Show();
    link = sheet.PropertyChange.Connect(
        [this](TextView name, TextView value) { log.Note(ToUtf8(name) + "=" + ToUtf8(value)); });
    Can("row", [this](auto& o) { sheet.SetRow(static_cast<std::int16_t>(o.Number(1))); });
    Can("up", [this](auto& o) { return At(o).UserMouseUp(Button::Left, 0, 15, 15); });
    Can("height", [this](auto& o) { sheet.SetHeight(o.Number(1)); });
    Can("end", [this](auto&) { Box().SetSelStart(99); });
    Can("arrow", [this](auto& o) { return form.ActiveControl()->UserKey(o.Number(1)); });
    Can("fill", [this](auto&) { Fill(); });
    Can("clear", [this](auto&) { sheet.Clear(); });
    Can("unload", [this](auto&) { form.Unload(); });
  }
  void Fill() {
    sheet.AddHeading(u"Pending", 1);
    sheet.AddRow(u"Boundary", u"VB", PropertyType::List, true, &choices, u"mixed", 11);
    sheet.AddRow(u"Comment", u"ab", PropertyType::FreeText, true, nullptr, u"", 99);
    sheet.AddRow(u"File", u"x.bas", PropertyType::FreeText, false, nullptr, u"", 0);
    sheet.AddRow(u"Retry", u"Line", PropertyType::List, false, &choices, u"", 0);
    sheet.SetTip(11, u"Where errors stop.");
    sheet.ShowProperties();
  }
  template <class T = Label>
  T& Get(TextView name, std::int32_t index = -1) {
    return Part<T>(sheet, name, index);
  }
  TextBox& Box() { return Get<TextBox>(u"txtValue"); }
  ListBox& List() { return Get<ListBox>(u"lstPopup"); }
  /// The marked rows, "*" with the focus; the upper edges of text box and list, "v" for the arrow
  /// with the line chosen in the list; the tips.
  std::string Look() override {
    std::string all;
    for (std::int32_t i = 1; i <= sheet.RowCount(); ++i)
      if (Get(u"lblName", i).BackColor() == SystemColor::Highlight) all += std::to_string(i);
    if (sheet.HasFocus()) all += "*";
    if (Box().Visible()) all += " box@" + std::to_string(Box().Top());
    if (Get<Control>(u"cmdPopup").Visible()) all += " v" + std::to_string(List().ListIndex());
    if (List().Visible()) all += " list@" + std::to_string(List().Top());
    const bool tips = Get(u"lblTip", 0).Visible();
    const Text tip = Get(u"lblTip", 1).Caption() + u"," + Get(u"lblTip", 2).Caption();
    return all + (tips ? " " + ToUtf8(tip) : "");
  }

  CXLookup choices;
  std::int32_t lastId = 0;
  TextBox txtOther{form, u"txtOther"};
  PropertyList sheet{form, u"prl"};
  Connection link;
};

TEST_F(PropertyListTest, PlacesFollowNamesAndSize) {
  sheet.ShowProperties();
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
  sheet.Move(0, 0, 15, 15);
  for (const auto& as : asPart) EXPECT_TRUE(as[3].empty() || PlaceOfPart(as) == as[3]) << as[0];
  sheet.ShowProperties();
  EXPECT_EQ(Get(u"lblValue", 2).Width(), 0);
  EXPECT_EQ(moToolkit.LockedControl(), nullptr);
}

TEST_F(PropertyListTest, EachKindOfRowOffersItsOwn) {
  Fill();
  Play(R"(
    heading       | row 1 | 1 Pending,                                       |
    list          | row 2 | 2* box@-3000 v1 Boundary,Where errors stop.      |
    text          | row 3 | 3* box@555 Comment,                              |
    disabled text | row 4 | 4* ,                                             |
    disabled list | row 5 | 5* box@-3000 ,                                   |
    no such rows  | row 6; row 0; row -1 |                                   |)");
  EXPECT_EQ(sheet.Row(), 5);
}

TEST_F(PropertyListTest, ArrowKeysGoOverAllRowsAndTheFocusShows) {
  Fill();
  log.Watch(Box().KeyDown, "key in the box");
  DoOne("press lblName(2)");
  log.Watch(sheet.ExitFocus, "exit");
  Play(R"(
    up            | arrow Up                           | 1* Pending,                                 |
    the first     | arrow Up                           |                                             |
    down          | arrow Down                         | 2* box@-3000 v1 Boundary,Where errors stop. |
    the last      | arrow Down; arrow Down; arrow Down; arrow Down | 5* box@-3000 ,                  |
    up again      | arrow Up                           | 4* ,                                        |
    another control | enter txtOther                   | ,                                           | exit
    back          | enter prl                          | 4* ,                                        |)");
}

TEST_F(PropertyListTest, TheListOpensBelowItsRowOrAboveAndCloses) {
  Fill();
  Play(R"(
    a right press  | press lblValue(2) 2              | 2* box@-3000 v1 list@525 Boundary,Where errors stop. |
    Return         | key lstPopup Return              | 2* box@-3000 v1 Boundary,Where errors stop. |
    the arrow      | press cmdPopup                   | 2* box@-3000 v1 list@525 Boundary,Where errors stop. |
    Escape         | key lstPopup Escape              | 2* box@-3000 v1 Boundary,Where errors stop. |
    a choice       | press cmdPopup; up lstPopup      |                                             |
    just room      | height 1140; press cmdPopup      | 2* box@-3000 v1 list@525 Boundary,Where errors stop. |
    the arrow again | press cmdPopup                  | 2* box@-3000 v1 Boundary,Where errors stop. |
    a twip short   | height 1139; press cmdPopup      | 2* box@-3000 v1 list@-315 Boundary,Where errors stop. |
    a disabled row | press cmdPopup; press lblValue(5) 2 | 2* box@-3000 v1 Boundary,Where errors stop. | no
    free text has no list | press lblValue(3) 2       | 3* box@555 Comment,                         |)");
  DoOne("press lblValue(2) 2");
  EXPECT_TRUE(List().HasFocus() && sheet.Controls().back() == &List());
  EXPECT_EQ(PlaceOf(List()), "810 -315 5160 615");
  DoOne("key lstPopup Return");
  EXPECT_TRUE(Box().HasFocus());
}

TEST_F(PropertyListTest, EachChangeOfTheUserIsToldOnce) {
  choices.Add(u"(none)", 0, u"");
  Fill();
  sheet.AddRow(u"Mixed", u"", PropertyType::List, true, &choices, u"", 0);
  sheet.ShowProperties();
  Play(R"(
    typed           | press lblValue(3); end; type txtValue cd | 3* box@555 Comment, | Comment=abc Comment=abcd
    chosen, as it is | press lblValue(2) 2; lstPopup=1 | 2* box@-3000 v1 list@525 Boundary,Where errors stop. |
    another         | lstPopup=2 | 2* box@-3000 v2 list@525 Boundary,Where errors stop. | Boundary=Firewall
    the next ones, around the end | double lblValue(2); double lblValue(2) | 2* box@-3000 v0 list@525 Boundary,Where errors stop. | Boundary=(none) Boundary=None
    no next text    | double lblValue(3) |                   |
    no entry has its value: the first comes next | double lblValue(6) | 6* box@-3000 v0 , | Mixed=None)");
  EXPECT_EQ(Get(u"lblValue", 3).Caption(), u"abcd");
}

TEST_F(PropertyListTest, AHandlerMayBuildTheSheetAnew) {
  Fill();
  const auto anew = sheet.PropertyChange.Connect([this](TextView name, TextView value) {
    sheet.Clear();
    EXPECT_EQ(name, u"Boundary");
    sheet.AddRow(u"Boundary", value, PropertyType::List, true, &choices, u"", 11);
    sheet.ShowProperties();
    sheet.SetRow(1);
  });
  DoOne("press lblValue(2) 2");
  log.Watch(sheet.ExitFocus, "exit");
  Play(R"(
    a key in the list | key lstPopup Down | 1* box@-3000 v2 Boundary,Where errors stop. | Boundary=Firewall
    a double click    | double lblValue(1) | 1* box@-3000 v0 Boundary,Where errors stop. | Boundary=None)");
  EXPECT_TRUE(Box().HasFocus());
}

TEST_F(PropertyListTest, AClearedAndAReloadedSheetIsEmpty) {
  // A resize brings nothing back; a row can be selected without the focus.
  Play(R"(
    cleared         | fill; row 3; clear; height 3300 | *                                         |
    loaded, hidden  | fill; unload; fill; row 2       | 2 box@-3000 v1 Boundary,Where errors stop. |)");
  sheet.Clear();
  EXPECT_EQ(sheet.Row() + sheet.RowCount(), 0);
  EXPECT_FALSE(Get<Line>(u"linVert").Visible());
  EXPECT_EQ(FailureOf([&] { Get(u"lblValue", 1); }), 340);
  EXPECT_EQ(sheet.Tip(11) + sheet.Tip(12), u"Where errors stop.");
  EXPECT_EQ(FailureOf([&] { sheet.AddRow(u"x", u"", PropertyType::List, true, nullptr, u"", 0); }),
            5);
}

}  // namespace
