#include "AddInObject.h"

#include <algorithm>

#include "ComFailure.h"

namespace {

/// By their numbers from 1.
constexpr std::array<TextView, 4> Methods = {u"OnConnection", u"OnDisconnection", u"OnAddInsUpdate",
                                             u"OnStartupComplete"};
constexpr std::array<UINT, 4> ArgumentCounts = {4, 2, 1, 1};

/// Runs what may fail in the system below; the add-in tells its own failures where they happen.
template <class Work>
void Quietly(Work&& work) noexcept {
  try {
    work();
  } catch (...) {
  }
}

Variant Resolved(const VARIANT& argument) {
  Variant result;
  VARIANT source = argument;  // owns nothing; the function wants one that isn't const
  CheckCom(VariantCopyInd(result.Out(), &source));
  return result;
}

}  // namespace

AddInObject::~AddInObject() {
  mInside = true;  // no click can come in any more
  Disconnect(0);
}

bool AddInObject::Offers(REFIID iid) const {
  return iid == IID_IDispatch || iid == AddInInterfaceId;
}

HRESULT STDMETHODCALLTYPE AddInObject::GetTypeInfoCount(UINT* count) {
  if (!count) return E_POINTER;
  *count = 0;
  return S_OK;
}

HRESULT STDMETHODCALLTYPE AddInObject::GetTypeInfo(UINT, LCID, ITypeInfo** info) {
  if (info) *info = nullptr;
  return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE AddInObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                                     DISPID* ids) {
  if (!names || !ids || count == 0) return E_INVALIDARG;
  std::fill_n(ids, count, DISPID_UNKNOWN);
  const auto* const name = reinterpret_cast<const char16_t*>(names[0]);
  const auto found =
      std::ranges::find_if(Methods, [&](TextView method) { return EqualNoCase(method, name); });
  if (found == Methods.end()) return DISP_E_UNKNOWNNAME;
  ids[0] = static_cast<DISPID>(found - Methods.begin() + 1);
  return count == 1 ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT STDMETHODCALLTYPE AddInObject::Invoke(DISPID id, REFIID, LCID, WORD kind,
                                              DISPPARAMS* parameters, VARIANT*, EXCEPINFO*, UINT*) {
  const auto method = static_cast<std::size_t>(id) - 1;
  if (method >= Methods.size() || (kind & DISPATCH_METHOD) == 0) return DISP_E_MEMBERNOTFOUND;
  if (!parameters || parameters->cArgs != ArgumentCounts[method]) return DISP_E_BADPARAMCOUNT;
  if (parameters->cNamedArgs != 0) return DISP_E_NONAMEDARGS;
  // The last argument, which stands first, is always the list that nobody looks at.
  const VARIANT* const reversed = parameters->rgvarg;
  try {
    if (id == 3) return OnAddInsUpdate(nullptr);
    if (id == 4) return OnStartupComplete(nullptr);
    if (id == 2) return OnDisconnection(Resolved(reversed[1]).AsNumber(), nullptr);
    const auto root = Resolved(reversed[3]).AsUnknown().As<IDispatch>(IID_IDispatch);
    return OnConnection(root.Get(), Resolved(reversed[2]).AsNumber(), nullptr, nullptr);
  } catch (...) {
    return DISP_E_TYPEMISMATCH;
  }
}

bool AddInObject::EnterAlone() noexcept {
  if (mInside) return false;
  AddRef();
  mInside = true;
  Quietly([&] { mProgram.SetIDE(mIDE.get()); });
  return true;
}

void AddInObject::Leave() noexcept {
  if (std::exchange(mDisconnects, false)) Disconnect(mDisconnectMode);
  if (mIDE && mAddIn) {
    Quietly([&] {
      if (!mProgram.HoldsGroup(*mAddIn)) mIDE->LetGo();
    });
  }
  mInside = false;
  Release();
}

template <class Work>
HRESULT AddInObject::Alone(Work&& work) {
  if (!EnterAlone()) return S_OK;
  Quietly(work);
  Leave();
  return S_OK;
}

HRESULT STDMETHODCALLTYPE AddInObject::OnConnection(IDispatch* root, long mode, IDispatch*,
                                                    SAFEARRAY**) {
  if (!root) return E_INVALIDARG;
  return Alone([&] {
    IComEntry& clicks = *this;
    if (!mIDE) mIDE = std::make_unique<ComIDE>(ComPtr<IDispatch>::Share(root), clicks);
    mProgram.SetIDE(mIDE.get());
    if (!mAddIn) mAddIn = mProgram.MakeAddIn();
    mAddIn->OnConnection(*mIDE, static_cast<ConnectMode>(mode));
  });
}

HRESULT STDMETHODCALLTYPE AddInObject::OnDisconnection(long mode, SAFEARRAY**) {
  if (!mInside) return Alone([&] { Disconnect(mode); });
  mDisconnects = true;
  mDisconnectMode = mode;
  Quietly([&] {
    if (mAddIn) mProgram.CloseWindow(*mAddIn);
  });
  return S_OK;
}

void AddInObject::Disconnect(long mode) noexcept {
  Quietly([&] {
    if (mAddIn) mAddIn->OnDisconnection(static_cast<std::int32_t>(mode));
  });
  Quietly([&] { mProgram.SetIDE(nullptr); });
  mAddIn.reset();
  mIDE.reset();
}

// To read the list of add-ins again makes some IDEs tell of it again.
HRESULT STDMETHODCALLTYPE AddInObject::OnAddInsUpdate(SAFEARRAY**) {
  if (!mAddIn || std::exchange(mUpdating, true)) return S_OK;
  Quietly([&] { mAddIn->OnAddInsUpdate(); });
  mUpdating = false;
  return S_OK;
}

HRESULT STDMETHODCALLTYPE AddInObject::OnStartupComplete(SAFEARRAY**) {
  Quietly([&] {
    if (mAddIn) mAddIn->OnStartupComplete();
  });
  return S_OK;
}
