#include "ButtonFaces.h"

#include <algorithm>

namespace {

Text KeyAt(std::ptrdiff_t lPlace) {
  return u"Button Face " + ToText(lPlace);
}

}  // namespace

Text ButtonFaces::KeyOf(const Picture& oFace) {
  if (oFace.sBytes.empty()) return {};
  const auto it = std::find(masBytes.begin(), masBytes.end(), oFace.sBytes);
  const auto lPlace = it - masBytes.begin();
  if (it == masBytes.end()) masBytes.push_back(oFace.sBytes);
  return KeyAt(lPlace);
}

std::string ButtonFaces::Find(TextView sKey) const {
  for (std::size_t i = 0; i < masBytes.size(); ++i)
    if (KeyAt(static_cast<std::ptrdiff_t>(i)) == sKey) return masBytes[i];
  return {};
}
