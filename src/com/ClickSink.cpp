#include "ClickSink.h"

#include "ComCommandBars.h"

namespace {

/// The truth value behind a reference; none for anything else.
VARIANT_BOOL* Flag(VARIANT& argument) {
  return argument.vt == (VT_BYREF | VT_BOOL) ? argument.pboolVal : nullptr;
}

/// The flags stay as they came unless a handler changed them.
void PassOn(ComClicks& owner, VARIANT* reversed) {
  VARIANT_BOOL *const handled = Flag(reversed[1]), *const cancel = Flag(reversed[0]);
  bool isHandled = handled && *handled, cancels = cancel && *cancel;
  const bool wasHandled = isHandled, cancelled = cancels;
  owner.Raise(reversed[2].vt == VT_DISPATCH ? reversed[2].pdispVal : nullptr, isHandled, cancels);
  if (handled && isHandled != wasHandled) *handled = isHandled ? VARIANT_TRUE : VARIANT_FALSE;
  if (cancel && cancels != cancelled) *cancel = cancels ? VARIANT_TRUE : VARIANT_FALSE;
}

}  // namespace

bool ClickSink::Offers(REFIID iid) const {
  return iid == IID_IDispatch || iid == ClickEventsId;
}

HRESULT STDMETHODCALLTYPE ClickSink::GetTypeInfoCount(UINT* count) {
  if (!count) return E_POINTER;
  *count = 0;
  return S_OK;
}

HRESULT STDMETHODCALLTYPE ClickSink::GetTypeInfo(UINT, LCID, ITypeInfo** info) {
  if (info) *info = nullptr;
  return E_NOTIMPL;
}

// Who raises events knows their numbers.
HRESULT STDMETHODCALLTYPE ClickSink::GetIDsOfNames(REFIID, LPOLESTR*, UINT count, LCID,
                                                   DISPID* ids) {
  for (UINT i = 0; ids && i < count; ++i) ids[i] = DISPID_UNKNOWN;
  return DISP_E_UNKNOWNNAME;
}

HRESULT STDMETHODCALLTYPE ClickSink::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters,
                                            VARIANT*, EXCEPINFO*, UINT*) {
  if (id != ClickId) return DISP_E_MEMBERNOTFOUND;
  if (!parameters || parameters->cArgs != 3) return DISP_E_BADPARAMCOUNT;
  const ComPtr<ClickSink> self = ComPtr<ClickSink>::Share(this);  // a click may end the events
  const std::shared_ptr<ComClicks> owner = mOwner.lock();
  if (!owner) return S_OK;
  try {
    PassOn(*owner, parameters->rgvarg);
  } catch (...) {
    // The handlers of a click tell their failures themselves; the IDE would show a second box.
  }
  return S_OK;
}
