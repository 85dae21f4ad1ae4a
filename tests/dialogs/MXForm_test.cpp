// Where windows come up: in the middle, where they were kept, and always on the screen, which is
// 15360 by 11520 twips here.
#include "MXForm.h"

#include <limits>

#include "DialogTest.h"
#include "PictureBox.h"

namespace {

using namespace Forms;

constexpr std::int32_t Most = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t None = -9;

class MXFormTest : public DialogTest {
 protected:
  MXFormTest() { moForm.Move(300, 450, 4001, 3000); }
  std::int32_t Kept(TextView sName) { return MXRegistry::GetRegLong(mhKey, sName, None); }
  void Keep(const Rect& o) {
    const std::pair<TextView, std::int32_t> aoPart[] = {
        {u"Left", o.lLeft}, {u"Top", o.lTop}, {u"Width", o.lWidth}, {u"Height", o.lHeight}};
    for (const auto& [sName, lValue] : aoPart) {
      MXRegistry::DeleteRegValue(mhKey, sName);
      if (lValue != None) MXRegistry::SetRegLong(mhKey, sName, lValue);
    }
  }

  std::int32_t mhKey =
      MXRegistry::OpenRegKey(MXRegistry::HKEY_CURRENT_USER, u"Places", MXRegistry::KEY_ALL_ACCESS);
  Form moForm{moToolkit, u"FPlaced"};
  PictureBox picBar{moForm, u"picBar"};
};

TEST_F(MXFormTest, TheMiddleOfTheOwnerOrAboveThatOfTheScreen) {
  MXForm::Center(moForm);
  EXPECT_EQ(moForm.Bounds(), (Rect{5679, 2982, 4001, 3000}));
  Form oOwner(moToolkit, u"FOwner");
  oOwner.Move(1000, 2000, 6000, 2000);
  MXForm::Center(moForm, &oOwner);
  EXPECT_EQ(moForm.Bounds(), (Rect{1999, 1500, 4001, 3000}));
  moRenderer.SetMetrics({{0, 0, 15000, 12000}, {450, 300, 14550, 11000}, 15, 15});
  MXForm::FitToScreen(moForm);
  EXPECT_EQ(moForm.Bounds(), (Rect{450, 300, 14550, 11000}));
}

TEST_F(MXFormTest, KeptPlacesComeBackOntoTheScreen) {
  // The size isn't asked for in the first one.
  const struct {
    const char* sName;
    Rect oKept, oPlace;
  } aoRow[] = {{"place alone", {15, 30, 6000, 4500}, {15, 30, 4001, 3000}},
               {"one part kept", {None, 30, None, None}, {300, 30, 4001, 3000}},
               {"before the screen", {-700, -1, None, None}, {0, 0, 4001, 3000}},
               {"a twip off the edge", {11360, 8521, None, None}, {11359, 8520, 4001, 3000}},
               {"off every screen", {Most, -Most, None, None}, {11359, 0, 4001, 3000}},
               {"larger than the screen", {100, 100, 20000, 12000}, {0, 0, 20000, 12000}},
               {"no size at all", {15, 30, -1, -Most}, {15, 30, 4001, 3000}},
               {"as large as can be", {15, 30, Most, Most}, {0, 0, Most, Most}}};
  for (const auto& o : aoRow) {
    SCOPED_TRACE(o.sName);
    Keep(o.oKept);
    moForm.Move(300, 450, 4001, 3000);
    MXForm::RestorePosition(moForm, mhKey, &o != aoRow);
    EXPECT_EQ(moForm.Bounds(), o.oPlace);
  }
}

TEST_F(MXFormTest, AMinimisedWindowLeavesItsLastPlaceAlone) {
  MXForm::SavePosition(moForm, mhKey, false);
  moForm.Move(900, 900);
  moForm.SetWindowState(WindowState::Minimized);
  MXForm::SavePosition(moForm, mhKey, true);
  EXPECT_EQ(Kept(u"State"), 1);
  EXPECT_EQ(Kept(u"Left"), 300);
  EXPECT_EQ(Kept(u"Width"), None);
  moForm.SetWindowState(WindowState::Maximized);
  MXForm::SavePosition(moForm, mhKey, true);
  EXPECT_EQ(Kept(u"State"), 2);
  EXPECT_EQ(Kept(u"Width"), moForm.Width());
}

TEST_F(MXFormTest, ASplitterBarIsHeldToNothingAndHasNoState) {
  picBar.Move(-150, 20000, 60, 900);
  MXForm::SavePosition(picBar, mhKey, true);
  picBar.Move(0, 0, 15, 15);
  MXForm::RestorePosition(picBar, mhKey, true);
  EXPECT_EQ(picBar.Bounds(), (Rect{-150, 20000, 60, 900}));
  EXPECT_EQ(Kept(u"State"), None);
}

}  // namespace
