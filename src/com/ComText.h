// Texts at the border to COM: the system's type for 16-bit units is another one than ours.
#pragma once

// The base of all others.
#include <windows.h>

#include <oleauto.h>

#include "Text.h"

/// Valid as long as the text; what is handed on ends in a null character.
inline const wchar_t* WideChars(const Text& text) {
  return reinterpret_cast<const wchar_t*>(text.c_str());
}
inline Text FromWide(const wchar_t* text) {
  return text ? Text(reinterpret_cast<const char16_t*>(text)) : Text();
}
/// A null string is the empty text. Null characters inside stay.
inline Text FromBstr(BSTR text) {
  return Text(reinterpret_cast<const char16_t*>(text), text ? SysStringLen(text) : 0);
}
/// The caller frees it. Null when memory is out.
inline BSTR ToBstr(TextView text) {
  return SysAllocStringLen(reinterpret_cast<const wchar_t*>(text.data()),
                           static_cast<UINT>(text.size()));
}
