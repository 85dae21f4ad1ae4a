// Owner of one reference to a COM object.
//
//   ComPtr<IUnknown> source = ComPtr<IUnknown>::Share(pointer);   // takes a reference of its own
//   ComPtr<IDispatch> object = source.As<IDispatch>(IID_IDispatch);
#pragma once

#include <unknwn.h>

#include <utility>

template <class T>
class ComPtr {
 public:
  ComPtr() = default;
  /// Takes over the reference that the caller holds.
  static ComPtr Take(T* pointer) { return ComPtr(pointer); }
  /// Adds a reference. Null gives null.
  static ComPtr Share(T* pointer) {
    if (pointer) pointer->AddRef();
    return ComPtr(pointer);
  }
  ComPtr(const ComPtr& other) : ComPtr(Share(other.mPointer)) {}
  ComPtr(ComPtr&& other) noexcept : mPointer(std::exchange(other.mPointer, nullptr)) {}
  ComPtr& operator=(ComPtr other) noexcept {
    std::swap(mPointer, other.mPointer);
    return *this;
  }
  ~ComPtr() {
    if (mPointer) mPointer->Release();
  }

  /// Null when the object doesn't offer the interface.
  template <class U>
  ComPtr<U> As(REFIID iid) const {
    void* result = nullptr;
    if (!mPointer || FAILED(mPointer->QueryInterface(iid, &result))) return {};
    return ComPtr<U>::Take(static_cast<U*>(result));
  }

  T* Get() const { return mPointer; }
  T* operator->() const { return mPointer; }
  explicit operator bool() const { return mPointer != nullptr; }
  /// For a call that hands out a reference. Holds null before.
  T** Out() {
    *this = {};
    return &mPointer;
  }
  /// Hands the reference to the caller.
  T* Release() { return std::exchange(mPointer, nullptr); }

 private:
  explicit ComPtr(T* pointer) : mPointer(pointer) {}

  T* mPointer = nullptr;
};
