// Patterns for paths, against what .gitignore would take.
#include "PathGlob.h"

#include <gtest/gtest.h>

#include "TableRows.h"

namespace {

TEST(PathGlob, FitsAsInGitignore) {
  for (const auto& row : Rows(R"(
         name at any depth          | *.cls         | Core/Old/C.cls | yes
         name of a folder           | core          | Core/C.cls     | yes
         a folder with a slash      | Core/         | App/Core/C.cls | yes
         from the base              | Core/*.cls    | Core/C.cls     | yes
         only from the base         | Core/*.cls    | App/Core/C.cls | no
         a star stays in a name     | Core/*.cls    | Core/Old/C.cls | no
         folders between            | Core/**/*.cls | Core/Old/C.cls | yes
         no folder between          | Core/**/*.cls | Core/C.cls     | yes
         all below a folder         | Core/Old      | Core/Old/C.cls | yes
         a slash ahead is the base  | /C.cls        | Core/C.cls     | no
         a dot ahead is the base    | ./C.cls       | C.cls          | yes
         one sign                   | C?.cls        | C1.cls         | yes
         not none                   | C?.cls        | C.cls          | no
         stars that have to go back | *ab*abc.bas   | xababxabc.bas  | yes
         all of a name              | Core          | Core2/C.cls    | no
         upwards                    | ../Common/    | ../Common/M.bas | yes
         nothing                    | /             | C.cls          | no)"))
    EXPECT_EQ(GlobFits(row[1], row[2]), row[3] == "yes") << row[0];
  const std::string many(20000, 'a');
  EXPECT_FALSE(GlobFits("*a*a*a*a*a*a*a*b", many)) << "in time proportional to the length";
}

}  // namespace
