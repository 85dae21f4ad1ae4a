// Takes a template out of a procedure or a declarations section. No copy of the old code exists:
// only patterns tell the template's lines from the user's, so a procedure in which they can't be
// accounted for is refused, with a message for each line that doesn't fit.
#pragma once

#include <cstdint>
#include <vector>

#include "MRules.h"
#include "ProcText.h"
#include "Sections.h"
#include "Signature.h"
#include "TemplateRows.h"
#include "Text.h"

struct RemovalRequest {
  const TemplateRow* pTemplate = nullptr;
  const std::vector<LineRow>* pLines = nullptr;
  const Signature* pSignature = nullptr;
  const MRules::Values* pRules = nullptr;
  /// As the code has them: an empty name says that lines with that condition weren't written.
  SectionValues oValues;
  std::int32_t lBodyLine = 1;  ///< from 1
};

/// sResult is the text without the template. The result holds the messages that refuse it.
[[nodiscard]] std::vector<Text> RemoveFromProcedure(const RemovalRequest& oRequest,
                                                    const ProcText& oProc, Text& sResult);
/// sResult comes back with a line end behind its last line.
[[nodiscard]] std::vector<Text> RemoveFromDeclarations(const RemovalRequest& oRequest,
                                                       const ProcText& oProc, Text& sResult);
