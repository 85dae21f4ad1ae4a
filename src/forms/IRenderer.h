// What the layer needs of a window system. HeadlessRenderer does without one.
#pragma once

#include <memory>

#include "CommonDialogs.h"
#include "IPeer.h"
#include "MessageBox.h"

namespace Forms {

class Component;
class Control;
class Form;
class TabStrip;

struct ScreenMetrics {
  Rect oScreen, oWorkArea;  ///< the work area is what task bars leave free
  std::int32_t lTwipsPerPixelX = 15, lTwipsPerPixelY = 15;
};

enum class HelpCommand { Contents, Index, Search };

class IRenderer {
 public:
  virtual ~IRenderer() = default;

  /// For forms, controls and timers (by Kind), a form before what stands on it, containers before
  /// their content; null for a kind that it draws as a part of another. The component has its
  /// values of design time and outlives the peer. A form's peer begins hidden.
  virtual std::unique_ptr<IPeer> MakePeer(Component& oComponent) = 0;
  /// Runs events until the form isn't visible any more. The form is visible and the only one that
  /// takes input.
  virtual void RunModal(Form& oForm) = 0;
  /// Runs the events that wait, and brings the peers up to date.
  virtual void DoEvents() = 0;

  virtual ScreenMetrics Metrics() const = 0;
  virtual std::int32_t TextWidth(const FontSpec& oFont, TextView sText) const = 0;
  virtual std::int32_t TextHeight(const FontSpec& oFont) const = 0;
  virtual bool HasFont(TextView sName) const = 0;
  /// What frame, title and menu bar take.
  virtual Edges FormEdges(const Form& oForm) const = 0;
  /// What tabs and border take.
  virtual Edges TabEdges(const TabStrip& oStrip) const = 0;

  virtual void SetMousePointer(std::int32_t nPointer) = 0;
  /// Stops drawing of one control and all on it; null lets drawing go on.
  virtual void LockDrawing(Control* poControl) = 0;
  virtual void SetClipboardText(TextView sText) = 0;
  virtual Text ClipboardText() const = 0;
  /// The picture under that key becomes the clipboard's content.
  virtual void SetClipboardPicture(TextView sPictureKey) = 0;

  virtual MsgBoxResult MsgBox(const MsgBoxRequest& oRequest) = 0;
  virtual DialogAnswer ChooseFile(FileDialog& oDialog) = 0;
  virtual DialogAnswer ChooseFont(FontDialog& oDialog) = 0;
  virtual DialogAnswer ChoosePage(PageDialog& oDialog) = 0;
  /// Opens a web address or a document with the program that the system has for it. False when it
  /// can't.
  virtual bool Open(TextView sTarget) = 0;
  /// lContext: topic to begin with, for Contents; 0 for none. poOwner may be null. False when it
  /// can't.
  virtual bool ShowHelp(TextView sFile, HelpCommand eCommand, std::int32_t lContext,
                        Form* poOwner) = 0;
};

}  // namespace Forms
