#include "Timer.h"

#include "ControlContainer.h"
#include "Form.h"

namespace Forms {

Timer::Timer(ControlContainer& oContainer, TextView sName)
    : WithState(oContainer.Parent(), sName) {}

bool Timer::Fire() {
  if (!Parent().Loaded() || !Running()) return false;
  Raise(Tick);
  return true;
}

}  // namespace Forms
