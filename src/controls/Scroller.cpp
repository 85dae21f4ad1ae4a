#include "Scroller.h"

#include "DrawingLock.h"

using namespace Forms;

namespace {

// Below 32,767 characters, the default limit of a text field on Windows. The block is a choice:
// cutting line by line would cost time at every line.
constexpr std::int32_t Limit = 32000, Block = 1024;

}  // namespace

Scroller::Scroller(ControlContainer& oContainer, TextView sName) : UserControl(oContainer, sName) {
  On(Resize, [this] { txtScroller.Move(0, 0, ScaleWidth(), ScaleHeight()); });
}

void Scroller::Reset() {
  UserControl::Reset();
  mlLength = 0;
}

void Scroller::Design() {
  txtScroller.SetMultiLine(true);
  txtScroller.SetLocked(true);
  txtScroller.SetScrollBars(ScrollBars::Both);
}

void Scroller::Add(TextView sText) {
  Touch();
  if (mlLength > Limit) CutOldest();
  txtScroller.SetSelStart(mlLength);
  txtScroller.SetSelText(Text(sText) + Text(CrLf));
  mlLength += static_cast<std::int32_t>(sText.size() + CrLf.size());
  txtScroller.Refresh();
}

void Scroller::CutOldest() {
  const DrawingLock oLock(txtScroller);
  mlLength -= Block;
  txtScroller.SetSelStart(0);
  txtScroller.SetSelLength(Block);
  txtScroller.SetSelText({});
}

void Scroller::Clear() {
  txtScroller.SetText({});
  mlLength = 0;
}
