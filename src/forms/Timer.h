// Raises Tick again and again while it is enabled and its interval isn't 0.
#pragma once

#include "Component.h"

namespace Forms {

struct TimerState {
  std::int32_t lInterval = 0;
  bool bEnabled = true;
};

class ControlContainer;

class Timer : public WithState<Component, TimerState> {
 public:
  using WithState::WithState;
  Timer(ControlContainer& oContainer, TextView sName);
  ComponentKind Kind() const override { return ComponentKind::Timer; }

  /// Milliseconds.
  std::int32_t Interval() const { return mo.lInterval; }
  void SetInterval(std::int32_t l) { Set(mo.lInterval, l, Property::Interval); }
  bool Enabled() const { return mo.bEnabled; }
  void SetEnabled(bool b) { Set(mo.bEnabled, b, Property::Interval); }
  bool Running() const { return mo.bEnabled && mo.lInterval > 0; }

  Signal<> Tick;

  /// The time is up: raises Tick if it is running. For renderers and tests.
  bool Fire();
};

}  // namespace Forms
