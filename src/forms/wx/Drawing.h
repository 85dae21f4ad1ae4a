// Pieces that several peers paint.
#pragma once

#include <wx/gdicmn.h>
#include <wx/string.h>

#include "FormsTypes.h"

class wxDC;

namespace Forms {

/// One pixel wide, inside oRect: dark above and left, light below and right.
void DrawSunken(wxDC& oDC, const wxRect& oRect);
/// A line of text that ends in three dots where it doesn't fit, in the middle of the rectangle's
/// height. nAlignment: wxALIGN_LEFT, _RIGHT or _CENTER_HORIZONTAL.
void DrawTextIn(wxDC& oDC, const wxString& sText, const wxRect& oRect, int nAlignment);
/// A caption as it is read, and the place of the character behind its access mark, from 0; -1
/// without one.
wxString CaptionParts(TextView sCaption, int& nAccess);
/// The lines of a text that is to stand in nWidth pixels, parted at blanks.
std::vector<wxString> Wrap(wxDC& oDC, const wxString& sText, int nWidth);

}  // namespace Forms
