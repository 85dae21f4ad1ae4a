// A vector with a movable gap: edits one behind the other cost what they change, and not what
// stands behind them. A pass that rewrites a module from its top to its end stays linear with it.
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

template <class T>
class GapBuffer {
 public:
  /// Takes the items; the gap is empty at first.
  void Assign(std::vector<T> oItems) {
    moItems = std::move(oItems);
    mlGap = moItems.size();
    mlGapLength = 0;
  }

  std::size_t Size() const { return moItems.size() - mlGapLength; }
  const T& operator[](std::size_t l) const { return moItems[l < mlGap ? l : l + mlGapLength]; }
  T& operator[](std::size_t l) { return moItems[l < mlGap ? l : l + mlGapLength]; }

  void Erase(std::size_t lAt, std::size_t lCount) {
    MoveGap(lAt);
    mlGapLength += lCount;
  }

  void Insert(std::size_t lAt, const std::vector<T>& oNew) {
    if (mlGapLength < oNew.size()) Grow(oNew.size());
    MoveGap(lAt);
    std::copy(oNew.begin(), oNew.end(), At(mlGap));
    mlGap += oNew.size();
    mlGapLength -= oNew.size();
  }

 private:
  auto At(std::size_t l) { return moItems.begin() + static_cast<std::ptrdiff_t>(l); }

  void MoveGap(std::size_t lTo) {
    if (lTo < mlGap) {
      std::move_backward(At(lTo), At(mlGap), At(mlGap + mlGapLength));
    } else if (lTo > mlGap) {
      std::move(At(mlGap + mlGapLength), At(lTo + mlGapLength), At(mlGap));
    }
    mlGap = lTo;
  }

  // A quarter more than asked for: enough to grow rarely, little enough for many small buffers.
  void Grow(std::size_t lCount) {
    const std::size_t size = Size();
    const std::size_t gapLength = lCount + size / 4;
    std::vector<T> items;
    items.reserve(size + gapLength);
    items.assign(moItems.begin(), At(mlGap));
    items.resize(mlGap + gapLength);
    items.insert(items.end(), At(mlGap + mlGapLength), moItems.end());
    mlGapLength = gapLength;
    moItems = std::move(items);
  }

  std::vector<T> moItems;
  std::size_t mlGap = 0;
  std::size_t mlGapLength = 0;
};
