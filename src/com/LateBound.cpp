#include "LateBound.h"

#include <algorithm>

#include "ComFailure.h"

namespace {

DISPID AskId(IDispatch& object, TextView name) {
  Text text(name);
  auto* wide = reinterpret_cast<wchar_t*>(text.data());
  DISPID id = DISPID_UNKNOWN;
  CheckCom(object.GetIDsOfNames(IID_NULL, &wide, 1, LOCALE_USER_DEFAULT, &id));
  return id;
}

}  // namespace

DISPID MemberNames::IdOf(IDispatch& object, TextView name) {
  const auto found = std::ranges::find(mRows, name, &Row::name);
  if (found != mRows.end()) return found->id;
  const DISPID id = AskId(object, name);
  mRows.push_back({name, id});
  return id;
}

void MemberNames::Forget(TextView name) {
  std::erase_if(mRows, [&](const Row& row) { return row.name == name; });
}

HRESULT LateBound::InvokeId(DISPID id, WORD kind, std::span<VARIANT> reversed, Variant& result,
                            EXCEPINFO& record) const {
  DISPID putId = DISPID_PROPERTYPUT;
  const bool put = (kind & DISPATCH_PROPERTYPUT) != 0;
  DISPPARAMS parameters = {reversed.data(), put ? &putId : nullptr,
                           static_cast<UINT>(reversed.size()), put ? 1U : 0U};
  // Who asks for no result doesn't get one: some methods fail when they are to give what they lack.
  VARIANT* const out = (kind & DISPATCH_PROPERTYGET) != 0 ? result.Out() : nullptr;
  return mObject->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters, out, &record,
                         nullptr);
}

Variant LateBound::Invoke(WORD kind, TextView name, std::span<const Variant> arguments) const {
  if (!mObject) throw Failure(91);
  // COM takes the last argument first. These are copies that own nothing.
  std::vector<VARIANT> reversed;
  for (const Variant& argument : arguments) reversed.push_back(argument.Raw());
  std::ranges::reverse(reversed);
  Variant result;
  EXCEPINFO record = {};
  const DISPID id = mNames ? mNames->IdOf(*mObject.Get(), name) : AskId(*mObject.Get(), name);
  HRESULT code = InvokeId(id, kind, reversed, result, record);
  if (code == DISP_E_MEMBERNOTFOUND && mNames) {
    mNames->Forget(name);
    code = InvokeId(mNames->IdOf(*mObject.Get(), name), kind, reversed, result, record);
  }
  if (FAILED(code)) throw FailureOf(code, &record);
  return result;
}
