#include "FileStamp.h"

#include <algorithm>
#include <chrono>

namespace {

constexpr std::int64_t LongestStep = 2'000'000'000;

}  // namespace

FileStamp::FileStamp(const IFileOps::Stat& state, std::int64_t lookedAt)
    : mState(state),
      mIsSettled(std::max(state.lModified, state.lChanged) <= lookedAt - LongestStep) {}

FileStamp FileStamp::Of(const std::string& path, IFileOps& files) {
  const auto lookedAt = std::chrono::system_clock::now().time_since_epoch();
  IFileOps::Stat state;
  if (files.GetStat(path, state) != 0) return {};
  return {state, std::chrono::duration_cast<std::chrono::nanoseconds>(lookedAt).count()};
}

bool FileStamp::VouchesFor(const IFileOps::Stat& now) const {
  return mIsSettled && now.lDevice == mState.lDevice && now.lNumber == mState.lNumber &&
         now.lSize == mState.lSize && now.lModified == mState.lModified &&
         now.lChanged == mState.lChanged;
}
