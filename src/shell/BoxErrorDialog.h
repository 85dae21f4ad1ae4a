// Failures as message boxes: what happened, what to do about it, and the answer of the user. If
// the failing step can be repeated, the answers are Abort (leave the routine), Retry and Ignore
// (go on behind the step); else there is only OK.
#pragma once

#include "IErrorDialog.h"

namespace Forms {
class Toolkit;
}

class BoxErrorDialog : public IErrorDialog {
 public:
  explicit BoxErrorDialog(Forms::Toolkit& oToolkit) : moToolkit(oToolkit) {}
  ErrorAnswer Ask(const ErrorEvent& oEvent) override;
  void Tell(std::string_view sMessageUtf8) override;

 private:
  Forms::Toolkit& moToolkit;
};
