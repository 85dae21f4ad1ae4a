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
  static constexpr std::uint32_t String = 1, Long = 4;

  std::uint32_t type = String;
  Text text;                ///< type 1
  std::int32_t number = 0;  ///< type 4
  bool operator==(const RegistryValue&) const = default;
};

struct RegistryLine {
  enum class Kind {
    Nothing,   ///< blank, comment or header
    Key,       ///< name is the key's plain path
    Value,     ///< name may be empty: the default value
    Deletion,  ///< "Name"=-
    Damaged    ///< not understood; problem says why
  };
  Kind kind = Kind::Nothing;
  Text name;
  RegistryValue value;
  Text problem;
};

/// line: a whole entry without its line end; lines that a backslash continues are joined.
RegistryLine ParseRegistryLine(TextView line, RegistryHex hex);
/// True when `next` goes on with the hex value that `line`, a line or a continuation, breaks off in
/// a backslash. What doesn't look like hex bytes is never swallowed.
bool ContinuesRegistryLine(TextView line, TextView next);
/// The key without backslashes at its end, as keys are compared and written.
TextView PlainRegistryKey(TextView key);

/// The line of a value, in ASCII and without its end; long hex values go on in further lines
/// parted by lineEnd. False when the text can't be written in page 1252 (RegistryHex::Ansi).
bool FormatRegistryValue(TextView name, const RegistryValue& value, RegistryHex hex,
                         TextView lineEnd, Text& line);
