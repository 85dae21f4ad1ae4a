// The progress of loading components, told by the model's three progress events.
//
// A forced load begins one progress over all its components; a component that is loaded by itself
// begins its own when it has so many members that the wait shows.
#pragma once

#include "Signal.h"
#include "Text.h"
#include "VBProject.h"

class LoadProgress {
 public:
  using Percent = Signal<std::int16_t, TextView>;  ///< percent, caption

  /// The signals outlive this object.
  LoadProgress(Signal<>& started, Signal<>& ended, Percent& moved)
      : mStarted(started), mEnded(ended), mMoved(moved) {}

  /// A progress over so many members.
  void Begin(std::int32_t members);
  void End();
  /// One more member; nothing while no progress runs.
  void Advance(const VBComponent& component, const Member& member);

  /// Begins a component's own progress when none runs. True: the caller ends it, also when the
  /// component was too small to begin one.
  bool BeginFor(VBComponent& component);

  /// Number of members of a component; 0 when its module can't be had: its load tells why.
  static std::int32_t MembersOf(VBComponent& component);

 private:
  Signal<>& mStarted;
  Signal<>& mEnded;
  Percent& mMoved;
  std::int32_t mTotal = 0;  ///< 0: no progress runs
  std::int32_t mCount = 0;
};
