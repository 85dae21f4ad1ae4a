// What forms share, and the script that stands for a user.
#include "Form.h"
#include "FormsFixture.h"
#include "Timer.h"

namespace {

using namespace Forms;

struct FTimers : Form {
  explicit FTimers(Toolkit& toolkit) : Form(toolkit, u"FTimers") {}
  void Design() override {
    tmrFast.SetInterval(40);
    tmrSlow.SetInterval(100);
    tmrOff.SetInterval(10);
    tmrOff.SetEnabled(false);
  }
  Timer tmrFast{*this, u"tmrFast"}, tmrSlow{*this, u"tmrSlow"}, tmrOff{*this, u"tmrOff"};
};

struct ToolkitTest : FormsTest {
  FTimers moForm{moToolkit};
};

TEST_F(ToolkitTest, TimersFireInTheOrderOfTheirTime) {
  EventLog log;
  log.Watch(moForm.tmrFast.Tick, "fast");
  log.Watch(moForm.tmrSlow.Tick, "slow");
  log.Watch(moForm.tmrOff.Tick, "off");
  const auto Heard = [&](std::int32_t wait) { return moRenderer.Advance(wait), log.Take(); };
  EXPECT_EQ(Heard(1000), "") << "the form isn't loaded";
  moForm.Load();
  EXPECT_EQ(Heard(119), "fast fast slow");
  EXPECT_EQ(Heard(1), "fast");
  EXPECT_FALSE(moForm.tmrOff.Fire());
  auto link = moForm.tmrSlow.Tick.Connect([&] {
    moForm.tmrSlow.SetEnabled(false);
    moForm.tmrOff.SetEnabled(true);
  });
  moForm.tmrFast.SetInterval(0);
  EXPECT_EQ(Heard(100), "slow off off");
  moForm.Unload();
  EXPECT_FALSE(moForm.tmrFast.Fire());
  EXPECT_EQ(Heard(100), "");
}

TEST_F(ToolkitTest, QuestionsWithoutAFittingAnswerAreFaults) {
  Script script;
  MsgBoxRequest box;
  box.eButtons = MsgBoxButtons::OkCancel;
  EXPECT_THROW(script.RunMsgBox(box), ScriptFault);
  script.MsgBox(MsgBoxResult::Yes);
  EXPECT_THROW(script.RunMsgBox(box), ScriptFault);
  script.MsgBox(MsgBoxResult::Ok);
  EXPECT_EQ(script.RunMsgBox(box), MsgBoxResult::Ok);
  EXPECT_THROW(script.RunModal(moForm), ScriptFault);
  script.Modal<FTimers>([](FTimers& o) { o.SetVisible(true); });
  EXPECT_THROW(script.RunModal(moForm), ScriptFault);
  EXPECT_EQ(script.Faults().size(), 4U);
  EXPECT_EQ(script.Boxes().size(), 3U);
}

TEST_F(ToolkitTest, AModalFormThatIsNotAnsweredCloses) {
  HeadlessRenderer oRenderer;
  Toolkit oToolkit(oRenderer);
  FTimers oForm(oToolkit);
  EXPECT_THROW(oForm.Show(ShowMode::Modal), ScriptFault);
  EXPECT_FALSE(oForm.Visible() || oForm.Modal());
  EXPECT_EQ(oToolkit.ModalForm(), nullptr);
}

TEST_F(ToolkitTest, BoxesTakeTitleAndOwnerFromTheProgram) {
  moToolkit.SetTitle(u"Title");
  moForm.Show();
  User().MsgBox([&](const MsgBoxRequest& o) {
    EXPECT_EQ(o.sTitle, u"Title");
    EXPECT_EQ(o.poOwner, &moForm);
    return MsgBoxResult::Cancel;
  });
  EXPECT_EQ(moToolkit.MsgBox(u"Go?", MsgBoxButtons::YesNoCancel), MsgBoxResult::Cancel);
}

TEST_F(ToolkitTest, ADialogThatIsCancelledChangesNothing) {
  FontDialog dialog;
  for (const bool confirmed : {false, true}) {
    User().ChooseFont([&](FontDialog& o) {
      return o.oFont.dSize = 20, DialogAnswer{confirmed, 0};
    });
    EXPECT_EQ(moToolkit.ChooseFont(dialog).bConfirmed, confirmed);
    EXPECT_EQ(dialog.oFont.dSize, confirmed ? 20 : 8.25);
  }
}

TEST_F(ToolkitTest, DrawingIsLockedForOneAtATime) {
  FTimers oOther(moToolkit);
  EXPECT_TRUE(moToolkit.LockWindowUpdate(&moForm) && moToolkit.LockWindowUpdate(&moForm));
  EXPECT_FALSE(moToolkit.LockWindowUpdate(&oOther));
  EXPECT_TRUE(moToolkit.LockWindowUpdate(nullptr) && moToolkit.LockWindowUpdate(&oOther));
  EXPECT_EQ(moToolkit.LockedControl(), &oOther);
}

TEST_F(ToolkitTest, TextsPicturesPointerClipboard) {
  moToolkit.SetResString(201, u"tip");
  EXPECT_EQ(moToolkit.LoadResString(201), u"tip");
  EXPECT_EQ(FailureOf([&] { moToolkit.LoadResString(202); }), 326);
  EXPECT_EQ(moToolkit.Picture(u"Star", 16), "");
  moToolkit.SetPictures([](TextView s, std::int32_t l) { return ToUtf8(s) + std::to_string(l); });
  EXPECT_EQ(moToolkit.Picture(u"Star", 16), "Star16");
  moToolkit.Screen().SetMousePointer(Pointer::Hourglass);
  EXPECT_EQ(moRenderer.ShownPointer(), Pointer::Hourglass);
  moToolkit.Clipboard().SetText(u"text");
  moToolkit.Clipboard().SetPicture(u"icon");
  EXPECT_EQ(moToolkit.Clipboard().GetText() + moRenderer.ClipboardPicture(), u"icon");
}

TEST_F(ToolkitTest, MeasuresOfTheScreenThatIsNotThere) {
  FontSpec font;
  EXPECT_EQ(moRenderer.TextWidth(font, u"abc"), 270);
  EXPECT_EQ(moRenderer.TextHeight(font), 195);
  font.bBold = true;
  font.dSize = 12;
  EXPECT_EQ(moRenderer.TextWidth(font, u"abc"), 450);
  EXPECT_EQ(moForm.TextHeight(u"two\r\nlines"), 390);
  moForm.Load();
  EXPECT_EQ(moForm.ScaleWidth(), 4680);
  EXPECT_EQ(moForm.ScaleHeight(), 3600 - 465);
  moForm.Refresh();
  EXPECT_EQ(moRenderer.Refreshes(moForm), 1);
}

}  // namespace
