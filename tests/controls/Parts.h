// A look at the parts of a user control, which are private to it: by name, and by index in arrays.
//
//   Part<ListBox>(prlSheet, u"lstPopup").UserSelect(2);
#pragma once

#include "ControlContainer.h"
#include "Failure.h"
#include "Line.h"

template <class T>
T& Part(const Forms::ControlContainer& oWhole, TextView sName, std::int32_t lIndex = -1) {
  for (Forms::Control* po : oWhole.Controls()) {
    if (po->Name() == sName && po->Index() == lIndex) return dynamic_cast<T&>(*po);
  }
  throw Failure(340, u"There is no part " + Text(sName));
}

/// `left top width height`, of a line `x1 y1 x2 y2`.
inline std::string PlaceOf(const Forms::Control& o) {
  const auto* po = dynamic_cast<const Forms::Line*>(&o);
  const Forms::Rect r = po ? Forms::Rect{po->X1(), po->Y1(), po->X2(), po->Y2()} : o.Bounds();
  return std::to_string(r.lLeft) + " " + std::to_string(r.lTop) + " " + std::to_string(r.lWidth) +
         " " + std::to_string(r.lHeight);
}
