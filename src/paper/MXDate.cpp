#include "MXDate.h"

#include <ctime>
#include <string>

#include "MonthName.h"

namespace MXDate {

namespace {

std::tm LocalTime(std::int64_t lTime) {
  const std::time_t lSystemTime = lTime;
  std::tm oTime = {};
  localtime_r(&lSystemTime, &oTime);
  return oTime;
}

/// Decimal, filled up with zeros.
Text Digits(int nNumber, std::size_t lLength) {
  const Text sNumber = ToText(nNumber);
  return Text(lLength > sNumber.size() ? lLength - sNumber.size() : 0, u'0') + sNumber;
}

Text Day(const std::tm& oTime, TextView sSeparator) {
  return (Digits(oTime.tm_year + 1900, 4) + Text(sSeparator))
      .append(Digits(oTime.tm_mon + 1, 2))
      .append(sSeparator)
      .append(Digits(oTime.tm_mday, 2));
}

Text Clock(const std::tm& oTime) {
  return Digits(oTime.tm_hour, 2) + u":" + Digits(oTime.tm_min, 2);
}

}  // namespace

std::function<std::int64_t()> fnNow = [] { return std::int64_t{std::time(nullptr)}; };

Text MediumDate(std::int64_t lTime) {
  const std::tm o = LocalTime(lTime);
  return Digits(o.tm_mday, 2) + u"-" + ShortMonthName(o.tm_mon + 1) + u"-" +
         Digits((o.tm_year + 1900) % 100, 2);
}

Text ShortTime(std::int64_t lTime) {
  return Clock(LocalTime(lTime));
}

Text FileTime(std::int64_t lTime) {
  const std::tm o = LocalTime(lTime);
  return Day(o, u"/") + u" " + Clock(o) + u":" + Digits(o.tm_sec, 2);
}

Text DocumentTime(std::int64_t lTime) {
  const std::time_t lSystemTime = lTime;
  std::tm o = {};
  gmtime_r(&lSystemTime, &o);
  return Day(o, u"-") + u"T" + Clock(o) + u":" + Digits(o.tm_sec, 2) + u"Z";
}

}  // namespace MXDate
