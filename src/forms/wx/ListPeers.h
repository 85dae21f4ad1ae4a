// List boxes and drop-down lists.
#pragma once

#include "RowsPeer.h"

class wxChoice;

namespace Forms {

class ComboBox;
class ListBox;

class ListBoxPeer : public RowsPeer {
 public:
  ListBoxPeer(WxRenderer& oRenderer, ListBox& oList);
  int RowCount() const override;
  void DrawRow(wxDC& oDC, int nRow, const wxRect& oRect) override;

 protected:
  void Apply(const Changes& oChanges) override;
  void PressRow(int nRow, const wxMouseEvent& oEvent) override;
  void DragRow(int nRow) override;
  int FocusRow() const override;
  void GoToRow(int nRow, std::int32_t nShift) override;
  int RowSpace() const override { return 0; }
  /// Enlarged to the height of all rows where the form left room for all of them.
  wxRect NativePlace() const override;

 private:
  ListBox& moList;
};

class ComboBoxPeer : public ControlPeer {
 public:
  ComboBoxPeer(WxRenderer& oRenderer, ComboBox& oCombo);
  bool OwnsKey(const Stroke& oStroke) const override;
  void UseKey(const Stroke& oStroke) override;

 protected:
  void Apply(const Changes& oChanges) override;
  wxRect NativePlace() const override;

 private:
  ComboBox& moCombo;
  wxChoice& moNative;
};

}  // namespace Forms
