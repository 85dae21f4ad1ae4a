// A list of lines, of which one or several are selected.
#pragma once

#include "ListEntries.h"

namespace Forms {

/// Simple: each click turns a line on or off. Extended: Shift and Ctrl as usual.
enum class MultiSelect { None, Simple, Extended };

class ListBox : public ListEntries {
 public:
  ListBox(ControlContainer& oContainer, TextView sName) : ListEntries(oContainer, sName) {
    Reset();
  }
  ComponentKind Kind() const override { return ComponentKind::ListBox; }

  Forms::MultiSelect MultiSelect() const { return meMulti; }
  void SetMultiSelect(Forms::MultiSelect e) { meMulti = e; }  ///< design time
  /// False outside the list.
  bool Selected(std::int32_t lIndex) const;
  /// Raises Click when it changes something. Failure 380 outside the list.
  void SetSelected(std::int32_t lIndex, bool bSelected);
  std::int32_t SelCount() const;

  bool UserSelect(std::int32_t lIndex, std::int32_t nShift = Shift::None) override;
  /// The selection that a native multi-select list has after the user changed it.
  bool UserSelection(const std::vector<std::int32_t>& alSelected, std::int32_t lFocus);

  void Reset() override;

 private:
  Forms::MultiSelect meMulti = Forms::MultiSelect::None;
  std::int32_t mlAnchor = -1;
};

}  // namespace Forms
