// One hand-written error handler, taken apart: the rows that frame the body,
// and what keeps a template from taking their place.
//
//   Sub Load()                              frame, as handlers of one shape
//   have it
//       On Error GoTo Load_Err              on error goto <1>
//       Read                                (the body)
//       Exit Sub                            exit <%proctype>
//   Load_Err:                               <1>:
//       LogError Err.Number, "Files.Load"   logerror err.number, "..."
//   End Sub
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "ParsedProcedure.h"
#include "ProcText.h"
#include "Text.h"

/// What keeps a template from taking a handler's place.
enum class Obstacle : std::uint8_t {
  SharedLine,     ///< On Error isn't a line of its own
  CodeAhead,      ///< statements stand ahead of On Error
  SecondOnError,  ///< another one stands in the body or the clean-up code
  NoLabel,        ///< the label isn't there
  JumpToLabel,    ///< the body jumps to a label of the frame
  ResumeNumber,   ///< the handler resumes at a line number
  Unbalanced      ///< conditional compilation stands in the frame
};
inline constexpr std::size_t ObstacleCount = 7;
/// In words, such as "more than one On Error".
TextView TextOf(Obstacle obstacle);

struct FoundObstacle {
  Obstacle obstacle;
  std::size_t line;  ///< from 1 within the procedure's text
};

struct FrameRow {
  Text key;   ///< folded; labels numbered, texts left out: the same in all
              ///< handlers of one shape
  Text text;  ///< as written on one line, with tokens in the place of the
              ///< procedure's names
};

struct OwnHandler {
  std::vector<FrameRow> rows;
  std::size_t above = 1;    ///< how many of them stand ahead of the body
  std::size_t cleanUp = 0;  ///< how many stand ahead of the clean-up code; 0: it has no place
  bool behindCode = false;  ///< declarations stand ahead of On Error, and no other code
  std::vector<FoundObstacle> obstacles;
};

/// Nothing for code without On Error. The procedure's head has to be there, and
/// its end.
std::optional<OwnHandler> TakeHandlerApart(const ProcText& code, const ProcedureName& name,
                                           std::int32_t headLine);
