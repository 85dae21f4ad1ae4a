// Where windows come up: in the middle, where they were kept, and always on the screen, which is
// 15360 by 11520 twips here.
#include "MXForm.h"

#include <limits>
#include <optional>

#include "Form.h"
#include "FormsFixture.h"
#include "MXRegistry.h"
#include "PictureBox.h"
#include "RegistryStore.h"

namespace {

using namespace Forms;

constexpr std::int32_t Most = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t Least = std::numeric_limits<std::int32_t>::min();

class FPlaced : public Form {
 public:
  explicit FPlaced(Toolkit& oToolkit) : Form(oToolkit, u"FPlaced") {}
  PictureBox picBar{*this, u"picBar"};

 private:
  void Design() override { Move(300, 450, 4001, 3000); }
};

class MXFormTest : public FormsTest {
 protected:
  MXFormTest() {
    goRegistry = &moStore;
    mhKey = MXRegistry::OpenRegKey(MXRegistry::HKEY_CURRENT_USER, u"Places",
                                   MXRegistry::KEY_ALL_ACCESS);
    moForm.Load();
  }
  ~MXFormTest() override { goRegistry = nullptr; }
  std::int32_t Kept(TextView sName) { return MXRegistry::GetRegLong(mhKey, sName, -9); }

  RegistryStore moStore;
  std::int32_t mhKey = 0;
  FPlaced moForm{moToolkit};
};

TEST_F(MXFormTest, TheMiddleOfTheOwnerOrAboveThatOfTheScreen) {
  MXForm::Center(moForm);
  EXPECT_EQ(moForm.Bounds(), (Rect{5679, 2982, 4001, 3000}));
  FPlaced oOwner(moToolkit);
  oOwner.Move(1000, 2000, 6000, 2000);
  MXForm::Center(moForm, &oOwner);
  EXPECT_EQ(moForm.Bounds(), (Rect{1999, 1500, 4001, 3000}));
}

TEST_F(MXFormTest, KeptPlacesComeBackOntoTheScreen) {
  struct Four {
    std::optional<std::int32_t> left, top, width, height;
  };
  const struct {
    const char* sName;
    Four oKept;
    bool bSize;
    Rect oPlace;
  } aoRow[] = {
      {"nothing kept", {}, true, {300, 450, 4001, 3000}},
      {"all kept", {15, 30, 6000, 4500}, true, {15, 30, 6000, 4500}},
      {"size not asked for", {15, 30, 6000, 4500}, false, {15, 30, 4001, 3000}},
      {"one part kept", {{}, 30, {}, {}}, true, {300, 30, 4001, 3000}},
      {"off the right and the bottom", {15000, 11000, {}, {}}, true, {11359, 8520, 4001, 3000}},
      {"a twip off the edge", {11360, 8521, {}, {}}, true, {11359, 8520, 4001, 3000}},
      {"off the left and the top", {-600, -1, {}, {}}, true, {0, 0, 4001, 3000}},
      {"off every screen", {Most, Least, {}, {}}, true, {11359, 0, 4001, 3000}},
      {"larger than the screen", {100, 100, 20000, 12000}, true, {0, 0, 20000, 12000}},
      {"no size at all", {15, 30, -1, Least}, true, {15, 30, 4001, 3000}},
      {"as large as can be", {15, 30, Most, Most}, true, {0, 0, Most, Most}},
  };
  const auto Keep = [&](TextView sName, const std::optional<std::int32_t>& oValue) {
    MXRegistry::DeleteRegValue(mhKey, sName);
    if (oValue) MXRegistry::SetRegLong(mhKey, sName, *oValue);
  };
  for (const auto& o : aoRow) {
    SCOPED_TRACE(o.sName);
    Keep(u"Left", o.oKept.left);
    Keep(u"Top", o.oKept.top);
    Keep(u"Width", o.oKept.width);
    Keep(u"Height", o.oKept.height);
    moForm.Move(300, 450, 4001, 3000);
    MXForm::RestorePosition(moForm, mhKey, o.bSize);
    EXPECT_EQ(moForm.Bounds(), o.oPlace);
  }
}

TEST_F(MXFormTest, AMinimisedWindowLeavesItsLastPlaceAlone) {
  MXForm::SavePosition(moForm, mhKey, false);
  EXPECT_EQ(Kept(u"State"), 0);
  EXPECT_EQ(Kept(u"Left"), 300);
  EXPECT_EQ(Kept(u"Width"), -9);
  moForm.Move(900, 900);
  moForm.SetWindowState(WindowState::Minimized);
  MXForm::SavePosition(moForm, mhKey, true);
  EXPECT_EQ(Kept(u"State"), 1);
  EXPECT_EQ(Kept(u"Left"), 300);
  EXPECT_EQ(Kept(u"Width"), -9);
  moForm.SetWindowState(WindowState::Maximized);
  MXForm::SavePosition(moForm, mhKey, true);
  EXPECT_EQ(Kept(u"State"), 2);
  EXPECT_EQ(Kept(u"Width"), moForm.Width());
}

TEST_F(MXFormTest, ASplitterBarIsHeldToNothingAndHasNoState) {
  moForm.picBar.Move(-150, 20000, 60, 900);
  MXForm::SavePosition(moForm.picBar, mhKey, true);
  moForm.picBar.Move(0, 0, 15, 15);
  MXForm::RestorePosition(moForm.picBar, mhKey, true);
  EXPECT_EQ(moForm.picBar.Bounds(), (Rect{-150, 20000, 60, 900}));
  EXPECT_EQ(Kept(u"State"), -9);
}

TEST_F(MXFormTest, FitsIntoWhatTaskBarsLeave) {
  moRenderer.SetMetrics({{0, 0, 15000, 12000}, {450, 300, 14550, 11000}, 15, 15});
  MXForm::FitToScreen(moForm);
  EXPECT_EQ(moForm.Bounds(), (Rect{450, 300, 14550, 11000}));
}

}  // namespace
