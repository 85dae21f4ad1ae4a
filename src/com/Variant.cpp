#include "Variant.h"

#include <new>

#include "Failure.h"

Variant::Variant(std::int32_t number) : Variant() {
  mValue.vt = VT_I4;
  mValue.lVal = number;
}

Variant::Variant(std::int16_t number) : Variant() {
  mValue.vt = VT_I2;
  mValue.iVal = number;
}

Variant::Variant(bool value) : Variant() {
  mValue.vt = VT_BOOL;
  mValue.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
}

Variant::Variant(TextView text) : Variant() {
  mValue.bstrVal = ToBstr(text);
  if (!mValue.bstrVal) throw std::bad_alloc();
  mValue.vt = VT_BSTR;
}

Variant::Variant(IDispatch* object) : Variant() {
  mValue.vt = VT_DISPATCH;
  mValue.pdispVal = ComPtr<IDispatch>::Share(object).Release();
}

Variant& Variant::operator=(Variant&& other) noexcept {
  std::swap(mValue, other.mValue);
  return *this;
}

Variant Variant::Changed(VARTYPE type) const {
  Variant result;
  VARIANT source = mValue;  // owns nothing; the function wants one that isn't const
  if (FAILED(VariantChangeType(&result.mValue, &source, 0, type))) throw Failure(13);
  return result;
}

std::int32_t Variant::AsNumber() const {
  return Changed(VT_I4).mValue.lVal;
}

bool Variant::AsBool() const {
  return Changed(VT_BOOL).mValue.boolVal != VARIANT_FALSE;
}

Text Variant::AsText() const {
  return FromBstr(Changed(VT_BSTR).mValue.bstrVal);
}

ComPtr<IUnknown> Variant::AsUnknown() const {
  if (mValue.vt == VT_DISPATCH || mValue.vt == VT_UNKNOWN)
    return ComPtr<IUnknown>::Share(mValue.punkVal);
  if (mValue.vt == VT_EMPTY || mValue.vt == VT_NULL) return {};
  throw Failure(13);
}

VARIANT* Variant::Out() {
  VariantClear(&mValue);
  return &mValue;
}
