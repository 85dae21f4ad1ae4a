// Draws forms on the screen with wxWidgets. Peers are kept up to date here: those that noted a
// change catch up when the program waits for events, pumps them or paints.
#pragma once

#include <wx/bitmap.h>
#include <wx/dcmemory.h>

#include <deque>
#include <optional>
#include <vector>

#include "IRenderer.h"
#include "NativeLook.h"
#include "Units.h"

class wxEventLoopBase;
class wxHtmlHelpController;
class wxIdleEvent;
class wxTopLevelWindow;

namespace Forms {

class ControlPeer;
class Toolkit;
class WxPeer;

class WxRenderer : public IRenderer {
 public:
  WxRenderer();
  ~WxRenderer() override;

  std::unique_ptr<IPeer> MakePeer(Component& oComponent) override;
  void RunModal(Form& oForm) override;
  void DoEvents() override;
  ScreenMetrics Metrics() const override;
  std::int32_t TextWidth(const FontSpec& oFont, TextView sText) const override;
  std::int32_t TextHeight(const FontSpec& oFont) const override;
  bool HasFont(TextView sName) const override { return HasNativeFont(sName); }
  Edges FormEdges(const Form& oForm) const override;
  Edges TabEdges(const TabStrip& oStrip) const override;
  void SetMousePointer(std::int32_t nPointer) override;
  void LockDrawing(Control* poControl) override;
  void SetClipboardText(TextView sText) override;
  Text ClipboardText() const override;
  void SetClipboardPicture(TextView sPictureKey) override;
  MsgBoxResult MsgBox(const MsgBoxRequest& oRequest) override;
  DialogAnswer ChooseFile(FileDialog& oDialog) override;
  DialogAnswer ChooseFont(FontDialog& oDialog) override;
  DialogAnswer ChoosePage(PageDialog& oDialog) override;
  bool Open(TextView sTarget) override;
  bool ShowHelp(TextView sFile, HelpCommand eCommand, std::int32_t lContext,
                Form* poOwner) override;

  /// Runs events until none of the toolkit's forms is visible.
  void RunForms(Toolkit& oToolkit);
  /// The source of pictures for requests without a component, such as the clipboard's.
  void SetToolkit(Toolkit& oToolkit) { mpoToolkit = &oToolkit; }

  // For peers only.
  const Units& Unit() const { return moUnits; }
  PictureCache& Pictures() { return moPictures; }
  void Later(WxPeer& oPeer);
  void Forget(WxPeer& oPeer);
  /// Brings all peers up to date, then the native focus.
  void CatchUp();
  /// Native events that arrive meanwhile come from changes by code, not by the user.
  bool CatchingUp() const { return mbCatchingUp; }
  /// The peer's window gets the native focus at the next CatchUp.
  void FocusLater(ControlPeer& oPeer) { mpoFocus = &oPeer; }
  /// A form became visible or invisible: a loop that waited for it ends.
  void EndLoops();

 private:
  /// The loops that run now, innermost last; poForm is null for the main loop.
  struct Loop {
    Form* poForm;
    wxEventLoopBase* poLoop;
  };
  void OnIdle(wxIdleEvent& oEvent);
  void BringUpToDate();
  bool Ends(const Loop& oLoop) const;
  void RunLoop(Form* poForm);
  void ApplyFocus();
  wxTopLevelWindow* WindowOf(const Form* poForm) const;
  wxMemoryDC& Measure(const FontSpec& oFont) const;

  Units moUnits;
  PictureCache moPictures;
  mutable wxBitmap moMeasureBitmap{1, 1};
  mutable wxMemoryDC moMeasure{moMeasureBitmap};
  mutable std::optional<FontSpec> moMeasureFont;  ///< none until the first text
  Toolkit* mpoToolkit = nullptr;
  std::deque<WxPeer*> moControls, moForms;  ///< that have to catch up
  std::vector<Loop> moLoops;
  ControlPeer* mpoFocus = nullptr;
  WxPeer* mpoLocked = nullptr;
  bool mbCatchingUp = false;
  std::unique_ptr<wxHtmlHelpController> mpHelp;
  Text msHelpBook;
};

}  // namespace Forms
