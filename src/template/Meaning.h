// Whether a rewrite leaves what the program does as it was: part of the proof, on texts alone. A
// template may compile and yet clear the error that a procedure is about to show, take another
// variable's name, or move clean-up code that was meant to run elsewhere.
//
//   if (auto fault = Meaning::FirstFault(put, allowed)) Tell(MessageOf(*fault));
#pragma once

#include <cstdint>
#include <optional>
#include <unordered_set>
#include <vector>

#include "Insertion.h"
#include "MeaningRules.h"
#include "ParsedProcedure.h"
#include "ProcText.h"
#include "Refusal.h"
#include "TemplateRows.h"

namespace Meaning {

/// Names in lower case that a module keeps to itself.
using ModuleNames = std::unordered_set<Text>;

/// A template that was put into a text. All outlive the call.
struct Put {
  const ParsedProcedure& procedure;  ///< as it was read
  const ProcText& bare;              ///< the lines that the insertion started from
  const Insertion& insertion;
  const ProcText& after;  ///< the lines that it made
  const TemplateRow& row;
  const TemplateRow* old = nullptr;     ///< that stood there; null: none
  std::int32_t headLine = 1;            ///< of bare, from 1
  const ModuleNames* module = nullptr;  ///< null: not known
};

/// What the template would change, or nothing. Lines count in the bare text.
std::optional<Refusal> FirstFault(const Put& put, const AllowedRules& allowed);

/// What is to be known and refuses nothing: the body switches the handler off, or an Exit passes
/// the clean-up code by.
std::vector<Refusal> Notes(const Put& put);

/// The most lines that a module can hold.
inline constexpr std::size_t ModuleLines = 65534;

}  // namespace Meaning
