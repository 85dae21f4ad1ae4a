#include "NativeText.h"

namespace Forms {

namespace {

/// Units at lAt that are one character of a field, and how many field characters they are.
struct Step {
  std::size_t lUnits;
  long nField;
};

Step StepAt(TextView sText, std::size_t lAt) {
  const TextView sRest = sText.substr(lAt);
  if (sRest.substr(0, 2) == CrLf) return {2, 1};
  const bool bPair = sRest.size() > 1 && (sRest[0] & 0xFC00) == 0xD800;
  return bPair ? Step{2, sizeof(wchar_t) == 2 ? 2 : 1} : Step{1, 1};
}

}  // namespace

wxString ToWx(TextView sText) {
  const std::string sBytes = ToUtf8(sText);
  return wxString::FromUTF8(sBytes.data(), sBytes.size());
}

Text FromWx(const wxString& sText) {
  const wxScopedCharBuffer oBytes = sText.utf8_str();
  return FromUtf8({oBytes.data(), oBytes.length()});
}

wxString ToField(TextView sText) {
  Text sField;
  sField.reserve(sText.size());
  for (std::size_t i = 0; i < sText.size(); ++i) {
    if (sText[i] == u'\r' && i + 1 < sText.size() && sText[i + 1] == u'\n') continue;
    sField += sText[i] == u'\r' ? u'\n' : sText[i];
  }
  return ToWx(sField);
}

Text FromField(const wxString& sText) {
  Text sUnits;
  for (const char16_t cUnit : FromWx(sText)) {
    if (cUnit == u'\n') sUnits += u'\r';
    sUnits += cUnit;
  }
  return sUnits;
}

long ToFieldPosition(TextView sText, std::int32_t lPosition) {
  long nField = 0;
  for (std::size_t i = 0; i < sText.size() && i < static_cast<std::size_t>(lPosition);) {
    const Step oStep = StepAt(sText, i);
    i += oStep.lUnits;
    nField += oStep.nField;
  }
  return nField;
}

std::int32_t FromFieldPosition(TextView sText, long nPosition) {
  std::size_t i = 0;
  for (long nField = 0; i < sText.size() && nField < nPosition;) {
    const Step oStep = StepAt(sText, i);
    i += oStep.lUnits;
    nField += oStep.nField;
  }
  return static_cast<std::int32_t>(std::min(i, sText.size()));
}

}  // namespace Forms
