// Gathers hand-written handlers by shape: all that have the same rows around
// the body, letter case, labels and texts aside.
//
//   Survey survey;
//   for (...) survey.Add(number, *TakeHandlerApart(code, name, headLine));
//   for (const Shape& shape : survey.Finish()) ...
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <vector>

#include "OwnHandler.h"
#include "Text.h"

/// One way in which a row of a shape is written, and who has it.
struct RowForm {
  Text text;
  std::vector<std::size_t> members;  ///< indices in Shape::members
};

struct Shape {
  struct Member {
    std::size_t id;                         ///< as it was added
    std::optional<FoundObstacle> obstacle;  ///< the first; nothing: a template can take its place
  };

  std::vector<Text> rows;       ///< keys
  std::size_t above = 1;        ///< how many of them stand ahead of the body
  std::size_t cleanUp = 0;      ///< how many stand ahead of the clean-up code; 0: it has no place
  std::vector<Member> members;  ///< in the order in which they were added
  std::vector<std::vector<RowForm>> forms;  ///< of each row, the most frequent first
  std::size_t behindDeclarations = 0;       ///< members with declarations ahead of On Error

  std::size_t Adoptable() const;
};

class Survey {
 public:
  /// id: the caller's own number for the procedure.
  void Add(std::size_t id, OwnHandler handler);
  std::size_t Count() const { return mCount; }
  /// The most frequent first; among equals, the one that came first.
  std::vector<Shape> Finish();

 private:
  /// The forms of one row by their text in lower case.
  using Forms = std::map<Text, RowForm>;
  struct Gathered {
    Shape shape;
    std::vector<Forms> forms;
    std::size_t order;
  };
  std::map<Text, Gathered> mShapes;
  std::size_t mCount = 0;
};

/// Where two shapes differ, if that is in a single row.
struct RowDifference {
  Text mine, other;  ///< keys; empty: the row isn't there
};
std::optional<RowDifference> OneRowApart(const Shape& shape, const Shape& other);
