#include "LoadProgress.h"

#include <cmath>

#include "Failure.h"

void LoadProgress::Begin(std::int32_t members) {
  mTotal = members;
  mCount = 0;
  mStarted();
}

void LoadProgress::End() {
  mTotal = 0;
  mEnded();
}

void LoadProgress::Advance(const VBComponent& component, const Member& member) {
  if (mTotal <= 0) return;
  ++mCount;
  if (!mMoved.IsHeard()) return;  // the caption costs more than the rest of a small member
  // nearbyint: halves go to the even number, as everywhere in Visual Basic.
  const double percent = std::nearbyint(100.0 * mCount / mTotal);
  mMoved(static_cast<std::int16_t>(percent), component.Name() + u"." + member.Name());
}

bool LoadProgress::BeginFor(VBComponent& component) {
  constexpr std::int32_t MembersWorthProgress = 30;
  if (mTotal != 0) return false;
  const std::int32_t members = MembersOf(component);
  if (members >= MembersWorthProgress) Begin(members);
  return true;
}

std::int32_t LoadProgress::MembersOf(VBComponent& component) {
  try {
    CodeModule* module = component.CodeModule();
    return module ? module->Members().Count() : 0;
  } catch (const Failure&) {
    return 0;
  }
}
