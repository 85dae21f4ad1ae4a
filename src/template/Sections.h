// The sections of a template as text: which rows are written under given settings, and how a row
// reads with its tokens filled in.
#pragma once

#include <cstdint>
#include <vector>

#include "TemplateRows.h"
#include "Text.h"

class LineWriter;

/// What a template's rows are filled with. All views outlive the call.
struct SectionValues {
  TextView sTemplate;    ///< <%Signature>
  TextView sModuleName;  ///< <%ModuleName>
  Text sShownName;       ///< <%ProcName>: the name, for a property with its kind: Total [Get]
  TextView sBaseType;    ///< <%ProcType>
  TextView sBoundary, sSeverity, sRetry;  ///< empty: the lines with that condition are left out
  bool bTrace = false;
};

/// The shown name of a procedure: `Total [Get]` for a property, else the name.
Text ShownName(TextView sProcName, TextView sPropertyKind);

/// True when the row's condition lets it be written.
bool IsWritten(const LineRow& oRow, const SectionValues& oValues);
/// Appends the row's text with its tokens filled in, exact case.
enum class Tokens { All, Names };  ///< Names: of module and procedure, and its type
void RenderRow(const LineRow& oRow, const SectionValues& oValues, Text& sText,
               Tokens eTokens = Tokens::All);
/// Writes the lines of rows lFirst to lLast, both included, that are to be written.
/// Rows outside the table write nothing.
void WriteRows(const std::vector<LineRow>& oRows, std::int32_t lFirst, std::int32_t lLast,
               const SectionValues& oValues, LineWriter& oWriter);
/// True for a script row whose text is nothing but blanks.
bool IsBlankRow(const LineRow& oRow);
/// The row's text, written with these values, in the form in which lines are compared.
Text FoldedRow(const LineRow& oRow, const SectionValues& oValues);
/// True when the row's own text, written with these values, fits its pattern.
bool FitsItself(const LineRow& oRow, const SectionValues& oValues);
