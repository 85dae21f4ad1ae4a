#include "ProjectConstants.h"

#include <algorithm>

#include "ConditionalCode.h"
#include "Directive.h"

namespace {

std::int32_t ValueOf(TextView name, const std::vector<CondConstant>& constants) {
  const auto named = [&](const CondConstant& constant) { return constant.sName == name; };
  const auto last = std::find_if(constants.rbegin(), constants.rend(), named);
  if (last != constants.rend()) return last->lValue;
  const auto own = std::ranges::find_if(
      PredefinedConstants, [&](const auto& predefined) { return predefined.name == name; });
  return own != std::end(PredefinedConstants) ? own->value : 0;
}

bool IsWordUnit(char16_t unit) {
  return unit == u'_' || unit >= 0x80 || (unit >= u'0' && unit <= u'9') ||
         (unit >= u'a' && unit <= u'z');
}

/// Calls take for each word of a line in lower case until it gives true.
template <class Take>
bool AnyWord(TextView line, Take&& take) {
  for (std::size_t i = 0; i < line.size();) {
    const std::size_t start = i;
    while (i < line.size() && IsWordUnit(line[i])) ++i;
    if (i > start && take(line.substr(start, i - start))) return true;
    if (i == start) ++i;
  }
  return false;
}

bool IsAsking(TextView line) {
  const DirectiveKind kind = DirectiveOf(line);
  return kind == DirectiveKind::If || kind == DirectiveKind::ElseIf || kind == DirectiveKind::Const;
}

}  // namespace

const ProjectConstants::Owner& ProjectConstants::Reader() const {
  const auto first =
      std::ranges::find_if(mOwners, [](const Owner& owner) { return owner.inScope; });
  return first != mOwners.end() ? *first : mOwners.front();
}

std::optional<ConstantConflict> ProjectConstants::FirstConflict(
    const SourceDocument& document) const {
  const Owner& reader = Reader();
  std::vector<const Owner*> others;
  for (const Owner& owner : mOwners) {
    if (owner.inScope && &owner != &reader) others.push_back(&owner);
  }
  const std::int32_t count = others.empty() ? 0 : document.CountOfLines();
  for (std::int32_t line = 1; line <= count; ++line) {
    const Text text = LowerCase(document.Lines(line, 1));
    if (!IsAsking(text)) continue;
    ConstantConflict conflict;
    const bool found = AnyWord(text, [&](TextView word) {
      const std::int32_t value = ValueOf(word, reader.constants);
      for (const Owner* other : others) {
        const std::int32_t otherValue = ValueOf(word, other->constants);
        if (otherValue == value) continue;
        conflict = {{},    document.FileLine(line), Text(word), reader.project,
                    value, other->project,          otherValue};
        return true;
      }
      return false;
    });
    if (found) return conflict;
  }
  return std::nullopt;
}
