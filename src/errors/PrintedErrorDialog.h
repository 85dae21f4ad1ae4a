// The dialog of programs without a window: prints a line per failure and never asks, so that a
// script doesn't hang at a question. The same failure several times in a row is printed once.
#pragma once

#include <cstdio>

#include "IErrorDialog.h"

class PrintedErrorDialog : public IErrorDialog {
 public:
  /// sName goes in front of each line, as "quillon: ". The stream isn't closed.
  explicit PrintedErrorDialog(std::FILE* poStream, std::string sName = "quillon");
  ErrorAnswer Ask(const ErrorEvent& oEvent) override;
  void Tell(std::string_view sMessageUtf8) override;

 private:
  std::FILE* mpoStream;
  std::string msName;
  std::string msLast;
};
