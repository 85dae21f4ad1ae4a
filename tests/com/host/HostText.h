// Texts at the border of COM.
#pragma once

#include <ole2.h>

#include "Text.h"

inline TextView TextOf(BSTR text) {
  return {reinterpret_cast<const char16_t*>(text), SysStringLen(text)};
}
/// The caller frees it.
inline BSTR Bstr(TextView text) {
  return SysAllocStringLen(reinterpret_cast<const OLECHAR*>(text.data()),
                           static_cast<UINT>(text.size()));
}
