#include "MXForm.h"

#include <algorithm>

#include "Form.h"
#include "Guard.h"
#include "MXRegistry.h"
#include "RegistryStore.h"
#include "Toolkit.h"

using namespace Forms;

namespace {

/// A failure to place a window is only logged (severity cosmetic).
template <class Work>
void Place(TextView sRoutine, Work&& oWork) {
  Guard({u"MXForm", sRoutine, ErrorIds::BoundaryNone, ErrorIds::SeverityCosmetic},
        [&](GuardScope&) { oWork(); });
}

bool IsForm(const Control& oControl) {
  return oControl.Kind() == ComponentKind::Form;
}

/// A stored size below 0 counts as missing.
std::int32_t KeptSize(std::int32_t hReg, TextView sName, std::int32_t lPresent) {
  const std::int32_t lSize = MXRegistry::GetRegLong(hReg, sName, lPresent);
  return lSize < 0 ? lPresent : lSize;
}

Rect KeptPlace(const Control& oForm, std::int32_t hReg, bool bSize) {
  Rect oPlace = oForm.Bounds();
  oPlace.lLeft = MXRegistry::GetRegLong(hReg, u"Left", oPlace.lLeft);
  oPlace.lTop = MXRegistry::GetRegLong(hReg, u"Top", oPlace.lTop);
  if (!bSize) return oPlace;
  oPlace.lWidth = KeptSize(hReg, u"Width", oPlace.lWidth);
  oPlace.lHeight = KeptSize(hReg, u"Height", oPlace.lHeight);
  return oPlace;
}

/// With 64-bit sums, because a stored place may be any number.
std::int32_t Inside(std::int32_t lStart, std::int32_t lSize, std::int32_t lContainer) {
  const std::int64_t lEnd = std::int64_t{lStart} + lSize;
  return std::max(lEnd > lContainer ? lContainer - lSize : lStart, 0);
}

}  // namespace

namespace MXForm {

void Center(Form& oForm, const Form* poOwner) {
  Place(u"Center", [&] {
    if (poOwner) {
      oForm.Move(poOwner->Left() + (poOwner->Width() - oForm.Width()) / 2,
                 poOwner->Top() + (poOwner->Height() - oForm.Height()) / 2);
    } else {
      const Screen& oScreen = oForm.App().Screen();
      oForm.Move((oScreen.Width() - oForm.Width()) / 2,
                 (oScreen.Height() - oForm.Height()) * 35 / 100);
    }
  });
}

void SavePosition(const Control& oForm, std::int32_t hReg, bool bSize) {
  Place(u"SavePosition", [&] {
    const RegistryStore::Batch oOneSave(CurrentRegistry());
    if (IsForm(oForm)) {
      const auto eState = static_cast<const Form&>(oForm).WindowState();
      MXRegistry::SetRegLong(hReg, u"State", static_cast<std::int32_t>(eState));
      if (eState == WindowState::Minimized) return;
    }
    MXRegistry::SetRegLong(hReg, u"Left", oForm.Left());
    MXRegistry::SetRegLong(hReg, u"Top", oForm.Top());
    if (!bSize) return;
    MXRegistry::SetRegLong(hReg, u"Width", oForm.Width());
    MXRegistry::SetRegLong(hReg, u"Height", oForm.Height());
  });
}

void RestorePosition(Control& oForm, std::int32_t hReg, bool bSize) {
  Place(u"RestorePosition", [&] {
    Rect oPlace = KeptPlace(oForm, hReg, bSize);
    if (IsForm(oForm)) {
      const Screen& oScreen = oForm.Kit().Screen();
      oPlace = NormalizePosition(oPlace, oScreen.Width(), oScreen.Height());
    }
    oForm.Move(oPlace.lLeft, oPlace.lTop, oPlace.lWidth, oPlace.lHeight);
  });
}

Rect NormalizePosition(const Rect& rcWindow, std::int32_t lContainerWidth,
                       std::int32_t lContainerHeight) {
  return {Inside(rcWindow.lLeft, rcWindow.lWidth, lContainerWidth),
          Inside(rcWindow.lTop, rcWindow.lHeight, lContainerHeight), rcWindow.lWidth,
          rcWindow.lHeight};
}

void FitToScreen(Form& oForm) {
  Place(u"FitToScreen", [&] {
    const Rect oArea = oForm.App().Screen().WorkArea();
    oForm.Move(oArea.lLeft, oArea.lTop, oArea.lWidth, oArea.lHeight);
  });
}

std::int32_t MaskNegative(std::int32_t a, std::int32_t b) {
  return std::max(a, b);
}

}  // namespace MXForm
