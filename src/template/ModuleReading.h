// How a module reads a line that was put into the text of a procedure: whether the line stays what
// it was meant to be. A module splits its file at line ends of every kind, hides the attribute
// lines of members, and takes the heads and ends of procedures for the borders between them.
#pragma once

#include <optional>

#include "Insertion.h"
#include "ProcText.h"
#include "Refusal.h"

/// The first of the given lines that the module would read as something else. The lines come from
/// these templates.
std::optional<Refusal> FirstMisread(const TemplateSet& templates, const ProcText& code,
                                    const std::vector<Insertion::Stretch>& lines);
