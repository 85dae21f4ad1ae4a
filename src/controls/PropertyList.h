// The property sheet: a grid of names and values with headings between groups of rows, a dimmed
// note beside the value, a drop-down list for values from a fixed set, a text box for free ones,
// and a tip on the selected row below the last one.
//
//   prlSheet.Clear();
//   prlSheet.AddHeading(u"Pending", 1);
//   prlSheet.AddRow(u"Boundary", u"VB", PropertyType::List, true, &oBoundaries, u"", 13);
//   prlSheet.ShowProperties();
//   On(prlSheet.PropertyChange, [this](TextView sName, TextView sValue) { ... });
//
// Rows count from 1 in the order of adding. The sheet has no scroll bar. A handler of
// PropertyChange may clear the sheet, fill it anew and select a row: nothing of the sheet runs
// behind the event.
#pragma once

#include <cstdint>
#include <vector>

#include "CXLookup.h"
#include "CommandButton.h"
#include "ControlArray.h"
#include "Label.h"
#include "Line.h"
#include "ListBox.h"
#include "TextBox.h"
#include "UserControl.h"

namespace PropertyType {
inline constexpr std::int16_t FreeText = 1, List = 2, Heading = 999;
}

class PropertyList : public Forms::UserControl {
 public:
  PropertyList(Forms::ControlContainer& oContainer, TextView sName);

  /// Appends a row; nothing is drawn before ShowProperties. nPropertyType: FreeText or List.
  /// poLookup: the choices of a List row (Failure 5 without one); not owned, outlives the row.
  /// lTipId: index of the tip; 0 for none.
  void AddRow(TextView sName, TextView sValue, std::int16_t nPropertyType, bool bEnabled,
              const CXLookup* poLookup, TextView sNote, std::int32_t lTipId);
  /// Appends a heading: a disabled row without a value.
  void AddHeading(TextView sName, std::int32_t lTipId);
  /// Builds the visible grid. Selects nothing.
  void ShowProperties();
  /// Removes all rows. The tips stay.
  void Clear();

  /// Empty above the highest index that was set. Failure 9 below 0.
  Text Tip(std::int32_t lTipId) const;
  void SetTip(std::int32_t lTipId, TextView sTip);

  /// The selected row; 0 for none.
  std::int16_t Row() const { return static_cast<std::int16_t>(mlRow); }
  /// Selects a row that ShowProperties has built, and gives the sheet the focus when the row has a
  /// value to change. A number outside 1 to RowCount is ignored. Raises no event.
  void SetRow(std::int16_t nRow);
  std::int16_t RowCount() const { return static_cast<std::int16_t>(moRows.size()); }

  /// Name of the row and its whole new text: for each change of a value by the user.
  Signal<TextView, TextView> PropertyChange;

  void Reset() override;

 private:
  struct SheetRow {
    Text sName, sValue, sNote;
    std::int32_t lTipId = 0;
    std::int16_t nType = PropertyType::Heading;
    bool bDisabled = true;
    const CXLookup* poLookup = nullptr;
  };

  void Design() override;

  // Layout (PropertyList.cpp).
  void MeasureNames();
  std::int32_t NameWidth() const;
  std::int32_t GapX() const;
  std::int32_t GapY() const;
  std::int32_t ValueLeft() const;
  std::int32_t ValueWidth(std::int32_t lFloor) const;
  std::int32_t RowTop(std::int32_t lRow) const;
  void ShowRow(std::int32_t lRow);
  void ParkParts(std::int32_t lValueWidth);
  void LayOutTips();
  void LayOutBorder();
  void RemoveCells();
  void ControlResized();

  // Selection and input (PropertyList_Input.cpp).
  void ConnectParts();
  const SheetRow& RowAt(std::int32_t lRow) const {
    return moRows[static_cast<std::size_t>(lRow) - 1];
  }
  void SelectRow(std::int32_t lRow);
  /// Moves the focus to the sheet itself before its parts are hidden, so that it stays in the
  /// sheet.
  void KeepFocus();
  /// Gives the focus to the text box, or to the sheet when that doesn't show, so that the arrow
  /// keys go on.
  void TakeFocus();
  /// Dim for a value that could be chosen but for a lock: its empty cell alone wouldn't tell.
  Forms::Color NameColor(std::int32_t lRow) const;
  void ColorName(Forms::Color lBack, Forms::Color lFore);
  void EditText();
  void OfferList();
  void ShowTip();
  void PressValue(std::int32_t lRow, std::int32_t nButton);
  void TogglePopup();
  void ClosePopup();
  void NextValue(std::int32_t lRow);
  void PressInList(std::int32_t nKeyCode);
  void MoveRow(std::int32_t& nKeyCode);
  void ValueChanged();

  std::vector<SheetRow> moRows;
  std::vector<Text> masTip;
  std::int32_t mlRow = 0;
  /// How many rows have visible parts; differs from the rows between AddRow and ShowProperties.
  std::int32_t mlShown = 0;
  /// The widest name so far; it never shrinks, so that the columns of one sheet after another
  /// agree.
  std::int32_t mlMaxNameWidth = 0;
  bool mbSuspendChange = true;
  std::int32_t mnPixelX = 15, mnPixelY = 15;

  Forms::ControlArray<Forms::Line> linHorz{*this, u"linHorz"};
  Forms::Line linVert{*this, u"linVert"};
  Forms::ControlArray<Forms::Label> lblName{*this, u"lblName"}, lblValue{*this, u"lblValue"},
      lblNote{*this, u"lblNote"}, lblTip{*this, u"lblTip", 3};
  Forms::ControlArray<Forms::Line> linBorder{*this, u"linBorder", 8};
  Forms::TextBox txtValue{*this, u"txtValue"};
  Forms::CommandButton cmdPopup{*this, u"cmdPopup"};
  Forms::ListBox lstPopup{*this, u"lstPopup"};
};
