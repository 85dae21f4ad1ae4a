// The names that a template brings into a procedure or module, and those of others that it uses.
//
//       Dim oTrail As CTrailError      declares oTrail
//       On Error GoTo TrailCaught      uses nothing but its own label
//   TrailCaught:                       a label
//       gTrail.Keep Err.Number         uses gTrail and Err
//
// All in lower case, each once.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "Text.h"

struct LineRow;
struct SectionValues;

struct NamesInTemplate {
  std::vector<Text> declared, labels;
  std::vector<Text> used;  ///< sorted; of types and members none
  bool handles = false;    ///< an On Error or Resume stands in it, which clears Err
  bool operator==(const NamesInTemplate&) const = default;
};

/// A token is no part of a name: what stands in its place is left out.
NamesInTemplate NamesOf(std::span<const LineRow> rows);
/// The same with the tokens of procedure and project filled in.
NamesInTemplate NamesOf(std::span<const LineRow> rows, const SectionValues& values);

/// Calls take(name) for each name that a statement declares: Dim, Static, Const, and these behind
/// Private, Public or Global.
template <class Take>
void EachDeclared(std::span<const TextView> words, Take&& take) {
  const auto isWord = [&](std::size_t i, std::initializer_list<TextView> of) {
    if (i >= words.size()) return false;
    for (const TextView one : of) {
      if (words[i] == one) return true;
    }
    return false;
  };
  std::size_t i = 0;
  const bool scoped = isWord(0, {u"private", u"public", u"global"});
  if (scoped) ++i;
  if (isWord(i, {u"dim", u"static", u"const"})) {
    ++i;
  } else if (!scoped || isWord(i, {u"declare", u"enum", u"type", u"sub", u"function", u"property",
                                   u"event"})) {
    return;
  }
  int depth = 0;
  bool first = true;
  for (; i < words.size(); ++i) {
    if (words[i] == u"(") ++depth;
    if (words[i] == u")") --depth;
    if (depth == 0 && words[i] == u",") {
      first = true;
    } else if (first && words[i] != u"withevents") {
      take(words[i]);
      first = false;
    }
  }
}
