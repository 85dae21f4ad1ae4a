// The two tables into which a template file is loaded. Row 0 of each is empty and means no row.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "LikePattern.h"
#include "NamesInTemplate.h"
#include "Text.h"
#include "TokenReader.h"

enum class TemplateType : std::int32_t { Unknown, Signature, Module, Procedure };

/// The places that directives mark, in their order. Global is the <#Template> itself.
enum class Section : std::size_t { Global, Start, BodyStart, BodyEnd, FireStart, FireEnd, End };
inline constexpr std::array AllSections = {Section::Global,  Section::Start,     Section::BodyStart,
                                           Section::BodyEnd, Section::FireStart, Section::FireEnd,
                                           Section::End};

/// One value for each section.
template <class Value>
struct BySection {
  std::array<Value, AllSections.size()> values{};
  Value& operator[](Section section) { return values[static_cast<std::size_t>(section)]; }
  const Value& operator[](Section section) const {
    return values[static_cast<std::size_t>(section)];
  }
};

/// What a row's text may hold in the place of a value.
enum class Token : std::uint8_t {
  None,
  ModuleName,
  ProcName,
  ProcType,
  Signature,
  Boundary,
  Severity,
  Retry,
  Name,
  Project,
  File
};
/// As a template file spells it, such as <%Retry>; empty for None.
TextView TextOf(Token token);

/// A stretch of a row's text, and the token behind it.
struct RowPiece {
  Text text;
  Token token = Token::None;
};

/// What must be set for a row to be written; Never for a word that isn't among these. A row that is
/// Optional is always written, and may be missing in code.
enum class RowCondition : std::uint8_t { None, Boundary, Severity, Retry, Trace, Optional, Never };

/// One row of matTemplate.
struct TemplateRow {
  Text sName;
  TemplateType eType = TemplateType::Unknown;
  bool bInherit = false;
  bool bFire = false;  ///< has a <#FireExitStart>; set by validation
  BySection<LikePattern> sLike;
  /// Row in matLine; -1: not seen.
  BySection<std::int32_t> lStart;
  std::int32_t lBoundary = 0;  ///< first row whose pattern source holds <%boundary>
  std::int32_t lSeverity = 0;
  std::int32_t lRetry = 0;
  std::int32_t lTrace = 0;          ///< first row with the condition "trace"
  std::int32_t lTraceExit = 0;      ///< last row with ".traceexit " or ".traceexit("
  std::int32_t lDirectiveLine = 0;  ///< line in the file, from 1
  bool bValidated = false;

  // Worked out behind the load by TemplateSet::Prepare.
  LikePattern traceExitLike;  ///< pattern of lTraceExit without its comment
  Text traceExitBegin;        ///< the text that every line with a trace exit holds; may be empty
  TokenReader boundaryReader, severityReader, retryReader;  ///< of lBoundary, lSeverity, lRetry
  /// The first row behind the body is one that bodies hold as well: it is looked for upwards.
  bool tailFromEnd = false;
  NamesInTemplate names;
  bool namesVary = false;  ///< names hold a token: each procedure has names of its own
};

/// One row of matLine: a directive or a script line.
struct LineRow {
  bool script = false;
  Text sIfCondition;
  LikePattern sLike;
  Text sLine;
  std::int32_t fileLine = 0;  ///< line in the file, from 1, for reports

  // Worked out behind the load by TemplateSet::Prepare, for a script row.
  std::vector<RowPiece> pieces;
  Text folded;                                  ///< sLine with FullTrim, in lower case
  RowCondition condition = RowCondition::None;  ///< what sIfCondition says
  bool blank = false;                           ///< nothing but blanks
  bool holdsLineEnd = false;                    ///< a CR or LF of its own
  bool fitsAllValues = false;  ///< fits its own pattern with any values that are tidy texts
};
