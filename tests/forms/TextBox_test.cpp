// Text boxes and the code pane.
#include "TextBox.h"

#include "CodePane.h"
#include "CommandButton.h"
#include "Form.h"
#include "FormsFixture.h"

namespace {

using namespace Forms;

class FText : public Form {
 public:
  explicit FText(Toolkit& oToolkit) : Form(oToolkit, u"FText") {}
  TextBox txtLine{*this, u"txtLine"}, txtLines{*this, u"txtLines"};
  CodePane cpnCode{*this, u"cpnCode"};
  CommandButton cmdOK{*this, u"cmdOK"};

 private:
  void Design() override {
    txtLine.SetText(u"design");
    txtLines.SetMultiLine(true);
    cmdOK.SetDefault(true);
  }
};

class TextBoxTest : public FormsTest {
 protected:
  TextBoxTest() {
    moLog.Watch(moForm.txtLine.Change, "change");
    moLog.Watch(moForm.cmdOK.Click, "OK");
    moForm.Show();
  }
  /// The text with bars around the selection.
  std::string Shown() const {
    Text s = moForm.txtLine.Text();
    const auto lStart = static_cast<std::size_t>(moForm.txtLine.SelStart());
    s.insert(lStart + static_cast<std::size_t>(moForm.txtLine.SelLength()), u"|");
    return ToUtf8(s.insert(lStart, u"|"));
  }
  EventLog moLog;
  FText moForm{moToolkit};
};

TEST_F(TextBoxTest, ChangeComesOncePerChangeAndNotAtDesign) {
  EXPECT_EQ(moLog.Take(), "");
  moForm.txtLine.SetText(u"new");
  moForm.txtLine.SetText(u"new");
  EXPECT_EQ(moLog.Take(), "change");
  moForm.txtLine.SetSelStart(99);
  moForm.txtLine.SetSelText(u"!");
  EXPECT_EQ(Shown(), "new!||");
  moForm.txtLine.SetSelStart(-3);
  moForm.txtLine.SetSelLength(99);
  EXPECT_EQ(Shown(), "|new!|");
  moForm.txtLine.SetSelText(u"new!");
  EXPECT_EQ(moLog.Take(), "change");
}

TEST_F(TextBoxTest, UserEdits) {
  struct Row {
    const char* sName;
    std::int32_t lStart, lLength;
    std::function<void(TextBox&)> oAct;
    const char* sShown;
  };
  const Row aoRow[] = {
      {"typing replaces the selection", 1, 2, [](TextBox& o) { o.UserType(u"xy"); }, "axy||d"},
      {"Back takes what is left", 2, 0, [](TextBox& o) { o.UserKey(Key::Back); }, "a||cd"},
      {"Back at the start", 0, 0, [](TextBox& o) { o.UserKey(Key::Back); }, "||abcd"},
      {"Delete at the end", 4, 0, [](TextBox& o) { o.UserKey(Key::Delete); }, "abcd||"},
      {"Delete takes the selection", 1, 2, [](TextBox& o) { o.UserKey(Key::Delete); }, "a||d"},
      {"a letter key types it", 4, 0, [](TextBox& o) { o.UserKey(u'Q', Shift::Shift); }, "abcdQ||"},
      {"Ctrl+X and Ctrl+V", 0, 2,
       [](TextBox& o) {
         o.UserKey(u'X', Shift::Ctrl);
         o.UserKey(Key::End);
         o.UserKey(u'V', Shift::Ctrl);
       },
       "cdab||"},
      {"a single line ends at a line end", 4, 0,
       [](TextBox& o) {
         o.Kit().Clipboard().SetText(u"1\r\n2");
         o.UserKey(Key::Insert, Shift::Shift);
         o.UserType(u"\r\n");
       },
       "abcd1||"},
      {"Ctrl+A", 2, 0, [](TextBox& o) { o.UserKey(u'A', Shift::Ctrl); }, "|abcd|"},
      {"no more than MaxLength", 1, 1,
       [](TextBox& o) {
         o.SetMaxLength(5);
         o.Kit().Clipboard().SetText(u"12345");
         o.UserPaste();
         o.SetMaxLength(0);
       },
       "a12||cd"},
      {"nor by the native control", 1, 1,
       [this](TextBox& o) {
         o.SetMaxLength(5);
         o.UserText(u"aaa12cd", 5);
         EXPECT_EQ(Shown(), "aaa||cd");
         o.UserText(u"aaa\r\ncd", 5);  // a line end goes as a whole
         EXPECT_EQ(Shown(), "aaa||cd");
         o.SetMaxLength(2);
         o.UserText(u"aacd", 2);  // code may set more: the user takes away
         o.SetMaxLength(0);
       },
       "aa||cd"},
      {"KeyPress changes and drops", 4, 0,
       [](TextBox& o) {
         auto oLink = o.KeyPress.Connect([](std::int32_t& n) { n = n == u'x' ? 0 : n + 1; });
         o.UserType(u"axb");
       },
       "abcdbc||"},
      {"a swallowed Ctrl+V pastes nothing", 0, 0,
       [](TextBox& o) {
         auto oLink = o.KeyPress.Connect([](std::int32_t& n) { n = n == 22 ? 0 : n; });
         o.UserKey(u'V', Shift::Ctrl);
       },
       "||abcd"},
      {"locked for the user", 0, 2,
       [](TextBox& o) {
         o.SetLocked(true);
         o.UserType(u"x");
         o.UserKey(Key::Delete);
         EXPECT_FALSE(o.UserText(u"other", 0) || o.UserCut());
         o.SetLocked(false);
       },
       "|ab|cd"},
      {"the native control's edit", 0, 0, [](TextBox& o) { o.UserText(u"native", 9, 1); },
       "native||"},
  };
  for (const Row& oRow : aoRow) {
    SCOPED_TRACE(oRow.sName);
    moForm.txtLine.SetText(u"abcd");
    moForm.txtLine.SetSelStart(oRow.lStart);
    moForm.txtLine.SetSelLength(oRow.lLength);
    oRow.oAct(moForm.txtLine);
    EXPECT_EQ(Shown(), oRow.sShown);
  }
}

TEST_F(TextBoxTest, ReturnInAMultiLineBoxIsALineEnd) {
  moForm.txtLines.UserType(u"a\r\nb");
  moForm.txtLines.UserKey(Key::Return);
  EXPECT_EQ(moForm.txtLines.Text(), u"a\r\nb\r\n");
  moForm.txtLine.UserKey(Key::Return);
  EXPECT_EQ(moLog.Take(), "OK");
}

TEST_F(TextBoxTest, AHandlerThatUnloadsTheFormEndsTheKeyThere) {
  auto oLink = moForm.txtLine.KeyPress.Connect([&](std::int32_t&) { moForm.Unload(); });
  moForm.txtLine.UserKey(u'X');
  EXPECT_FALSE(moForm.Loaded());
}

TEST_F(TextBoxTest, CodePaneKnowsLinesMarksAndNumbers) {
  auto& oPane = moForm.cpnCode;
  oPane.SetText(u"one\r\n\ntwo\rthree\r\n");
  EXPECT_EQ(oPane.LineCount(), 4);
  EXPECT_EQ(oPane.Line(2) + oPane.Line(4), u"three");
  oPane.SetMark(3, LineMark::Added);
  oPane.SetLineNumber(3, u"+");
  EXPECT_EQ(oPane.LineNumber(3) + oPane.LineNumber(4), u"+4");
  oPane.SetTopLine(99);
  EXPECT_EQ(oPane.TopLine(), 4);
  EXPECT_FALSE(oPane.UserCopy() || oPane.UserSelectLines(3, 5));
  EXPECT_TRUE(oPane.UserSelectLines(3, 4) && oPane.UserKey(u'C', Shift::Ctrl));
  EXPECT_EQ(moToolkit.Clipboard().GetText(), u"two\r\nthree");
  EXPECT_EQ(FailureOf([&] { oPane.SetMark(5, LineMark::None); }), 5);
  oPane.SetLines({{LineMark::None, u"", u"x"}, {LineMark::Removed, u"-", u"y\r\n"}});
  EXPECT_EQ(oPane.Text(), u"x\r\ny\u240D\u240A");
  EXPECT_EQ(oPane.LineNumber(1) + oPane.LineNumber(2) + oPane.Line(2), u"-y\u240D\u240A");
  EXPECT_EQ(oPane.Mark(2), LineMark::Removed);
  EXPECT_EQ(oPane.SelEndLine(), 0);
  oPane.SetText(u"");
  EXPECT_EQ(oPane.LineCount() + oPane.SelEndLine(), 0);
  EXPECT_EQ(oPane.TopLine(), 1);
  EXPECT_EQ(FailureOf([&] { oPane.Mark(1); }), 5);
}

}  // namespace
