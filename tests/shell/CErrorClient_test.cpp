#include "CErrorClient.h"

#include "Diagnostics.h"
#include "FormsFixture.h"
#include "TableRows.h"

namespace {

TEST(CErrorClient, WordsForDisksFilesAndPrinters) {
  Forms::HeadlessRenderer oRenderer;
  Forms::Toolkit oToolkit(oRenderer);
  CErrorClient oClient(oToolkit);
  for (const auto& as : Rows(R"(
         Disk Access Error      | Contact your system administrator
                                | 53 54 55 57 58 59 62 63 67 74 75
         Disk Full              | Free some disk space and try again | 61 3026 3336
         Disk or Device Not Ready
                 | Ensure a Disk is inserted and check the Device is Attached | 68 71
         File Permissions Error | Contact your system administrator  | 70
         Printer Error          | Contact your system administrator  | 482 483 484
         as | they came | 0 5 52 56 60 64 69 72 76 481 485 -53 3025)")) {
    std::istringstream oNumbers(as[2]);
    for (std::int32_t lError = 0; oNumbers >> lError;) {
      Text sDescription = u"as", sSuggestion = u"they came", sNotes;
      oClient.GetErrorText(lError, sDescription, sSuggestion, sNotes);
      EXPECT_EQ(ToUtf8(sDescription + u"|" + sSuggestion), as[0] + "|" + as[1]) << lError;
      EXPECT_NE(sNotes.find(u"support@tarvane.example"), Text::npos);
    }
  }
  oClient.EndApplication();  // quietly, as no window has opened
  EXPECT_TRUE(oToolkit.LoadedForms().empty());
}

TEST(Diagnostics, LinesDependOnThePlatform) {
  const Text sService = Text(u" A\0rest", 7);
  const auto Check = [&](const SystemVersion& oSystem, const std::string& sSystem) {
    std::string sLines, sHead = oSystem.bKnown ? "Operating System\r\n|" : "";
    for (const Text& sLine : DiagnosticLines(oSystem, {3, 1, 0})) sLines += ToUtf8(sLine) + '|';
    EXPECT_EQ(sLines, sHead + sSystem +
                          "Application Version\r\n|  Major          = 3|  Minor          = 1|"
                          "  Revision       = 0\r\n|");
  };
  Check({true, 1, 4, 0, 0x040003B6, sService},
        "  Platform       = Windows 95|  Version        = 4.0|  Build          = 950 A\r\n|");
  Check({true, 1, 4, 10, 0x040A07CE, {}},
        "  Platform       = Windows 98|  Version        = 4.10|  Build          = 1998\r\n|");
  Check({true, 2, 5, 1, 70000, sService},
        "  Platform       = Windows NT|  Version        = 5.1|"
        "  Build          = 70000|  Service Pack   =  A\r\n|");
  Check({true, 3, 6, 1, 1, sService}, "");   // another platform
  Check({false, 2, 5, 1, 1, sService}, "");  // no answer
}

}  // namespace
