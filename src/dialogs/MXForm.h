// Where windows stand: centring, keeping a place in the settings store and coming back to it, on a
// screen that may have become smaller since. All lengths are twips.
#pragma once

#include <cstdint>

#include "FormsTypes.h"

namespace Forms {
class Control;
class Form;
}  // namespace Forms

namespace MXForm {

/// Into the middle of its owner; without one, into that of the screen from side to side, and
/// somewhat above it from top to bottom.
void Center(Forms::Form& oForm, const Forms::Form* poOwner = nullptr);

/// Keeps "Left" and "Top", with bSize also "Width" and "Height", in the key hReg. oForm: a form, or
/// a control such as a splitter bar. Of a form also "State" (0 normal, 1 minimised, 2 maximised);
/// for a minimised one nothing else, so that its last place stays.
void SavePosition(const Forms::Control& oForm, std::int32_t hReg, bool bSize);

/// Moves it to the stored place; values that aren't stored stay as they are. A form is brought onto
/// the screen (NormalizePosition), a control isn't limited. The caller restores "State".
void RestorePosition(Forms::Control& oForm, std::int32_t hReg, bool bSize);

/// The place that is inside the container as far as the size allows: its right and bottom edges
/// come in first, then its left and top ones. The size stays.
/// Example: left 900, width 300 in a container of width 1000 gives left 700.
Forms::Rect NormalizePosition(const Forms::Rect& rcWindow, std::int32_t lContainerWidth,
                              std::int32_t lContainerHeight);

/// Lays it over what task bars leave free of the screen.
void FitToScreen(Forms::Form& oForm);

/// The larger one; with 0, a size that can't be negative.
std::int32_t MaskNegative(std::int32_t a, std::int32_t b);

}  // namespace MXForm
