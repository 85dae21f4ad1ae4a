#include "CXParamString.h"

namespace {

/// Finds a pair in a string of ended pairs: where its name begins and where its value does.
bool FindPair(TextView sParams, TextView sName, std::size_t& lPair, std::size_t& lValue) {
  const Text sWanted = Text(sName) + u'=';
  lPair = 0;
  while (lPair < sParams.size()) {
    lValue = lPair + sWanted.size();
    if (sParams.substr(lPair, sWanted.size()) == sWanted) return true;
    lPair = sParams.find(u'&', lPair);
    if (lPair != TextView::npos) ++lPair;
  }
  return false;
}

}  // namespace

Text CXParamString::Property(TextView sName) const {
  std::size_t lPair = 0, lValue = 0;
  if (!FindPair(msParams, sName, lPair, lValue)) return {};
  return msParams.substr(lValue, msParams.find(u'&', lValue) - lValue);
}

void CXParamString::SetProperty(TextView sName, TextView sValue) {
  std::size_t lPair = 0, lValue = 0;
  if (FindPair(msParams, sName, lPair, lValue)) {
    msParams.erase(lPair, msParams.find(u'&', lValue) + 1 - lPair);
  }
  msParams.append(sName).append(u"=").append(sValue).append(u"&");
}

Text CXParamString::ParamString() const {
  return msParams.empty() ? Text() : msParams.substr(0, msParams.size() - 1);
}

void CXParamString::SetParamString(TextView sParams) {
  msParams = sParams;
  if (!msParams.empty() && !msParams.ends_with(u'&')) msParams += u'&';
}
