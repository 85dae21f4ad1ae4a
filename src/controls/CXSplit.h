// Makes a thin picture box a bar that the user drags between two groups of controls of one
// container, which are resized on its two sides.
//
//   oSplit.AddASide(tvwTree);
//   oSplit.AddBSide(lvwList);
//   oSplit.Split(picSplit, SplitBar::Vertical);
//
// Bar and controls aren't owned and outlive this object. All lengths are twips, along the axis of
// the movement: Left and Width for a vertical bar, Top and Height for a horizontal one.
#pragma once

#include <cstdint>
#include <vector>

#include "PictureBox.h"

/// How the bar lies; a vertical one moves sideways.
enum class SplitBar : std::int32_t { Vertical = 0, Horizontal = 1 };

class CXSplit {
 public:
  /// A control left of the bar, or above it.
  void AddASide(Forms::Control& oControl) { moASide.push_back(&oControl); }
  /// A control right of the bar, or below it.
  void AddBSide(Forms::Control& oControl) { moBSide.push_back(&oControl); }
  /// Binds the bar, pulls it inside its limits, and lays out both sides. Each side has a control
  /// by then, else Failure 9.
  void Split(Forms::PictureBox& oPictureBox, SplitBar eAlignment);
  /// Lays out both sides for the bar's place. A size never becomes negative. Failure 91 before
  /// Split.
  void DoSplit();

  /// The least size that a side keeps in a drag.
  std::int32_t Margin() const { return mlMargin; }
  void SetMargin(std::int32_t lMargin) { mlMargin = lMargin; }
  /// Dragging into the margin collapses the side to nothing, and hides it.
  bool MarginSnap() const { return mbMarginSnap; }
  void SetMarginSnap(bool bMarginSnap) { mbMarginSnap = bMarginSnap; }
  /// The sides follow the bar while it is dragged, not only when it is let go.
  bool RealTime() const { return mbRealTime; }
  void SetRealTime(bool bRealTime) { mbRealTime = bRealTime; }

  /// At the end of each DoSplit.
  Signal<> AfterSplit;

 private:
  /// Place and size of a control along the axis; 64-bit, so that sums can't overflow.
  struct Span {
    std::int64_t lPosition, lSize;
  };
  Span SpanOf(const Forms::Control& oControl) const;
  void SetPosition(Forms::Control& oControl, std::int64_t lPosition) const;
  void SetSize(Forms::Control& oControl, std::int64_t lSize) const;
  void ShowIfWide(Forms::Control& oControl, std::int64_t lSize) const;

  void MouseDown(std::int32_t nButton);
  void MouseMove(std::int32_t nButton, std::int32_t lOffset);
  void MouseUp(std::int32_t nButton);
  bool HasRoom() const { return mlMinPos < mlMaxPos; }
  std::int64_t WithinLimits(std::int64_t lPosition) const;
  void FitASide(Forms::Control& oControl, const Span& oBar) const;
  void FitBSide(Forms::Control& oControl, const Span& oBar) const;

  Forms::PictureBox* mpoSplit = nullptr;
  std::vector<Forms::Control*> moASide, moBSide;
  std::vector<Connection> moLinks;
  bool mbHorizontal = false;
  std::int32_t mlMargin = 300;
  bool mbMarginSnap = true, mbRealTime = true;
  // Where the bar may go; from one press to the next.
  std::int64_t mlMinPos = 0, mlMaxPos = 0, mlEndPos = 0;
};
