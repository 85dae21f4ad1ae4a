#include "Line.h"

namespace Forms {

void Line::SetPoints(std::int32_t lX1, std::int32_t lY1, std::int32_t lX2, std::int32_t lY2) {
  Touch();
  LineState oNew = mo;
  oNew.lX1 = lX1, oNew.lY1 = lY1, oNew.lX2 = lX2, oNew.lY2 = lY2;
  Set(mo, oNew, Property::Points);
}

}  // namespace Forms
