// "Did you mean": the known word that is nearest to one that isn't known, by how many signs would
// have to be typed otherwise. ASCII letter case doesn't count.
//
//   NearestWord("lits", {"list", "check"})    // list
//   NearestWord("apple", {"list", "check"})   // empty: nothing is near
#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The first of those that are equally near; at most a third of the word may differ, and one sign
/// of a short word.
std::string NearestWord(std::string_view word, const std::vector<std::string>& known);

/// " (did you mean list?)", or empty.
std::string DidYouMean(std::string_view word, const std::vector<std::string>& known);
