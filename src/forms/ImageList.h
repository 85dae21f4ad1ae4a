// Small pictures of one size under keys, for lists and trees. An image's key stands for the key of
// a picture that the toolkit's provider has.
#pragma once

#include "Component.h"

namespace Forms {

class ControlContainer;

struct ImageListState {
  std::int32_t lPixels = 16;
  std::vector<std::pair<Text, Text>> asImage;  ///< key, key of the picture
};

class ImageList : public WithState<Component, ImageListState> {
 public:
  using WithState::WithState;
  ImageList(ControlContainer& oContainer, TextView sName);
  ComponentKind Kind() const override { return ComponentKind::ImageList; }
  void Realize() override {}

  /// Width and height of each picture, in pixels at normal resolution.
  std::int32_t Pixels() const { return mo.lPixels; }
  void SetPixels(std::int32_t l) { mo.lPixels = l; }  ///< design time
  /// Without sPicture, the picture has the image's own key. Failure 35602 for a key that is taken.
  void Add(TextView sKey, TextView sPicture = {});
  bool Exists(TextView sKey) const;
  /// Key of the picture; Failure 35601 for an unknown key.
  const Text& Picture(TextView sKey) const;
  std::int32_t Count() const { return static_cast<std::int32_t>(mo.asImage.size()); }
};

/// Failure 35601 for a key that the list doesn't have. The empty key is allowed, and so is any key
/// when there is no list.
void CheckImage(const ImageList* poImages, TextView sKey);

}  // namespace Forms
