// The two tables into which a template file is loaded. Row 0 of each is empty and means no row.
#pragma once

#include <array>
#include <cstdint>

#include "LikePattern.h"
#include "Text.h"

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
};

/// One row of matLine: a directive or a script line.
struct LineRow {
  bool bScript = false;
  Text sIfCondition;
  LikePattern sLike;
  Text sLine;
  std::int32_t lFileLine = 0;  ///< line in the file, from 1, for reports
};
