// Named values in one string: pairs of name, "=", value, each ended by "&" (a=1&b=2&).
// No escaping; names compare exactly. A changed value moves to the end.
#pragma once

#include "Text.h"

class CXParamString {
 public:
  /// Empty when the name isn't there.
  Text Property(TextView sName) const;
  void SetProperty(TextView sName, TextView sValue);
  /// Without the last "&".
  Text ParamString() const;
  void SetParamString(TextView params);

 private:
  Text mParams;
};
