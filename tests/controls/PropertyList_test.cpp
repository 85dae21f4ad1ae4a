// The property sheet: its layout in twips, what each kind of row offers, and the user's changes.
// Names are 90 twips a character wide here, headings 105.
#include "PropertyList.h"

#include "Form.h"
#include "FormsFixture.h"
#include "Parts.h"

namespace {

using namespace Forms;

class FSheet : public Form {
 public:
  explicit FSheet(Toolkit& oToolkit) : Form(oToolkit, u"FSheet") {}
  TextBox txtOther{*this, u"txtOther"};
  PropertyList prl{*this, u"prl"};

 private:
  void Design() override {
    Move(0, 0, 9000, 6000);
    prl.Move(0, 0, 6000, 3000);
  }
};

class PropertyListTest : public FormsTest {
 protected:
  PropertyListTest() {
    moBoundaries.Add(u"None", 1, u"");
    moBoundaries.Add(u"VB", 2, u"");
    moBoundaries.Add(u"Firewall", 3, u"");
    moForm.Show();
    moLink = moForm.prl.PropertyChange.Connect([this](TextView sName, TextView sValue) {
      moLog.Note(ToUtf8(sName) + "=" + ToUtf8(sValue));
    });
  }
  /// Heading, list, free text, disabled text, disabled list.
  void Fill() {
    Sheet().AddHeading(u"Pending", 1);
    Sheet().AddRow(u"Boundary", u"VB", PropertyType::List, true, &moBoundaries, u"mixed", 11);
    Sheet().AddRow(u"Comment", u"ab", PropertyType::FreeText, true, nullptr, u"", 99);
    Sheet().AddRow(u"File", u"x.bas", PropertyType::FreeText, false, nullptr, u"", 0);
    Sheet().AddRow(u"Retry", u"Line", PropertyType::List, false, &moBoundaries, u"", 0);
    Sheet().SetTip(11, u"How errors travel.");
    Sheet().ShowProperties();
  }
  PropertyList& Sheet() { return moForm.prl; }
  Label& Name(std::int32_t lRow) { return Part<Label>(Sheet(), u"lblName", lRow); }
  Label& Value(std::int32_t lRow) { return Part<Label>(Sheet(), u"lblValue", lRow); }
  Label& Tip(std::int32_t lIndex) { return Part<Label>(Sheet(), u"lblTip", lIndex); }
  TextBox& Box() { return Part<TextBox>(Sheet(), u"txtValue"); }
  CommandButton& Arrow() { return Part<CommandButton>(Sheet(), u"cmdPopup"); }
  ListBox& List() { return Part<ListBox>(Sheet(), u"lstPopup"); }
  static void Press(Control& o, std::int32_t nButton = Button::Left) {
    o.UserMouseDown(nButton, 0, 15, 15);
  }

  CXLookup moBoundaries;
  FSheet moForm{moToolkit};
  EventLog moLog;
  Connection moLink;
};

TEST_F(PropertyListTest, PlacesOfAllParts) {
  Fill();
  EXPECT_EQ(PlaceOf(Name(1)), "30 45 780 240");
  EXPECT_TRUE(Name(1).Font().bBold && !Name(2).Font().bBold);
  EXPECT_EQ(PlaceOf(Value(2)), "840 300 5130 240");
  EXPECT_EQ(PlaceOf(Part<Label>(Sheet(), u"lblNote", 2)), "1840 300 1500 240");
  EXPECT_EQ(Part<Line>(Sheet(), u"linHorz", 2).Y1(), 525);
  EXPECT_EQ(Part<Line>(Sheet(), u"linHorz", 2).X2(), 6000);
  EXPECT_EQ(Part<Line>(Sheet(), u"linVert").X1(), 810);
  EXPECT_EQ(Part<Line>(Sheet(), u"linVert").Y2(), 1290);
  EXPECT_EQ(PlaceOf(Arrow()), "5715 -1000 255 240");
  EXPECT_EQ(PlaceOf(Tip(0)), "30 1320 5940 1650");
  EXPECT_EQ(PlaceOf(Tip(2)), "45 1575 5910 1395");
  EXPECT_EQ(Part<Line>(Sheet(), u"linBorder", 2).X1(), 5970);
  EXPECT_EQ(moToolkit.LockedControl(), nullptr);

  Sheet().Move(0, 0, 3000, 1400);
  EXPECT_EQ(PlaceOf(Value(2)), "840 300 2130 240");
  EXPECT_EQ(Part<Line>(Sheet(), u"linHorz", 2).X2(), 3000);
  EXPECT_EQ(Arrow().Left(), 2715);
  EXPECT_EQ(List().Width(), 2160);
  EXPECT_EQ(PlaceOf(Tip(0)), "30 1320 2940 50");
  EXPECT_EQ(Tip(2).Height(), 0);
}

TEST_F(PropertyListTest, NarrowAndEmptySheets) {
  Sheet().ShowProperties();
  EXPECT_EQ(PlaceOf(Tip(0)), "30 45 5940 2925");
  EXPECT_TRUE(Tip(0).Visible() && !Part<Line>(Sheet(), u"linVert").Visible());
  Sheet().Move(0, 0, 600, 300);
  Fill();
  EXPECT_EQ(Value(2).Width(), 0);
  EXPECT_EQ(Tip(0).Height(), 0);
  Sheet().SetWidth(615);
  EXPECT_EQ(Value(2).Width(), 300);
  Sheet().Move(0, 0, 15, 15);
  EXPECT_EQ(Tip(2).Width(), 0);
}

TEST_F(PropertyListTest, EachKindOfRowOffersItsOwn) {
  Fill();
  const struct {
    const char* sName;
    std::int16_t nRow;
    bool bText, bArrow;
    const char *sPlace, *sTitle, *sTip;
    std::int32_t lListed;
  } aoRow[] = {
      {"heading", 1, false, false, "", "Pending", "", -1},
      {"list", 2, true, true, "840 -3000 5130 240", "Boundary", "How errors travel.", 1},
      {"text", 3, true, false, "840 555 5130 240", "Comment", "", 1},
      {"disabled text", 4, false, false, "840 810 5130 240", "", "", 1},
      {"disabled list", 5, true, false, "840 -3000 5130 240", "", "", -1},
  };
  for (const auto& o : aoRow) {
    SCOPED_TRACE(o.sName);
    Sheet().SetRow(o.nRow);
    EXPECT_EQ(Sheet().Row(), o.nRow);
    EXPECT_EQ(Box().Visible(), o.bText);
    EXPECT_EQ(Arrow().Visible(), o.bArrow);
    if (*o.sPlace) {
      EXPECT_EQ(PlaceOf(Box()), o.sPlace);
    }
    EXPECT_EQ(ToUtf8(Tip(1).Caption()), o.sTitle);
    EXPECT_EQ(ToUtf8(Tip(2).Caption()), o.sTip);
    EXPECT_EQ(List().ListIndex(), o.lListed);
    EXPECT_EQ(Name(o.nRow).BackColor(), SystemColor::Highlight);
    if (o.nRow > 1) {
      EXPECT_TRUE(Sheet().HasFocus());
      EXPECT_EQ(Name(o.nRow - 1).BackColor(), SystemColor::WindowBackground);
    }
  }
  EXPECT_EQ(moLog.Take(), "");
  for (const std::int16_t nRow : {std::int16_t{6}, std::int16_t{0}, std::int16_t{-1}}) {
    Sheet().SetRow(nRow);
    EXPECT_EQ(Sheet().Row(), 5);
  }
}

TEST_F(PropertyListTest, ArrowKeysGoOverAllRowsAndTheFocusShows) {
  Fill();
  Press(Name(2));
  EXPECT_EQ(Sheet().Row(), 2);
  EventLog oLog;
  oLog.Watch(Sheet().ExitFocus, "exit");
  oLog.Watch(Box().KeyDown, "key in the box");
  for (const std::int32_t nRow : {1, 1}) {  // the second stroke has no row to go to
    moForm.ActiveControl()->UserKey(Key::Up);
    EXPECT_EQ(Sheet().Row(), nRow);
  }
  for (const std::int32_t nRow : {2, 3, 4, 5, 5}) {
    moForm.ActiveControl()->UserKey(Key::Down);
    EXPECT_EQ(Sheet().Row(), nRow);
  }
  EXPECT_EQ(oLog.Take(), "");
  moForm.txtOther.UserFocus();
  EXPECT_EQ(Name(5).BackColor(), SystemColor::ButtonFace);
  Sheet().UserFocus();
  EXPECT_EQ(Name(5).BackColor(), SystemColor::Highlight);
}

TEST_F(PropertyListTest, TheListOpensBelowItsRowOrAboveAndCloses) {
  Fill();
  Press(Arrow());  // no row yet, and the button doesn't show
  EXPECT_FALSE(List().Visible());
  Press(Value(2), Button::Right);
  EXPECT_EQ(PlaceOf(List()), "810 525 5160 615");
  EXPECT_TRUE(List().Visible() && List().HasFocus());
  EXPECT_EQ(Sheet().Controls().back(), &List());
  for (const std::int32_t nKey : {Key::Return, Key::Escape}) {
    List().UserKey(nKey);
    EXPECT_TRUE(!List().Visible() && Box().HasFocus());
    Press(Arrow());
  }
  List().UserMouseUp(Button::Left, 0, 15, 15);
  EXPECT_FALSE(List().Visible());
  Sheet().SetHeight(1140);  // just enough
  Press(Arrow());
  EXPECT_EQ(List().Top(), 525);
  Press(Arrow());
  Sheet().SetHeight(1139);
  Press(Arrow());
  EXPECT_EQ(List().Top(), 525 - 615 - 225);
  EXPECT_FALSE(Value(5).UserMouseDown(Button::Right, 0, 15, 15));
  Press(Value(3), Button::Right);  // free text has no list
  EXPECT_FALSE(List().Visible());
  EXPECT_EQ(moLog.Take(), "");
}

TEST_F(PropertyListTest, EachChangeOfTheUserIsToldOnce) {
  Fill();
  Press(Value(3));
  Box().UserSelection(2, 0);
  Box().UserType(u"cd");
  EXPECT_EQ(moLog.Take(), "Comment=abc Comment=abcd");
  EXPECT_EQ(Value(3).Caption(), u"abcd");
  Press(Value(2), Button::Right);
  EXPECT_EQ(Value(3).Caption(), u"abcd");
  List().UserSelect(1);  // as it is
  List().UserSelect(2);
  EXPECT_EQ(moLog.Take(), "Boundary=Firewall");
  Value(2).UserDblClick();
  Value(2).UserDblClick();
  EXPECT_EQ(moLog.Take(), "Boundary=None Boundary=VB");
  Value(3).UserDblClick();
  EXPECT_EQ(moLog.Take(), "");
}

TEST_F(PropertyListTest, AValueThatNoEntryHasBeginsAtTheFirst) {
  moBoundaries.Add(u"(none)", 0, u"");
  Sheet().AddRow(u"Boundary", u"", PropertyType::List, true, &moBoundaries, u"", 0);
  Sheet().ShowProperties();
  Sheet().SetRow(1);
  EXPECT_EQ(List().ListIndex(), -1);
  Value(1).UserDblClick();
  EXPECT_EQ(moLog.Take(), "Boundary=None");
}

TEST_F(PropertyListTest, AHandlerMayBuildTheSheetAnew) {
  Fill();
  const auto oLink = Sheet().PropertyChange.Connect([this](TextView sName, TextView sValue) {
    Sheet().Clear();
    EXPECT_EQ(sName, u"Boundary");
    Sheet().AddHeading(u"Selection", 0);
    Sheet().AddRow(u"Boundary", sValue, PropertyType::List, true, &moBoundaries, u"", 11);
    Sheet().ShowProperties();
    Sheet().SetRow(2);
  });
  Press(Value(2), Button::Right);
  EventLog oFocus;
  oFocus.Watch(Sheet().ExitFocus, "exit");
  List().UserKey(Key::Down);
  EXPECT_EQ(Value(2).Caption(), u"Firewall");
  EXPECT_EQ(Sheet().RowCount(), 2);
  EXPECT_EQ(Tip(2).Caption(), u"How errors travel.");
  EXPECT_TRUE(!List().Visible() && Box().HasFocus());
  Value(2).UserDblClick();
  EXPECT_EQ(moLog.Take(), "Boundary=Firewall Boundary=None");
  EXPECT_EQ(oFocus.Take(), "");
}

TEST_F(PropertyListTest, AClearedAndAReloadedSheetIsEmpty) {
  Fill();
  Sheet().SetRow(3);
  Sheet().Clear();
  EXPECT_EQ(Sheet().Row() + Sheet().RowCount(), 0);
  EXPECT_THROW(Name(1), Failure);
  EXPECT_FALSE(Box().Visible() || Tip(0).Visible() || Part<Line>(Sheet(), u"linVert").Visible());
  Sheet().SetHeight(3300);  // a resize brings nothing back
  EXPECT_FALSE(Tip(0).Visible());
  EXPECT_EQ(Sheet().Tip(11), u"How errors travel.");
  EXPECT_EQ(Sheet().Tip(12), u"");
  Fill();
  moForm.Unload();
  EXPECT_EQ(Sheet().RowCount(), 0);
  Fill();  // loads the form, hidden: a row can be selected without the focus
  Sheet().SetRow(2);
  EXPECT_EQ(Sheet().RowCount(), 5);
  EXPECT_EQ(moLog.Take(), "");
  EXPECT_EQ(
      FailureOf([&] { Sheet().AddRow(u"x", u"", PropertyType::List, true, nullptr, u"", 0); }), 5);
}

}  // namespace
