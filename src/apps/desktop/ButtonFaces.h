// The pictures that add-ins gave to their buttons, under keys by which the window layer asks for
// pictures.
#pragma once

#include <string>
#include <vector>

#include "CommandBars.h"

class ButtonFaces {
 public:
  /// The key of a face; the same for the same bytes. Empty for a button without a face.
  Text KeyOf(const Picture& oFace);
  /// Empty for a key that isn't one of a face.
  std::string Find(TextView sKey) const;

 private:
  std::vector<std::string> masBytes;
};
