// Where the rows behind a body begin, looked for from the procedure's end upwards: for a template
// whose first row there is a statement that bodies hold as well.
//
//     If lCount = 0 Then
//       Exit Sub              of the body
//     End If
//     Exit Sub                of the template: from here on each line is one of its rows
//   Total_Err:
//     LogError "Total"
//   End Sub
#pragma once

#include <cstddef>
#include <optional>

#include "ProcText.h"
#include "TemplateSet.h"

struct Tail {
  std::size_t bodyEnd = 0;    ///< index of the first line behind the body
  std::size_t fireStart = 0;  ///< of the last one ahead of the clean-up code; 0: not found
};

/// Looks among the lines first up to and not including end, which is the procedure's end: the
/// lowest place from which all rows that must be there are there, and nothing else up to the end
/// or the clean-up code; the lowest that fits where there is none. Nothing for a template whose
/// border is told from the body's lines by itself, which is looked for downwards.
std::optional<Tail> FindTail(const TemplateSet& templates, const TemplateRow& row,
                             const ProcText& code, std::size_t first, std::size_t end);

/// True when nothing is written behind the place, so that it lies at the procedure's end.
bool IsAtEnd(const TemplateRow& row, Section place);
