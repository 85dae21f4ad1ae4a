// Reads a procedure's settings out of its text: the code itself is the record.
#pragma once

#include "CProcSettings.h"
#include "ProcText.h"
#include "TemplateSet.h"

namespace CodeSettings {

/// Fills what is unset in the settings. "(bespoke)" is the template of a text that handles errors
/// on its own, and a name in brackets that of one whose template isn't among these. True when the
/// text holds a signature.
bool Read(const TemplateSet& templates, TextView procCode, CProcSettings& settings);
/// The same for a text that has been taken apart already; code is made from procCode.
bool Read(const TemplateSet& templates, TextView procCode, const ProcText& code,
          CProcSettings& settings);
/// The values that the rows of one template hold in the code.
void ReadValues(const TemplateSet& templates, const TemplateRow& row, const ProcText& code,
                CProcSettings& settings);

}  // namespace CodeSettings
