// The lines of two versions of a procedure side by side: which stay, which go, which come.
#pragma once

#include <vector>

#include "Text.h"

namespace CodeDiff {

enum class Fate { Stays, Goes, Comes };

struct Line {
  TextView sText;
  Fate eFate = Fate::Stays;
  bool operator==(const Line&) const = default;
};

/// Both texts have their lines joined by CR LF. The lines of both in order, those that go ahead of
/// those that come in their place; the views point into the texts. As few as possible go and come;
/// only where a stretch of thousands of lines differs from another, it counts as replaced whole.
/// Example: `a` `b` `c` against `a` `x` `c` gives a stays, b goes, x comes, c stays.
std::vector<Line> Compare(TextView sOld, TextView sNew);

}  // namespace CodeDiff
