// Thin routines over the registry: keys, 32-bit values, strings. Every call hands its result code
// to the error run-time and goes on; "not found" (2) and "more data" (234) are expected ones in
// queries and deletions, so that asking for a missing value isn't logged.
#pragma once

#include <cstdint>

#include "Text.h"

namespace MXRegistry {

inline constexpr std::int32_t HKEY_CURRENT_USER = static_cast<std::int32_t>(0x80000001);
inline constexpr std::int32_t KEY_ALL_ACCESS = 0xF003F;

/// The key's handle; created when missing. sKey may end in a backslash.
std::int32_t OpenRegKey(std::int32_t hRoot, TextView sKey, std::int32_t lAccess);
void CloseRegKey(std::int32_t hKey);
/// True unless the query reports file not found (2).
bool RegValueExists(std::int32_t hKey, TextView sName);
void SetRegLong(std::int32_t hKey, TextView sName, std::int32_t lValue);
/// The default when the value is missing or no 32-bit integer.
std::int32_t GetRegLong(std::int32_t hKey, TextView sName, std::int32_t lDefault);
void SetRegString(std::int32_t hKey, TextView sName, TextView sValue);
Text GetRegString(std::int32_t hKey, TextView sName, TextView sDefault);
void DeleteRegValue(std::int32_t hKey, TextView sName);
/// The names of the key's values, in no order that can be relied on.
std::vector<Text> RegValueNames(std::int32_t hKey);

/// Booleans: stored as -1 or 0, read as true for anything but 0.
bool GetRegBool(std::int32_t hKey, TextView sName, bool defaultValue);
void SetRegBool(std::int32_t hKey, TextView sName, bool value);

/// The root of all keys of the system, with a backslash at its end.
inline constexpr TextView RootKey = u"Software\\Morvelle\\Tarvane\\Quillon\\";

}  // namespace MXRegistry
