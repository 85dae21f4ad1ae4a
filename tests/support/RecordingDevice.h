// A printing device that keeps what is drawn on it. Letters are 100 twips wide, bold ones 120; a
// line is 200 high. Its page is what MakeSheet says, with strips that a test can set.
#pragma once

#include <string>

#include "Failure.h"
#include "IPrintDevice.h"

class RecordingDevice : public Paper::IPrintDevice {
 public:
  Text DeviceName() const override { return u"Record"; }
  std::int32_t LoadedPaper() override { return Paper::PaperLetter; }
  Paper::Strips Unprintable(const Paper::Sheet&) override { return oStrips; }
  double LineWidth(TextView sLine, const Paper::PrintFont& oFont) override {
    return static_cast<double>(sLine.size()) * (oFont.bBold ? 120 : 100);
  }
  double LineHeight(const Paper::PrintFont&) override { return 200; }
  void StartDocument(TextView sTitle) override { Add("document " + ToUtf8(sTitle)); }
  void StartPage(const Paper::Sheet& o) override {
    if (lFailAtPage > 0 && --lFailAtPage == 0) throw Failure(482);
    ++lPage;
    Add("page " + std::to_string(o.lWidth) + " x " + std::to_string(o.lHeight));
  }
  /// Page, left and upper edge, "*" for bold, the text.
  void DrawLine(double dX, double dY, TextView sLine, const Paper::PrintFont& oFont) override {
    const std::string sText = ToUtf8(sLine) + (oFont.bBold ? "*" : "");
    Add(std::to_string(lPage) + " " + Number(dX) + " " + Number(dY) + " " + sText);
    sRows += (dY != dLastY || lPage != lLastPage ? "\n" : "|") + sText;
    dLastY = dY, lLastPage = lPage;
  }
  void EndDocument() override { Add("end"); }
  void KillDocument() noexcept override { sRecord = "killed\n"; }

  /// All that happened, a line each.
  std::string sRecord;
  /// The texts alone: a line for each row, "|" between its columns.
  std::string sRows;
  Paper::Strips oStrips;
  int lPage = 0;
  /// The page from 1 that can't be begun; 0: all can.
  int lFailAtPage = 0;

 private:
  void Add(const std::string& sLine) { sRecord += sLine + "\n"; }
  static std::string Number(double d) {
    std::string s = std::to_string(d);
    s.erase(s.find_last_not_of('0') + 1);
    return s.back() == '.' ? s.substr(0, s.size() - 1) : s;
  }
  double dLastY = -1;
  int lLastPage = 0;
};
