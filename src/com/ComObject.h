// The base of the objects that others hold by reference count: counting, and the question for an
// interface. An object begins with one reference, which its maker owns, and deletes itself behind
// the last one.
#pragma once

#include <unknwn.h>

/// How many objects and locks keep the library loaded. A sign of life for DllCanUnloadNow.
class Alive {
 public:
  Alive() { Lock(); }
  ~Alive() { Unlock(); }
  Alive(const Alive&) = delete;
  Alive& operator=(const Alive&) = delete;
  static void Lock() { InterlockedIncrement(&Number()); }
  static void Unlock() { InterlockedDecrement(&Number()); }
  static long Count() { return Number(); }

 private:
  static long& Number() {
    static long number = 0;
    return number;
  }
};

/// Interface: the only v-table of the object, which serves IUnknown too.
template <class Interface>
class ComObject : public Interface {
 public:
  ComObject() = default;
  virtual ~ComObject() = default;
  ComObject(const ComObject&) = delete;
  ComObject& operator=(const ComObject&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override {
    if (!result) return E_POINTER;
    const bool offered = iid == IID_IUnknown || Offers(iid);
    *result = offered ? static_cast<Interface*>(this) : nullptr;
    if (offered) AddRef();
    return offered ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override {
    return static_cast<ULONG>(InterlockedIncrement(&mReferences));
  }
  ULONG STDMETHODCALLTYPE Release() override {
    const long left = InterlockedDecrement(&mReferences);
    if (left == 0) delete this;
    return static_cast<ULONG>(left);
  }

 protected:
  /// Whether the v-table is one for this interface; IUnknown is settled.
  virtual bool Offers(REFIID iid) const = 0;

 private:
  const Alive mAlive;
  long mReferences = 1;
};
