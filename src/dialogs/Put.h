// What every dialog's Design does with most of its controls.
#pragma once

#include "FormsTypes.h"

/// Gives a control its caption and its place, in twips.
template <class C>
void Put(C& oControl, TextView sCaption, const Forms::Rect& oPlace) {
  oControl.SetCaption(sCaption);
  oControl.Move(oPlace.lLeft, oPlace.lTop, oPlace.lWidth, oPlace.lHeight);
}
