// A timer: ticks only while events run.
#pragma once

#include <wx/timer.h>

#include "Timer.h"
#include "WxPeer.h"

namespace Forms {

class TimerPeer : public WxPeer, private wxTimer {
 public:
  TimerPeer(WxRenderer& oRenderer, Timer& oTimer) : WxPeer(oRenderer), moTimer(oTimer) {
    LaterAll();
  }

 protected:
  void Apply(const Changes&) override {
    Stop();
    if (moTimer.Running()) Start(moTimer.Interval());
  }

 private:
  void Notify() override { moTimer.Fire(); }

  Timer& moTimer;
};

}  // namespace Forms
