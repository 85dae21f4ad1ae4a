// The places in a procedure's text that every rewrite needs: the end of its head and its end line.
//
//   const ProcPlaces places = FindPlaces(code, headLine, u"Sub");
//   if (places.refusal) ...
//
// Indices of lines count from 0; a head's line, as the IDE gives it, from 1.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "ProcText.h"
#include "Refusal.h"

struct ProcPlaces {
  std::size_t firstBody = 0;           ///< the line behind the head
  std::size_t end = 0;                 ///< the End line
  std::optional<RefusalKind> refusal;  ///< why the procedure can't be rewritten
};

/// baseType: Sub, Function or Property. Refuses a head that isn't there, a head and end on one
/// line, an end that is missing or written in another form than by itself on a line, and
/// unbalanced conditional compilation in the body.
ProcPlaces FindPlaces(const ProcText& code, std::int32_t headLine, TextView baseType);

/// Index of the line behind the head that begins at headLine, or Count() when there is none. Where
/// conditional compilation holds the same head in several forms, with one body behind them, all of
/// them together are the head, and it ends with their #End If.
std::size_t BehindHead(const ProcText& code, std::int32_t headLine);
/// True when the text holds a head at that line, and all of it.
bool HasHead(const ProcText& code, std::int32_t headLine);
/// True when the head's own line holds the procedure's end as well.
bool HeadHoldsEnd(const ProcText& code, std::int32_t headLine);
/// True when a folded line ends a procedure of any type, alone or behind a label, a line number or
/// a colon, or with a comment or a statement behind it.
bool HoldsAnyEnd(TextView folded);
/// Index behind the leading blanks, comments, Option and Def lines of a declarations section.
std::size_t BehindOptions(const ProcText& code);

/// "Property" for a property, else the type itself; the kind behind "Property ", else empty.
TextView BaseType(TextView procType);
TextView PropertyKind(TextView procType);
