// Makes one document of several: what is printed through it goes to the device below as pages of a
// single document, which ends at Close. Page numbers begin anew with each of the inner documents.
#pragma once

#include "IPrintDevice.h"

namespace Paper {

class SeveralDocuments : public IPrintDevice {
 public:
  /// sTitle: of the whole. Without Close all is dropped. oBelow outlives this object.
  SeveralDocuments(IPrintDevice& oBelow, TextView sTitle) : moBelow(oBelow), msTitle(sTitle) {}
  ~SeveralDocuments() override { KillDocument(); }
  SeveralDocuments(const SeveralDocuments&) = delete;
  SeveralDocuments& operator=(const SeveralDocuments&) = delete;

  Text DeviceName() const override { return moBelow.DeviceName(); }
  std::int32_t LoadedPaper() override { return moBelow.LoadedPaper(); }
  Strips Unprintable(const Sheet& oSheet) override { return moBelow.Unprintable(oSheet); }
  double LineWidth(TextView sLine, const PrintFont& oFont) override {
    return moBelow.LineWidth(sLine, oFont);
  }
  double LineHeight(const PrintFont& oFont) override { return moBelow.LineHeight(oFont); }
  void StartDocument(TextView sTitle) override;
  void StartPage(const Sheet& oSheet) override { moBelow.StartPage(oSheet); }
  void DrawLine(double dX, double dY, TextView sLine, const PrintFont& oFont) override {
    moBelow.DrawLine(dX, dY, sLine, oFont);
  }
  void EndDocument() override {}
  /// Drops all of them, those that have ended too: pages can't be taken back one by one.
  void KillDocument() noexcept override;

  /// Ends the document; nothing when none was begun.
  void Close();

 private:
  IPrintDevice& moBelow;
  Text msTitle;
  bool mbOpen = false;
};

}  // namespace Paper
