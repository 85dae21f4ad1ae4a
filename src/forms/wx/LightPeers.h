// Peers of controls without a window: labels, lines and the status bar. The surface below paints
// them.
#pragma once

#include "Surface.h"
#include "WxPeer.h"

namespace Forms {

class Label;
class Line;
class StatusBar;

class LightPeer : public WxPeer, public ILightPeer {
 public:
  LightPeer(WxRenderer& oRenderer, Control& oControl);
  ~LightPeer() override;

 protected:
  /// The pixels that it covers now.
  virtual wxRect Covered() const = 0;
  void Apply(const Changes& oChanges) override;
  void PaintNow() override;
  /// Null when the container's window has been destroyed.
  Surface* Ground() const;

 private:
  Control& moControl;
  wxRect moPainted;
};

class LabelPeer : public LightPeer {
 public:
  LabelPeer(WxRenderer& oRenderer, Label& oLabel);
  void Draw(wxDC& oDC) override;

 protected:
  wxRect Covered() const override;

 private:
  void DrawText(wxDC& oDC, const wxRect& oRect) const;

  Label& moLabel;
};

class LinePeer : public LightPeer {
 public:
  LinePeer(WxRenderer& oRenderer, Line& oLine);
  void Draw(wxDC& oDC) override;

 protected:
  wxRect Covered() const override;

 private:
  wxPoint At(std::int32_t lX, std::int32_t lY) const;

  Line& moLine;
};

class StatusBarPeer : public LightPeer {
 public:
  StatusBarPeer(WxRenderer& oRenderer, StatusBar& oBar);
  void Draw(wxDC& oDC) override;

 protected:
  wxRect Covered() const override;

 private:
  StatusBar& moBar;
};

}  // namespace Forms
