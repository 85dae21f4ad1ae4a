// The lines of a list box or a combo box. They count from 0; -1 is none.
#pragma once

#include "CXLookup.h"
#include "Control.h"

namespace Forms {

class ListEntries : public Control, public ILookupList {
 public:
  using Control::Control;

  void AddItem(TextView sItem) override;
  /// Failure 5 outside 0 to ListCount. An explicit index overrules the order of a sorted list.
  void AddItem(TextView sItem, std::int32_t lIndex);
  void RemoveItem(std::int32_t lIndex);
  void Clear() override;
  std::int32_t ListCount() const { return static_cast<std::int32_t>(moEntries.size()); }
  /// A line's text; empty outside the list.
  ::Text List(std::int32_t lIndex) const;
  /// Where the last AddItem put its line; -1 after Clear.
  std::int32_t NewIndex() const override { return mlNewIndex; }
  /// 0 outside the list.
  std::int32_t ItemData(std::int32_t lIndex) const;
  void SetItemData(std::int32_t lIndex, std::int32_t lData) override;
  std::int32_t ListIndex() const { return mlListIndex; }
  /// Selects a line, or none for -1, and raises Click when the line is another one. Failure 380
  /// outside the list.
  void SetListIndex(std::int32_t lIndex) override;
  /// Text of the line at ListIndex; empty without one.
  ::Text Text() const { return List(mlListIndex); }
  /// Lines stand in the order of their texts, without regard to case.
  bool Sorted() const { return mbSorted; }
  void SetSorted(bool b) { mbSorted = b; }  ///< design time

  /// The user picks a line; raises Click.
  virtual bool UserSelect(std::int32_t lIndex, std::int32_t nShift = Shift::None);

  void Reset() override;
  void CopyFrom(const Component& oOther) override;

 protected:
  struct Entry {
    ::Text sText;
    std::int32_t lData = 0;
    bool bSelected = false;
  };
  ControlState DefaultState() const override { return FieldDefaults(); }
  /// Up, Down, Home, End, and a letter: the next line that begins with it.
  void KeyAction(std::int32_t nKeyCode, std::int32_t nShift) override;
  void CharAction(std::int32_t nCharacter) override;
  /// Null outside the list.
  const Entry* At(std::int32_t lIndex) const;
  /// Puts ListIndex on a line without an event.
  void Choose(std::int32_t lIndex);

  std::vector<Entry> moEntries;

 private:
  void Check(std::int32_t lIndex, std::int32_t lLast, std::int32_t lError) const;

  std::int32_t mlListIndex = -1, mlNewIndex = -1;
  bool mbSorted = false;
};

}  // namespace Forms
