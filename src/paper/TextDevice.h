// Turns pages into lines of characters of one width, for terminals, mails and comparisons. Each row
// of a page becomes a line; columns begin at whole characters; of the space between rows at most
// one blank line is left; a form feed stands between pages. Nothing that was printed gets lost: a
// text that would cover another moves to the right.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "IPrintDevice.h"

namespace Paper {

class TextDevice : public IPrintDevice {
 public:
  using Write = std::function<void(std::string_view sUtf8)>;

  /// fnWrite gets each page when it is complete.
  explicit TextDevice(Write fnWrite) : mfnWrite(std::move(fnWrite)) {}

  Text DeviceName() const override { return u"Plain text"; }
  Strips Unprintable(const Sheet&) override { return {}; }
  double LineWidth(TextView sLine, const PrintFont& oFont) override;
  double LineHeight(const PrintFont& oFont) override;
  void StartDocument(TextView sTitle) override;
  void StartPage(const Sheet& oSheet) override;
  void DrawLine(double dX, double dY, TextView sLine, const PrintFont& oFont) override;
  void EndDocument() override;
  void KillDocument() noexcept override;

 private:
  struct Piece {
    double dX, dY;
    Text sText;
  };
  void EndPage();
  /// The pieces in their order, the leftmost ones at dLeft.
  void AppendRows(double dLeft, std::string& sPage) const;

  Write mfnWrite;
  std::vector<Piece> moPieces;
  bool mbAnyPage = false;  ///< a page has been written, in this document or one before it
};

}  // namespace Paper
