// The words of the system: values of the six properties, the names that stand for them in code,
// display names of what the IDE reports, folders, and the process-wide lookups.
// 0 is "not set or mixed" in every set.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "CXLookup.h"
#include "Text.h"

namespace MQuillon {

enum Boundary : std::int32_t { BoundaryNone = 1, BoundaryVB, BoundaryFirewall, BoundaryActiveX };
enum Severity : std::int32_t { SeverityCosmetic = 1, SeverityNormal, SeverityFatal };
enum Retry : std::int32_t { RetryLine = 1, RetryProcedure, RetryNone };
/// Trace and Locked.
enum TriState : std::int32_t { StateFalse = 1, StateTrue = 2 };
/// Kinds of procedures; Declarations is a component's declarations section.
enum Kind : std::int32_t { KindMethod = 0, KindLet, KindSet, KindGet, KindDeclarations = 9 };
enum LineNumAction : std::int32_t { NumberAsRule = -1, NumberInsert, NumberLeave, NumberRemove };

/// The name of a declarations section wherever a procedure's name is shown or passed.
inline constexpr TextView DeclarationsName = u"(declarations)";
inline constexpr TextView NoneName = u"(none)";
inline constexpr TextView BespokeName = u"(bespoke)";
/// Where the vendor is on the web: printed on reports, opened by the Help menu.
inline constexpr TextView VendorAddress = u"https://tarvane.example/quillon";

Text VBComponentTypeName(std::int32_t nType);
Text VBProjectTypeName(std::int32_t nType);
Text InstancingTypeName(std::int32_t lInstancing);
Text ScopeTypeName(std::int32_t nScope);

/// Id to constant name, such as tvnBoundaryVB; empty for any other id.
Text BoundaryName(std::int32_t eBoundary);
Text SeverityName(std::int32_t eSeverity);
Text RetryName(std::int32_t eRetry);
/// Constant name in lower case to id; 0 for any other text.
std::int32_t BoundaryId(TextView sName);
std::int32_t SeverityId(TextView sName);
std::int32_t RetryId(TextView sName);

/// The kind of a declaration line: "Function", "Sub", "Property Get|Set|Let" or empty.
/// Puts one blank in front of the caller's text: it is meant so, the search needs it.
Text ProcTypeName(Text& sLine);

/// Text of a string resource; empty for an unknown id.
Text StringResource(std::int32_t lId);

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
void LoadLookups(const TextArray& asModTemplate, const TextArray& asProcTemplate);
void ReleaseLookups();

}  // namespace MQuillon
