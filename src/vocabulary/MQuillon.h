// The words of the system: values of the six properties, the names that stand for them in code,
// display names of what the IDE reports, folders, and the process-wide lookups.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "CXLookup.h"
#include "Choices.h"
#include "Text.h"

namespace MQuillon {

/// The name of a declarations section wherever a procedure's name is shown or passed.
inline constexpr TextView DeclarationsName = u"(declarations)";
inline constexpr TextView NoneName = u"(none)";
inline constexpr TextView BespokeName = u"(bespoke)";
/// Where the vendor is on the web: printed on reports, opened by the Help menu.
inline constexpr TextView VendorAddress = u"https://tarvane.example/quillon";

/// The name that is shown; empty for a value outside the set.
Text VBComponentTypeName(ComponentType nType);
Text VBProjectTypeName(ProjectType nType);
Text InstancingTypeName(std::int32_t lInstancing);
Text ScopeTypeName(MemberScope nScope);

/// Value to constant name, such as tvnBoundaryVB; empty for Unset and outside the set. The view is
/// good for the life of the process.
TextView BoundaryName(Boundary eBoundary);
TextView SeverityName(Severity eSeverity);
TextView RetryName(Retry eRetry);
/// Constant name in lower case to value; Unset for any other text.
Boundary BoundaryId(TextView sName);
Severity SeverityId(TextView sName);
Retry RetryId(TextView sName);

/// The kind of a declaration line: "Function", "Sub", "Property Get|Set|Let" or empty.
/// Puts one blank in front of the caller's text: it is meant so, the search needs it.
Text ProcTypeName(Text& sLine);

/// Text of a string resource; empty for an unknown id.
Text StringResource(std::int32_t id);

/// Filled by Initialize. asFolderName and asFolderItemName run from 1 to 8, aiFolderOfType from
/// 1 to 15 with 0 for a type without a folder; element 0 of each is unused.
extern TextArray asFolderName;
extern TextArray asFolderItemName;
extern std::vector<std::int16_t> aiFolderOfType;
void Initialize();

/// The process-wide lookups: null while no template is open.
extern std::unique_ptr<CXLookup> oLookupBoundary, oLookupSeverity, oLookupRetry, oLookupTrace,
    oLookupLocked, oLookupModTemplate, oLookupProcTemplate;
/// Makes all seven. The arrays are those of GetModuleTemplates and GetProcTemplates: sparse,
/// from element 1; ItemData of a template is its running number from 1 among the used elements.
void LoadLookups(const TextArray& modTemplates, const TextArray& procTemplates);
void ReleaseLookups();

}  // namespace MQuillon
