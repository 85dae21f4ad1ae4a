// The two reports on a project: a summary of its components with their files, and a list of all its
// procedures with their Current settings. Each is one document on the printer.
//
// Column widths are those of a list's headings, in twips, from index 0 for the first: a report
// comes out with the columns that the user has on the screen. The last heading's width isn't used,
// since the last column runs to the right margin. Too few widths, or a handle outside the model, is
// Failure 9. A failure of the printer goes to the error run-time and on to the caller; the document
// is dropped then.
#pragma once

#include <cstdint>
#include <vector>

#include "CIDEHandler.h"
#include "Printer.h"

namespace Reports {

/// What the documents are called: their titles, with the project's name, and their footers.
inline constexpr TextView SummaryName = u"Project Summary";
inline constexpr TextView SettingsName = u"Procedure Properties";

using Widths = std::vector<std::int32_t>;

/// The widths that the two lists begin with: Name, Type, Instancing, ReadOnly, Modified, FileName;
/// Procedure, Type, Scope, Template, Locked, Boundary, Severity, Retry, Trace.
const Widths& DefaultModWidths();
const Widths& DefaultProcWidths();

/// Needs no code: components that can't be read are listed as well.
void PrintProjects(CIDEHandler& oHandler, Paper::Printer& oPrinter, const Widths& alModWidth,
                   ProjectHandle hProject);

/// hComponent: that one, loaded if it isn't. None: all of the project; those that aren't
/// loaded are, except read-only ones while the rules pass them over, which show no procedures then.
/// Words come from the process-wide lookups; Failure 91 while there are none.
void PrintSettings(CIDEHandler& oHandler, Paper::Printer& oPrinter, const Widths& alProcWidth,
                   ProjectHandle hProject, ComponentHandle hComponent);

}  // namespace Reports
