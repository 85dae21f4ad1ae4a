#include "CXParamString.h"

namespace {

/// Finds a pair in a string of ended pairs: where its name begins and where its value does.
bool FindPair(TextView params, TextView name, std::size_t& pair, std::size_t& value) {
  const Text wanted = Text(name) + u'=';
  pair = 0;
  while (pair < params.size()) {
    value = pair + wanted.size();
    if (params.substr(pair, wanted.size()) == wanted) return true;
    pair = params.find(u'&', pair);
    if (pair != TextView::npos) ++pair;
  }
  return false;
}

}  // namespace

Text CXParamString::Property(TextView sName) const {
  std::size_t pair = 0, value = 0;
  if (!FindPair(mParams, sName, pair, value)) return {};
  return mParams.substr(value, mParams.find(u'&', value) - value);
}

void CXParamString::SetProperty(TextView sName, TextView sValue) {
  std::size_t pair = 0, value = 0;
  if (FindPair(mParams, sName, pair, value)) {
    mParams.erase(pair, mParams.find(u'&', value) + 1 - pair);
  }
  mParams.append(sName).append(u"=").append(sValue).append(u"&");
}

Text CXParamString::ParamString() const {
  return mParams.empty() ? Text() : mParams.substr(0, mParams.size() - 1);
}

void CXParamString::SetParamString(TextView params) {
  mParams = params;
  if (!mParams.empty() && !mParams.ends_with(u'&')) mParams += u'&';
}
