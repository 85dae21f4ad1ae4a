// The sections of a template as text: which rows are written under given settings, and how a row
// reads with its tokens filled in.
#pragma once

#include <cstdint>
#include <vector>

#include "TemplateRows.h"
#include "Text.h"

class LineWriter;

/// What a template's rows are filled with. The views outlive the call.
struct SectionValues {
  TextView signature{};   ///< <%Signature>: the template's name
  TextView moduleName{};  ///< <%ModuleName>
  Text shownName{};       ///< <%ProcName>: the name, for a property with its kind: Total [Get]
  TextView baseType{};    ///< <%ProcType>
  TextView boundary{}, severity{}, retry{};  ///< empty: the lines with that condition are left out
  bool trace = false;
  TextView name{}, project{}, file{};  ///< <%Name>, <%Project>, <%File>
};

/// The shown name of a procedure: `Total [Get]` for a property, else the name.
Text ShownName(TextView procName, TextView propertyKind);

/// True when the row's condition lets it be written.
bool IsWritten(const LineRow& row, const SectionValues& values);
/// Appends the row's text with its tokens filled in, exact case.
enum class Tokens { All, Names };  ///< Names: not the signature and the three values
void RenderRow(const LineRow& row, const SectionValues& values, Text& text,
               Tokens tokens = Tokens::All);
/// Writes the lines of rows first to last, both included, that are to be written.
/// Rows outside the table write nothing.
void WriteRows(const std::vector<LineRow>& rows, std::int32_t first, std::int32_t last,
               const SectionValues& values, LineWriter& writer);
/// True for a script row whose text is nothing but blanks.
inline bool IsBlankRow(const LineRow& row) {
  return row.script && row.blank;
}
/// The row's text, written with these values, in the form in which lines are compared.
Text FoldedRow(const LineRow& row, const SectionValues& values);
/// True when the row's own text, written with these values, fits its pattern.
bool FitsItself(const LineRow& row, const SectionValues& values);
