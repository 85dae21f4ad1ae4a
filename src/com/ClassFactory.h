// Makes the objects of the library's one class.
#pragma once

#include <functional>

#include "ComObject.h"

class ClassFactory final : public ComObject<IClassFactory> {
 public:
  /// Gives a new object with one reference, or null when the library can't work.
  using Maker = std::function<IUnknown*()>;

  explicit ClassFactory(Maker make) : mMake(std::move(make)) {}
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** result) override;
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

 protected:
  bool Offers(REFIID iid) const override { return iid == IID_IClassFactory; }

 private:
  Maker mMake;
};
