// Which peer each kind of component has.
#include "ButtonPeers.h"
#include "CheckBox.h"
#include "CodePane.h"
#include "CodePanePeer.h"
#include "ComboBox.h"
#include "CommandButton.h"
#include "FormPeer.h"
#include "Frame.h"
#include "HostWindow.h"
#include "Label.h"
#include "LightPeers.h"
#include "Line.h"
#include "ListBox.h"
#include "ListPeers.h"
#include "ListView.h"
#include "ListViewPeer.h"
#include "OptionButton.h"
#include "PictureBox.h"
#include "StatusBar.h"
#include "TabStrip.h"
#include "TabStripPeer.h"
#include "TextBox.h"
#include "TextBoxPeer.h"
#include "TimerPeer.h"
#include "TreeView.h"
#include "TreeViewPeer.h"
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
  const HostWindow::Look oLook;
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
    case ComponentKind::ListBox:
      return Make<ListBoxPeer, ListBox>(*this, o);
    case ComponentKind::ComboBox:
      return Make<ComboBoxPeer, ComboBox>(*this, o);
    case ComponentKind::TreeView:
      return Make<TreeViewPeer, TreeView>(*this, o);
    case ComponentKind::ListView:
      return Make<ListViewPeer, ListView>(*this, o);
    case ComponentKind::TabStrip:
      return Make<TabStripPeer, TabStrip>(*this, o);
    case ComponentKind::StatusBar:
      return Make<StatusBarPeer, StatusBar>(*this, o);
    case ComponentKind::CodePane:
      return Make<CodePanePeer, CodePane>(*this, o);
    case ComponentKind::Timer:
      return Make<TimerPeer, Timer>(*this, o);
    default:
      return nullptr;
  }
}

}  // namespace Forms
