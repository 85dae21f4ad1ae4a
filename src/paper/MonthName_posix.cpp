#include <array>

#include "MonthName.h"

namespace MXDate {

Text ShortMonthName(int number) {
  // English, as all texts of the system are; the C library would take the language of the user.
  static constexpr std::array Months = {u"Jan", u"Feb", u"Mar", u"Apr", u"May", u"Jun",
                                        u"Jul", u"Aug", u"Sep", u"Oct", u"Nov", u"Dec"};
  return Months[static_cast<std::size_t>(number) - 1];
}

}  // namespace MXDate
