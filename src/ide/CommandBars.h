// The command bars of the IDE as an add-in uses them. Objects belong to the host; a deleted one
// must not be used again.
#pragma once

#include <cstdint>

#include "Signal.h"
#include "Text.h"

/// A picture for a button, as bytes of a PNG or of an uncompressed bitmap.
struct Picture {
  std::string sBytes;
};

class CommandBarControl {
 public:
  virtual ~CommandBarControl() = default;
  virtual Text Caption() const = 0;
  virtual void SetCaption(TextView sCaption) = 0;
  virtual Text TooltipText() const = 0;
  virtual void SetTooltipText(TextView sText) = 0;
  /// Takes the picture that is on the clipboard as the button's face.
  virtual void PasteFace() = 0;
  virtual void Delete() = 0;
};

class CommandBarControls {
 public:
  virtual ~CommandBarControls() = default;
  /// nType 1 makes a button; Failure 5 for other types.
  virtual CommandBarControl& Add(std::int32_t nType) = 0;
  virtual std::int32_t Count() const = 0;
  /// From 1; Failure 9 outside.
  virtual CommandBarControl& Item(std::int32_t lIndex) = 0;
};

class CommandBar {
 public:
  virtual ~CommandBar() = default;
  virtual Text Name() const = 0;
  virtual CommandBarControls& Controls() = 0;
  virtual void Delete() = 0;
  virtual std::int32_t Position() const = 0;
  virtual void SetPosition(std::int32_t lValue) = 0;
  virtual std::int32_t RowIndex() const = 0;
  virtual void SetRowIndex(std::int32_t lValue) = 0;
  virtual std::int32_t Left() const = 0;
  virtual void SetLeft(std::int32_t lValue) = 0;
  virtual std::int32_t Top() const = 0;
  virtual void SetTop(std::int32_t lValue) = 0;
  virtual bool Visible() const = 0;
  virtual void SetVisible(bool bValue) = 0;
  virtual std::int32_t Protection() const = 0;
  virtual void SetProtection(std::int32_t lValue) = 0;
};

class CommandBars {
 public:
  virtual ~CommandBars() = default;
  /// Failure 5 when there is none of that name. "Add-Ins" always exists.
  virtual CommandBar& Item(TextView sName) = 0;
  virtual CommandBar& Add(TextView sName, std::int32_t lPosition) = 0;
};

/// Raises Click when its control is clicked: control, handled, cancel-default.
class CommandBarEvents {
 public:
  virtual ~CommandBarEvents() = default;
  Signal<CommandBarControl&, bool&, bool&> Click;
};

class Events {
 public:
  virtual ~Events() = default;
  virtual ::CommandBarEvents& CommandBarEvents(CommandBarControl& oControl) = 0;
};
