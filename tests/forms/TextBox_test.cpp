// Text boxes and the code pane.
#include "TextBox.h"

#include "CodePane.h"
#include "Play.h"

namespace {

using namespace Forms;

class TextBoxTest : public PlayTest {
 protected:
  TextBoxTest() {
    log.Watch(box.Change, "change");
    log.Watch(cmdOK.Click, "OK");
    cmdOK.SetDefault(true);
    form.Show();
    Can("set", [this](auto& o) { box.SetText(o.Wide(1)); });
    Can("at", [this](auto& o) {
      box.SetSelStart(o.Number(1));
      box.SetSelLength(o.Number(2));
    });
    Can("put", [this](auto& o) { box.SetSelText(o.Wide(1)); });
    Can("most", [this](auto& o) { box.SetMaxLength(o.Number(1)); });
    Can("lines", [this](auto&) { box.SetMultiLine(true); });
    Can("lock", [this](auto&) { box.SetLocked(true); });
    Can("copied", [this](auto& o) { moToolkit.Clipboard().SetText(Marked(o.Word(1))); });
    Can("enters", [this](auto& o) { return box.UserType(Marked(o.Word(1))); });
    Can("native",
        [this](auto& o) { return box.UserText(Marked(o.Word(1)), o.Number(2), o.Number(3)); });
    Can("cut", [this](auto&) { return box.UserCut(); });
  }
  /// The text with a line end for each "/".
  static Text Marked(const std::string& text) {
    Text all;
    for (const char c : text) all += c == '/' ? Text(u"\r\n") : Text(1, static_cast<char16_t>(c));
    return all;
  }
  /// The text with brackets around the selection, "/" for line ends.
  std::string Look() override {
    std::string all = ToUtf8(box.Text());
    const auto start = static_cast<std::size_t>(box.SelStart());
    all.insert(start + static_cast<std::size_t>(box.SelLength()), "]").insert(start, "[");
    std::erase(all, '\r');
    std::replace(all.begin(), all.end(), '\n', '/');
    return all;
  }
  TextBox box{form, u"box"};
  CodePane code{form, u"code"};
  CommandButton cmdOK{form, u"cmdOK"};
};

TEST_F(TextBoxTest, CodeRaisesOneChangePerChange) {
  Play(R"(
    a new text, twice      | set new; set new | []new  | change
    behind the end         | at 99; put !     | new![] | change
    from before the start, beyond the end | at -3 99 | [new!] |
    put over itself        | put new!         | new![] |)");
}

TEST_F(TextBoxTest, UserEdits) {
  Play(R"(
    typing replaces the selection    | set abcd; at 1 2; type box xy | axy[]d | change change change
    Back takes what is left          | key box Back           | ax[]d  | change
    Back at the start                | at 0; key box Back     | []axd  |
    Delete at the end                | at 3; key box Delete   | axd[]  |
    Delete takes the selection       | at 1 2; key box Delete | a[]    | change
    a letter key types it            | key box Q Shift        | aQ[]   | change
    Ctrl+X                           | at 0 1; key box X Ctrl | []Q    | change
    Ctrl+V                           | key box End; key box V Ctrl        | Qa[]  | change
    a single line ends at a line end | copied 1/2; key box Insert Shift; enters / | Qa1[] | change
    Ctrl+A                           | key box A Ctrl         | [Qa1]  |
    no more than MaxLength           | set abcd; at 1 1; most 5; copied 12345; key box V Ctrl | a12[]cd | change change
    nor by the native control        | native aaa12cd 5       | aaa[]cd | change
    a line end goes as a whole       | native aaa/cd 5        |         |
    and not by halves                | most 6; native aaa/cd 5 |        |
    code may set more: the user takes away | most 2; native aacd 2 | aa[]cd | change
    the native control's edit        | most 0; native native 9 1          | native[] | change
    locked for the user              | set abcd; at 0 2; lock; type box x; key box Delete; native other 0; cut | [ab]cd | change no no)");
}

TEST_F(TextBoxTest, AHandlerChangesAndDropsWhatIsTyped) {
  auto link = box.KeyPress.Connect([](std::int32_t& n) { n = n == u'x' || n == 22 ? 0 : n + 1; });
  Play(R"(
    characters         | type box axb             | bc[]    | change change
    a pasting key      | copied 1; key box V Ctrl |         |)");
}

TEST_F(TextBoxTest, ReturnInAMultiLineBoxIsALineEnd) {
  Play(R"(
    a single line: the default button | key box Return                    | []      | OK
    many                              | lines; enters a/b; key box Return | a/b/[]  | change change change change)");
  EXPECT_EQ(box.Text(), u"a\r\nb\r\n");
}

TEST_F(TextBoxTest, AHandlerThatUnloadsTheFormEndsTheKeyThere) {
  auto link = box.KeyPress.Connect([&](std::int32_t&) { form.Unload(); });
  box.UserKey(u'X');
  EXPECT_FALSE(form.Loaded());
}

TEST_F(TextBoxTest, CodePaneKnowsLinesMarksAndNumbers) {
  code.SetText(u"one\r\n\ntwo\rthree\r\n");
  EXPECT_EQ(code.LineCount(), 4);
  EXPECT_EQ(code.Line(2) + code.Line(4), u"three");
  code.SetLineNumber(3, u"+");
  EXPECT_EQ(code.LineNumber(3) + code.LineNumber(4), u"+4");
  code.SetTopLine(99);
  EXPECT_EQ(code.TopLine(), 4);
  EXPECT_FALSE(code.UserCopy() || code.UserSelectLines(3, 5));
  EXPECT_TRUE(code.UserSelectLines(3, 4) && code.UserKey(u'C', Shift::Ctrl));
  EXPECT_EQ(moToolkit.Clipboard().GetText(), u"two\r\nthree");
  EXPECT_EQ(FailureOf([&] { code.SetMark(5, LineMark::None); }), 5);
  code.SetLines({{LineMark::None, u"", u"x"}, {LineMark::Removed, u"-", u"y\r\n"}});
  EXPECT_EQ(code.Text(), u"x\r\ny\u240D\u240A");
  EXPECT_EQ(code.LineNumber(1) + code.LineNumber(2) + code.Line(2), u"-y\u240D\u240A");
  EXPECT_EQ(code.Mark(2), LineMark::Removed);
  EXPECT_EQ(code.SelEndLine(), 0);
  code.SetText(u"");
  EXPECT_EQ(code.LineCount() + code.SelEndLine(), 0);
  EXPECT_EQ(code.TopLine(), 1);
  EXPECT_EQ(FailureOf([&] { code.Mark(1); }), 5);
}

}  // namespace
