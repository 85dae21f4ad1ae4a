// The rewrite of one procedure or declarations section as a function: what was read, what is
// wanted, and how, go in; the new text, or why there is none, comes out. Nothing is reported and
// nothing is written back here.
//
//   const ParsedProcedure procedure(templates, text, name, headLine);
//   const Rewrite rewrite = RewriteProcedure(procedure, wanted, {.prove = true}, rules);
//   if (rewrite.Refused()) Tell(MessageOf(rewrite.refusals.front()));
//
// The old template is that of procedure.Settings(). A text that ends in line ends is given without
// them: blank lines at the end belong to the module, not to the text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "Choices.h"
#include "LineDifferences.h"
#include "MRules.h"
#include "Meaning.h"
#include "ParsedProcedure.h"
#include "Refusal.h"
#include "Sections.h"
#include "Text.h"

struct WantedSettings {
  /// Of the template that goes in. Without one (hasTemplate false) only the lock is written.
  TextView templateName = {};
  bool hasTemplate = true;
  bool locked = false;
  /// Constant names; an empty one leaves its lines out.
  TextView boundary = {}, severity = {}, retry = {};
  bool trace = false;
};

struct RewriteOptions {
  MQuillon::LineNumAction numbering = MQuillon::LineNumAction::Leave;  ///< never AsRule
  /// Refuses what could not be taken out again, what would take away a line number that a jump
  /// names, and what the module would read as something else.
  bool prove = false;
  bool listChanges = false;
  bool noteUnchanged = false;  ///< notes also of a text that stays as it is
  /// What the proof lets pass, and the private names of the module, where they are known.
  AllowedRules allowed{};
  const Meaning::ModuleNames* moduleNames = nullptr;
};

struct Rewrite {
  Text text;                        ///< without a line end behind its last line
  std::int32_t blankLines = 0;      ///< to be put behind the text
  bool changed = false;             ///< the text differs, or blank lines stand behind it
  std::vector<Refusal> refusals;    ///< with one, the text is the old one
  bool stuck = false;               ///< refused, since the old template can't be taken out
  std::vector<Refusal> notes;       ///< by the proof: what is to be known and refuses nothing
  std::vector<LineChange> changes;  ///< by lines of the old and the new text, where asked for

  bool Refused() const { return !refusals.empty(); }
};

[[nodiscard]] Rewrite RewriteProcedure(const ParsedProcedure& procedure,
                                       const WantedSettings& wanted, const RewriteOptions& options,
                                       const MRules::Values& rules);

/// Puts a lock's signature into code that names no template: behind the head, or behind the options
/// of a declarations section. Locks that are there already go. Refuses a signature that couldn't
/// be read back, a head that shares its line with the end, and a head that isn't there.
struct LockedCode {
  ProcText code;
  std::vector<Refusal> refusals;
};
[[nodiscard]] LockedCode WithLock(const TemplateSet& templates, const ProcText& code,
                                  std::int32_t headLine, bool declarations, bool locked);

/// The values that a procedure's template is filled with. The views are those of the arguments.
SectionValues ValuesFor(const ParsedProcedure& procedure, const WantedSettings& wanted);
