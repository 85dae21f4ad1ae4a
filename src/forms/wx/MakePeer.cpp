// Which peer each kind of component has.
#include "ButtonPeers.h"
#include "CheckBox.h"
#include "CommandButton.h"
#include "FormPeer.h"
#include "Frame.h"
#include "Label.h"
#include "LightPeers.h"
#include "Line.h"
#include "OptionButton.h"
#include "PictureBox.h"
#include "TextBox.h"
#include "TextBoxPeer.h"
#include "TimerPeer.h"
#include "UserControl.h"
#include "WxRenderer.h"

namespace Forms {

namespace {

template <class Peer, class T>
std::unique_ptr<IPeer> Make(WxRenderer& oRenderer, Component& oComponent) {
  return std::make_unique<Peer>(oRenderer, static_cast<T&>(oComponent));
}

}  // namespace

std::unique_ptr<IPeer> WxRenderer::MakePeer(Component& o) {
  switch (o.Kind()) {
    case ComponentKind::Form:
      return Make<FormPeer, Form>(*this, o);
    case ComponentKind::Label:
      return Make<LabelPeer, Label>(*this, o);
    case ComponentKind::TextBox:
      return Make<TextBoxPeer, TextBox>(*this, o);
    case ComponentKind::CheckBox:
      return Make<CheckBoxPeer, CheckBox>(*this, o);
    case ComponentKind::OptionButton:
      return Make<OptionButtonPeer, OptionButton>(*this, o);
    case ComponentKind::CommandButton:
      return Make<CommandButtonPeer, CommandButton>(*this, o);
    case ComponentKind::Frame:
      return Make<FramePeer, Frame>(*this, o);
    case ComponentKind::PictureBox:
      return Make<PictureBoxPeer, PictureBox>(*this, o);
    case ComponentKind::Line:
      return Make<LinePeer, Line>(*this, o);
    case ComponentKind::UserControl:
      return Make<ContainerPeer, UserControl>(*this, o);
    case ComponentKind::Timer:
      return Make<TimerPeer, Timer>(*this, o);
    default:
      return nullptr;
  }
}

}  // namespace Forms
