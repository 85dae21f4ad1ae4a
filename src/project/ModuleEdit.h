// Exchanges lines of a code module so that a failure leaves the old ones in place, and keeps the
// attributes of the member that the exchange would lose.
#pragma once

#include <array>
#include <optional>

#include "CodeModule.h"
#include "Guard.h"
#include "Text.h"

namespace ModuleEdit {

/// Number of lines in a text joined by CR LF; 0 for the empty text.
std::int32_t CountLines(TextView text);
/// Replaces oldText, which stands from line start on, by newText and blankLines empty lines.
/// Neither text ends in a line end; an empty one is no line. Failure: the module has its old lines;
/// if even those can't be given back, the message holds them.
void ReplaceLines(GuardScope& scope, CodeModule& module, std::int32_t start, TextView oldText,
                  TextView newText, std::int32_t blankLines);

/// The same for a declarations section, from line 1 on. False: lines that came in aren't counted to
/// the section and would be read as the first procedure's; the module has its old lines again.
[[nodiscard]] bool ReplaceDeclarations(GuardScope& scope, CodeModule& module, TextView oldText,
                                       TextView newText, std::int32_t blankLines);

/// The attributes of a member that can be read; none of a member that keeps them by itself.
using Attributes = std::array<std::optional<AttributeValue>, MemberAttributeCount>;
Attributes Save(GuardScope& scope, Member& member);
/// Sets what was saved. One that can't be set is reported and doesn't stop the others; result:
/// the names of those, separated by commas.
Text Restore(Member& member, const Attributes& saved);

}  // namespace ModuleEdit
