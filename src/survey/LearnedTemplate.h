// A shape as a section of a template file: each row in the form that most
// members have. Names of the procedure stand as tokens where they fit at nine
// of ten members at least; who has another text there, such as the name that a
// procedure had once, is told.
#pragma once

#include <cstddef>
#include <vector>

#include "Survey.h"
#include "Text.h"

struct LearnedTemplate {
  struct Other {
    std::size_t member;  ///< index in Shape::members
    Text text;           ///< its row, with tokens for what are names of its own
    Text row;            ///< the template's
  };

  TextArray lines;            ///< from <#Template to <#End>
  std::vector<Other> others;  ///< rows that aren't the template's, letter case aside
};

/// name: of the template.
LearnedTemplate LearnTemplate(const Shape& shape, TextView name);
