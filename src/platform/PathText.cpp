#include "PathText.h"

#include <optional>

#include "IFileOps.h"
#include "SystemPaths.h"
#include "Utf8.h"

namespace {

constexpr std::string_view HexDigits = "0123456789ABCDEF";
constexpr std::size_t FormLength = 4;

bool IsControl(char byte) {
  return (byte >= 0 && byte < 0x20) || byte == 0x7F;
}

/// The byte whose form stands at the beginning.
std::optional<char> FormByte(std::string_view shown) {
  if (shown.size() < FormLength || !shown.starts_with("\\x")) return std::nullopt;
  const std::size_t high = HexDigits.find(shown[2]), low = HexDigits.find(shown[3]);
  if (high == std::string_view::npos || low == std::string_view::npos) return std::nullopt;
  const char byte = static_cast<char>(high << 4 | low);
  if (high < 8 && byte != '\\' && !IsControl(byte)) return std::nullopt;
  return byte;
}

void AppendForm(char byte, std::string& shown) {
  const auto value = static_cast<unsigned char>(byte);
  shown += {'\\', 'x', HexDigits[value >> 4], HexDigits[value & 15]};
}

}  // namespace

std::string ShownPath(std::string_view path) {
  std::string shown;
  shown.reserve(path.size());
  for (std::size_t i = 0; i < path.size();) {
    const std::string_view rest = path.substr(i);
    const bool isAscii = static_cast<unsigned char>(rest.front()) < 0x80;
    const std::size_t length = isAscii ? 1 : Utf8::SequenceLength(rest);
    if (length == 0 || IsControl(rest.front()) || FormByte(rest)) {
      AppendForm(rest.front(), shown);
      ++i;
    } else {
      shown += rest.substr(0, length);
      i += length;
    }
  }
  return shown;
}

std::string PathOfShown(std::string_view shown) {
  std::string path;
  path.reserve(shown.size());
  for (std::size_t i = 0; i < shown.size();) {
    const std::optional<char> byte = FormByte(shown.substr(i));
    path += byte.value_or(shown[i]);
    i += byte ? FormLength : 1;
  }
  return path;
}

Text TextOfPath(std::string_view path) {
  return FromUtf8(ShownPath(path));
}

std::string PathOfText(TextView text) {
  std::string shown;
  if (Utf8::AppendBytes(text, shown) != text.size()) shown = ToUtf8(text);
  return PathOfShown(WithSlashes(std::move(shown)));
}

std::string PathOfArgument(const std::string& argument) {
  IFileOps::Stat state;
  const std::string path = WithSlashes(argument);
  return SystemFileOps().GetStat(path, state) == 0 ? path : PathOfShown(path);
}
