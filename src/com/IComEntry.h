// What surrounds each call of the IDE into the add-in, one inside the other or not.
#pragma once

class IComEntry {
 public:
  virtual ~IComEntry() = default;
  /// False when the add-in is at work: its window is open, and the call came through the window's
  /// loop. Then the call is passed over, and Leave isn't called.
  virtual bool EnterAlone() noexcept = 0;
  virtual void Leave() noexcept = 0;
};
