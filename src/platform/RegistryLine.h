// One entry of a file in registry export format, from text and to text. See RegistryStore.h for
// the format. Nothing here fails: an entry that isn't understood says why.
#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "Text.h"

/// How strings stand in hex(1): as 16-bit units (version 5.00) or in page 1252 (REGEDIT4).
enum class RegistryHex { Wide, Ansi };

struct RegistryValue {
  static constexpr std::uint32_t lString = 1, lLong = 4;

  std::uint32_t lType = lString;
  Text sText;                ///< type 1
  std::int32_t lNumber = 0;  ///< type 4
  bool operator==(const RegistryValue&) const = default;
};

struct RegistryLine {
  enum class Kind {
    Nothing,   ///< blank, comment or header
    Key,       ///< sName is the key's plain path
    Value,     ///< sName may be empty: the default value
    Deletion,  ///< "Name"=-
    Damaged    ///< not understood; sProblem says why
  };
  Kind eKind = Kind::Nothing;
  Text sName;
  RegistryValue oValue;
  Text sProblem;
};

/// sLine: a whole entry without its line end; lines that a backslash continues are joined.
RegistryLine ParseRegistryLine(TextView sLine, RegistryHex eHex);
/// True when sNext goes on with the hex value that sLine, a line or a continuation, breaks off in
/// a backslash. What doesn't look like hex bytes is never swallowed.
bool ContinuesRegistryLine(TextView sLine, TextView sNext);
/// The key without backslashes at its end, as keys are compared and written.
TextView PlainRegistryKey(TextView sKey);

/// The line of a value, in ASCII and without its end; long hex values go on in further lines
/// parted by sLineEnd. False when the text can't be written in page 1252 (RegistryHex::Ansi).
bool FormatRegistryValue(TextView sName, const RegistryValue& oValue, RegistryHex eHex,
                         TextView sLineEnd, Text& sLine);
