// Which word was meant.
#include "NearWord.h"

#include <gtest/gtest.h>

#include "TableRows.h"

namespace {

TEST(NearWord, IsTheOneThatWasMistyped) {
  const std::vector<std::string> known = {"list", "check", "apply", "number", "unnumber", "undo"};
  for (const auto& row : Rows(R"(
         exchanged     | lits     | list
         left out      | chek     | check
         put in        | applyy   | apply
         replaced      | epply    | apply
         in any case   | LIST     | list
         two of seven  | nnumbre  | number
         none is near  | report   |
         two of four   | liXX     |
         long and none | aaaaaaaaaaaaaaaaaaaaaaaa |)"))
    EXPECT_EQ(NearestWord(row[1], known), row.size() > 2 ? row[2] : "") << row[0];
  EXPECT_EQ(NearestWord("a", {"b"}), "") << "nothing of it would be left";
  EXPECT_EQ(DidYouMean("lits", known), " (did you mean list?)");
}

}  // namespace
