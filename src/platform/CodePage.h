// Bytes to text and back by a named code page, losing nothing: for every page and every byte
// string, Encode(Decode(bytes)) == bytes. Bytes that the page leaves undefined become text as
// follows: in 1252 the five codes U+0081, U+008D, U+008F, U+0090, U+009D, as Windows maps them;
// in every other page (UTF-8 too) a lone low surrogate U+DC00 + byte, which valid text doesn't
// contain. A double-byte character whose text doesn't map back to the same bytes is carried that
// way, too.
//
//   const CodePage& page = CodePage::Get("932");
//   Text text = page.Decode(bytes);
//
// Names: "1252", "cp1252", "windows-1252", other numbers of ANSI pages (874, 932, 936, 949, 950,
// 1250 to 1258), "utf-8". The C library's iconv gives the tables of all but 1252 and UTF-8.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "Text.h"

class CodePage {
 public:
  /// The page of that name, made once and kept for the process. Failure 5 with the name in its
  /// text for a name that isn't known.
  static const CodePage& Get(std::string_view name);
  /// The page a file is in: UTF-8 for a UTF-8 byte-order mark, or for valid UTF-8 with at least
  /// one multi-byte sequence; else `ansi`. (The mark itself isn't part of the decoded text.)
  static const CodePage& Detect(std::string_view bytes, const CodePage& ansi);

  virtual ~CodePage() = default;
  virtual std::string_view Name() const = 0;
  Text Decode(std::string_view bytes) const;
  /// Appends the text of the bytes, which must begin and end at character borders.
  virtual void Decode(std::string_view bytes, Text& text) const = 0;
  /// Appends the bytes of the text. False when a unit isn't in the page: badUnit is its index from
  /// 0 in the text, and `bytes` is as before.
  [[nodiscard]] virtual bool Encode(TextView text, std::string& bytes,
                                    std::size_t& badUnit) const = 0;
  /// True when a byte of 80h or more begins a character of two bytes: the byte behind it may be
  /// an ASCII letter, "_", "\" or "|" (never a quote, an apostrophe, a colon, "#" or a line end).
  virtual bool IsLeadByte(unsigned char byte) const = 0;
};
