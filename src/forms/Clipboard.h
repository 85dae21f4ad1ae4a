// The system's clipboard. A picture is put there by its key.
#pragma once

#include "IRenderer.h"

namespace Forms {

class Clipboard {
 public:
  explicit Clipboard(IRenderer& oRenderer) : moRenderer(oRenderer) {}
  void Clear() { moRenderer.SetClipboardText({}); }
  /// Empty when it holds no text.
  Text GetText() const { return moRenderer.ClipboardText(); }
  void SetText(TextView sText) { moRenderer.SetClipboardText(sText); }
  void SetPicture(TextView sPictureKey) { moRenderer.SetClipboardPicture(sPictureKey); }

 private:
  IRenderer& moRenderer;
};

}  // namespace Forms
