// The two tables into which a template file is loaded. Row 0 of each is empty and means no row.
#pragma once

#include <array>
#include <cstdint>

#include "LikePattern.h"
#include "Text.h"

enum TemplateType : std::int32_t {
  TemplateUnknown = 0,
  TemplateSignature = 1,
  TemplateModule = 2,
  TemplateProcedure = 3
};

/// Index of sLike and lStart.
enum Section : std::size_t {
  SectionGlobal,
  SectionStart,
  SectionBodyStart,
  SectionBodyEnd,
  SectionFireStart,
  SectionFireEnd,
  SectionEnd,
  SectionCount
};

/// One row of matTemplate.
struct TemplateRow {
  Text sName;
  std::int32_t eType = TemplateUnknown;
  bool bInherit = false;
  bool bFire = false;  ///< has a <#FireExitStart>; set by validation
  std::array<LikePattern, SectionCount> sLike;
  /// Row in matLine; -1: not seen.
  std::array<std::int32_t, SectionCount> lStart{};
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
