// Peers, events and loops; measures; then the small services.
#include "WxRenderer.h"

#include <wx/app.h>
#include <wx/clipbrd.h>
#include <wx/display.h>
#include <wx/evtloop.h>
#include <wx/html/helpctrl.h>
#include <wx/utils.h>

#include <algorithm>

#include "FormPeer.h"
#include "HostWindow.h"
#include "NativeDetails.h"
#include "NativeText.h"
#include "Toolkit.h"

namespace Forms {

WxRenderer::WxRenderer() : moUnits(NativeDetails::Resolution()) {
  NativeDetails::MakeCompact();
  wxTheApp->Bind(wxEVT_IDLE, &WxRenderer::OnIdle, this);
}

WxRenderer::~WxRenderer() {
  wxTheApp->Unbind(wxEVT_IDLE, &WxRenderer::OnIdle, this);
}

void WxRenderer::OnIdle(wxIdleEvent& oEvent) {
  CatchUp();
  oEvent.Skip();
}

void WxRenderer::Later(WxPeer& oPeer) {
  (oPeer.IsForm() ? moForms : moControls).push_back(&oPeer);
  wxWakeUpIdle();
}

void WxRenderer::Forget(WxPeer& oPeer) {
  std::erase(moControls, &oPeer);
  std::erase(moForms, &oPeer);
  if (static_cast<WxPeer*>(mpoFocus) == &oPeer) mpoFocus = nullptr;
  if (mpoLocked == &oPeer) mpoLocked = nullptr;
}

void WxRenderer::CatchUp() {
  if (mbCatchingUp) return;
  BringUpToDate();
  EndLoops();
}

void WxRenderer::BringUpToDate() {
  // Resets the flag at the end of the function, also when a handler of the form's Resize throws.
  struct Flag {
    explicit Flag(bool& b) : mb(b) { mb = true; }
    ~Flag() { mb = false; }
    bool& mb;
  } const oFlag(mbCatchingUp);
  const HostWindow::Look oLook;
  while (!moControls.empty() || !moForms.empty()) {
    auto& oQueue = moControls.empty() ? moForms : moControls;
    WxPeer* const po = oQueue.front();
    oQueue.pop_front();
    po->CatchUp();
  }
  ApplyFocus();
}

void WxRenderer::ApplyFocus() {
  if (ControlPeer* const po = std::exchange(mpoFocus, nullptr)) po->TakeFocus();
}

void WxRenderer::RunModal(Form& oForm) {
  CatchUp();
  const NativeDetails::ModalInput oInput(*WindowOf(&oForm));
  RunLoop(&oForm);
}

void WxRenderer::RunForms(Toolkit& oToolkit) {
  SetToolkit(oToolkit);
  CatchUp();
  RunLoop(nullptr);
}

void WxRenderer::RunLoop(Form* poForm) {
  wxGUIEventLoop oLoop;
  moLoops.push_back({poForm, &oLoop});
  if (!Ends(moLoops.back())) oLoop.Run();
  const bool bQuit = !Ends(moLoops.back());
  moLoops.pop_back();
  if (bQuit) {
    HostWindow::PassQuitOn();
    if (poForm) poForm->Hide();
    CatchUp();
  }
  // The program around ours has no keys for a window of help that stays behind.
  if (moLoops.empty() && HostWindow::Handle() != 0) mpHelp.reset();
  EndLoops();
}

bool WxRenderer::Ends(const Loop& oLoop) const {
  if (oLoop.poForm) return !oLoop.poForm->Visible();
  const auto& oForms = mpoToolkit->LoadedForms();
  return std::none_of(oForms.begin(), oForms.end(), [](auto* po) { return po->Visible(); });
}

void WxRenderer::EndLoops() {
  if (moLoops.empty() || !Ends(moLoops.back())) return;
  if (moLoops.back().poLoop->IsRunning()) moLoops.back().poLoop->ScheduleExit();
}

void WxRenderer::DoEvents() {
  CatchUp();
  std::unique_ptr<wxGUIEventLoop> pOwn;
  if (!wxEventLoopBase::GetActive()) pOwn = std::make_unique<wxGUIEventLoop>();
  const wxEventLoopActivator oActivator(pOwn ? pOwn.get() : wxEventLoopBase::GetActive());
  auto* const poLoop = wxEventLoopBase::GetActive();
  if (!poLoop->IsYielding()) poLoop->Yield();
  CatchUp();
}

ScreenMetrics WxRenderer::Metrics() const {
  const auto Twips = [this](const wxRect& o) {
    return Rect{moUnits.Twips(o.x), moUnits.Twips(o.y), moUnits.Twips(o.width),
                moUnits.Twips(o.height)};
  };
  const wxDisplay oDisplay;
  return {Twips(oDisplay.GetGeometry()), Twips(oDisplay.GetClientArea()), moUnits.TwipsPerPixel(),
          moUnits.TwipsPerPixel()};
}

wxMemoryDC& WxRenderer::Measure(const FontSpec& oFont) const {
  if (oFont != moMeasureFont) {
    moMeasure.SetFont(NativeFont(oFont));
    moMeasureFont = oFont;
  }
  return moMeasure;
}

std::int32_t WxRenderer::TextWidth(const FontSpec& oFont, TextView sText) const {
  return moUnits.Twips(Measure(oFont).GetTextExtent(ToWx(sText)).x);
}

std::int32_t WxRenderer::TextHeight(const FontSpec& oFont) const {
  return moUnits.Twips(Measure(oFont).GetCharHeight());
}

wxTopLevelWindow* WxRenderer::WindowOf(const Form* poForm) const {
  auto* const poPeer = poForm ? static_cast<FormPeer*>(poForm->Peer()) : nullptr;
  return poPeer ? &poPeer->Frame() : nullptr;
}

Edges WxRenderer::FormEdges(const Form& oForm) const {
  const auto* const poPeer = static_cast<FormPeer*>(oForm.Peer());
  return poPeer ? poPeer->MeasuredEdges() : Edges{};
}

void WxRenderer::SetMousePointer(std::int32_t nPointer) {
  // The library can set only the busy pointer for all windows at once.
  const bool bBusy = nPointer == Pointer::Hourglass;
  if (bBusy == wxIsBusy()) return;
  bBusy ? wxBeginBusyCursor() : wxEndBusyCursor();
}

void WxRenderer::LockDrawing(Control* poControl) {
  if (WxPeer* const po = std::exchange(mpoLocked, nullptr)) po->Drawn()->Thaw();
  auto* const poPeer = poControl ? dynamic_cast<WxPeer*>(poControl->Peer()) : nullptr;
  if (!poPeer || !poPeer->Drawn()) return;
  mpoLocked = poPeer;
  poPeer->Drawn()->Freeze();
}

void WxRenderer::SetClipboardText(TextView sText) {
  if (!wxTheClipboard->Open()) return;
  if (sText.empty()) {
    wxTheClipboard->Clear();
  } else {
    wxTheClipboard->SetData(new wxTextDataObject(ToField(sText)));
    wxTheClipboard->Flush();  // keeps the content available after the program's end
  }
  wxTheClipboard->Close();
}

Text WxRenderer::ClipboardText() const {
  wxTextDataObject oData;
  if (!wxTheClipboard->Open()) return {};
  const bool bText = wxTheClipboard->GetData(oData);
  wxTheClipboard->Close();
  return bText ? FromField(oData.GetText()) : Text();
}

void WxRenderer::SetClipboardPicture(TextView sPictureKey) {
  if (!mpoToolkit) return;
  // A program around ours pastes pictures of 16 pixels whatever the resolution.
  if (HostWindow::PutOnClipboard(moPictures.Get(*mpoToolkit, sPictureKey, 16))) return;
  const wxBitmap& oBitmap = moPictures.Get(*mpoToolkit, sPictureKey, moUnits.Scaled(16));
  if (!oBitmap.IsOk() || !wxTheClipboard->Open()) return;
  wxTheClipboard->SetData(new wxBitmapDataObject(oBitmap));
  wxTheClipboard->Close();
}

bool WxRenderer::Open(TextView sTarget) {
  return wxLaunchDefaultBrowser(ToWx(sTarget));
}

void RunForms(Toolkit& oToolkit) {
  static_cast<WxRenderer&>(oToolkit.Renderer()).RunForms(oToolkit);
}

}  // namespace Forms
