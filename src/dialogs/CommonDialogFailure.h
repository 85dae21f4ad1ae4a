// What an answer of one of the system's dialogs means.
#pragma once

#include "CommonDialogs.h"

/// True when the user confirmed, false for Cancel. A failure of the dialog itself is thrown with
/// its number, source "comdlg32.dll".
bool WasConfirmed(const Forms::DialogAnswer& oAnswer);
