#include "Failure.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

#include "Utf8.h"

namespace {

struct TextRow {
  std::int32_t lNumber;
  std::u16string_view sText;
};

// Ascending, for the binary search.
constexpr TextRow aoText[] = {
    {3, u"Return without GoSub"},
    {5, u"Invalid procedure call or argument"},
    {6, u"Overflow"},
    {7, u"Out of memory"},
    {9, u"Subscript out of range"},
    {10, u"This array is fixed or temporarily locked"},
    {11, u"Division by zero"},
    {13, u"Type mismatch"},
    {14, u"Out of string space"},
    {16, u"Expression too complex"},
    {17, u"Can't perform requested operation"},
    {18, u"User interrupt occurred"},
    {20, u"Resume without error"},
    {28, u"Out of stack space"},
    {35, u"Sub or Function not defined"},
    {47, u"Too many DLL application clients"},
    {48, u"Error in loading DLL"},
    {49, u"Bad DLL calling convention"},
    {51, u"Internal error"},
    {52, u"Bad file name or number"},
    {53, u"File not found"},
    {54, u"Bad file mode"},
    {55, u"File already open"},
    {57, u"Device I/O error"},
    {58, u"File already exists"},
    {59, u"Bad record length"},
    {61, u"Disk full"},
    {62, u"Input past end of file"},
    {63, u"Bad record number"},
    {67, u"Too many files"},
    {68, u"Device unavailable"},
    {70, u"Permission denied"},
    {71, u"Disk not ready"},
    {74, u"Can't rename with different drive"},
    {75, u"Path/File access error"},
    {76, u"Path not found"},
    {91, u"Object variable or With block variable not set"},
    {92, u"For loop not initialized"},
    {93, u"Invalid pattern string"},
    {94, u"Invalid use of Null"},
    {321, u"Invalid file format"},
    {322, u"Can't create necessary temporary file"},
    {325, u"Invalid format in resource file"},
    {380, u"Invalid property value"},
    {381, u"Invalid property array index"},
    {382, u"Set not supported at runtime"},
    {383, u"Set not supported (read-only property)"},
    {385, u"Need property array index"},
    {387, u"Set not permitted"},
    {393, u"Get not supported at runtime"},
    {394, u"Get not supported (write-only property)"},
    {424, u"Object required"},
    {429, u"ActiveX component can't create object"},
    {430, u"Class does not support Automation or does not support expected interface"},
    {432, u"File name or class name not found during Automation operation"},
    {438, u"Object doesn't support this property or method"},
    {440, u"Automation error"},
    {448, u"Named argument not found"},
    {449, u"Argument not optional"},
    {450, u"Wrong number of arguments or invalid property assignment"},
    {457, u"This key is already associated with an element of this collection"},
    {482, u"Printer error"},
    {483, u"Printer driver does not support specified property"},
    {484,
     u"Problem getting printer information from the system. Make sure the printer is set up "
     u"correctly"},
};

}  // namespace

std::u16string FailureText(std::int32_t lNumber) {
  const auto* poRow = std::lower_bound(
      std::begin(aoText), std::end(aoText), lNumber,
      [](const TextRow& oRow, std::int32_t lWanted) { return oRow.lNumber < lWanted; });
  if (poRow != std::end(aoText) && poRow->lNumber == lNumber) return std::u16string(poRow->sText);
  return u"Application-defined or object-defined error";
}

Failure::Failure(std::int32_t lNumber) : Failure(lNumber, FailureText(lNumber)) {}

Failure::Failure(std::int32_t lNumber, std::u16string sDescription, std::u16string sSource)
    : mlNumber(lNumber),
      msDescription(std::move(sDescription)),
      msSource(std::move(sSource)),
      msWhat(ToUtf8(msDescription)) {}
