// What the twins for Windows of all layers need: file names as the wide calls take them, and the
// system's error numbers as those by which the layers tell failures apart.
//
//   HANDLE file = CreateFileW(WideName(path).c_str(), ...);
//   if (file == INVALID_HANDLE_VALUE) return ErrorNumber(GetLastError());
#pragma once

#include <string>
#include <string_view>

/// path: UTF-8, its parts separated by slashes or backslashes; a drive alone means its root. The
/// result is the whole path in the form that has no limit of 260 characters, shares included; names
/// of devices, such as NUL, stay what they are.
std::wstring WideName(std::string_view path);
/// The form that the program has inside: UTF-8, slashes, without what WideName puts ahead.
std::string PlainName(std::wstring_view name);
/// errno's number for one of GetLastError; EIO for those that mean nothing in particular.
int ErrorNumber(unsigned long lastError);
