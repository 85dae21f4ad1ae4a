// A form's window: a frame around one surface, with the form's menus. All keys of the form come
// through here first.
#pragma once

#include <wx/frame.h>

#include "ContainerPeer.h"
#include "Form.h"
#include "FormMenus.h"

namespace Forms {

class FormPeer : public WxPeer, public IContainerPeer {
 public:
  FormPeer(WxRenderer& oRenderer, Form& oForm);
  ~FormPeer() override;

  void Changed(Property eProperty, std::int32_t lIndex) override;
  bool IsForm() const override { return true; }
  wxWindow* Drawn() const override { return &moArea; }
  Surface& Area() override { return moArea; }
  void DrawGround(wxDC& oDC, const wxSize& oSize) override;
  wxFrame& Frame() const { return moFrame; }
  Edges MeasuredEdges() const;

 protected:
  void Apply(const Changes& oChanges) override;
  void PaintNow() override;

 private:
  void ApplyIcon();
  void ApplyBounds();
  void ApplyVisible();
  void ApplyWindowState();
  void OnKey(wxKeyEvent& oEvent);
  void OnClose(wxCloseEvent& oEvent);
  void OnPlace();
  void OnActivate(wxActivateEvent& oEvent);
  /// Passes the frame's place and size to the form where they differ from the form's own.
  void TellPlace();
  void TellWindowState();

  Form& moForm;
  wxFrame& moFrame;
  Surface& moArea;
  FormMenus moMenus;
  bool mbMaximized = false, mbMinimized = false;  ///< what the form was told
  wxSize moInner;                                 ///< likewise
};

}  // namespace Forms
