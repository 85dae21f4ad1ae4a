// Receives the clicks of one control from the IDE. The IDE holds it by reference count; it knows
// its owner only as long as that lives, so that no circle keeps either of them.
#pragma once

#include <ocidl.h>

#include <memory>

#include "ComObject.h"
#include "ComPtr.h"

class ComClicks;

/// The identifier of the IDE's events of a command bar control; their only member is Click.
inline constexpr GUID ClickEventsId = {0x0002E198, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr DISPID ClickId = 1;

class ClickSink final : public ComObject<IDispatch> {
 public:
  explicit ClickSink(std::weak_ptr<ComClicks> owner) : mOwner(std::move(owner)) {}
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                          DISPID* ids) override;
  /// Click(control, handled, cancel-default): the last argument stands first.
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*,
                                   EXCEPINFO*, UINT*) override;

 protected:
  bool Offers(REFIID iid) const override;

 private:
  std::weak_ptr<ComClicks> mOwner;
};
