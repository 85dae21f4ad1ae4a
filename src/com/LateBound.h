// An object of the IDE, called by the names of its members. A failure of a call is a Failure
// (ComFailure.h); so is a call of nothing, 91.
//
//   LateBound module(component.GetObject(u"CodeModule"), ModuleNames);
//   Text text = module.Get(u"Lines", start, count).AsText();
//   module.Call(u"DeleteLines", start, count);
//   module.Put(u"Name", Text(u"Orders"));
#pragma once

#include <array>
#include <span>
#include <vector>

#include "Variant.h"

/// The numbers of a class's members by their names, each asked for once. Objects that share one are
/// of one class. Names are literals.
class MemberNames {
 public:
  /// Failure 438 for a name that the object doesn't know.
  DISPID IdOf(IDispatch& object, TextView name);
  /// It wasn't the object's number.
  void Forget(TextView name);

 private:
  struct Row {
    TextView name;
    DISPID id;
  };
  std::vector<Row> mRows;
};

class LateBound {
 public:
  LateBound() = default;
  /// names: null for an object whose class isn't known before; its names are asked for at each
  /// call.
  explicit LateBound(ComPtr<IDispatch> object, MemberNames* names = nullptr)
      : mObject(std::move(object)), mNames(names) {}

  /// Reads a property, or calls a method for its result: which of both a member is differs between
  /// the libraries.
  template <class... Arguments>
  Variant Get(TextView name, const Arguments&... arguments) const {
    std::array<Variant, sizeof...(Arguments)> values{Variant(arguments)...};
    return Invoke(DISPATCH_METHOD | DISPATCH_PROPERTYGET, name, values);
  }
  /// The result of Get as an object of a class; null when it gives none.
  template <class... Arguments>
  LateBound GetObject(MemberNames* names, TextView name, const Arguments&... arguments) const {
    return LateBound(Get(name, arguments...).AsUnknown().template As<IDispatch>(IID_IDispatch),
                     names);
  }
  template <class... Arguments>
  void Call(TextView name, const Arguments&... arguments) const {
    std::array<Variant, sizeof...(Arguments)> values{Variant(arguments)...};
    Invoke(DISPATCH_METHOD, name, values);
  }
  template <class Value>
  void Put(TextView name, const Value& value) const {
    std::array<Variant, 1> values{Variant(value)};
    Invoke(DISPATCH_PROPERTYPUT, name, values);
  }

  IDispatch* Raw() const { return mObject.Get(); }
  explicit operator bool() const { return static_cast<bool>(mObject); }

 private:
  Variant Invoke(WORD kind, TextView name, std::span<const Variant> arguments) const;
  HRESULT InvokeId(DISPID id, WORD kind, std::span<VARIANT> reversed, Variant& result,
                   EXCEPINFO& record) const;

  ComPtr<IDispatch> mObject;
  MemberNames* mNames = nullptr;
};
