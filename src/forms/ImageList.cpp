#include "ImageList.h"

#include <algorithm>

#include "ControlContainer.h"
#include "Failure.h"
#include "Form.h"

namespace Forms {

namespace {

auto Find(const ImageListState& o, TextView sKey) {
  return std::find_if(o.asImage.begin(), o.asImage.end(),
                      [&](const auto& oPair) { return oPair.first == sKey; });
}

}  // namespace

ImageList::ImageList(ControlContainer& oContainer, TextView sName)
    : WithState(oContainer.Parent(), sName) {}

void ImageList::Add(TextView sKey, TextView sPicture) {
  Touch();
  if (Exists(sKey))
    throw Failure(35602, u"There is a picture with the key " + Text(sKey) + u" already");
  mo.asImage.emplace_back(sKey, sPicture.empty() ? sKey : sPicture);
}

bool ImageList::Exists(TextView sKey) const {
  return Find(mo, sKey) != mo.asImage.end();
}

const Text& ImageList::Picture(TextView sKey) const {
  const auto it = Find(mo, sKey);
  if (it == mo.asImage.end())
    throw Failure(35601, u"There is no picture with the key " + Text(sKey));
  return it->second;
}

void CheckImage(const ImageList* poImages, TextView sKey) {
  if (poImages && !sKey.empty()) static_cast<void>(poImages->Picture(sKey));
}

}  // namespace Forms
