// Shared by the Design operations of all dialogs.
#pragma once

#include "FormsTypes.h"

/// Gives a control its caption and its place, in twips.
template <class C>
void Put(C& oControl, TextView sCaption, const Forms::Rect& oPlace) {
  oControl.SetCaption(sCaption);
  oControl.Move(oPlace.lLeft, oPlace.lTop, oPlace.lWidth, oPlace.lHeight);
}
