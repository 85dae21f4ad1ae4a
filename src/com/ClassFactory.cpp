#include "ClassFactory.h"

#include "ComPtr.h"

HRESULT STDMETHODCALLTYPE ClassFactory::CreateInstance(IUnknown* outer, REFIID iid, void** result) {
  if (!result) return E_POINTER;
  *result = nullptr;
  if (outer) return CLASS_E_NOAGGREGATION;
  try {
    const auto made = ComPtr<IUnknown>::Take(mMake());
    return made ? made->QueryInterface(iid, result) : E_FAIL;
  } catch (...) {
    return E_FAIL;
  }
}

HRESULT STDMETHODCALLTYPE ClassFactory::LockServer(BOOL lock) {
  lock ? Alive::Lock() : Alive::Unlock();
  return S_OK;
}
