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
#include "RowsPane.h"
#include "WxTest.h"

using namespace Forms;

namespace {

template <class Native>
Native& NativeOf(Control& oControl) {
  return dynamic_cast<Native&>(dynamic_cast<ControlPeer&>(*oControl.Peer()).Native());
}

/// Pixels per row of a list, from what it shows.
int RowHeightOf(Control& oControl) {
  return NativeOf<RowsPane>(oControl).RowHeight();
}

class FQuestion : public Form {
 public:
  explicit FQuestion(Toolkit& oToolkit) : Form(oToolkit, u"FQuestion") {
    On(cmdYes.Click, [this] { Hide(); });
    On(cmdMore.Click, [this] {
      FQuestion oInner(Kit());
      oInner.Show(ShowMode::Modal);
      ++nInner;
    });
  }
  CommandButton cmdYes{*this, u"cmdYes"}, cmdMore{*this, u"cmdMore"};
  int nInner = 0;

 private:
  void Design() override {
    Move(1500, 1500, 3600, 1800);
    SetBorderStyle(FormBorder::FixedDialog);
    cmdYes.SetCaption(u"&Yes");
    cmdYes.Move(120, 120, 1215, 375);
    cmdMore.SetCaption(u"&More");
    cmdMore.Move(1440, 120, 1215, 375);
  }
};

/// The pixels at the right end of a pane's only line.
std::string EndOfLine(CodePane& oCode, TextView sLine) {
  oCode.SetText(sLine);
  oCode.Kit().Renderer().DoEvents();
  auto& oPeer = dynamic_cast<CodePanePeer&>(*oCode.Peer());
  constexpr int nWidth = 200;
  const int nHeight = RowHeightOf(oCode), nRow = std::max(nWidth, oPeer.RowsWidth());
  wxBitmap oBitmap(nWidth, nHeight, 24);
  wxMemoryDC oDC(oBitmap);
  oDC.SetFont(NativeOf<RowsPane>(oCode).GetFont());
  oDC.SetBackground(*wxWHITE_BRUSH);
  oDC.Clear();
  oPeer.DrawRow(oDC, 0, {nWidth - nRow, 0, nRow, nHeight});
  oDC.SelectObject(wxNullBitmap);
  const wxImage oImage = oBitmap.ConvertToImage();
  return {reinterpret_cast<const char*>(oImage.GetData()), std::size_t{3} * nWidth * nHeight};
}

}  // namespace

TEST_F(WxTest, CodeIsDrawnToTheEndOfItsLines) {
  struct Row {
    const char* psName;
    Text sLine, sLooksLike;
  };
  const Row aoRow[] = {
      {"behind a NUL", Text(u"a\0b", 3), u"a\uFFFDb"},
      {"more pixels than can be counted", Text(3000000, u'a') + u"bcd", Text(300, u'a') + u"bcd"},
  };
  for (const Row& oRow : aoRow)
    EXPECT_TRUE(EndOfLine(moForm.codText, oRow.sLine) == EndOfLine(moForm.codText, oRow.sLooksLike))
        << oRow.psName;
}

TEST_F(WxTest, ClicksReachEachKindOfControl) {
  struct Row {
    const char* psName;
    Control& oControl;
    const char* psEvents;
  };
  const Row oRows[] = {
      {"push button", moForm.cmdApply, "Apply"},
      {"check box", moForm.chkLocked, "Locked"},
      {"disabled check box", moForm.chkOff, ""},
      {"option", moForm.optFirst, "First"},
      {"its neighbour", moForm.optSecond, "Second"},
      {"the same again", moForm.optSecond, ""},
      {"label", moForm.lblName, "Label"},
      {"picture", moForm.picOpen, "Picture"},
  };
  for (const Row& o : oRows) {
    SCOPED_TRACE(o.psName);
    moRobot.Click(o.oControl);
    EXPECT_EQ(Take(), o.psEvents);
  }
  EXPECT_TRUE(moForm.chkLocked.Checked());
  EXPECT_TRUE(moForm.optSecond.Value());
  EXPECT_FALSE(moForm.optFirst.Value());
}

TEST_F(WxTest, KeysOfTheFormWorkWhereverTheFocusIs) {
  struct Row {
    const char* psName;
    int nKey, nModifiers;
    const char* psEvents;
    Control* poActive;
  };
  const Row oRows[] = {
      {"Tab", WXK_TAB, 0, "", &moForm.txtResults},
      {"Tab into a frame", WXK_TAB, 0, "", &moForm.chkLocked},
      {"Space", WXK_SPACE, 0, "Locked", &moForm.chkLocked},
      {"Tab to a group without a choice", WXK_TAB, 0, "", &moForm.optFirst},
      {"an arrow in the group", WXK_DOWN, 0, "Second", &moForm.optSecond},
      {"back over the group", WXK_TAB, wxMOD_SHIFT, "", &moForm.chkLocked},
      {"access key of a button", 'A', wxMOD_ALT, "Apply", &moForm.cmdApply},
      {"access key of a label", 'N', wxMOD_ALT, "", &moForm.txtName},
      {"access key of a tab", 'B', wxMOD_ALT, "Page", &moForm.tabPages},
      {"default button", WXK_RETURN, 0, "OK", &moForm.tabPages},
      {"cancel button", WXK_ESCAPE, 0, "Cancel", &moForm.tabPages},
      {"shortcut of a menu", 'O', wxMOD_CONTROL, "Open", &moForm.tabPages},
  };
  ASSERT_EQ(moForm.ActiveControl(), &moForm.txtName);
  for (const Row& o : oRows) {
    SCOPED_TRACE(o.psName);
    moRobot.Key(o.nKey, o.nModifiers);
    EXPECT_EQ(Take(), o.psEvents);
    EXPECT_EQ(moForm.ActiveControl(), o.poActive);
  }
}

TEST_F(WxTest, TypedTextPassesKeyPressAndComesBackWithTheCaret) {
  const auto oLink = moForm.txtName.KeyPress.Connect([](std::int32_t& nKey) {
    if (nKey == 'q') nKey = 0;
    if (nKey == 'x') nKey = 'Y';
  });
  moRobot.Type("aqxb");
  EXPECT_EQ(ToUtf8(moForm.txtName.Text()), "aYb");
  EXPECT_EQ(moForm.txtName.SelStart(), 3);
  EXPECT_EQ(Take(), "Change Change Change");
  moRobot.Key(WXK_HOME, wxMOD_SHIFT);
  EXPECT_EQ(ToUtf8(moForm.txtName.SelText()), "aYb");
  moForm.txtName.SetLocked(true);
  moRobot.Type("z");
  EXPECT_EQ(ToUtf8(moForm.txtName.Text()), "aYb");
}

TEST_F(WxTest, ManyLinesKeepTheirEndsAndGrowAtTheEnd) {
  TextBox& oBox = moForm.txtResults;
  auto& oNative = NativeOf<wxTextCtrl>(oBox);
  oBox.SetText(u"One\r\nTwo");
  oBox.SetSelStart(8);
  oBox.SetSelText(u"\r\nThree");
  moRobot.Settle();
  EXPECT_EQ(oNative.GetValue(), "One\nTwo\nThree");
  EXPECT_EQ(oNative.GetInsertionPoint(), 13);
  moRobot.Click(oBox);
  moRobot.Key(WXK_END, wxMOD_CONTROL);
  moRobot.Key(WXK_RETURN);
  moRobot.Type("four");
  EXPECT_EQ(ToUtf8(oBox.Text()), "One\r\nTwo\r\nThree\r\nfour");
  EXPECT_EQ(oBox.SelStart(), 21);
}

TEST_F(WxTest, NoMoreThanMaxLengthIsTyped) {
  for (TextBox* po : {&moForm.txtName, &moForm.txtResults}) {
    SCOPED_TRACE(ToUtf8(po->Name()));
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
  ListView& oList = moForm.lvwRows;
  const int nRow = RowHeightOf(oList), nHead = NativeOf<RowsPane>(oList).RowAt(0) == -1 ? 40 : 0;
  const auto Place = [&](int n) { return wxPoint(60, nHead + n * nRow); };
  const auto Selected = [&] {
    std::string s;
    for (std::int32_t i = 1; i <= oList.ListItems().Count(); ++i) {
      if (oList.ListItems().Item(i).Selected()) s += std::to_string(i) + " ";
    }
    return s;
  };
  const std::int32_t lFirst = NativeOf<RowsPane>(oList).RowAt(Place(0).y - 1) + 1;
  const auto Row = [&](int n) { return std::to_string(lFirst + n) + " "; };
  moRobot.ClickAt(oList, Place(0));
  EXPECT_EQ(Selected(), Row(0));
  moRobot.Key(WXK_DOWN, wxMOD_SHIFT);
  EXPECT_EQ(Selected(), Row(0) + Row(1));
  EXPECT_EQ(Take(), "Item Item");
  moRobot.DoubleClickAt(oList, Place(3));
  EXPECT_EQ(Take(), "Item DblClick");
  moRobot.Key(WXK_END);
  EXPECT_EQ(Selected(), "40 ");
  EXPECT_GT(NativeOf<RowsPane>(oList).Top(), 10);
  EXPECT_EQ(Take(), "Item");
}

TEST_F(WxTest, HeadersSortAndChangeTheirWidths) {
  ListView& oList = moForm.lvwRows;
  const std::int32_t lTwips = poToolkit->Screen().TwipsPerPixelX();
  const int nEdge = 1500 / lTwips + 1;
  moRobot.ClickAt(oList, {nEdge + 40, 8});
  EXPECT_EQ(Take(), "Column");
  moRobot.Drag(oList, {nEdge, 8}, {nEdge + 30, 8});
  EXPECT_NEAR(oList.ColumnHeaders().Item(1).Width(), 1500 + 30 * lTwips, 2 * lTwips);
  EXPECT_EQ(Take(), "");
}

TEST_F(WxTest, NodesExpandAndAreSelectedByMouseAndKeys) {
  TreeView& oTree = moForm.tvwAll;
  const int nRow = RowHeightOf(oTree);
  const wxPoint oForm(120 * 15 / poToolkit->Screen().TwipsPerPixelX() / 2, nRow + nRow / 2);
  moRobot.ClickAt(oTree, oForm);
  ASSERT_TRUE(oTree.SelectedItem());
  EXPECT_EQ(ToUtf8(oTree.SelectedItem()->Key()), "f");
  EXPECT_EQ(Take(), "Node");
  moRobot.Key(WXK_RIGHT);
  EXPECT_EQ(Take(), "Expand");
  moRobot.Key(WXK_RIGHT);
  EXPECT_EQ(ToUtf8(oTree.SelectedItem()->Key()), "m");
  moRobot.DoubleClickAt(oTree, oForm);
  EXPECT_EQ(ToUtf8(oTree.SelectedItem()->Key()), "f");
  EXPECT_FALSE(oTree.SelectedItem()->Expanded());
  oTree.Nodes().Clear();  // with a selected node, and the window on the screen
  moRobot.Settle();
  EXPECT_EQ(oTree.SelectedItem(), nullptr);
}

TEST_F(WxTest, ListsAnswerToKeysAndLetters) {
  moRobot.Click(moForm.lstFew);
  moForm.lstFew.SetListIndex(-1);
  Take();
  moRobot.Type("t");
  EXPECT_EQ(ToUtf8(moForm.lstFew.Text()), "Two");
  moRobot.Key(WXK_HOME);
  EXPECT_EQ(moForm.lstFew.ListIndex(), 0);
  EXPECT_EQ(Take(), "Few Few");
  moForm.cboKind.SetFocus();
  moRobot.Key(WXK_DOWN);
  moRobot.Key(WXK_DOWN);
  EXPECT_EQ(ToUtf8(moForm.cboKind.Text()), "ActiveX");
  EXPECT_EQ(Take(), "Kind Kind");
}

TEST_F(WxTest, AListThatAButtonDropsHasTheFocusAndShowsAllItsEntries) {
  Chooser& oChooser = moForm.choKind;
  ListBox& oList = oChooser.lstChoices;
  moForm.cmdCancel.SetCancel(false);  // would have Escape
  moRobot.Click(oChooser.cmdDrop);
  EXPECT_EQ(moForm.ActiveControl(), &oList);
  EXPECT_TRUE(NativeOf<wxWindow>(oList).HasFocus());
  EXPECT_EQ(Take(), "");  // the press is no click any more
  EXPECT_GE(NativeOf<RowsPane>(oList).PageRows(), oList.ListCount());
  EXPECT_FALSE(NativeOf<wxWindow>(oList).HasScrollbar(wxVERTICAL));
  EXPECT_GE(RowHeightOf(oList), NativeOf<wxWindow>(oList).GetCharHeight());
  moRobot.Key(WXK_DOWN);
  moRobot.Key(WXK_DOWN);
  EXPECT_EQ(ToUtf8(oList.Text()), "VB");
  moRobot.Key(WXK_ESCAPE);
  EXPECT_FALSE(oList.Visible());
  EXPECT_EQ(ToUtf8(oChooser.txtEntry.Text()), "VB");
  EXPECT_EQ(moForm.ActiveControl(), &oChooser.txtEntry);
  EXPECT_EQ(Take(), "Key Key Key");
  moRobot.Click(moForm.cmdApply);  // buttons that keep the focus click
  EXPECT_EQ(Take(), "Apply");
}

TEST_F(WxTest, AUserControlKeepsTheFocusThatItHoldsItself) {
  moForm.choKind.txtEntry.SetFocus();
  moForm.choKind.Control::SetFocus();
  moRobot.Key(WXK_DOWN);
  EXPECT_EQ(moForm.ActiveControl(), &moForm.choKind);
  moForm.choKind.txtEntry.SetVisible(false);  // as a row without a value has it
  moRobot.Key(WXK_DOWN);
  EXPECT_EQ(moForm.ActiveControl(), &moForm.choKind);
  EXPECT_EQ(Take(), "Key Key");
}

TEST_F(WxTest, AFormWithoutAControlForTheFocusHearsKeys) {
  FQuestion oQuestion(*poToolkit);
  moForm.oLog.Watch(oQuestion.KeyDown, "Form");
  oQuestion.Show();
  moRobot.Click(oQuestion);
  oQuestion.cmdYes.SetVisible(false);
  oQuestion.cmdMore.SetVisible(false);
  moRobot.Key(WXK_DOWN);
  EXPECT_EQ(Take(), "Form");
  oQuestion.Unload();
}

TEST_F(WxTest, ElementsOfArraysComeAndGoWhileTheirFormShows) {
  const auto Ink = [this] {
    moRobot.Settle();
    return NativeOf<wxWindow>(moForm.chkMore(0)).GetParent()->GetChildren().size();
  };
  const std::size_t lBefore = Ink();
  for (std::int32_t i = 1; i <= 3; ++i) {
    moForm.lblMore.Load(i).SetTop(3500 + 480 * i);
    moForm.chkMore.Load(i).SetTop(3750 + 480 * i);
    moForm.lblMore(i).SetVisible(true);
    moForm.chkMore(i).SetVisible(true);
  }
  EXPECT_EQ(Ink(), lBefore + 3);
  moRobot.Click(moForm.chkMore(2));
  EXPECT_TRUE(moForm.chkMore(2).Checked());
  moForm.lblMore(1).SetCaption(u"Ends with a change that nobody has painted");
  for (std::int32_t i = 1; i <= 3; ++i) {
    moForm.lblMore.Unload(i);
    moForm.chkMore.Unload(i);
  }
  EXPECT_EQ(Ink(), lBefore);
  ASSERT_TRUE(moForm.ActiveControl());
  EXPECT_TRUE(moForm.ActiveControl()->Usable());
}

TEST_F(WxTest, TheMouseSelectsLinesOfCode) {
  CodePane& oCode = moForm.codText;
  const int nRow = RowHeightOf(oCode);
  moRobot.Drag(oCode, {90, nRow + nRow / 2}, {90, 2 * nRow + nRow / 2});
  EXPECT_EQ(ToUtf8(oCode.SelText()), "  Dim x As Long\r\n\tx = 1");
  moRobot.Key('C', wxMOD_CONTROL);
  EXPECT_EQ(poToolkit->Clipboard().GetText(), oCode.SelText());
}

TEST_F(WxTest, MenusDropCheckAndGrow) {
  const auto oLink = moForm.mnuFile.Click.Connect([this] { moForm.mnuOpen.SetEnabled(false); });
  moForm.mnuRecent.Load(1).SetCaption(u"&2 Second");
  moForm.mnuRecent(1).SetVisible(true);
  moForm.oLog.Watch(moForm.mnuRecent(1).Click, "Recent");
  moRobot.Settle();
  moRobot.Key('F', wxMOD_ALT);
  moRobot.Key('2');
  EXPECT_EQ(Take(), "Recent");
  EXPECT_FALSE(moForm.mnuOpen.Enabled());
  moForm.mnuProof.SetChecked(true);
  moForm.lvwRows.SetFocus();  // which has its own way with keys
  moRobot.Settle();
  moRobot.Key('F', wxMOD_ALT);
  moRobot.Key('P');
  EXPECT_EQ(Take(), "Proof");
  EXPECT_TRUE(moForm.mnuProof.Checked());
}

TEST_F(WxTest, AFormFollowsItsWindow) {
  const std::int32_t lTwips = poToolkit->Screen().TwipsPerPixelX();
  wxTopLevelWindow& oFrame = moRobot.FrameOf(moForm);
  oFrame.SetSize(oFrame.GetSize() + wxSize(40, 20));
  moRobot.Settle();
  EXPECT_NE(Take().find("Resize"), std::string::npos);
  EXPECT_EQ(moForm.Width(), 11400 / lTwips * lTwips + 40 * lTwips);
  EXPECT_EQ(moForm.staBelow.Top() + moForm.staBelow.Height(), moForm.ScaleHeight());
  // Code that sets a size that is no whole number of pixels gets its own size back.
  moForm.Move(300, 300, 10007, 8003);
  moRobot.Settle();
  EXPECT_EQ(moForm.Width(), 10007);
  EXPECT_EQ(moForm.Height(), 8003);
}

TEST_F(WxTest, ModalFormsNest) {
  FQuestion oQuestion(*poToolkit);
  int nStep = 0;
  moRobot.WhenModal([&](Form&) {
    moRobot.Click(moForm.cmdApply);  // is behind a modal form
    EXPECT_EQ(Take(), "");
    moRobot.WhenModal([&](Form& oInner) {
      ++nStep;
      moRobot.Click(static_cast<FQuestion&>(oInner).cmdYes);
    });
    moRobot.Click(oQuestion.cmdMore);
    EXPECT_EQ(oQuestion.nInner, 1);
    ++nStep;
    moRobot.Key('Y', wxMOD_ALT);
  });
  oQuestion.Show(ShowMode::Modal);
  EXPECT_EQ(nStep, 2);
  EXPECT_FALSE(oQuestion.Visible());
  oQuestion.Unload();
  moRobot.Click(moForm.cmdApply);
  EXPECT_EQ(Take(), "Apply");
}

TEST_F(WxTest, AFormMayEndInAnyOfItsEvents) {
  struct Row {
    const char* psName;
    Signal<>& oSignal;
    std::function<void()> oAct;
  };
  const Row oRows[] = {
      {"button", moForm.cmdApply.Click, [&] { moRobot.Click(moForm.cmdApply); }},
      {"check box", moForm.chkLocked.Click, [&] { moRobot.Click(moForm.chkLocked); }},
      {"option", moForm.optFirst.Click, [&] { moRobot.Click(moForm.optFirst); }},
      {"label", moForm.lblName.Click, [&] { moRobot.Click(moForm.lblName); }},
      {"picture", moForm.picOpen.Click, [&] { moRobot.Click(moForm.picOpen); }},
      {"list", moForm.lstFew.Click,
       [&] {
         moRobot.ClickAt(moForm.lstFew, {20, 10});
       }},
      {"tab", moForm.tabPages.Click,
       [&] {
         moRobot.ClickAt(moForm.tabPages, {20, 10});
       }},
      {"text", moForm.txtName.Change, [&] { moRobot.Type("a"); }},
      {"menu", moForm.mnuOpen.Click, [&] { moRobot.Key('O', wxMOD_CONTROL); }},
      {"table", moForm.lvwRows.DblClick,
       [&] {
         moRobot.DoubleClickAt(moForm.lvwRows, {60, 60});
       }},
  };
  for (const Row& o : oRows) {
    SCOPED_TRACE(o.psName);
    if (!moForm.Visible()) moForm.Show();
    moRobot.Settle();
    const auto oLink = o.oSignal.Connect([this] { moForm.Unload(); });
    o.oAct();
    EXPECT_FALSE(moForm.Loaded());
  }
}

TEST_F(WxTest, TimersTickWhileEventsRun) {
  moForm.tmrOnce.SetInterval(20);
  EXPECT_TRUE(moRobot.Until([this] { return Take().find("Tick") != std::string::npos; }));
  moForm.tmrOnce.SetEnabled(false);
  moRobot.Settle();
  Take();
  moRobot.Settle();
  EXPECT_EQ(Take(), "");
}

TEST_F(WxTest, NoTextIsClipped) {
  const double dDpi = std::atof(std::getenv("SCREEN_DPI"));
  EXPECT_EQ(poToolkit->Screen().TwipsPerPixelX(), static_cast<std::int32_t>(1440 / dDpi));
  Control* const apoControl[] = {&moForm.cmdApply, &moForm.chkLocked, &moForm.optFirst,
                                 &moForm.cboKind, &moForm.txtName};
  moForm.cboKind.SetListIndex(0);
  moForm.optFirst.SetHeight(90);  // lower than any text
  moRobot.Settle();
  for (Control* po : apoControl) {
    SCOPED_TRACE(ToUtf8(po->Name()));
    const wxWindow& oNative = NativeOf<wxWindow>(*po);
    if (po->Kind() == ComponentKind::TextBox) {
      EXPECT_GE(oNative.GetSize().y, oNative.GetCharHeight());
    } else {
      EXPECT_GE(oNative.GetSize().x, oNative.GetBestSize().x);
      EXPECT_GE(oNative.GetSize().y, oNative.GetBestSize().y);
    }
  }
}
