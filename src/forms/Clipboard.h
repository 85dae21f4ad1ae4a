// The system's clipboard. A picture is put there by its key.
#pragma once

#include "IRenderer.h"

namespace Forms {

class Clipboard {
 public:
  explicit Clipboard(IRenderer& oRenderer) : moRenderer(oRenderer) {}
  void Clear() { SetText({}); }
  /// Empty when it holds no text.
  Text GetText() const { return moRenderer.ClipboardText(); }
  void SetText(TextView sText) {
    msPicture.clear();
    moRenderer.SetClipboardText(sText);
  }
  void SetPicture(TextView sPictureKey) {
    msPicture = sPictureKey;
    moRenderer.SetClipboardPicture(sPictureKey);
  }
  /// The picture that this program put there last; empty when it put a text there since.
  const Text& PictureKey() const { return msPicture; }

 private:
  IRenderer& moRenderer;
  Text msPicture;
};

}  // namespace Forms
