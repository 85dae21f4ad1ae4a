// A look at the parts of a user control, which are private to it: by name, and by index in arrays.
//
//   Part<ListBox>(prlSheet, u"lstPopup").UserSelect(2);
#pragma once

#include "ControlContainer.h"
#include "Failure.h"

template <class T>
T& Part(const Forms::ControlContainer& oWhole, TextView sName, std::int32_t lIndex = -1) {
  for (Forms::Control* po : oWhole.Controls()) {
    if (po->Name() == sName && po->Index() == lIndex) return dynamic_cast<T&>(*po);
  }
  throw Failure(340, u"There is no part " + Text(sName));
}

/// `left top width height`
inline std::string PlaceOf(const Forms::Control& oControl) {
  std::string sPlace;
  for (const auto l : {oControl.Left(), oControl.Top(), oControl.Width(), oControl.Height()}) {
    sPlace += (sPlace.empty() ? "" : " ") + std::to_string(l);
  }
  return sPlace;
}
