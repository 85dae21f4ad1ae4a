#include "NativeLook.h"

#include <wx/fontenum.h>
#include <wx/image.h>
#include <wx/mstream.h>
#include <wx/settings.h>

#include <algorithm>
#include <cmath>

#include "NativeText.h"
#include "Toolkit.h"

namespace Forms {

namespace {

struct SystemRow {
  Color lColor;
  wxSystemColour eNative;
};

const SystemRow SystemRows[] = {
    {SystemColor::ActiveTitleBar, wxSYS_COLOUR_HIGHLIGHT},
    {SystemColor::InactiveTitleBar, wxSYS_COLOUR_BTNSHADOW},
    {SystemColor::WindowBackground, wxSYS_COLOUR_WINDOW},
    {SystemColor::WindowText, wxSYS_COLOUR_WINDOWTEXT},
    {SystemColor::TitleBarText, wxSYS_COLOUR_HIGHLIGHTTEXT},
    {SystemColor::InactiveTitleBarText, wxSYS_COLOUR_BTNTEXT},
    {SystemColor::Highlight, wxSYS_COLOUR_HIGHLIGHT},
    {SystemColor::HighlightText, wxSYS_COLOUR_HIGHLIGHTTEXT},
    {SystemColor::ButtonFace, wxSYS_COLOUR_BTNFACE},
    {SystemColor::ButtonShadow, wxSYS_COLOUR_BTNSHADOW},
    {SystemColor::GrayText, wxSYS_COLOUR_GRAYTEXT},
    {SystemColor::ButtonText, wxSYS_COLOUR_BTNTEXT},
    {SystemColor::Highlight3D, wxSYS_COLOUR_BTNHIGHLIGHT},
    {SystemColor::DarkShadow3D, wxSYS_COLOUR_3DDKSHADOW},
    {SystemColor::Light3D, wxSYS_COLOUR_3DLIGHT},
    {SystemColor::InfoText, wxSYS_COLOUR_INFOTEXT},
    {SystemColor::InfoBackground, wxSYS_COLOUR_INFOBK},
};

/// Keeps the list of faces: asking for it takes longer than all the rest of making a font.
bool IsInstalled(const wxString& sFace) {
  static std::map<wxString, bool> oKnown;
  const auto [it, bNew] = oKnown.try_emplace(sFace, false);
  if (bNew) it->second = wxFontEnumerator::IsValidFacename(sFace);
  return it->second;
}

/// The system's font that takes the place of a face; wxSYS_ANSI_VAR_FONT for none.
wxSystemFont RoleOf(TextView sName) {
  if (sName.empty() || sName.starts_with(u"MS S")) return wxSYS_DEFAULT_GUI_FONT;
  if (sName.starts_with(u"Courier")) return wxSYS_ANSI_FIXED_FONT;
  return wxSYS_ANSI_VAR_FONT;
}

}  // namespace

wxFont NativeFont(const FontSpec& oFont) {
  wxFontInfo oInfo(oFont.dSize);
  oInfo.Bold(oFont.bBold).Italic(oFont.bItalic);
  oInfo.Underlined(oFont.bUnderline).Strikethrough(oFont.bStrikethrough);
  const wxString sFace = ToWx(oFont.sName);
  const wxSystemFont eRole = RoleOf(oFont.sName);
  if (IsInstalled(sFace)) {
    oInfo.FaceName(sFace);
  } else if (eRole == wxSYS_DEFAULT_GUI_FONT) {
    oInfo.FaceName(wxSystemSettings::GetFont(eRole).GetFaceName());
  } else if (eRole == wxSYS_ANSI_FIXED_FONT) {
    oInfo.Family(wxFONTFAMILY_TELETYPE);
  }
  return wxFont(oInfo);
}

bool HasNativeFont(TextView sName) {
  return RoleOf(sName) != wxSYS_ANSI_VAR_FONT || IsInstalled(ToWx(sName));
}

FontSpec FontSpecOf(const wxFont& oFont) {
  FontSpec o;
  o.sName = FromWx(oFont.GetFaceName());
  o.dSize = oFont.GetFractionalPointSize();
  o.bBold = oFont.GetNumericWeight() >= wxFONTWEIGHT_BOLD;
  o.lWeight = oFont.GetNumericWeight();
  o.bItalic = oFont.GetStyle() != wxFONTSTYLE_NORMAL;
  o.bUnderline = oFont.GetUnderlined();
  o.bStrikethrough = oFont.GetStrikethrough();
  return o;
}

double Contrast(const wxColour& oOne, const wxColour& oOther) {
  const auto Luminance = [](const wxColour& o) {
    const auto Linear = [](unsigned char n) {
      const double d = n / 255.0;
      return d <= 0.04045 ? d / 12.92 : std::pow((d + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * Linear(o.Red()) + 0.7152 * Linear(o.Green()) + 0.0722 * Linear(o.Blue());
  };
  const double dOne = Luminance(oOne) + 0.05, dOther = Luminance(oOther) + 0.05;
  return std::max(dOne, dOther) / std::min(dOne, dOther);
}

wxColour Readable(const wxColour& oDim, const wxColour& oText, const wxColour& oGround) {
  wxColour oNow = oDim;
  for (int n = 1; n <= 20 && Contrast(oNow, oGround) < LeastContrast; ++n) {
    const auto Mix = [n](unsigned char nDim, unsigned char nText) {
      return static_cast<unsigned char>(nDim + (nText - nDim) * n / 20);
    };
    oNow.Set(Mix(oDim.Red(), oText.Red()), Mix(oDim.Green(), oText.Green()),
             Mix(oDim.Blue(), oText.Blue()));
  }
  return oNow;
}

wxColour NativeColor(Color lColor) {
  if (!IsSystemColor(lColor)) return wxColour(lColor & 0xFFFFFFU);
  // Themes give text that can't be used a contrast of about 3; ours also tells values.
  if (lColor == SystemColor::GrayText)
    return Readable(wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT),
                    wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT),
                    wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW));
  for (const SystemRow& o : SystemRows) {
    if (o.lColor == lColor) return wxSystemSettings::GetColour(o.eNative);
  }
  return wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE);
}

Color ColorOf(const wxColour& oColour) {
  return oColour.GetRGB();
}

wxCursor NativeCursor(std::int32_t nPointer) {
  switch (nPointer) {
    case Pointer::Default:
      return wxNullCursor;
    case Pointer::SizeNS:
      return wxCursor(wxCURSOR_SIZENS);
    case Pointer::SizeWE:
      return wxCursor(wxCURSOR_SIZEWE);
    case Pointer::Hourglass:
      return wxCursor(wxCURSOR_WAIT);
    default:
      return wxCursor(wxCURSOR_ARROW);
  }
}

const wxBitmap& PictureCache::Get(const Toolkit& oKit, TextView sKey, int nPixels) {
  const auto [it, bNew] = moBitmaps.try_emplace({Text(sKey), nPixels});
  if (!bNew || sKey.empty()) return it->second;
  const std::string abPng = oKit.Picture(sKey, nPixels);
  if (abPng.empty()) return it->second;
  wxMemoryInputStream oBytes(abPng.data(), abPng.size());
  wxImage oImage;
  if (!oImage.LoadFile(oBytes, wxBITMAP_TYPE_PNG)) return it->second;
  if (oImage.GetWidth() != nPixels) oImage.Rescale(nPixels, nPixels, wxIMAGE_QUALITY_HIGH);
  it->second = wxBitmap(oImage);
  return it->second;
}

}  // namespace Forms
