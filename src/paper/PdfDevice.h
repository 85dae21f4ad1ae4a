// Makes a PDF document in memory and hands its bytes over at its end. Text in any script: what
// the font doesn't have is taken from one that does.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "IPrintDevice.h"

namespace Paper {

class PdfDevice : public IPrintDevice {
 public:
  /// Where the document goes at its end; it may throw, and then the document is lost.
  using Deliver = std::function<void(const std::string& sBytes)>;

  explicit PdfDevice(Deliver fnDeliver);
  ~PdfDevice() override;

  Text DeviceName() const override { return u"PDF file"; }
  Strips Unprintable(const Sheet&) override { return {}; }
  double LineWidth(TextView sLine, const PrintFont& oFont) override;
  double LineHeight(const PrintFont& oFont) override;
  void StartDocument(TextView sTitle) override;
  void StartPage(const Sheet& oSheet) override;
  void DrawLine(double dX, double dY, TextView sLine, const PrintFont& oFont) override;
  void EndDocument() override;
  void KillDocument() noexcept override;

 private:
  class Fonts;
  class Document;

  Deliver mfnDeliver;
  std::unique_ptr<Fonts> moFonts;
  std::unique_ptr<Document> moDocument;
};

}  // namespace Paper
