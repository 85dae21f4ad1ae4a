// Keeps a control from being drawn while it is rebuilt, for the life of this object. Does nothing
// when drawing is locked already, and then doesn't release it either.
#pragma once

#include "Control.h"
#include "Toolkit.h"

class DrawingLock {
 public:
  explicit DrawingLock(Forms::Control& oControl)
      : moToolkit(oControl.Kit()), mbLocked(moToolkit.LockedControl() == nullptr) {
    if (mbLocked) moToolkit.LockWindowUpdate(&oControl);
  }
  ~DrawingLock() {
    if (mbLocked) moToolkit.LockWindowUpdate(nullptr);
  }
  DrawingLock(const DrawingLock&) = delete;
  DrawingLock& operator=(const DrawingLock&) = delete;

 private:
  Forms::Toolkit& moToolkit;
  bool mbLocked;
};
