// The rows and their layout. Selection, focus and input are in PropertyList_Input.cpp.
#include "PropertyList.h"

#include <algorithm>

#include "DrawingLock.h"
#include "Failure.h"

using namespace Forms;

namespace {

// Twips. A row has a line of the default font, 195, and three pixels; the button of a list is as
// wide as a row with its line is high.
constexpr std::int32_t RowHeight = 195 + 45, ButtonWidth = RowHeight + 15;
// The note stands behind values as long as "Procedure", and "[Property Expert]" fits into it.
constexpr std::int32_t NoteOffset = 1000, NoteWidth = 1500;
// Three pixels between rows and tip; its text begins a row and a pixel below its upper edge.
constexpr std::int32_t TipGap = 45, TipTitleHeight = 255;
/// A value keeps its button and three pixels while the sheet is made narrower.
constexpr std::int32_t LeastWidthInResize = ButtonWidth + 45;
constexpr std::int32_t OutOfSight = -1000;

std::int32_t AtLeast0(std::int32_t lSize) {
  return std::max(lSize, 0);
}

/// The element of that number, made when it isn't there.
template <class T>
T& Element(ControlArray<T>& oArray, std::int32_t lIndex) {
  return oArray.Exists(lIndex) ? oArray(lIndex) : oArray.Load(lIndex);
}

void SetUpCell(Label& lblCell) {
  lblCell.SetVisible(false);
  lblCell.SetWordWrap(false);
  lblCell.SetUseMnemonic(false);
  lblCell.SetBackColor(SystemColor::WindowBackground);
  lblCell.SetForeColor(SystemColor::WindowText);
}

void PlaceCell(Label& lblCell, TextView sCaption, const Rect& oPlace) {
  lblCell.SetCaption(sCaption);
  lblCell.Move(oPlace.lLeft, oPlace.lTop, oPlace.lWidth, oPlace.lHeight);
  lblCell.SetVisible(true);
}

}  // namespace

PropertyList::PropertyList(ControlContainer& oContainer, TextView sName)
    : UserControl(oContainer, sName),
      mnPixelX(Kit().Screen().TwipsPerPixelX()),
      mnPixelY(Kit().Screen().TwipsPerPixelY()) {
  On(Resize, [this] { ControlResized(); });
  ConnectParts();
}

void PropertyList::Reset() {
  UserControl::Reset();
  moRows.clear();
  masTip.clear();
  mlRow = mlShown = mlMaxNameWidth = 0;
  mbSuspendChange = true;
}

void PropertyList::Design() {
  SetKeyPreview(true);

  for (auto* poCells : {&lblName, &lblValue, &lblNote}) SetUpCell((*poCells)(0));
  lblNote(0).SetEnabled(false);
  linHorz(0).SetVisible(false);
  linHorz(0).SetBorderColor(SystemColor::ButtonFace);
  linVert.SetVisible(false);
  linVert.SetBorderColor(SystemColor::ButtonFace);

  txtValue.SetVisible(false);
  txtValue.SetBorderStyle(BorderStyle::None);
  cmdPopup.SetVisible(false);
  cmdPopup.SetTabStop(false);
  cmdPopup.SetCaption(u"\u25BC");
  lstPopup.SetVisible(false);
  lstPopup.SetTabStop(false);

  lblTip(0).SetVisible(false);
  lblTip(0).SetBorderStyle(BorderStyle::Single);
  lblTip(1).Move(0, 0, 3000, 195);
  lblTip(1).SetFontBold(true);
  for (std::int32_t i = 1; i <= 2; ++i) lblTip(i).SetUseMnemonic(false);

  constexpr Color Edges[] = {SystemColor::ButtonShadow, SystemColor::DarkShadow3D,
                             SystemColor::ButtonFace,   SystemColor::Highlight3D,
                             SystemColor::ButtonShadow, SystemColor::DarkShadow3D,
                             SystemColor::ButtonFace,   SystemColor::Highlight3D};
  for (std::int32_t i = 0; i < linBorder.Count(); ++i) linBorder(i).SetBorderColor(Edges[i]);
}

void PropertyList::AddRow(TextView sName, TextView sValue, std::int16_t nPropertyType,
                          bool bEnabled, const CXLookup* poLookup, TextView sNote,
                          std::int32_t lTipId) {
  if (nPropertyType == PropertyType::List && !poLookup) throw Failure(5);
  SheetRow oRow;
  oRow.sName = sName;
  oRow.sValue = sValue;
  oRow.sNote = sNote;
  oRow.lTipId = lTipId;
  oRow.nType = nPropertyType;
  oRow.bDisabled = !bEnabled;
  oRow.poLookup = poLookup;
  moRows.push_back(std::move(oRow));
}

void PropertyList::AddHeading(TextView sName, std::int32_t lTipId) {
  AddRow(sName, {}, PropertyType::Heading, false, nullptr, {}, lTipId);
}

Text PropertyList::Tip(std::int32_t lTipId) const {
  if (lTipId < 0) throw Failure(9);
  const auto lIndex = static_cast<std::size_t>(lTipId);
  return lIndex < masTip.size() ? masTip[lIndex] : Text();
}

void PropertyList::SetTip(std::int32_t lTipId, TextView sTip) {
  if (lTipId < 0) throw Failure(9);
  const auto lIndex = static_cast<std::size_t>(lTipId);
  if (lIndex >= masTip.size()) masTip.resize(lIndex + 1);
  masTip[lIndex] = sTip;
}

void PropertyList::ShowProperties() {
  Touch();
  const DrawingLock oLock(*this);
  MeasureNames();
  for (mlShown = 0; mlShown < RowCount();) ShowRow(++mlShown);
  linVert.SetVisible(mlShown > 0);
  ParkParts(ValueWidth(0));
  LayOutTips();
  lblTip(0).SetVisible(true);
  // The cells were made after the borders and would cover them.
  for (std::int32_t i = 0; i < linBorder.Count(); ++i) linBorder(i).ZOrder();
  txtValue.ZOrder();
  cmdPopup.ZOrder();
  lstPopup.ZOrder();
}

void PropertyList::MeasureNames() {
  FontSpec oFont = Font();
  for (const SheetRow& oRow : moRows) {
    oFont.bBold = oRow.nType == PropertyType::Heading;
    mlMaxNameWidth = std::max(mlMaxNameWidth, Kit().Renderer().TextWidth(oFont, oRow.sName));
  }
}

std::int32_t PropertyList::NameWidth() const {
  return mlMaxNameWidth + 3 * mnPixelX;
}
std::int32_t PropertyList::GapX() const {
  return 2 * mnPixelX;
}
std::int32_t PropertyList::GapY() const {
  return 2 * mnPixelY;
}
std::int32_t PropertyList::ValueLeft() const {
  return GapX() + NameWidth() + 2 * mnPixelX;
}
std::int32_t PropertyList::ValueWidth(std::int32_t lFloor) const {
  return std::max(ScaleWidth() - 2 * GapX() - NameWidth() - 2 * mnPixelX, lFloor);
}
std::int32_t PropertyList::RowTop(std::int32_t lRow) const {
  return GapY() + (lRow - 1) * (RowHeight + mnPixelY) + mnPixelY;
}

void PropertyList::ShowRow(std::int32_t lRow) {
  const SheetRow& oRow = RowAt(lRow);
  const std::int32_t lTop = RowTop(lRow);
  PlaceCell(Element(lblName, lRow), oRow.sName, {GapX(), lTop, NameWidth(), RowHeight});
  lblName(lRow).SetFontBold(oRow.nType == PropertyType::Heading);
  lblName(lRow).SetForeColor(NameColor(lRow));
  PlaceCell(Element(lblValue, lRow), oRow.sValue, {ValueLeft(), lTop, ValueWidth(0), RowHeight});
  lblValue(lRow).SetEnabled(!oRow.bDisabled);
  PlaceCell(Element(lblNote, lRow), oRow.sNote,
            {ValueLeft() + NoteOffset, lTop, NoteWidth, RowHeight});
  // An empty note is hidden: it lies over the value and would catch its mouse events.
  lblNote(lRow).SetVisible(!oRow.sNote.empty());

  const std::int32_t lLine = lTop + RowHeight - mnPixelY;
  Element(linHorz, lRow).SetPoints(0, lLine, ScaleWidth(), lLine);
  linHorz(lRow).SetVisible(true);
  const std::int32_t lColumn = GapX() + NameWidth();
  linVert.SetPoints(lColumn, 0, lColumn, lLine);
}

void PropertyList::ParkParts(std::int32_t lValueWidth) {
  txtValue.Move(ValueLeft(), OutOfSight, lValueWidth, RowHeight);
  cmdPopup.Move(ValueLeft() + lValueWidth - ButtonWidth, OutOfSight, ButtonWidth, RowHeight);
  lstPopup.Move(ValueLeft() - 2 * mnPixelX, OutOfSight, lValueWidth + 2 * mnPixelX,
                lstPopup.Height());
}

void PropertyList::LayOutTips() {
  const std::int32_t lTop = (RowHeight + mnPixelY) * mlShown + TipGap;
  lblTip(0).Move(GapX(), lTop, AtLeast0(ScaleWidth() - 2 * GapX()),
                 AtLeast0(ScaleHeight() - lTop - GapY()));
  lblTip(1).Move(GapX() + mnPixelX, lTop + mnPixelY);
  lblTip(2).Move(GapX() + mnPixelX, lTop + TipTitleHeight,
                 AtLeast0(lblTip(0).Width() - 2 * mnPixelX),
                 AtLeast0(lblTip(0).Height() - TipTitleHeight));
}

void PropertyList::LayOutBorder() {
  // Two frames, one a pixel inside the other: left, top, right and bottom edge of each.
  constexpr std::int32_t Frames[2][4] = {{0, 4, 3, 7}, {1, 5, 2, 6}};
  for (std::int32_t i = 0; i < 2; ++i) {
    const std::int32_t lLeft = i * mnPixelX, lTop = i * mnPixelY;
    const std::int32_t lRight = ScaleWidth() - lLeft - mnPixelX;
    const std::int32_t lBottom = ScaleHeight() - lTop - mnPixelY;
    linBorder(Frames[i][0]).SetPoints(lLeft, lTop, lLeft, lBottom);
    linBorder(Frames[i][1]).SetPoints(lLeft, lTop, lRight, lTop);
    linBorder(Frames[i][2]).SetPoints(lRight, lTop, lRight, lBottom);
    linBorder(Frames[i][3]).SetPoints(lLeft, lBottom, lRight, lBottom);
  }
}

void PropertyList::ControlResized() {
  const std::int32_t lValueWidth = ValueWidth(LeastWidthInResize);
  for (std::int32_t i = 1; i <= mlShown; ++i) {
    lblValue(i).SetWidth(lValueWidth);
    linHorz(i).SetX2(ScaleWidth());
  }
  txtValue.SetWidth(lValueWidth);
  cmdPopup.SetLeft(ValueLeft() + lValueWidth - ButtonWidth);
  lstPopup.SetWidth(lValueWidth + 2 * mnPixelX);
  LayOutBorder();
  LayOutTips();
}

void PropertyList::Clear() {
  const DrawingLock oLock(*this);
  mbSuspendChange = true;
  mlRow = 0;
  KeepFocus();
  txtValue.SetVisible(false);
  cmdPopup.SetVisible(false);
  lstPopup.SetVisible(false);
  linVert.SetVisible(false);
  txtValue.SetText({});
  lstPopup.Clear();
  RemoveCells();
  lblTip(0).SetVisible(false);
  lblTip(1).SetCaption({});
  lblTip(2).SetCaption({});
  moRows.clear();
}

void PropertyList::RemoveCells() {
  for (; mlShown > 0; --mlShown) {
    lblName.Unload(mlShown);
    lblValue.Unload(mlShown);
    lblNote.Unload(mlShown);
    linHorz.Unload(mlShown);
  }
}
