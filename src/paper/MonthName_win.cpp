#include <windows.h>

#include "MonthName.h"

namespace MXDate {

Text ShortMonthName(int number) {
  SYSTEMTIME day = {};
  day.wYear = 2000;
  day.wMonth = static_cast<WORD>(number);
  day.wDay = 1;
  wchar_t name[80] = {};
  const int size = GetDateFormatW(LOCALE_USER_DEFAULT, 0, &day, L"MMM", name, 80);
  return Text(name, name + (size > 0 ? size - 1 : 0));
}

}  // namespace MXDate
