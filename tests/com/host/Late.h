// A late-bound client: a value of COM, and calls on it by name as a script makes them.
//
//   Late ide(object);                              // takes a reference of its own
//   const Late projects = ide("VBProjects");
//   EXPECT_EQ(projects("Item", 1)("Name").AsText(), u"Orders");
//   EXPECT_EQ(ErrorOf([&] { projects("Item", 0); }).code, ...);
//
// Every read is asked for as a method or a property, whichever it is.
#pragma once

#include <ole2.h>

#include <initializer_list>

#include "HostText.h"

/// How a call failed.
struct LateError {
  HRESULT code = S_OK;  ///< of the call, or of the exception record if there was one
  bool record = false;  ///< an exception record told it
  Text text{};
};

class Late {
 public:
  Late() { VariantInit(&mValue); }
  Late(int number) : Late() { mValue.vt = VT_I4, mValue.lVal = number; }
  Late(bool value) : Late() {
    mValue.vt = VT_BOOL, mValue.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
  }
  Late(TextView text) : Late() { mValue.vt = VT_BSTR, mValue.bstrVal = Bstr(text); }
  Late(const char16_t* text) : Late(TextView(text)) {}
  Late(const Text& text) : Late(TextView(text)) {}
  Late(IDispatch* object) : Late() {
    mValue.vt = VT_DISPATCH, mValue.pdispVal = object;
    if (object) object->AddRef();
  }
  /// A list of further arguments, by its place; it stays the caller's.
  Late(SAFEARRAY** list) : Late() {
    mValue.vt = VT_BYREF | VT_ARRAY | VT_VARIANT, mValue.pparray = list;
  }
  Late(const Late& other) : Late() { VariantCopy(&mValue, const_cast<VARIANT*>(&other.mValue)); }
  Late(Late&& other) noexcept : mValue(other.mValue) { VariantInit(&other.mValue); }
  Late& operator=(Late other) noexcept { return std::swap(mValue, other.mValue), *this; }
  ~Late() { VariantClear(&mValue); }
  /// For a reference that the caller gives up.
  template <class Object>
  static Late Owned(Object* object) {
    Late late(static_cast<IDispatch*>(object));
    object->Release();
    return late;
  }

  template <class... Arguments>
  Late operator()(const char* name, const Arguments&... arguments) const {
    return Call(name, DISPATCH_METHOD | DISPATCH_PROPERTYGET, {Late(arguments)...});
  }
  void Set(const char* name, const Late& value) const { Call(name, DISPATCH_PROPERTYPUT, {value}); }
  /// Throws LateError. arguments in the order of the declaration.
  Late Call(const char* name, WORD flags, std::initializer_list<Late> arguments) const;

  int Number() const;
  Text AsText() const { return mValue.vt == VT_BSTR ? Text(TextOf(mValue.bstrVal)) : Text(); }
  bool IsNothing() const { return !Object(); }
  VARTYPE Type() const { return mValue.vt; }
  /// Null for what isn't an object. Belongs to this value.
  IUnknown* Object() const {
    return mValue.vt == VT_DISPATCH || mValue.vt == VT_UNKNOWN ? mValue.punkVal : nullptr;
  }

 private:
  VARIANT mValue;
};

template <class Deed>
LateError ErrorOf(Deed deed) {
  try {
    deed();
    return {};
  } catch (const LateError& error) {
    return error;
  }
}
