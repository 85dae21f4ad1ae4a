#include "CErrorClient.h"

#include "Diagnostics.h"
#include "FormsFixture.h"

namespace {

TEST(CErrorClient, WordsForDisksFilesAndPrinters) {
  Forms::HeadlessRenderer oRenderer;
  Forms::Toolkit oToolkit(oRenderer);
  CErrorClient oClient(oToolkit);
  const auto Check = [&](std::initializer_list<std::int32_t> alError, const char* sWords) {
    for (const std::int32_t lError : alError) {
      Text sDescription = u"as", sSuggestion = u"they came", sNotes;
      oClient.GetErrorText(lError, sDescription, sSuggestion, sNotes);
      EXPECT_EQ(ToUtf8(sDescription + u"|" + sSuggestion), sWords) << lError;
      EXPECT_EQ(sNotes,
                u"Detailed diagnostics for this error have been logged using Tarvane.\r\n"
                u"If this problem persists, please send the details to support@tarvane.example.");
    }
  };
  Check({53, 54, 55, 57, 58, 59, 62, 63, 67, 74, 75},
        "Disk Access Error|Contact your system administrator");
  Check({61, 3026, 3336}, "Disk Full|Free some disk space and try again");
  Check({68, 71},
        "Disk or Device Not Ready|Ensure a Disk is inserted and check the Device is Attached");
  Check({70}, "File Permissions Error|Contact your system administrator");
  Check({482, 483, 484}, "Printer Error|Contact your system administrator");
  Check({0, 5, 52, 56, 60, 64, 69, 72, 76, 481, 485, -53, 3025}, "as|they came");
  oClient.EndApplication();  // quietly, as no window has opened
  EXPECT_TRUE(oToolkit.LoadedForms().empty());
}

TEST(Diagnostics, LinesDependOnThePlatform) {
  const std::string sProgram =
      "Application Version\r\n|  Major          = 3|  Minor          = 1|  Revision       = 0\r\n|";
  const auto Check = [&](const SystemVersion& oSystem, const std::string& sSystem) {
    std::string sLines;
    for (const Text& sLine : DiagnosticLines(oSystem, {3, 1, 0})) sLines += ToUtf8(sLine) + '|';
    EXPECT_EQ(sLines, sSystem + sProgram);
  };
  const Text sService = Text(u" A\0rest", 7);
  Check({true, 1, 4, 0, 0x040003B6, sService},
        "Operating System\r\n|  Platform       = Windows 95|  Version        = 4.0|"
        "  Build          = 950 A\r\n|");
  Check({true, 1, 4, 10, 0x040A07CE, {}},
        "Operating System\r\n|  Platform       = Windows 98|  Version        = 4.10|"
        "  Build          = 1998\r\n|");
  Check({true, 2, 5, 1, 70000, u"Service Pack 2"},
        "Operating System\r\n|  Platform       = Windows NT|  Version        = 5.1|"
        "  Build          = 70000|  Service Pack   = Service Pack 2\r\n|");
  Check({true, 3, 6, 1, 1, sService}, "Operating System\r\n|");  // another platform
  Check({false, 2, 5, 1, 1, sService}, "");                      // no answer
}

}  // namespace
