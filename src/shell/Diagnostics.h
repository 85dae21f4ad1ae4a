// Lines about the system and the program for the head of an error log.
#pragma once

#include <cstdint>
#include <vector>

#include "Text.h"

struct SystemVersion {
  bool bKnown = false;         ///< the system could be asked
  std::int32_t lPlatform = 0;  ///< 1 Windows 95 and 98, 2 Windows NT; others have no lines
  std::int32_t lMajor = 0, lMinor = 0, lBuild = 0;
  Text sService;  ///< service pack; ends at its first null character
};

struct ProgramVersion {
  std::int32_t lMajor = 0, lMinor = 0, lRevision = 0;
};

SystemVersion CurrentSystem();
ProgramVersion CurrentProgram();

/// The text ahead of the first null character, or all of it.
TextView TrimAtNull(TextView sText);

/// In the order of writing. The last line of a section, and its heading, end in CR LF.
std::vector<Text> DiagnosticLines(const SystemVersion& oSystem, const ProgramVersion& oProgram);
