#include "ToolBars.h"

#include <algorithm>
#include <tuple>

#include "Form.h"

namespace {

constexpr TextView sMenuBar = u"Add-Ins";
constexpr std::int32_t lTwipsPerPixel = 15;

/// Brings the array to elements 0 to lCount.
template <class T>
void SetElements(Forms::ControlArray<T>& oArray, std::int32_t lCount) {
  while (oArray.UBound() > lCount) oArray.Unload(oArray.UBound());
  while (oArray.UBound() < lCount) oArray.Load(oArray.UBound() + 1);
}

template <class Row>
const Row* RowOf(const std::vector<Row>& aoRow, std::int32_t lElement) {
  const auto lRow = static_cast<std::size_t>(lElement) - 1;
  return lElement >= 1 && lRow < aoRow.size() ? &aoRow[lRow] : nullptr;
}

}  // namespace

bool BarMenu::Show(HostCommandBar& oBar) {
  moControls.clear();
  for (std::int32_t i = 1; i <= oBar.Controls().Count(); ++i)
    moControls.push_back(&oBar.Controls().Item(i));
  const auto lCount = static_cast<std::int32_t>(moControls.size());
  SetElements(moItems, lCount);
  for (std::int32_t i = 1; i <= lCount; ++i) {
    moItems(i).SetCaption(ControlOf(i)->Caption());
    moItems(i).SetVisible(true);
  }
  return lCount > 0;
}

HostControl* BarMenu::ControlOf(std::int32_t lElement) const {
  HostControl* const* ppControl = RowOf(moControls, lElement);
  return ppControl ? *ppControl : nullptr;
}

std::vector<HostCommandBar*> ToolBarsOf(HostCommandBars& oBars) {
  std::vector<HostCommandBar*> aoBar;
  for (std::int32_t i = 1; i <= oBars.Count(); ++i)
    if (oBars.Item(i).Name() != sMenuBar) aoBar.push_back(&oBars.Item(i));
  std::stable_sort(aoBar.begin(), aoBar.end(), [](const auto* poLeft, const auto* poRight) {
    return std::tuple(poLeft->RowIndex(), poLeft->Left()) <
           std::tuple(poRight->RowIndex(), poRight->Left());
  });
  return aoBar;
}

void ToolBars::Show(HostCommandBars& oBars) {
  moPlaces.clear();
  for (HostCommandBar* poBar : ToolBarsOf(oBars)) {
    if (!poBar->Visible()) continue;
    for (std::int32_t i = 1; i <= poBar->Controls().Count(); ++i)
      moPlaces.push_back({poBar, &poBar->Controls().Item(i)});
  }
  const auto lCount = static_cast<std::int32_t>(moPlaces.size());
  SetElements(moButtons, lCount);
  for (std::int32_t i = 1; i <= lCount; ++i) ShowButton(i, *ControlOf(i));
}

void ToolBars::ShowButton(std::int32_t lElement, HostControl& oControl) {
  Forms::CommandButton& oButton = moButtons(lElement);
  const Text& sTip = oControl.TooltipText();
  const Text sFace = moFaces.KeyOf(oControl.Face());
  const Text& sWords = oControl.Caption().empty() ? sTip : oControl.Caption();
  oButton.SetPicture(sFace);
  oButton.SetCaption(sFace.empty() ? TextView(sWords) : TextView());
  oButton.SetToolTipText(sTip.empty() ? oControl.Caption() : sTip);
  oButton.SetVisible(true);
}

HostControl* ToolBars::ControlOf(std::int32_t lElement) const {
  const Place* poPlace = RowOf(moPlaces, lElement);
  return poPlace ? poPlace->poControl : nullptr;
}

std::int32_t ToolBars::Layout(std::int32_t lWidth) {
  std::int32_t lLeft = lGap, lTop = lGap;
  const HostCommandBar* poLast = nullptr;
  for (std::size_t i = 0; i < moPlaces.size(); ++i) {
    const HostCommandBar& oBar = *moPlaces[i].poBar;
    Forms::CommandButton& oButton = moButtons(static_cast<std::int32_t>(i) + 1);
    // A button without a picture shows its caption.
    const std::int32_t lButton = oButton.Picture().empty()
                                     ? oButton.Parent().TextWidth(oButton.Caption()) + 4 * lGap
                                     : lButtonSize;
    if (poLast && poLast != &oBar && poLast->RowIndex() != oBar.RowIndex()) {
      lLeft = lGap;
      lTop += lButtonSize + lGap;
    }
    if (poLast != &oBar) {
      // Left is in pixels. It is limited to the window, since it may have been stored on a wider
      // screen.
      const auto lWish = static_cast<std::int64_t>(oBar.Left()) * lTwipsPerPixel;
      const std::int64_t lMost = std::max(lGap, lWidth - lButton - lGap);
      lLeft = std::max(lLeft, static_cast<std::int32_t>(std::clamp<std::int64_t>(lWish, 0, lMost)));
    }
    poLast = &oBar;
    oButton.Move(lLeft, lTop, lButton, lButtonSize);
    lLeft += lButton + lGap;
  }
  return poLast ? lTop + lButtonSize + lGap : 0;
}
