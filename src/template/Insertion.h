// Puts a template around a procedure's body, or into a declarations section, as a pure function.
// In order: refusals, the lines ahead of the body, the body with its trace exits and numbers, the
// sections behind it with the procedure's own clean-up code, the rest.
#pragma once

#include <cstdint>

#include "MRules.h"
#include "ProcText.h"
#include "Sections.h"
#include "Signature.h"
#include "TemplateRows.h"
#include "Text.h"

struct InsertionRequest {
  const TemplateRow* pTemplate = nullptr;
  const std::vector<LineRow>* pLines = nullptr;
  const Signature* pSignature = nullptr;
  const MRules::Values* pRules = nullptr;
  SectionValues oValues;
  bool bLocked = false;
  bool bSigned = true;         ///< false: the text is known to hold no signature
  std::int32_t lBodyLine = 1;  ///< from 1
  MQuillon::LineNumAction eLineNumAction = MQuillon::LineNumAction::Leave;
};

/// sResult is the new text. The result is the message that refuses it, or empty.
[[nodiscard]] Text InsertIntoProcedure(const InsertionRequest& oRequest, const ProcText& oProc,
                                       Text& sResult);
[[nodiscard]] Text InsertIntoDeclarations(const InsertionRequest& oRequest, const ProcText& oProc,
                                          Text& sResult);

/// The mark of clean-up code that waits as comment lines, in lower case.
inline constexpr TextView FireMark = u"'fireexit:";
