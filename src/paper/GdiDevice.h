// Draws pages on a printer of Windows.
#pragma once

#include <memory>
#include <string>

#include "IPrintDevice.h"

namespace Paper {

class GdiDevice : public IPrintDevice {
 public:
  /// sPrinter: as the system lists it. sOutput: the file that a document goes to where it isn't
  /// printed on paper; empty: what the printer is set to. Asks the printer nothing yet.
  explicit GdiDevice(Text sPrinter, std::string sOutput = {});
  ~GdiDevice() override;

  Text DeviceName() const override { return mPrinter; }
  std::int32_t LoadedPaper() override;
  Strips Unprintable(const Sheet& oSheet) override;
  /// Of the font alone, whatever the printer.
  double LineWidth(TextView sLine, const PrintFont& oFont) override;
  double LineHeight(const PrintFont& oFont) override;
  void StartDocument(TextView sTitle) override;
  void StartPage(const Sheet& oSheet) override;
  void DrawLine(double dX, double dY, TextView sLine, const PrintFont& oFont) override;
  /// Returns when the printer has taken the document; when there is an output file, it is complete.
  void EndDocument() override;
  void KillDocument() noexcept override;

 private:
  class Fonts;
  class Job;

  Text mPrinter, mTitle;
  std::string mOutput;
  std::unique_ptr<Fonts> mFonts;
  std::unique_ptr<Job> mJob;
};

}  // namespace Paper
