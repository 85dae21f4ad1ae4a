// What a line says to the compiler: the one place that tells directives from code, for the reader
// of modules, which sees bytes, and for the rewriter, which sees text.
//
//   DirectiveOf(TextView(u"  # If DEMO Then"))   // DirectiveKind::If: blanks behind the sign count
//   DirectiveOf(TextView(u"#Region a"))          // DirectiveKind::Other
#pragma once

#include <cstdint>
#include <string_view>

enum class DirectiveKind : std::uint8_t {
  None,   ///< the line doesn't begin with the sign
  Other,  ///< it does, and what follows is no directive of conditional compilation
  If,
  ElseIf,
  Else,
  EndIf,
  Const
};

/// line: the first physical line of a statement that no other one goes on into; letter case is
/// ignored.
template <class Unit>
constexpr DirectiveKind DirectiveOf(std::basic_string_view<Unit> line) {
  std::size_t at = 0;
  const auto skipBlanks = [&] {
    while (at < line.size() && (line[at] == Unit(' ') || line[at] == Unit('\t'))) ++at;
  };
  const auto isWordUnit = [](Unit unit) {
    const auto lower = static_cast<char32_t>(unit | 0x20);
    return (lower >= U'a' && lower <= U'z') || (unit >= Unit('0') && unit <= Unit('9')) ||
           unit == Unit('_') || static_cast<char32_t>(unit) >= 0x80;
  };
  // The word is left where it stands when it is another one.
  const auto takes = [&](std::string_view word) {
    if (line.size() - at < word.size()) return false;
    for (std::size_t i = 0; i < word.size(); ++i) {
      if ((line[at + i] | 0x20) != Unit(word[i])) return false;
    }
    if (at + word.size() < line.size() && isWordUnit(line[at + word.size()])) return false;
    at += word.size();
    return true;
  };
  skipBlanks();
  if (at == line.size() || line[at] != Unit('#')) return DirectiveKind::None;
  ++at;
  skipBlanks();
  if (takes("if")) return DirectiveKind::If;
  if (takes("elseif")) return DirectiveKind::ElseIf;
  if (takes("else")) return DirectiveKind::Else;
  if (takes("endif")) return DirectiveKind::EndIf;
  if (takes("const")) return DirectiveKind::Const;
  if (!takes("end")) return DirectiveKind::Other;
  skipBlanks();
  const bool goesOn = at < line.size() && line[at] == Unit('_');  // the If stands in the next line
  return goesOn || takes("if") ? DirectiveKind::EndIf : DirectiveKind::Other;
}
