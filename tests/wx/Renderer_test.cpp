// Real mouse and keys on a form with every kind of control: state and events are those of forms
// without a display.
#include <wx/bitmap.h>
#include <wx/button.h>
#include <wx/dcmemory.h>
#include <wx/image.h>
#include <wx/textctrl.h>
#include <wx/toplevel.h>

#include "CodePanePeer.h"
#include "FormPeer.h"
#include "NativeLook.h"
#include "RowsPane.h"
#include "WxTest.h"

using namespace Forms;

namespace {

template <class Native = wxWindow>
Native& NativeOf(Control& oControl) {
  return dynamic_cast<Native&>(dynamic_cast<ControlPeer&>(*oControl.Peer()).Native());
}

/// Pixels per row of a list, from what it shows.
int RowHeightOf(Control& oControl) {
  return NativeOf<RowsPane>(oControl).RowHeight();
}

struct FQuestion : Form {
  explicit FQuestion(Toolkit& toolkit) : Form(toolkit, u"FQuestion") {
    On(cmdYes.Click, [this] { Hide(); });
    On(cmdMore.Click, [this] {
      FQuestion inside(Kit());
      inside.Show(ShowMode::Modal);
      ++answers;
    });
  }
  void Design() override {
    Move(1500, 1500, 3600, 1800);
    SetBorderStyle(FormBorder::FixedDialog);
    cmdYes.SetCaption(u"&Yes");
    cmdYes.Move(120, 120, 1215, 375);
    cmdMore.Move(1440, 120, 1215, 375);
  }
  CommandButton cmdYes{*this, u"cmdYes"}, cmdMore{*this, u"cmdMore"};
  int answers = 0;
};

/// The pixels at the right end of a pane's only line.
wxImage EndOfLine(CodePane& code, TextView line) {
  code.SetText(line);
  code.Kit().Renderer().DoEvents();
  auto& peer = dynamic_cast<CodePanePeer&>(*code.Peer());
  const int width = 200, height = RowHeightOf(code), row = std::max(width, peer.RowsWidth());
  wxBitmap bitmap(width, height, 24);
  wxMemoryDC dc(bitmap);
  dc.SetFont(NativeOf<RowsPane>(code).GetFont());
  dc.SetBackground(*wxWHITE_BRUSH);
  dc.Clear();
  peer.DrawRow(dc, 0, {width - row, 0, row, height});
  dc.SelectObject(wxNullBitmap);
  return bitmap.ConvertToImage();
}

}  // namespace

TEST_F(WxTest, CodeIsDrawnToTheEndOfItsLines) {
  const auto Alike = [this](TextView line, TextView other) {
    const wxImage one = EndOfLine(moForm.codText, line), two = EndOfLine(moForm.codText, other);
    return std::equal(one.GetData(), one.GetData() + 3 * one.GetWidth() * one.GetHeight(),
                      two.GetData());
  };
  EXPECT_TRUE(Alike({u"a\0b", 3}, u"a\uFFFDb")) << "behind a NUL";
  EXPECT_TRUE(Alike(Text(3000000, u'a') + u"bcd", Text(300, u'a') + u"bcd"))
      << "more pixels than can be counted";
}

TEST_F(WxTest, ClicksReachEachKindOfControl) {
  look = [this] {
    return std::to_string(moForm.chkLocked.Checked()) + std::to_string(moForm.optFirst.Value()) +
           std::to_string(moForm.optSecond.Value());
  };
  Play(R"(
    push button        | cmdApply  | 000 | cmdApply
    check box          | chkLocked | 100 | chkLocked
    disabled check box | chkOff    |     |
    option             | optFirst  | 110 | optFirst
    its neighbour      | optSecond | 101 | optSecond
    the same again     | optSecond |     |
    label              | lblName   |     | lblName
    picture            | picOpen   |     | picOpen)");
}

TEST_F(WxTest, KeysOfTheFormWorkWhereverTheFocusIs) {
  Play(R"(
    the first in order       |              | txtName    |
    Tab                      | key Tab      | txtResults |
    Tab into a frame         | key Tab      | chkLocked  |
    Space                    | key Space    |            | chkLocked
    Tab to a group without a choice | key Tab | optFirst |
    an arrow in the group    | key Down     | optSecond  | optSecond
    back over the group      | key Tab Shift | chkLocked |
    access key of a button   | key A Alt    | cmdApply   | cmdApply
    access key of a label    | key N Alt    | txtName    |
    access key of a tab      | key B Alt    | tabPages   | tabPages
    default button           | key Return   |            | cmdOK
    cancel button            | key Escape   |            | cmdCancel
    shortcut of a menu       | key O Ctrl   |            | Open)");
}

TEST_F(WxTest, ListsAnswerToKeysAndLetters) {
  look = [this] { return ToUtf8(moForm.lstFew.Text() + u"," + moForm.cboKind.Text()); };
  Play(R"(
    a letter     | focus lstFew; type t             | Two,        | lstFew
    the first    | key Home                         | One,        | lstFew
    a combo box  | focus cboKind; key Down; key Down | One,ActiveX | cboKind cboKind)");
}

TEST_F(WxTest, TypedTextPassesKeyPressAndComesBackWithTheCaret) {
  const auto link = moForm.txtName.KeyPress.Connect([](std::int32_t& key) {
    if (key == 'q') key = 0;
    if (key == 'x') key = 'Y';
  });
  look = [this] {
    const TextBox& o = moForm.txtName;
    return ToUtf8(o.Text()) + " " + std::to_string(o.SelStart()) + " " + ToUtf8(o.SelText());
  };
  Play(R"(
    changed and dropped | type aqxb      | aYb 3     | Change Change Change
    selected            | key Home Shift | aYb 0 aYb |)");
  moForm.txtName.SetLocked(true);
  Play("locked | type zx | |");
}

TEST_F(WxTest, ManyLinesKeepTheirEndsAndGrowAtTheEnd) {
  TextBox& box = moForm.txtResults;
  auto& native = NativeOf<wxTextCtrl>(box);
  box.SetText(u"One\r\nTwo");
  box.SetSelStart(8);
  box.SetSelText(u"\r\nThree");
  moRobot.Settle();
  EXPECT_EQ(native.GetValue(), "One\nTwo\nThree");
  EXPECT_EQ(native.GetInsertionPoint(), 13);
  Play("by keys | txtResults; key End Ctrl; key Return; type four | txtResults | txtResults");
  EXPECT_EQ(ToUtf8(box.Text()), "One\r\nTwo\r\nThree\r\nfour");
  EXPECT_EQ(box.SelStart(), 21);
}

TEST_F(WxTest, NoMoreThanMaxLengthIsTyped) {
  for (TextBox* po : {&moForm.txtName, &moForm.txtResults}) {
    SCOPED_TRACE(NameOf(*po));
    po->SetText(u"aab");
    po->SetMaxLength(4);
    po->SetFocus();
    po->SetSelStart(1);
    moRobot.Type("aa");
    EXPECT_EQ(ToUtf8(po->Text()), "aaab");
    EXPECT_EQ(NativeOf<wxTextCtrl>(*po).GetValue(), "aaab");
    EXPECT_EQ(NativeOf<wxTextCtrl>(*po).GetInsertionPoint(), 2);
  }
}

TEST_F(WxTest, RowsOfATableAreSelectedAsUsual) {
  ListView& list = moForm.lvwRows;
  const auto& pane = NativeOf<RowsPane>(list);
  const int head = pane.RowAt(0) == -1 ? 40 : 0, first = pane.RowAt(head - 1) + 1;
  look = [&] {
    std::string all;
    for (std::int32_t i = 1; i <= list.ListItems().Count(); ++i)
      if (list.ListItems().Item(i).Selected()) all += std::to_string(i == 40 ? i : i - first) + " ";
    return all;
  };
  const std::string fourth = std::to_string(head + 3 * RowHeightOf(list));
  Play("a click | at lvwRows 60 " + std::to_string(head) + R"( | 0 | Item
    a range        | key Down Shift          | 0 1 | Item
    a double click | double lvwRows 60 )" +
       fourth + R"( | 3 | Item DblClick
    the end        | key End                 | 40 | Item)");
  EXPECT_GT(pane.Top(), 10);
}

TEST_F(WxTest, HeadersSortAndChangeTheirWidths) {
  ListView& list = moForm.lvwRows;
  const std::int32_t twips = poToolkit->Screen().TwipsPerPixelX();
  const int edge = 1500 / twips + 1;
  moRobot.ClickAt(list, {edge + 40, 8});
  EXPECT_EQ(log.Take(), "Column");
  moRobot.Drag(list, {edge, 8}, {edge + 30, 8});
  EXPECT_NEAR(list.ColumnHeaders().Item(1).Width(), 1500 + 30 * twips, 2 * twips);
  EXPECT_EQ(log.Take(), "");
}

TEST_F(WxTest, NodesExpandAndAreSelectedByMouseAndKeys) {
  TreeView& tree = moForm.tvwAll;
  look = [&] {
    const Node* po = tree.SelectedItem();
    return po ? ToUtf8(po->Key()) + (po->Expanded() ? "+" : "-") : "none";
  };
  const int row = RowHeightOf(tree), left = 900 / poToolkit->Screen().TwipsPerPixelX();
  const std::string place = "tvwAll " + std::to_string(left) + " " + std::to_string(row + row / 2);
  Play("a click | at " + place + R"( | f- | Node
    expanded       | key Right   | f+   | Expand
    the one inside | key Right   | m-   | Node
    a double click | double )" +
       place + " | f- | Node Collapse");
  tree.Nodes().Clear();  // with a selected node, and the window on the screen
  moRobot.Settle();
  EXPECT_EQ(tree.SelectedItem(), nullptr);
}

TEST_F(WxTest, AListThatAButtonDropsHasTheFocusAndShowsAllItsEntries) {
  Chooser& chooser = moForm.choKind;
  ListBox& list = chooser.lstChoices;
  moForm.cmdCancel.SetCancel(false);  // would have Escape
  Play("the press is no click any more | cmdDrop | lstChoices |");
  EXPECT_TRUE(NativeOf<wxWindow>(list).HasFocus());
  EXPECT_GE(NativeOf<RowsPane>(list).PageRows(), list.ListCount());
  EXPECT_FALSE(NativeOf<wxWindow>(list).HasScrollbar(wxVERTICAL));
  EXPECT_GE(RowHeightOf(list), NativeOf<wxWindow>(list).GetCharHeight());
  Play(R"(
    two lines down, and chosen        | key Down; key Down; key Escape | txtEntry | Key lstChoices Key lstChoices Key
    buttons that keep the focus click | cmdApply | cmdApply | cmdApply)");
  EXPECT_FALSE(list.Visible());
  EXPECT_EQ(ToUtf8(list.Text() + u"," + chooser.txtEntry.Text()), "VB,VB");
}

TEST_F(WxTest, AUserControlKeepsTheFocusThatItHoldsItself) {
  moForm.choKind.txtEntry.SetFocus();
  moForm.choKind.Control::SetFocus();
  Play("a key | key Down | choKind | Key");
  moForm.choKind.txtEntry.SetVisible(false);  // as a row without a value has it
  Play("a key without a part for it | key Down | choKind | Key");
}

TEST_F(WxTest, AFormWithoutAControlForTheFocusHearsKeys) {
  FQuestion question(*poToolkit);
  log.Watch(question.KeyDown, "Form");
  question.Show();
  moRobot.Click(question);
  question.cmdYes.SetVisible(false);
  question.cmdMore.SetVisible(false);
  moRobot.Key(WXK_DOWN);
  EXPECT_EQ(log.Take(), "Form");
  question.Unload();
}

TEST_F(WxTest, ElementsOfArraysComeAndGoWhileTheirFormShows) {
  const auto Windows = [this] {
    moRobot.Settle();
    return NativeOf(moForm.chkMore(0)).GetParent()->GetChildren().size();
  };
  const std::size_t before = Windows();
  for (std::int32_t i = 1; i <= 3; ++i) {
    moForm.lblMore.Load(i).SetVisible(true);
    moForm.chkMore.Load(i).SetTop(3750 + 480 * i);
    moForm.chkMore(i).SetVisible(true);
  }
  EXPECT_EQ(Windows(), before + 3);
  moRobot.Click(moForm.chkMore(2));
  EXPECT_TRUE(moForm.chkMore(2).Checked());
  moForm.lblMore(1).SetCaption(u"Ends with a change that nobody has painted");
  for (std::int32_t i = 1; i <= 3; ++i) moForm.lblMore.Unload(i), moForm.chkMore.Unload(i);
  EXPECT_EQ(Windows(), before);
  ASSERT_TRUE(moForm.ActiveControl());
  EXPECT_TRUE(moForm.ActiveControl()->Usable());
}

TEST_F(WxTest, TheMouseSelectsLinesOfCode) {
  const int row = RowHeightOf(moForm.codText);
  moRobot.Drag(moForm.codText, {90, row + row / 2}, {90, 2 * row + row / 2});
  EXPECT_EQ(ToUtf8(moForm.codText.SelText()), "  Dim x As Long\r\n\tx = 1");
  moRobot.Key('C', wxMOD_CONTROL);
  EXPECT_EQ(poToolkit->Clipboard().GetText(), moForm.codText.SelText());
}

TEST_F(WxTest, MenusDropCheckAndGrow) {
  moForm.mnuOpen.SetEnabled(false);
  const auto link = moForm.mnuFile.Click.Connect([this] { moForm.mnuOpen.SetEnabled(true); });
  moForm.mnuRecent.Load(1).SetCaption(u"&2 Second");
  moForm.mnuRecent(1).SetVisible(true);
  log.Watch(moForm.mnuRecent(1).Click, "Recent");
  moForm.mnuProof.SetChecked(true);
  Play(R"(
    an entry that was added              | key F Alt; type 2                 | txtName | Recent
    a checked one, from a list with keys | focus lvwRows; key F Alt; key P   | lvwRows | Proof)");
  EXPECT_TRUE(moForm.mnuProof.Checked());
  moForm.mnuOpen.SetEnabled(false);
  moRobot.Settle();
  Play("one that the menu enables as it drops | key F Alt; key O | lvwRows | Open");
}

TEST_F(WxTest, AMenuThatTheMouseOpenedTakesTheKeys) {
  moRobot.Click(moForm.lvwRows);
  const wxPoint bar = moRobot.FrameOf(moForm).GetScreenPosition();
  moRobot.ClickThere(bar + wxPoint(15, 8));
  log.Take();
  Play(R"(
    leaves the list as it is | key Down; key Escape | lvwRows |
    and gives the keys back  | key End              | lvwRows | Item)");
  moRobot.ClickThere(bar + wxPoint(15, 8));
  Play("and runs its entry | key P | lvwRows | Proof");
}

TEST_F(WxTest, ThePointerIsSeenToLeave) {
  std::int32_t last = 0;
  const auto link = moForm.picOpen.MouseMove.Connect(
      [&](std::int32_t, std::int32_t, std::int32_t left, std::int32_t) { last = left; });
  moRobot.Click(moForm.picOpen);
  EXPECT_GT(last, 0);
  moRobot.Click(moForm.lblName);
  EXPECT_LT(last, 0);
}

TEST_F(WxTest, DimTextStaysReadable) {
  const wxColour black(0, 0, 0), white(255, 255, 255), gray(146, 149, 149);
  EXPECT_NEAR(Contrast(white, black), 21, 0.01);
  EXPECT_GE(Contrast(Readable(gray, black, white), white), LeastContrast);
  EXPECT_LT(Contrast(Readable(gray, black, white), white), LeastContrast + 1);
  EXPECT_EQ(Readable(gray, white, black), gray);
  EXPECT_GE(
      Contrast(NativeColor(SystemColor::GrayText), NativeColor(SystemColor::WindowBackground)),
      LeastContrast);
}

TEST_F(WxTest, AFormFollowsItsWindow) {
  const std::int32_t lTwips = poToolkit->Screen().TwipsPerPixelX();
  wxTopLevelWindow& oFrame = moRobot.FrameOf(moForm);
  oFrame.SetSize(oFrame.GetSize() + wxSize(40, 20));
  moRobot.Settle();
  EXPECT_NE(log.Take().find("Resize"), std::string::npos);
  EXPECT_EQ(moForm.Width(), 11400 / lTwips * lTwips + 40 * lTwips);
  EXPECT_EQ(moForm.staBelow.Top() + moForm.staBelow.Height(), moForm.ScaleHeight());
  // Code that sets a size that is no whole number of pixels gets its own size back.
  moForm.Move(300, 300, 10007, 8003);
  moRobot.Settle();
  EXPECT_EQ(moForm.Width(), 10007);
  EXPECT_EQ(moForm.Height(), 8003);
}

TEST_F(WxTest, ModalFormsNest) {
  FQuestion question(*poToolkit);
  bool answered = false;
  moRobot.WhenModal([&](Form&) {
    moRobot.Click(moForm.cmdApply);  // is behind a modal form
    EXPECT_EQ(log.Take(), "");
    moRobot.WhenModal([&](Form& o) { moRobot.Click(static_cast<FQuestion&>(o).cmdYes); });
    moRobot.Click(question.cmdMore);
    EXPECT_EQ(question.answers, 1);
    answered = true;
    moRobot.Key('Y', wxMOD_ALT);
  });
  question.Show(ShowMode::Modal);
  EXPECT_TRUE(answered);
  EXPECT_FALSE(question.Visible());
  question.Unload();
  Play("the form behind it | cmdApply | cmdApply | cmdApply");
}

TEST_F(WxTest, AFormMayEndInAnyOfItsEvents) {
  const struct {
    Signal<>& signal;
    const char* deed;
  } rows[] = {{moForm.cmdApply.Click, "cmdApply"},
              {moForm.chkLocked.Click, "chkLocked"},
              {moForm.optFirst.Click, "optFirst"},
              {moForm.lblName.Click, "lblName"},
              {moForm.picOpen.Click, "picOpen"},
              {moForm.lstFew.Click, "at lstFew 20 10"},
              {moForm.tabPages.Click, "at tabPages 20 10"},
              {moForm.txtName.Change, "type a"},
              {moForm.mnuOpen.Click, "key O Ctrl"},
              {moForm.lvwRows.DblClick, "double lvwRows 60 60"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.deed);
    moForm.Show();
    moRobot.Settle();
    const auto link = row.signal.Connect([this] { moForm.Unload(); });
    DoOne(row.deed);
    EXPECT_FALSE(moForm.Loaded());
  }
}

TEST_F(WxTest, TimersTickWhileEventsRun) {
  moForm.tmrOnce.SetInterval(20);
  std::string heard;
  for (int i = 0; i < 50 && heard.empty(); ++i) moRobot.Settle(), heard = log.Take();
  EXPECT_TRUE(heard.starts_with("Tick")) << heard;
  moForm.tmrOnce.SetEnabled(false);
  log.Take();
  moRobot.Settle();
  EXPECT_EQ(log.Take(), "");
}

TEST_F(WxTest, NoTextIsClipped) {
  const double dpi = std::atof(std::getenv("SCREEN_DPI"));
  EXPECT_EQ(poToolkit->Screen().TwipsPerPixelX(), static_cast<std::int32_t>(1440 / dpi));
  moForm.cboKind.SetListIndex(0);
  moForm.optFirst.SetHeight(90);  // lower than any text
  moRobot.Settle();
  for (const char* name : {"cmdApply", "chkLocked", "optFirst", "cboKind", "txtName"}) {
    SCOPED_TRACE(name);
    const wxWindow& native = NativeOf<wxWindow>(Find(moForm, name));
    const wxSize size = native.GetSize(), best = native.GetBestSize();
    const bool text = std::string(name) == "txtName";
    EXPECT_GE(size.x, text ? 0 : best.x);
    EXPECT_GE(size.y, text ? native.GetCharHeight() : best.y);
  }
}
