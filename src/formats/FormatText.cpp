#include "FormatText.h"

#include "VisibleText.h"

namespace {

void AppendHex(std::string& text, char c) {
  constexpr char Digits[] = "0123456789ABCDEF";
  const auto byte = static_cast<unsigned char>(c);
  text += '%';
  text += Digits[byte >> 4];
  text += Digits[byte & 15];
}

/// Escapes the characters of the list.
std::string Escaped(std::string_view text, std::string_view special) {
  std::string escaped;
  for (const char c : text) {
    if (special.find(c) != std::string_view::npos)
      AppendHex(escaped, c);
    else
      escaped += c;
  }
  return escaped;
}

const char* XmlEntity(char c) {
  switch (c) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    case '\t':
      return "&#9;";
    default:
      return nullptr;
  }
}

}  // namespace

std::string UriOfPath(std::string_view path) {
  constexpr std::string_view Plain =
      "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-._~/";
  std::string uri = !path.empty() && path.front() == '/' ? "file://" : "";
  for (const char c : path) {
    if (Plain.find(c) != std::string_view::npos)
      uri += c;
    else
      AppendHex(uri, c);
  }
  return uri;
}

std::string WorkflowData(std::string_view text) {
  return Escaped(text, "%\r\n");
}

std::string WorkflowProperty(std::string_view text) {
  return Escaped(text, "%\r\n:,");
}

std::string XmlText(std::string_view text) {
  std::string xml;
  for (const char c : VisibleText(text)) {
    if (const char* entity = XmlEntity(c))
      xml += entity;
    else
      xml += c;
  }
  for (const std::string_view none : {"\xEF\xBF\xBE", "\xEF\xBF\xBF"})
    for (std::size_t at; (at = xml.find(none)) != std::string::npos;)
      xml.replace(at, none.size(), "\xEF\xBF\xBD");
  return xml;
}
