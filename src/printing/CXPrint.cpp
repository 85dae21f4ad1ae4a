#include "CXPrint.h"

#include <algorithm>
#include <cmath>

#include "Failure.h"
#include "MXDate.h"
#include "MXString.h"

namespace {

constexpr std::int32_t ColumnGap = 100;  ///< twips; a part of the reports' layout

/// Halves go to the even number, as everywhere in Visual Basic.
std::int32_t Rounded(double dValue) {
  return static_cast<std::int32_t>(std::nearbyint(dValue));
}

}  // namespace

CXPrint::~CXPrint() {
  // Otherwise the pages printed so far would become the first pages of the next report.
  if (!mbFinished) moPrinter.KillDoc();
}

void CXPrint::SetLeftMargin(std::int32_t lMargin) {
  mlLeftMargin = std::max(lMargin, Rounded(moPrinter.ScaleLeft()));
}

void CXPrint::SetTopMargin(std::int32_t lMargin) {
  mlTopMargin = std::max(lMargin, Rounded(moPrinter.ScaleTop()));
}

void CXPrint::SetRightMargin(std::int32_t lMargin) {
  const double dStrip = moPrinter.Width() - moPrinter.ScaleLeft() - moPrinter.ScaleWidth();
  mlRightMargin = std::max(lMargin, Rounded(dStrip));
}

void CXPrint::SetBottomMargin(std::int32_t lMargin) {
  const double dStrip = moPrinter.Height() - moPrinter.ScaleTop() - moPrinter.ScaleHeight();
  mlBottomMargin = std::max(lMargin, Rounded(dStrip));
}

void CXPrint::Header(TextView sLeft, TextView sCenter, TextView sRight) {
  moHeader = {Text(sLeft), Text(sCenter), Text(sRight)};
}

void CXPrint::Footer(TextView sLeft, TextView sCenter, TextView sRight) {
  moFooter = {Text(sLeft), Text(sCenter), Text(sRight)};
}

Text CXPrint::DoSubstitutions(TextView sText) const {
  const std::int64_t lNow = MXDate::fnNow();
  Text sResult = MXString::StringReplace(sText, u"&[Date]", MXDate::MediumDate(lNow));
  sResult = MXString::StringReplace(sResult, u"&[Time]", MXDate::ShortTime(lNow));
  return MXString::StringReplace(sResult, u"&[Page]", ToText(moPrinter.Page()));
}

void CXPrint::WriteHeader() {
  moPrinter.SetFontBold(false);
  WriteTexts(moHeader, Edge::Top);
  moPrinter.SetCurrentY(mlTopMargin + HeaderMargin);
  moPrinter.SetFontBold(FontBold);
}

void CXPrint::WriteFooter() {
  const double dY = moPrinter.CurrentY();
  moPrinter.SetFontBold(false);
  WriteTexts(moFooter, Edge::Bottom);
  moPrinter.SetFontBold(FontBold);
  moPrinter.SetCurrentY(dY);
}

void CXPrint::WriteTexts(const ThreeTexts& oTexts, Edge eEdge) {
  const double dWidth = moPrinter.Width();
  const Text sLeft = DoSubstitutions(oTexts.sLeft), sCenter = DoSubstitutions(oTexts.sCenter),
             sRight = DoSubstitutions(oTexts.sRight);
  WriteAt(mlLeftMargin, sLeft, eEdge);
  // The whole-number division of the language: rounded first, then cut towards zero.
  const std::int32_t lFree =
      Rounded(dWidth - mlLeftMargin - mlRightMargin - moPrinter.TextWidth(sCenter));
  WriteAt(mlLeftMargin + lFree / 2, sCenter, eEdge);
  WriteAt(dWidth - mlRightMargin - moPrinter.TextWidth(sRight), sRight, eEdge);
}

void CXPrint::WriteAt(double dX, TextView sText, Edge eEdge) {
  const double dBottom = moPrinter.Height() - mlBottomMargin;
  moPrinter.SetCurrentX(dX);
  moPrinter.SetCurrentY(eEdge == Edge::Top ? mlTopMargin : dBottom - moPrinter.TextHeight(sText));
  moPrinter.Print(sText);
}

void CXPrint::Begin() {
  moPrinter.SetFontBold(FontBold);
  if (!mbFirstPage) return;
  WriteHeader();
  mbFirstPage = false;
}

double CXPrint::RowHeight(TextView sText, int nLines) const {
  return Rounded(moPrinter.TextHeight(sText) * (1 + double{SpaceAfter}) * nLines);
}

bool CXPrint::Fits(double dHeight) const {
  const double dLimit = moPrinter.Height() - mlBottomMargin - FooterMargin;
  return moPrinter.CurrentY() + dHeight <= dLimit;
}

void CXPrint::BreakPage() {
  WriteFooter();
  moPrinter.NewPage();
  WriteHeader();
}

void CXPrint::PrintLine(TextView sLine) {
  Begin();
  const double dHeight = RowHeight(sLine);
  if (!Fits(dHeight)) BreakPage();
  const double dY = moPrinter.CurrentY();
  moPrinter.SetCurrentX(mlLeftMargin);
  moPrinter.Print(sLine);
  moPrinter.SetCurrentY(dY + dHeight);
}

void CXPrint::PrintBlank() {
  Begin();
  const double dHeight = RowHeight(u" ");
  if (!Fits(dHeight)) return BreakPage();
  moPrinter.SetCurrentY(moPrinter.CurrentY() + dHeight);
}

void CXPrint::CheckPage(std::int16_t nLines) {
  Begin();
  if (!Fits(RowHeight(u" ", nLines))) BreakPage();
}

void CXPrint::SetColumns(const std::vector<std::int32_t>& alPosition) {
  moColumns.assign(alPosition.size(), {});
  for (std::size_t i = 0; i < moColumns.size(); ++i) {
    moColumns[i].lLeft = std::int64_t{mlLeftMargin} + alPosition[i];
  }
  const std::int64_t lRightEdge = Rounded(moPrinter.Width()) - mlRightMargin;
  for (std::size_t i = 0; i < moColumns.size(); ++i) {
    const bool bLast = i + 1 == moColumns.size();
    const std::int64_t lEnd = bLast ? lRightEdge : moColumns[i + 1].lLeft - ColumnGap;
    moColumns[i].lWidth = std::max<std::int64_t>(0, lEnd - moColumns[i].lLeft);
  }
}

std::size_t CXPrint::IndexOf(std::int32_t lColumn) const {
  if (lColumn < 0 || lColumn >= std::ssize(moColumns)) throw Failure(9);
  return static_cast<std::size_t>(lColumn);
}

bool CXPrint::ColumnIsPath(std::int32_t lColumn) const {
  return moColumns[IndexOf(lColumn)].bIsPath;
}

void CXPrint::SetColumnIsPath(std::int32_t lColumn, bool bIsPath) {
  moColumns[IndexOf(lColumn)].bIsPath = bIsPath;
}

Text CXPrint::Fitted(const Column& oColumn, TextView sValue) const {
  const MXString::TextWidth oOutput = [this](TextView s) { return moPrinter.TextWidth(s); };
  const auto dWidth = static_cast<double>(oColumn.lWidth);
  if (oColumn.bIsPath) return MXString::TrimPathToFit(sValue, oOutput, dWidth, true);
  return MXString::TrimToFit(sValue, oOutput, dWidth);
}

void CXPrint::PrintColumns(const std::vector<Text>& asValue) {
  Begin();
  const std::size_t lCount = std::min(moColumns.size(), asValue.size());
  Text sJoined;
  for (std::size_t i = 0; i < lCount; ++i) sJoined += asValue[i];
  const double dHeight = RowHeight(sJoined);
  if (!Fits(dHeight)) BreakPage();
  const double dY = moPrinter.CurrentY();
  for (std::size_t i = 0; i < lCount; ++i) {
    moPrinter.SetCurrentX(static_cast<double>(moColumns[i].lLeft));
    moPrinter.SetCurrentY(dY);
    moPrinter.Print(Fitted(moColumns[i], asValue[i]));
  }
  moPrinter.SetCurrentY(dY + dHeight);
}

void CXPrint::Finish() {
  WriteFooter();
  moPrinter.EndDoc();
  mbFinished = true;
}
