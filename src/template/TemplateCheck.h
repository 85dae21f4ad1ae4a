// What a load of a template file doesn't say: faults that would show only when a template has to
// be found again in code.
#pragma once

#include <cstdint>
#include <vector>

#include "Text.h"

class CTemplate;

struct TemplateFinding {
  std::int32_t line = 0;  ///< line in the file, from 1
  Text message;
};

/// In file order. Finds: a pattern that the Like language rejects; a script line whose own text
/// (as it would be written, tokens filled in) doesn't fit its pattern, so that it could never be
/// taken out; a directive with no place by which to find it again; a border row whose pattern is
/// so wide that it fits any line; a first template that isn't a signature template or whose first
/// row has no <%Signature>, or whose written line can't be read back; a condition that is never
/// met; a token that is none of the ten, or that
/// stands in code where its value can't; duplicate template names.
std::vector<TemplateFinding> CheckTemplate(const CTemplate& engine);
