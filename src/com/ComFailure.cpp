#include "ComFailure.h"

#include <windows.h>

#include <array>

#include "ComText.h"
#include "Text.h"

namespace {

struct NumberRow {
  HRESULT result;
  std::int32_t number;
};
constexpr std::array Numbers = {
    NumberRow{E_INVALIDARG, 5},          NumberRow{DISP_E_OVERFLOW, 6},
    NumberRow{E_OUTOFMEMORY, 7},         NumberRow{DISP_E_BADINDEX, 9},
    NumberRow{DISP_E_TYPEMISMATCH, 13},  NumberRow{DISP_E_MEMBERNOTFOUND, 438},
    NumberRow{DISP_E_UNKNOWNNAME, 438},  NumberRow{DISP_E_BADPARAMCOUNT, 450},
    NumberRow{REGDB_E_CLASSNOTREG, 429},
};

/// The facility of numbers that are Visual Basic's already.
constexpr std::uint32_t ControlFacility = 0x800A0000;

/// The object is gone, or the program that it lived in.
bool IsDead(HRESULT result) {
  return result == RPC_E_DISCONNECTED || result == CO_E_OBJNOTCONNECTED ||
         result == RPC_E_SERVER_DIED || result == HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE);
}

Text SystemText(HRESULT result) {
  std::array<wchar_t, 512> text;
  const DWORD length =
      FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                     static_cast<DWORD>(result), 0, text.data(), text.size(), nullptr);
  Text said(reinterpret_cast<const char16_t*>(text.data()), length);
  while (!said.empty() && said.back() <= u' ') said.pop_back();
  return said;
}

Text DescriptionOf(HRESULT result, std::int32_t number) {
  if (IsDead(result))
    return u"The IDE has closed the object that was asked for. Close the window and open it "
           u"again, so that the projects are read anew";
  if (number > 0 && number <= 0xFFFF) return FailureText(number);
  const Text said = SystemText(result);
  return said.empty() ? FailureText(440) : said;
}

Text TakeText(BSTR& text) {
  const Text result = FromBstr(text);
  SysFreeString(text);
  text = nullptr;
  return result;
}

}  // namespace

std::int32_t FailureNumber(HRESULT result) {
  const auto code = static_cast<std::uint32_t>(result);
  if ((code & 0xFFFF0000) == ControlFacility) return static_cast<std::int32_t>(code & 0xFFFF);
  for (const NumberRow& row : Numbers)
    if (row.result == result) return row.number;
  return static_cast<std::int32_t>(result);
}

Failure FailureOf(HRESULT result, EXCEPINFO* record) {
  if (!record || result != DISP_E_EXCEPTION) {
    const std::int32_t number = FailureNumber(result);
    return Failure(number, DescriptionOf(result, number), u"IDE");
  }
  if (record->pfnDeferredFillIn) record->pfnDeferredFillIn(record);
  const HRESULT code = record->scode;
  const std::int32_t number = record->wCode != 0 ? record->wCode
                              : code != 0        ? FailureNumber(code)
                                                 : 440;
  Text description = TakeText(record->bstrDescription), source = TakeText(record->bstrSource);
  TakeText(record->bstrHelpFile);
  if (description.empty() || IsDead(code)) description = DescriptionOf(code, number);
  return Failure(number, std::move(description), source.empty() ? Text(u"IDE") : std::move(source));
}

void CheckCom(HRESULT result) {
  if (FAILED(result)) throw FailureOf(result);
}
