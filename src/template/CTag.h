// The text of one directive, such as <#Template name=Main type=procedure>, as a name and a list of
// key and value pairs. Knows nothing of which directives or keys exist.
#pragma once

#include <cstdint>
#include <vector>

#include "Text.h"

class CTag {
 public:
  /// Parses the text and replaces all earlier state.
  void SetTag(TextView sTag);
  /// The value of the first parameter with exactly that key (keys are kept in lower case); empty
  /// when there is none.
  Text Parameter(TextView isParam) const;
  /// The text between the chevron and the first blank, its case as written.
  const Text& Name() const { return mName; }
  /// 0 parsed, 1 no "<" at the start, 2 no ">" at the end, 3 a quoted value isn't closed.
  std::int32_t Error() const { return mError; }

 private:
  struct Pair {
    Text key;
    Text value;
  };
  void ReadParameters(TextView words);

  Text mName;
  std::int32_t mError = 0;
  std::vector<Pair> mParameters;
};
