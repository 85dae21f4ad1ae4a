// The command bars of the object model as a window shows them: items of a menu, and rows of
// buttons. The bars raise no events when they change, so Show has to be called after everything
// that an add-in may have done.
#pragma once

#include <vector>

#include "ButtonFaces.h"
#include "CommandButton.h"
#include "ControlArray.h"
#include "HostCommandBars.h"
#include "Menu.h"

/// The items of a bar below a menu. Element 0 of the array stays hidden.
class BarMenu {
 public:
  explicit BarMenu(Forms::ControlArray<Forms::Menu>& oItems) : moItems(oItems) {}
  /// True when there are any.
  bool Show(HostCommandBar& oBar);
  /// Null for an element that shows no control.
  HostControl* ControlOf(std::int32_t lElement) const;

 private:
  Forms::ControlArray<Forms::Menu>& moItems;
  std::vector<HostControl*> moControls;
};

/// All bars but the menu "Add-Ins", as rows of buttons below the menu bar. Element 0 of the array
/// stays hidden. All bars are shown at the top, whatever Position an add-in sets; RowIndex, Left
/// and Visible are respected.
class ToolBars {
 public:
  static constexpr std::int32_t lButtonSize = 390, lGap = 60;  ///< twips

  ToolBars(Forms::ControlArray<Forms::CommandButton>& oButtons, ButtonFaces& oFaces)
      : moButtons(oButtons), moFaces(oFaces) {}
  void Show(HostCommandBars& oBars);
  /// Places the buttons in a window of that inner width and gives the height that they take.
  std::int32_t Layout(std::int32_t lWidth);
  HostControl* ControlOf(std::int32_t lElement) const;

 private:
  struct Place {
    HostCommandBar* poBar;
    HostControl* poControl;
  };
  void ShowButton(std::int32_t lElement, HostControl& oControl);

  Forms::ControlArray<Forms::CommandButton>& moButtons;
  ButtonFaces& moFaces;
  std::vector<Place> moPlaces;  ///< of element i + 1
};

/// The bars that ToolBars shows when they are visible, in the order in which it shows them.
std::vector<HostCommandBar*> ToolBarsOf(HostCommandBars& oBars);
