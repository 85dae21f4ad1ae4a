#include "CXSplit.h"

#include <algorithm>
#include <limits>

#include "Failure.h"
#include "Guard.h"

using namespace Forms;

namespace {

/// Limits a length to 32 bits. The sums are 64-bit, because a bar's stored place may be any number.
std::int32_t Narrow(std::int64_t lLength) {
  using Limits = std::numeric_limits<std::int32_t>;
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(lLength, Limits::min(), Limits::max()));
}

template <class Work>
void Event(TextView sName, Work&& oWork) {
  Guard({u"CXSplit", sName, ErrorIds::BoundaryVB}, [&](GuardScope&) { oWork(); });
}

}  // namespace

void CXSplit::Split(PictureBox& oPictureBox, SplitBar eAlignment) {
  if (moASide.empty() || moBSide.empty()) throw Failure(9);
  mpoSplit = &oPictureBox;
  mbHorizontal = eAlignment == SplitBar::Horizontal;
  moLinks.clear();
  moLinks.push_back(oPictureBox.MouseDown.Connect([this](std::int32_t nButton, auto...) {
    Event(u"oSplit_MouseDown", [&] { MouseDown(nButton); });
  }));
  moLinks.push_back(oPictureBox.MouseMove.Connect(
      [this](std::int32_t nButton, std::int32_t, std::int32_t lX, std::int32_t lY) {
        Event(u"oSplit_MouseMove", [&] { MouseMove(nButton, mbHorizontal ? lY : lX); });
      }));
  moLinks.push_back(oPictureBox.MouseUp.Connect([this](std::int32_t nButton, auto...) {
    Event(u"oSplit_MouseUp", [&] { MouseUp(nButton); });
  }));
  // A drag by 0 twips moves a bar that stands outside of its limits back inside, and lays out both
  // sides.
  MouseDown(Button::Left);
  MouseMove(Button::Left, 0);
  MouseUp(Button::Left);
}

CXSplit::Span CXSplit::SpanOf(const Control& oControl) const {
  if (mbHorizontal) return {oControl.Top(), oControl.Height()};
  return {oControl.Left(), oControl.Width()};
}

void CXSplit::SetPosition(Control& oControl, std::int64_t lPosition) const {
  mbHorizontal ? oControl.SetTop(Narrow(lPosition)) : oControl.SetLeft(Narrow(lPosition));
}

void CXSplit::SetSize(Control& oControl, std::int64_t lSize) const {
  mbHorizontal ? oControl.SetHeight(Narrow(lSize)) : oControl.SetWidth(Narrow(lSize));
}

void CXSplit::MouseDown(std::int32_t nButton) {
  if (nButton != Button::Left) return;
  mpoSplit->SetBackColor(SystemColor::ButtonShadow);
  const std::int64_t lThickness = SpanOf(*mpoSplit).lSize;
  mlMinPos = std::numeric_limits<std::int64_t>::min();
  for (const Control* po : moASide) mlMinPos = std::max(mlMinPos, SpanOf(*po).lPosition + mlMargin);
  mlMaxPos = std::numeric_limits<std::int64_t>::max();
  for (const Control* po : moBSide) {
    const Span oSide = SpanOf(*po);
    mlMaxPos = std::min(mlMaxPos, oSide.lPosition + oSide.lSize - lThickness - mlMargin);
  }
  const ControlContainer& oContainer = mpoSplit->Container();
  mlEndPos = (mbHorizontal ? oContainer.ScaleHeight() : oContainer.ScaleWidth()) - lThickness;
}

void CXSplit::MouseMove(std::int32_t nButton, std::int32_t lOffset) {
  if ((nButton & Button::Left) == 0 || !HasRoom()) return;
  SetPosition(*mpoSplit, WithinLimits(SpanOf(*mpoSplit).lPosition + lOffset));
  if (mbRealTime) DoSplit();
}

void CXSplit::MouseUp(std::int32_t nButton) {
  if (nButton != Button::Left) return;
  mpoSplit->SetBackColor(SystemColor::ButtonFace);
  if (HasRoom()) DoSplit();
}

std::int64_t CXSplit::WithinLimits(std::int64_t lPosition) const {
  const std::int32_t lSnap = mbMarginSnap ? mlMargin : 0;
  if (lPosition < mlMinPos) {
    lPosition = mlMinPos - lSnap;
  } else if (lPosition > mlMaxPos) {
    lPosition = mlMaxPos + lSnap;
  }
  return std::min(lPosition, mlEndPos);
}

void CXSplit::DoSplit() {
  if (!mpoSplit) throw Failure(91);
  const Span oBar = SpanOf(*mpoSplit);
  for (Control* po : moASide) FitASide(*po, oBar);
  for (Control* po : moBSide) FitBSide(*po, oBar);
  AfterSplit();
}

void CXSplit::FitASide(Control& oControl, const Span& oBar) const {
  const std::int64_t lSize = oBar.lPosition - SpanOf(oControl).lPosition;
  SetSize(oControl, std::max<std::int64_t>(lSize, 0));
  ShowIfWide(oControl, lSize);
}

void CXSplit::FitBSide(Control& oControl, const Span& oBar) const {
  const Span oOld = SpanOf(oControl);
  const std::int64_t lStart = oBar.lPosition + oBar.lSize;
  const std::int64_t lSize = oOld.lPosition + oOld.lSize - lStart;
  const std::int64_t lAsked = std::max<std::int64_t>(lSize, 0);
  SetSize(oControl, lAsked);
  // A control may round its size, as a list of whole lines does: it is moved so that its far edge
  // stays in place.
  SetPosition(oControl, lStart - (SpanOf(oControl).lSize - lAsked));
  ShowIfWide(oControl, lSize);
}

void CXSplit::ShowIfWide(Control& oControl, std::int64_t lSize) const {
  if (mbMarginSnap) oControl.SetVisible(lSize >= mlMargin);
}
