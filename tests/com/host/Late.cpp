#include "Late.h"

#include <vector>

namespace {

LateError Taken(EXCEPINFO& record) {
  if (record.pfnDeferredFillIn) record.pfnDeferredFillIn(&record);
  LateError error{
      record.wCode != 0 ? static_cast<HRESULT>(0x800A0000 + record.wCode) : record.scode, true,
      Text(TextOf(record.bstrDescription))};
  for (BSTR text : {record.bstrSource, record.bstrDescription, record.bstrHelpFile})
    SysFreeString(text);
  return error;
}

}  // namespace

Late Late::Call(const char* name, WORD flags, std::initializer_list<Late> arguments) const {
  if (mValue.vt != VT_DISPATCH || !mValue.pdispVal) throw LateError{E_POINTER};
  IDispatch& object = *mValue.pdispVal;
  Text wide = FromUtf8(name);
  LPOLESTR names[] = {reinterpret_cast<LPOLESTR>(wide.data())};
  DISPID id = 0;
  if (const HRESULT result = object.GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
      FAILED(result))
    throw LateError{result};

  std::vector<VARIANT> reversed;
  for (auto it = std::rbegin(arguments); it != std::rend(arguments); ++it)
    reversed.push_back(it->mValue);
  DISPID put = DISPID_PROPERTYPUT;
  const bool puts = flags == DISPATCH_PROPERTYPUT;
  DISPPARAMS all{reversed.data(), puts ? &put : nullptr, static_cast<UINT>(reversed.size()),
                 puts ? 1U : 0U};
  Late out;
  EXCEPINFO record{};
  const HRESULT result = object.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &all,
                                       puts ? nullptr : &out.mValue, &record, nullptr);
  if (result == DISP_E_EXCEPTION) throw Taken(record);
  if (FAILED(result)) throw LateError{result};
  return out;
}

int Late::Number() const {
  VARIANT number;
  VariantInit(&number);
  return SUCCEEDED(VariantChangeType(&number, const_cast<VARIANT*>(&mValue), 0, VT_I4))
             ? number.lVal
             : -1;
}
