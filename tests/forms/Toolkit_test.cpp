// What forms share, and the script that stands for a user.
#include "Form.h"
#include "FormsFixture.h"
#include "Timer.h"

namespace {

using namespace Forms;

class FTimers : public Form {
 public:
  explicit FTimers(Toolkit& oToolkit) : Form(oToolkit, u"FTimers") {}
  Timer tmrFast{*this, u"tmrFast"}, tmrSlow{*this, u"tmrSlow"}, tmrOff{*this, u"tmrOff"};

 private:
  void Design() override {
    tmrFast.SetInterval(40);
    tmrSlow.SetInterval(100);
    tmrOff.SetInterval(10);
    tmrOff.SetEnabled(false);
  }
};

class ToolkitTest : public FormsTest {
 protected:
  FTimers moForm{moToolkit};
};

TEST_F(ToolkitTest, TimersFireInTheOrderOfTheirTime) {
  EventLog oLog;
  oLog.Watch(moForm.tmrFast.Tick, "fast");
  oLog.Watch(moForm.tmrSlow.Tick, "slow");
  oLog.Watch(moForm.tmrOff.Tick, "off");
  moRenderer.Advance(1000);  // the form isn't loaded
  moForm.Load();
  moRenderer.Advance(119);
  EXPECT_EQ(oLog.Take(), "fast fast slow");
  moRenderer.Advance(1);
  EXPECT_EQ(oLog.Take(), "fast");
  EXPECT_FALSE(moForm.tmrOff.Fire());
  auto oLink = moForm.tmrSlow.Tick.Connect([&] {
    moForm.tmrSlow.SetEnabled(false);
    moForm.tmrOff.SetEnabled(true);
  });
  moForm.tmrFast.SetInterval(0);
  moRenderer.Advance(100);
  EXPECT_EQ(oLog.Take(), "slow off off");
  moForm.Unload();
  moRenderer.Advance(100);
  EXPECT_FALSE(moForm.tmrFast.Fire());
  EXPECT_EQ(oLog.Take(), "");
}

TEST_F(ToolkitTest, QuestionsWithoutAFittingAnswerAreFaults) {
  Script oScript;
  MsgBoxRequest oBox;
  oBox.sPrompt = u"Discard?";
  oBox.eButtons = MsgBoxButtons::OkCancel;
  EXPECT_THROW(oScript.RunMsgBox(oBox), ScriptFault);
  oScript.MsgBox(MsgBoxResult::Yes);
  EXPECT_THROW(oScript.RunMsgBox(oBox), ScriptFault);
  oScript.MsgBox(MsgBoxResult::Ok);
  EXPECT_EQ(oScript.RunMsgBox(oBox), MsgBoxResult::Ok);
  EXPECT_THROW(oScript.RunModal(moForm), ScriptFault);
  oScript.Modal<FTimers>([](FTimers& o) { o.SetVisible(true); });
  EXPECT_THROW(oScript.RunModal(moForm), ScriptFault);
  EXPECT_EQ(oScript.Faults().size(), 4U);
  EXPECT_EQ(oScript.Boxes().size(), 3U);
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
  FontDialog oDialog;
  User().ChooseFont([](FontDialog& o) { return o.oFont.dSize = 20, DialogAnswer{false, 0}; });
  EXPECT_FALSE(moToolkit.ChooseFont(oDialog).bConfirmed);
  EXPECT_EQ(oDialog.oFont.dSize, 8.25);
  User().ChooseFont([](FontDialog& o) { return o.oFont.dSize = 20, DialogAnswer{true, 0}; });
  EXPECT_TRUE(moToolkit.ChooseFont(oDialog).bConfirmed);
  EXPECT_EQ(oDialog.oFont.dSize, 20);
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
  moToolkit.SetPictures(
      [](TextView sKey, std::int32_t l) { return ToUtf8(sKey) + std::to_string(l); });
  EXPECT_EQ(moToolkit.Picture(u"Star", 16), "Star16");
  moToolkit.Screen().SetMousePointer(Pointer::Hourglass);
  EXPECT_EQ(moRenderer.ShownPointer(), Pointer::Hourglass);
  moToolkit.Clipboard().SetText(u"text");
  moToolkit.Clipboard().SetPicture(u"icon");
  EXPECT_EQ(moToolkit.Clipboard().GetText() + moRenderer.ClipboardPicture(), u"icon");
}

TEST_F(ToolkitTest, MeasuresOfTheScreenThatIsNotThere) {
  FontSpec oFont;
  EXPECT_EQ(moRenderer.TextWidth(oFont, u"abc"), 270);
  EXPECT_EQ(moRenderer.TextHeight(oFont), 195);
  oFont.bBold = true;
  oFont.dSize = 12;
  EXPECT_EQ(moRenderer.TextWidth(oFont, u"abc"), 450);
  EXPECT_EQ(moForm.TextHeight(u"two\r\nlines"), 390);
  moForm.Load();
  EXPECT_EQ(moForm.ScaleWidth(), 4680);
  EXPECT_EQ(moForm.ScaleHeight(), 3600 - 465);
  moForm.Refresh();
  EXPECT_EQ(moRenderer.Refreshes(moForm), 1);
}

}  // namespace
