// The base of peers that paint rows straight from their object: lists, trees, tables, source code.
// What the mouse and the keys do is the object's business; the window only scrolls.
#pragma once

#include "ControlPeer.h"
#include "RowsPane.h"
#include "Surface.h"

namespace Forms {

class ImageList;

class RowsPeer : public ControlPeer, public IRows, public ILightPeer {
 public:
  RowsPeer(WxRenderer& oRenderer, Control& oControl);
  ~RowsPeer() override;
  bool OwnsKey(const Stroke& oStroke) const override { return oStroke.nKeyCode != 0; }
  void UseKey(const Stroke& oStroke) override;
  void OnMouse(wxMouseEvent& oEvent) override;
  int RowsWidth() const override { return 0; }
  /// Draws the window's border, as thin as that of native fields.
  void Draw(wxDC& oDC) override;

 protected:
  wxRect NativePlace() const override { return Place().Deflate(1); }
  /// The left or right button went down on a row; RowCount for the empty area below.
  virtual void PressRow(int nRow, const wxMouseEvent& oEvent) = 0;
  virtual void DoubleRow(int /*nRow*/) { moControl.UserDblClick(); }
  /// The mouse moves over a row with the left button down.
  virtual void DragRow(int /*nRow*/) {}
  /// True when the head handled the event.
  virtual bool UseHead(const wxMouseEvent&) { return false; }
  /// The row with the list's own focus; -1 for none.
  virtual int FocusRow() const { return -1; }
  /// A key moves the list's focus to the row.
  virtual void GoToRow(int /*nRow*/, std::int32_t /*nShift*/) {}
  /// Room above and below a row's text.
  virtual int RowSpace() const { return 2; }
  int RowPixels() const { return moPane.GetCharHeight() + 2 * RowSpace(); }

  void Apply(const Changes& oChanges) override;
  RowsPane& Pane() const { return moPane; }
  /// Fills a row's background and sets the colour of its text.
  void DrawRowGround(wxDC& oDC, const wxRect& oRect, bool bSelected) const;
  /// Paints a picture of the list in the middle of the height; the width that it takes, 0 without.
  int DrawIcon(wxDC& oDC, const ImageList* poImages, TextView sKey, const wxRect& oRect) const;
  int IconPixels(const ImageList* poImages) const;

 private:
  RowsPane& moPane;
  bool mbPressed = false;
};

}  // namespace Forms
