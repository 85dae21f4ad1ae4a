// An object of the host: a dual interface of the type library, whose Invoke goes through the
// library to the v-table, so that numbers and types of arguments are held to what the library
// tells.
//
//   class Thing : public Dual<IThing> {
//     GET(BSTR, Name, Bstr(mName))
//     PUT(BSTR, Name, mName = TextOf(value))
//   };
//
// The expressions may throw Failure: its number becomes 0x800A0000 + number, with an IErrorInfo.
#pragma once

#include <ole2.h>

#include "Failure.h"
#include "HostText.h"
#include "HostWorld.h"
#include "IdeModel.h"

#define METHOD(name, arguments, ...)                  \
  HRESULT STDMETHODCALLTYPE name arguments override { \
    return this->Do(#name, [&] { __VA_ARGS__; });     \
  }
#define ASK(type, name, arguments, ...)                                     \
  HRESULT STDMETHODCALLTYPE name arguments override {                       \
    return this->Answer(#name, out, [&]() -> type { return __VA_ARGS__; }); \
  }
#define GET(type, name, ...)                                                \
  HRESULT STDMETHODCALLTYPE get_##name(type* out) override {                \
    return this->Answer(#name, out, [&]() -> type { return __VA_ARGS__; }); \
  }
#define PUT(type, name, ...)                                  \
  HRESULT STDMETHODCALLTYPE put_##name(type value) override { \
    return this->Do(#name, [&] { __VA_ARGS__; });             \
  }

template <class Interface>
class Dual : public Interface, public ISupportErrorInfo {
 public:
  explicit Dual(HostWorld& world)
      : mWorld(world), mInfo(*world.InfoOf(__uuidof(Interface))), mName(HostWorld::NameOf(mInfo)) {
    mWorld.Born(mName);
  }
  virtual ~Dual() { mWorld.Gone(mName); }
  Dual(const Dual&) = delete;
  Dual& operator=(const Dual&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override {
    *out = nullptr;
    if (iid == IID_IUnknown || iid == IID_IDispatch || iid == __uuidof(Interface) || IsAlso(iid))
      *out = static_cast<Interface*>(this);
    if (iid == IID_ISupportErrorInfo) *out = static_cast<ISupportErrorInfo*>(this);
    if (!*out) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++mCount; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --mCount;
    if (left == 0) delete this;
    return left;
  }
  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override {
    return iid == __uuidof(Interface) ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* out) override { return *out = 1, S_OK; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** out) override {
    if (index != 0) return DISP_E_BADINDEX;
    mInfo.AddRef();
    *out = &mInfo;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                          DISPID* out) override {
    const HRESULT result = mInfo.GetIDsOfNames(names, count, out);
    if (FAILED(result))
      mWorld.Failed(mName + '.' + ToUtf8(reinterpret_cast<const char16_t*>(names[0])), result);
    return result;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* arguments,
                                   VARIANT* result, EXCEPINFO* exception, UINT* wrong) override {
    EXCEPINFO own{};
    EXCEPINFO& record = exception ? *exception : own;
    const HRESULT got =
        mInfo.Invoke(static_cast<Interface*>(this), id, flags, arguments, result, &record, wrong);
    if (FAILED(got) && got != DISP_E_EXCEPTION) mWorld.Failed(mName + ".Invoke", got);
    if (got != DISP_E_EXCEPTION || (exception && !mWorld.manner.bareErrors)) return got;
    SysFreeString(record.bstrSource);
    SysFreeString(record.bstrDescription);
    SysFreeString(record.bstrHelpFile);
    const HRESULT bare = record.scode;
    record = {};
    return bare;
  }

 protected:
  /// Another identifier of the same v-table.
  virtual bool IsAlso(const IID&) const { return false; }

  template <class Deed>
  HRESULT Do(std::string_view member, Deed deed) {
    if (member.starts_with("get_")) member.remove_prefix(4);
    try {
      if (const HRESULT fault = mWorld.Called(mName, std::string(member)); FAILED(fault))
        return Fail(member, fault, u"The IDE can't do that now");
      deed();
      return S_OK;
    } catch (const Failure& failure) {
      return Fail(member, static_cast<HRESULT>(0x800A0000 + failure.Number()),
                  failure.Description());
    } catch (const std::exception&) {
      return Fail(member, E_FAIL, u"The host itself failed");
    }
  }
  template <class Out, class Deed>
  HRESULT Answer(std::string_view member, Out* out, Deed deed) {
    if (!out) return E_POINTER;
    return Do(member, [&] { *out = deed(); });
  }

  HostWorld& mWorld;

 private:
  HRESULT Fail(std::string_view member, HRESULT error, TextView text) {
    ICreateErrorInfo* info = nullptr;
    IErrorInfo* asked = nullptr;
    if (SUCCEEDED(CreateErrorInfo(&info))) {
      Text kept(text);
      info->SetGUID(__uuidof(Interface));
      info->SetDescription(reinterpret_cast<LPOLESTR>(kept.data()));
      if (SUCCEEDED(info->QueryInterface(IID_IErrorInfo, reinterpret_cast<void**>(&asked)))) {
        SetErrorInfo(0, asked);
        asked->Release();
      }
      info->Release();
    }
    return mWorld.Failed(mName + '.' + std::string(member), error);
  }

  ITypeInfo& mInfo;
  const std::string mName;
  ULONG mCount = 1;
};
