// A row of tabs with a window of their own; the frame around their content is painted by the
// surface, so that no window covers the controls there.
#pragma once

#include "ControlPeer.h"
#include "Surface.h"

namespace Forms {

class TabStrip;

class TabStripPeer : public ControlPeer, public ILightPeer {
 public:
  TabStripPeer(WxRenderer& oRenderer, TabStrip& oStrip);
  bool OwnsKey(const Stroke& oStroke) const override { return oStroke.nKeyCode != 0; }
  void Draw(wxDC& oDC) override;
  /// Height of the tabs of a strip with this font, in pixels.
  static int TabHeight(const WxRenderer& oRenderer, const FontSpec& oFont);

 protected:
  void Apply(const Changes& oChanges) override;
  wxRect NativePlace() const override;
  void OnMouse(wxMouseEvent& oEvent) override;

 private:
  void DrawTabs(wxDC& oDC);
  void DrawTab(wxDC& oDC, std::int32_t lTab, const wxRect& oRect);
  /// In pixels of the window.
  wxRect TabPlace(std::int32_t lTab) const;

  TabStrip& moStrip;
  std::vector<int> mnEdges;  ///< left edge of each tab, and the right one of the last
  wxRect moFrame;
};

}  // namespace Forms
