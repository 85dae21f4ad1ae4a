// An owned VARIANT: an argument of a call by name, or its result.
//
//   Variant index(std::int32_t{3});
//   Text name = property.AsText();   // Failure 13 when it can't be a text
#pragma once

#include <cstdint>

#include "ComPtr.h"
#include "ComText.h"

class Variant {
 public:
  Variant() { VariantInit(&mValue); }
  explicit Variant(std::int32_t number);
  /// A number of 16 bits, for the few arguments that are one.
  explicit Variant(std::int16_t number);
  explicit Variant(bool value);
  explicit Variant(TextView text);
  /// A literal; without this it would be a boolean.
  explicit Variant(const char16_t* text) : Variant(TextView(text)) {}
  explicit Variant(IDispatch* object);
  Variant(Variant&& other) noexcept : mValue(other.mValue) { VariantInit(&other.mValue); }
  Variant& operator=(Variant&& other) noexcept;
  ~Variant() { VariantClear(&mValue); }

  std::int32_t AsNumber() const;
  bool AsBool() const;
  Text AsText() const;
  /// An object that came as dispatch or as unknown; null for nothing. Failure 13 for a value.
  ComPtr<IUnknown> AsUnknown() const;

  const VARIANT& Raw() const { return mValue; }
  VARIANT* Out();

 private:
  Variant Changed(VARTYPE type) const;

  VARIANT mValue;
};
