#include "LateBound.h"

#include <gtest/gtest.h>

#include "ComCodeModule.h"
#include "ComFailure.h"
#include "FakeDispatch.h"

namespace {

template <class Work>
std::int32_t NumberOf(Work&& work) {
  try {
    work();
  } catch (const Failure& failure) {
    return failure.Number();
  }
  return 0;
}

HRESULT STDMETHODCALLTYPE FillIn(EXCEPINFO* record) {
  record->scode = static_cast<HRESULT>(0x800A0023);
  record->bstrDescription = ToBstr(u"filled in later");
  return S_OK;
}

TEST(ComFailure, EveryWayOfANumberGivesIt) {
  struct Row {
    const char* name;
    HRESULT result;
    WORD code;
    HRESULT scode;
    std::int32_t number;
  };
  const auto Code = [](std::uint32_t code) { return static_cast<HRESULT>(code); };
  const Row rows[] = {
      {"as the result", Code(0x800A0023), 0, 0, 35},
      {"as a plain number in the record", DISP_E_EXCEPTION, 35, 0, 35},
      {"as a code in the record", DISP_E_EXCEPTION, 0, Code(0x800A0023), 35},
      {"a plain number goes before a code", DISP_E_EXCEPTION, 35, E_FAIL, 35},
      {"a record that says nothing", DISP_E_EXCEPTION, 0, 0, 440},
      {"a code of the system in the record", DISP_E_EXCEPTION, 0, E_INVALIDARG, 5},
      {"overflow", DISP_E_OVERFLOW, 0, 0, 6},
      {"memory", E_OUTOFMEMORY, 0, 0, 7},
      {"index", DISP_E_BADINDEX, 0, 0, 9},
      {"type", DISP_E_TYPEMISMATCH, 0, 0, 13},
      {"member", DISP_E_MEMBERNOTFOUND, 0, 0, 438},
      {"name", DISP_E_UNKNOWNNAME, 0, 0, 438},
      {"arguments", DISP_E_BADPARAMCOUNT, 0, 0, 450},
      {"class", REGDB_E_CLASSNOTREG, 0, 0, 429},
      {"others keep their bits", E_FAIL, 0, 0, static_cast<std::int32_t>(E_FAIL)},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    EXCEPINFO record = {};
    record.wCode = row.code;
    record.scode = row.scode;
    const Failure failure = FailureOf(row.result, &record);
    EXPECT_EQ(failure.Number(), row.number);
    EXPECT_FALSE(failure.Description().empty());
  }
}

TEST(ComFailure, RecordIsFilledInLaterAndGivesItsTexts) {
  EXCEPINFO record = {};
  record.pfnDeferredFillIn = FillIn;
  const Failure failure = FailureOf(DISP_E_EXCEPTION, &record);
  EXPECT_EQ(failure.Number(), 35);
  EXPECT_EQ(failure.Description(), u"filled in later");
  EXPECT_EQ(record.bstrDescription, nullptr);
}

TEST(ComFailure, DeadObjectSaysWhatToDo) {
  EXPECT_NE(FailureOf(RPC_E_DISCONNECTED).Description().find(u"open it again"), Text::npos);
}

TEST(LateBound, ArgumentsComeInOrderAndWithTheirTypes) {
  const auto fake = FakeDispatch::Make();
  fake->On(L"Item", [](const FakeDispatch::Arguments& given, VARIANT* result, EXCEPINFO*) {
    const bool good = given.size() == 3 && given[0].vt == VT_BSTR && given[1].vt == VT_I4 &&
                      given[1].lVal == 2 && given[2].vt == VT_BOOL;
    result->vt = VT_BSTR;
    result->bstrVal = good ? SysAllocString(given[0].bstrVal) : nullptr;
    return S_OK;
  });
  EXPECT_EQ(LateBound(fake->Object()).Get(u"Item", Text(u"first"), 2, true).AsText(), u"first");
  EXPECT_EQ(fake->kinds[0], DISPATCH_METHOD | DISPATCH_PROPERTYGET);
}

TEST(LateBound, NamesAreAskedForOncePerClass) {
  MemberNames names;
  const auto first = FakeDispatch::Make(), second = FakeDispatch::Make();
  first->Gives(L"Count", 1);
  second->Gives(L"Count", 2).offset = 100;  // an object that is of another class after all
  for (int i = 0; i < 3; ++i) LateBound(first->Object(), &names).Get(u"Count");
  EXPECT_EQ(first->asked, 1);
  EXPECT_EQ(LateBound(second->Object(), &names).Get(u"Count").AsNumber(), 2);
}

TEST(LateBound, ObjectsComeAsDispatchAsUnknownOrNotAtAll) {
  const auto inner = FakeDispatch::Make(), fake = FakeDispatch::Make();
  const auto Unknown = [](const ComPtr<FakeDispatch>& object) {
    return ComPtr<IUnknown>::Share(object.Get());
  };
  inner->Gives(L"Count", 4);
  fake->Gives(L"A", Unknown(inner)).Gives(L"B", Unknown(inner), VT_UNKNOWN);
  fake->Gives(L"C", ComPtr<IUnknown>()).Gives(L"D", ComPtr<IUnknown>(), VT_EMPTY).Gives(L"E", 3);
  const LateBound object(fake->Object());
  for (TextView name : {u"A", u"B"})
    EXPECT_EQ(object.GetObject(nullptr, name).Get(u"Count").AsNumber(), 4);
  for (TextView name : {u"C", u"D"}) EXPECT_FALSE(object.GetObject(nullptr, name));
  EXPECT_EQ(NumberOf([&] { object.GetObject(nullptr, u"E"); }), 13);
  EXPECT_EQ(NumberOf([&] { object.GetObject(nullptr, u"C").Get(u"Count"); }), 91);
  EXPECT_EQ(NumberOf([&] { object.Get(u"Missing"); }), 438);
}

// A member whose object died is found again by its name; one that lives fails as it says.
TEST(ComMembers, MemberOutlivesItsObject) {
  const auto Make = [](std::int32_t line) {
    auto member = FakeDispatch::Make();
    member->Gives(L"Name", u"Total").Gives(L"Type", 1).Gives(L"CodeLocation", line);
    member->Fails(L"Bindable", static_cast<HRESULT>(0x800A0005));
    return member;
  };
  const auto old = Make(10), present = Make(20), members = FakeDispatch::Make();
  members->Gives(L"Item", ComPtr<IUnknown>::Share(old.Get()));
  ComStore store;
  ComCodeModule module(nullptr, store, {});
  ComMembers all(module, store, LateBound(members->Object()));
  Member& member = all.Item(1);
  EXPECT_EQ(&all.Item(1), &member);
  members->Gives(L"Item", ComPtr<IUnknown>::Share(present.Get()));
  EXPECT_EQ(NumberOf([&] { member.Attribute(MemberAttribute::Bindable); }), 5);
  EXPECT_EQ(member.CodeLocation(), 10);
  for (const wchar_t* name : {L"Name", L"CodeLocation"}) old->Fails(name, RPC_E_DISCONNECTED);
  EXPECT_EQ(member.CodeLocation(), 20);
}

}  // namespace
