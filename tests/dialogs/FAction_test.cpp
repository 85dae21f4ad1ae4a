// The answers of the dialogs that ask for a scope.
#include "FAction.h"

#include "DialogTest.h"

namespace {

using FActionTest = DialogTest;

TEST_F(FActionTest, ButtonsKeysAndTheCloseBoxAnswer) {
  for (const auto& as : Rows(R"(
         a button                | 1 2 4 | cmdAction(4) | 4
         Return is the selection | 1     | Return       | 1
         access key              | 1     | Alt+P        | 3
         Escape                  | 1 2 4 | Escape       | 0
         close box               | 1 2 4 | close        | 0
         the project has the focus | | !cmdAction(1); !cmdAction(2); !cmdAction(4); Return | 3)")) {
    SCOPED_TRACE(as[0]);
    const auto Has = [&](char c) { return as[1].find(c) != std::string::npos; };
    moToolkit.Screen().SetMousePointer(Forms::Pointer::Default);
    FInsertLine oDialog(moToolkit);
    const eAction e = Open(oDialog, Deeds(as[2]), Has('1'), Has('2'), Has('4'));
    EXPECT_EQ(std::to_string(static_cast<int>(e)), as[3]);
    EXPECT_FALSE(oDialog.Loaded());
    EXPECT_EQ(moRenderer.ShownPointer(), Forms::Pointer::Hourglass);
  }
}

}  // namespace
