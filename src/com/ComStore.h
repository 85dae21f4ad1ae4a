// Keeps the objects that an interface hands out by reference: they belong to the host.
//
//   ComStore store;
//   ComMember& member = store.Make<ComMember>(parent, object);   // lives until store.Clear()
#pragma once

#include <memory>
#include <vector>

class ComStore {
 public:
  template <class T, class... Arguments>
  T& Make(Arguments&&... arguments) {
    auto made = std::make_shared<T>(std::forward<Arguments>(arguments)...);
    T& result = *made;
    mObjects.push_back(std::move(made));
    return result;
  }
  /// Ends all of them, the last one first.
  void Clear() {
    while (!mObjects.empty()) mObjects.pop_back();
  }

 private:
  std::vector<std::shared_ptr<void>> mObjects;  // each keeps its own way to be deleted
};
