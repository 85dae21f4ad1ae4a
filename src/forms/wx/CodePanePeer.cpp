#include "CodePanePeer.h"

#include <wx/dc.h>

#include <algorithm>

#include "CodePane.h"
#include "Drawing.h"
#include "MouseFeed.h"
#include "NativeLook.h"
#include "NativeText.h"
#include "WxRenderer.h"

namespace Forms {

namespace {

constexpr std::size_t TabWidth = 4;
constexpr int Gap = 6;
/// How many characters of a long line are drawn: wider than any pane, and narrow enough for the
/// coordinates of the window system.
constexpr std::size_t PartSize = 4096;

/// Control characters have no defined width, and the window system takes a NUL as the text's end.
bool IsControl(char16_t c) {
  return c < u' ' || c == u'\x7F';
}

/// The line as it is drawn: tabs become blanks, since the window system doesn't expand them.
Text Expanded(TextView sLine) {
  Text sShown;
  for (const char16_t c : sLine) {
    if (c == u'\t') {
      sShown.append(TabWidth - sShown.size() % TabWidth, u' ');
    } else {
      sShown += IsControl(c) ? u'\uFFFD' : c;
    }
  }
  return sShown;
}

bool IsLight(const wxColour& o) {
  return o.Red() + o.Green() + o.Blue() > 3 * 128;
}

/// The background of a marked line: the pane's own background with a tint, which suits dark themes
/// too.
wxColour MarkColour(LineMark eMark, const wxColour& oGround) {
  wxColour oTint;
  switch (eMark) {
    case LineMark::Added:
      oTint = wxColour(60, 170, 60);
      break;
    case LineMark::Removed:
      oTint = wxColour(210, 70, 70);
      break;
    case LineMark::Heading:
      oTint = wxColour(120, 140, 190);
      break;
    case LineMark::Current:
      oTint = wxColour(230, 190, 40);
      break;
    default:
      return oGround;
  }
  const double dShare = IsLight(oGround) ? 0.25 : 0.35;
  const auto Mix = [dShare](unsigned char nTint, unsigned char nBase) {
    return static_cast<unsigned char>(nTint * dShare + nBase * (1 - dShare));
  };
  return wxColour(Mix(oTint.Red(), oGround.Red()), Mix(oTint.Green(), oGround.Green()),
                  Mix(oTint.Blue(), oGround.Blue()));
}

}  // namespace

CodePanePeer::CodePanePeer(WxRenderer& oRenderer, CodePane& oPane)
    : RowsPeer(oRenderer, oPane), moCode(oPane) {
  Pane().OnScrolled([this] { moCode.UserTopLine(Pane().Top() + 1); });
}

int CodePanePeer::RowCount() const {
  return moCode.LineCount();
}

void CodePanePeer::MeasureText() {
  std::size_t lLongest = 0, lNumber = 2;
  for (std::int32_t i = 1; i <= moCode.LineCount(); ++i) {
    lLongest = std::max(lLongest, Expanded(moCode.Line(i)).size());
    lNumber = std::max(lNumber, moCode.LineNumber(i).size());
  }
  mnChar = std::max(1, Pane().GetTextExtent("0").x);
  mnMargin = moCode.LineNumbers() ? static_cast<int>(lNumber) * mnChar + 2 * Gap : 0;
  mnWidth = mnMargin + static_cast<int>(lLongest + 1) * mnChar + Gap;
}

void CodePanePeer::DrawRow(wxDC& oDC, int nRow, const wxRect& oRect) {
  const std::int32_t lLine = nRow + 1;
  const bool bSelected = lLine >= moCode.SelStartLine() && lLine <= moCode.SelEndLine();
  const LineMark eMark = moCode.Mark(lLine);
  if (eMark != LineMark::None && !bSelected) {
    oDC.SetPen(*wxTRANSPARENT_PEN);
    oDC.SetBrush(MarkColour(eMark, Pane().GetBackgroundColour()));
    oDC.DrawRectangle(oRect);
  }
  DrawRowGround(oDC, oRect, bSelected);
  wxRect oText(oRect);
  oText.x += mnMargin + Gap / 2;
  DrawLine(oDC, Expanded(moCode.Line(lLine)), {oText.x, oText.y + RowSpace()});
  if (mnMargin == 0) return;
  // Drawn last and at a fixed place: the numbers don't scroll sideways with the text.
  const wxRect oMargin(0, oRect.y, mnMargin - Gap / 2, oRect.height);
  oDC.SetPen(*wxTRANSPARENT_PEN);
  oDC.SetBrush(NativeColor(SystemColor::ButtonFace));
  oDC.DrawRectangle(oMargin);
  oDC.SetTextForeground(NativeColor(SystemColor::GrayText));
  oDC.DrawLabel(ToWx(moCode.LineNumber(lLine)), wxRect(oMargin).Deflate(Gap / 2, 0),
                wxALIGN_RIGHT | wxALIGN_CENTER_VERTICAL);
}

// Draws only the visible part of a very long line: drawing a line of millions of characters takes
// seconds.
void CodePanePeer::DrawLine(wxDC& oDC, TextView sLine, wxPoint oAt) const {
  const int nHidden = sLine.size() > PartSize ? std::max(0, -oAt.x) / mnChar : 0;
  oAt.x += nHidden * mnChar;
  const auto lHidden = std::min(static_cast<std::size_t>(nHidden), sLine.size());
  oDC.DrawText(ToWx(sLine.substr(lHidden, PartSize)), oAt);
}

void CodePanePeer::PressRow(int nRow, const wxMouseEvent& oEvent) {
  if (!oEvent.LeftDown() || nRow >= RowCount()) return;
  const std::int32_t lLine = nRow + 1;
  if (!oEvent.ShiftDown()) mlAnchor = lLine;
  moCode.UserSelectLines(std::min(mlAnchor, lLine), std::max(mlAnchor, lLine));
}

void CodePanePeer::DragRow(int nRow) {
  const std::int32_t lLine = nRow + 1;
  moCode.UserSelectLines(std::min(mlAnchor, lLine), std::max(mlAnchor, lLine));
}

void CodePanePeer::GoToRow(int nRow, std::int32_t) {
  moCode.UserTopLine(nRow + 1);
}

void CodePanePeer::Apply(const Changes& oChanges) {
  if (oChanges.Has(Property::Items)) mlAnchor = 1;
  if (oChanges.Has(Property::Items) || oChanges.Has(Property::Font)) {
    ControlPeer::Apply(oChanges);  // the font has to be set before measuring
    MeasureText();
  }
  RowsPeer::Apply(oChanges);
  if (oChanges.Has(Property::Items) || oChanges.Has(Property::Scroll)) {
    Pane().SetTop(moCode.TopLine() - 1);
  }
}

}  // namespace Forms
