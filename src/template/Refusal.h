// Why a procedure is not rewritten: a value that says what is wrong, in which line of its text, and
// what it names. MessageOf is the one place that makes the engine's messages of them.
//
//   Refusal{RefusalKind::LineMismatch, 12, u"    gTrail.Keep"}
//   MessageOf(...)   // Code does not match Template; Line=12 [    gTrail.Keep]
#pragma once

#include <cstddef>
#include <cstdint>

#include "Text.h"

enum class RefusalKind : std::uint8_t {
  NoTemplateNamed,
  TemplateNotFound,      ///< name: the template
  WrongType,             ///< name: the template; other: the type that it should be of
  SignatureNotReadable,  ///< name: the template
  LockNotReadable,
  TemplateThere,  ///< line, name: the signature's line
  HeadNotFound,
  HeadAndEndShareLine,
  EndNotFound,
  DirectivesUnbalanced,
  PlaceNotFound,   ///< name: the place
  PlaceAhead,      ///< name: the place found ahead of the other one
  RowDoesNotFit,   ///< name: the template's row
  LineMismatch,    ///< line, name: the line of code
  PlaceAmbiguous,  ///< line, name: the line of code; other: the place
  NumberTooLong,   ///< name: what numbering says
  // By the proof.
  JumpTargetLost,  ///< name: the line number
  NotRemovable,    ///< name: the message of the removal
  LineChanged,     ///< line; name: the line as it was; other: as it would come back
  LineLost,        ///< line, name: the line as it was
  LineAdded,       ///< name: the line that would come back
  CleanUpChanged,
  RowHoldsLineEnd,  ///< line, name: the template's line
  RowIsAttribute,
  RowBeginsProcedure,
  RowEndsProcedure,
  // By the proof of meaning; notes that refuse nothing among them.
  ErrRead,               ///< line, name: the line that reads Err
  NameClash,             ///< line; name: the name; other: the line
  NameClashInModule,     ///< name
  HandlerOff,            ///< a note; line, name: the line
  CleanUpSplit,          ///< line, name: the line
  CleanUpNotLast,        ///< line, name: the line
  CleanUpPassedBy,       ///< a note; line, name: the line
  NumberTwice,           ///< name: the number
  LineTooLong,           ///< name: its beginning
  TooManyContinuations,  ///< name: the line
  ProcedureTooLong,      ///< name: its characters
  ModuleTooLong,         ///< name: its lines
  // By the module.
  LinesFallToProcedure,
  HostFailure  ///< name: the failure's description
};

struct Refusal {
  RefusalKind kind;
  std::size_t line = 0;  ///< from 1 within the text; 0: the procedure as a whole
  Text name{};
  Text other{};
  /// The line of the text as it stands in the module, where the other one is of a text in between;
  /// 0: not known.
  std::size_t sourceLine = 0;
};

/// The line, from 1, of the procedure's text as it stands in the module, where the refusal is about
/// one that is known; else 0 for the procedure as a whole.
std::size_t SourceLine(const Refusal& refusal);

/// The message without the blanks that it is indented by in an account.
Text MessageOf(const Refusal& refusal);
