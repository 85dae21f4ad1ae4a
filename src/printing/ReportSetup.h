// Set-up of both reports, and the loop over a project's components that they share. Internal to
// this layer.
#pragma once

#include <functional>

#include "CXPrint.h"
#include "Reports.h"

namespace Reports {

/// Scale, margins from the page options, the title of the document, header and footer.
/// sProduct: the left text of the header; sReport: the left text of the footer.
void SetUp(CXPrint& oPrint, Paper::Printer& oPrinter, TextView sProduct, TextView sReport,
           TextView sProject);

/// Left edges of lCount columns: 0, then the sums of the widths. Failure 9 unless there are at
/// least lCount - 1 widths.
std::vector<std::int32_t> Positions(const Widths& alWidth, std::size_t lCount);

/// Visits the components of a project folder by folder, by name within a folder.
void EachComponent(const CIDEHandler& oHandler, ProjectHandle hProject,
                   const std::function<void(ComponentHandle)>& oVisit);

}  // namespace Reports
