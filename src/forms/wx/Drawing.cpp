#include "Drawing.h"

#include <wx/control.h>
#include <wx/dc.h>
#include <wx/tokenzr.h>

#include "NativeLook.h"
#include "NativeText.h"

namespace Forms {

void DrawSunken(wxDC& oDC, const wxRect& o) {
  oDC.SetPen(wxPen(NativeColor(SystemColor::ButtonShadow)));
  oDC.DrawLine(o.GetLeft(), o.GetTop(), o.GetRight() + 1, o.GetTop());
  oDC.DrawLine(o.GetLeft(), o.GetTop(), o.GetLeft(), o.GetBottom() + 1);
  oDC.SetPen(wxPen(NativeColor(SystemColor::Light3D)));
  oDC.DrawLine(o.GetLeft(), o.GetBottom(), o.GetRight() + 1, o.GetBottom());
  oDC.DrawLine(o.GetRight(), o.GetTop(), o.GetRight(), o.GetBottom() + 1);
}

void DrawTextIn(wxDC& oDC, const wxString& sText, const wxRect& oRect, int nAlignment) {
  if (oRect.width <= 0) return;
  const wxString sShown =
      wxControl::Ellipsize(sText, oDC, wxELLIPSIZE_END, oRect.width, wxELLIPSIZE_FLAGS_NONE);
  const wxDCClipper oClipper(oDC, oRect);
  oDC.DrawLabel(sShown, oRect, nAlignment | wxALIGN_CENTER_VERTICAL);
}

wxString CaptionParts(TextView sCaption, int& nAccess) {
  nAccess = -1;
  for (std::size_t i = 0; i + 1 < sCaption.size() && nAccess < 0; ++i) {
    if (sCaption[i] != u'&') continue;
    if (sCaption[i + 1] == u'&') {
      ++i;
    } else {
      nAccess = static_cast<int>(ToWx(PlainCaption(sCaption.substr(0, i))).length());
    }
  }
  return ToWx(PlainCaption(sCaption));
}

std::vector<wxString> Wrap(wxDC& oDC, const wxString& sText, int nWidth) {
  std::vector<wxString> asLine;
  wxStringTokenizer oParagraphs(sText, "\n", wxTOKEN_RET_EMPTY_ALL);
  while (oParagraphs.HasMoreTokens()) {
    wxString sLine;
    wxStringTokenizer oWords(oParagraphs.GetNextToken(), " ", wxTOKEN_RET_EMPTY_ALL);
    for (bool bFirst = true; oWords.HasMoreTokens(); bFirst = false) {
      const wxString sWord = oWords.GetNextToken();
      const wxString sLonger = bFirst ? sWord : sLine + " " + sWord;
      if (!bFirst && oDC.GetTextExtent(sLonger).x > nWidth) {
        asLine.push_back(sLine);
        sLine = sWord;
      } else {
        sLine = sLonger;
      }
    }
    asLine.push_back(sLine);
  }
  return asLine;
}

}  // namespace Forms
