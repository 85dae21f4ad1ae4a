// What one statement at the level of a module means: the head or the end of a procedure, a
// declaration and the names that it declares, a block of members.
#pragma once

#include <cstdint>

#include "CodeModule.h"
#include "LexicalScan.h"

enum class StatementKind {
  Other,  ///< anything else: Option, Implements, a statement of a body
  Procedure,
  EndProcedure,
  Declare,
  Event,
  Constants,
  Variables,
  Type,
  Enum,
  EndType,
  EndEnum
};

/// As in the object model; None: the statement doesn't say.
enum class Access : std::uint8_t { None = 0, Private = 1, Public = 2, Friend = 3 };

struct Statement {
  StatementKind eKind = StatementKind::Other;
  Access eAccess = Access::None;
  ProcKind nProcKind = ProcKind::Method;  ///< of a procedure
  /// Of EndProcedure and Procedure: 's', 'f' or 'p'.
  char cWord = '\0';
  Token oName;  ///< the first declared name
};

/// Reads the beginning of the statement that oScan stands at.
Statement ReadStatement(LexicalScan& oScan);
/// The next name of a list of constants or variables; false behind the last one.
bool NextName(LexicalScan& oScan, Token& oName);
/// False for a physical line of a body that, standing alone, can't hold a head, an end, a second
/// statement or a continuation: most lines of a module, told by few looks at each. sCode: the line
/// without the blanks at its start.
bool MayEndBody(std::string_view sLine, std::string_view sCode);
