// An object whose members a test writes down by name, with the numbers that it gave out.
#pragma once

#include <ocidl.h>
#include <olectl.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "ComObject.h"
#include "Variant.h"

class FakeDispatch : public ComObject<IDispatch> {
 public:
  /// Arguments in the order of Visual Basic.
  using Arguments = std::vector<VARIANT>;
  using Member = std::function<HRESULT(const Arguments&, VARIANT*, EXCEPINFO*)>;

  static ComPtr<FakeDispatch> Make() { return ComPtr<FakeDispatch>::Take(new FakeDispatch); }
  ComPtr<IDispatch> Object() { return ComPtr<IDispatch>::Share(this); }

  FakeDispatch& On(const wchar_t* name, Member member) {
    mMembers[name] = std::move(member);
    return *this;
  }
  /// A property that gives an object, as dispatch or as unknown.
  FakeDispatch& Gives(const wchar_t* name, ComPtr<IUnknown> object, VARTYPE type = VT_DISPATCH) {
    return On(name, [object, type](const Arguments&, VARIANT* result, EXCEPINFO*) {
      result->vt = type;
      result->punkVal = ComPtr<IUnknown>(object).Release();
      return S_OK;
    });
  }
  FakeDispatch& Gives(const wchar_t* name, std::int32_t number) {
    return On(name, [number](const Arguments&, VARIANT* result, EXCEPINFO*) {
      result->vt = VT_I4;
      result->lVal = number;
      return S_OK;
    });
  }
  FakeDispatch& Gives(const wchar_t* name, const char16_t* text) {
    return On(name, [text](const Arguments&, VARIANT* result, EXCEPINFO*) {
      result->vt = VT_BSTR;
      result->bstrVal = ToBstr(text);
      return S_OK;
    });
  }
  FakeDispatch& Fails(const wchar_t* name, HRESULT code) {
    return On(name, [code](const Arguments&, VARIANT*, EXCEPINFO*) { return code; });
  }

  /// What was called, such as "Delete".
  std::vector<std::wstring> calls;
  std::vector<WORD> kinds;
  int asked = 0;   ///< questions for the number of a name
  int offset = 0;  ///< added to all numbers; an object of another class has others

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID,
                                          DISPID* ids) override {
    ++asked;
    if (!mMembers.contains(names[0])) return DISP_E_UNKNOWNNAME;
    *ids = Numbers().try_emplace(names[0], Numbers().size() + 1).first->second + offset;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO* record, UINT*) override {
    for (auto& [name, member] : mMembers) {
      const auto number = Numbers().find(name);
      if (number == Numbers().end() || number->second + offset != id) continue;
      calls.push_back(name);
      kinds.push_back(kind);
      Arguments arguments(parameters->rgvarg, parameters->rgvarg + parameters->cArgs);
      VARIANT none = {};
      const Member called = member;
      const std::vector<VARIANT> ordered(arguments.rbegin(), arguments.rend());
      return called(ordered, result ? result : &none, record);
    }
    return DISP_E_MEMBERNOTFOUND;
  }

 protected:
  bool Offers(REFIID iid) const override { return iid == IID_IDispatch; }

 private:
  /// The same name has the same number in all objects, as in those of one class.
  static std::map<std::wstring, int>& Numbers() {
    static std::map<std::wstring, int> numbers;
    return numbers;
  }
  std::map<std::wstring, Member> mMembers;
};

/// Raises the clicks of a control: a connection point, its container, and how often it was told.
class FakeClicks : public IConnectionPointContainer, public IConnectionPoint {
 public:
  /// findable: whether the point is found by its identifier, or only among all.
  explicit FakeClicks(bool findable = true) : mFindable(findable) {}
  ComPtr<IUnknown> Object() {
    return ComPtr<IUnknown>::Share(static_cast<IConnectionPointContainer*>(this));
  }
  /// handled: as the control's own flag before and behind the click.
  HRESULT Click(VARIANT_BOOL& handled, DISPID id = 1) {
    VARIANT_BOOL cancel = VARIANT_FALSE;
    VARIANT reversed[3] = {};
    reversed[0].vt = reversed[1].vt = VT_BYREF | VT_BOOL;
    reversed[0].pboolVal = &cancel;
    reversed[1].pboolVal = &handled;
    reversed[2].vt = VT_DISPATCH;
    DISPPARAMS parameters = {reversed, nullptr, 3, 0};
    const auto sink = mSink;
    return sink ? sink->Invoke(id, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr,
                               nullptr)
                : S_FALSE;
  }
  bool Heard() const { return static_cast<bool>(mSink); }

  // Lives on the stack of a test.
  ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override {
    *result = nullptr;
    if (iid == IID_IConnectionPointContainer || iid == IID_IUnknown)
      *result = static_cast<IConnectionPointContainer*>(this);
    return *result ? S_OK : E_NOINTERFACE;
  }
  HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID iid, IConnectionPoint** point) override {
    *point = mFindable && iid == Events() ? this : nullptr;
    return *point ? S_OK : CONNECT_E_NOCONNECTION;
  }
  HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** all) override {
    *all = new List(this);
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* iid) override {
    *iid = Events();
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer**) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override {
    *cookie = 7;
    mSink = ComPtr<IUnknown>::Share(sink).As<IDispatch>(IID_IDispatch);
    return mSink ? S_OK : E_NOINTERFACE;
  }
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override {
    if (cookie != 7 || !mSink) return E_INVALIDARG;
    mSink = {};
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections**) override { return E_NOTIMPL; }

 private:
  static IID Events() { return {0x0002E198, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}}; }
  /// A list of this one point.
  class List : public ComObject<IEnumConnectionPoints> {
   public:
    explicit List(IConnectionPoint* point) : mPoint(point) {}
    HRESULT STDMETHODCALLTYPE Next(ULONG, IConnectionPoint** point, ULONG* fetched) override {
      *point = std::exchange(mPoint, nullptr);
      *fetched = *point ? 1 : 0;
      return *point ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reset() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Clone(IEnumConnectionPoints**) override { return E_NOTIMPL; }

   protected:
    bool Offers(REFIID) const override { return false; }

   private:
    IConnectionPoint* mPoint;
  };

  bool mFindable;
  ComPtr<IDispatch> mSink;
};
