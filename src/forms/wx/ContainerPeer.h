// Peers of what holds controls: frames, picture boxes and user controls. A form's is FormPeer.
#pragma once

#include "ControlContainer.h"
#include "ControlPeer.h"
#include "Surface.h"

namespace Forms {

class Frame;
class PictureBox;

/// What a surface needs from its container's peer.
class IContainerPeer {
 public:
  virtual ~IContainerPeer() = default;
  virtual Surface& Area() = 0;
  /// Paints background, border and picture.
  virtual void DrawGround(wxDC& oDC, const wxSize& oSize) = 0;
};

class ContainerPeer : public ControlPeer, public IContainerPeer {
 public:
  ContainerPeer(WxRenderer& oRenderer, ControlContainer& oContainer);
  ~ContainerPeer() override { moArea.Leave(); }
  Surface& Area() override { return moArea; }
  void DrawGround(wxDC& oDC, const wxSize& oSize) override;
  /// Called by the surface for mouse events.
  void OnMouse(wxMouseEvent& oEvent) override;
  bool OwnsKey(const Stroke& oStroke) const override { return oStroke.nKeyCode != 0; }

 protected:
  void Apply(const Changes& oChanges) override;

 private:
  ControlContainer& moContainer;
  Surface& moArea;
};

class FramePeer : public ContainerPeer {
 public:
  FramePeer(WxRenderer& oRenderer, Frame& oFrame);
  void DrawGround(wxDC& oDC, const wxSize& oSize) override;

 private:
  Frame& moFrame;
};

class PictureBoxPeer : public ContainerPeer {
 public:
  PictureBoxPeer(WxRenderer& oRenderer, PictureBox& oBox);
  void DrawGround(wxDC& oDC, const wxSize& oSize) override;

 private:
  PictureBox& moBox;
};

}  // namespace Forms
