// A bar along the form's lower edge with panels of text. It follows the form's size by itself,
// before the form's Resize. Panels count from 1.
#pragma once

#include "Control.h"

namespace Forms {

class StatusBar;

class Panel {
 public:
  explicit Panel(StatusBar& oBar) : moBar(oBar) {}
  const ::Text& Text() const { return msText; }
  void SetText(TextView sText);
  const ::Text& Tag() const { return msTag; }
  void SetTag(TextView sTag) { msTag = sTag; }
  std::int32_t Width() const { return mlWidth; }
  /// Failure 380 for a negative width.
  void SetWidth(std::int32_t lWidth);

 private:
  StatusBar& moBar;
  ::Text msText, msTag;
  std::int32_t mlWidth = 1440;
};

class StatusBar : public Control {
 public:
  static constexpr std::int32_t lDefaultHeight = 375;

  StatusBar(ControlContainer& oContainer, TextView sName) : Control(oContainer, sName) { Reset(); }
  ComponentKind Kind() const override { return ComponentKind::StatusBar; }
  bool CanFocus() const override { return false; }

  std::int32_t PanelCount() const { return static_cast<std::int32_t>(moPanels.size()); }
  void SetPanelCount(std::int32_t lCount);  ///< design time
  /// Failure 35600 outside 1 to PanelCount.
  Panel& Panels(std::int32_t lIndex);
  void ContainerResized() override;

  void Reset() override;

  // For panels only.
  void PanelChanged(const Panel& oPanel);

 protected:
  ControlState DefaultState() const override;

 private:
  std::vector<std::unique_ptr<Panel>> moPanels;
};

}  // namespace Forms
