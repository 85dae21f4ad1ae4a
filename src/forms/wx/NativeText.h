// Text between the two sides: 16-bit units with CR LF here, the window system's characters with LF
// there. Positions count from 0 on both sides.
#pragma once

#include <wx/string.h>

#include "FormsTypes.h"

namespace Forms {

wxString ToWx(TextView sText);
Text FromWx(const wxString& sText);

/// The text of a field with line ends as the window system has them. A lone CR or LF is a line end
/// too.
wxString ToField(TextView sText);
/// The other direction: each line end becomes CR LF.
Text FromField(const wxString& sText);
/// Where a position in sText stands in ToField(sText), and back. Positions beyond the text become
/// its end. Characters outside the first plane take two units here; a window system whose
/// characters are 32-bit has one for them.
long ToFieldPosition(TextView sText, std::int32_t lPosition);
std::int32_t FromFieldPosition(TextView sText, long nPosition);

}  // namespace Forms
