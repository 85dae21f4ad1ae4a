#include "CErrorClient.h"

#include "Diagnostics.h"
#include "FormsFixture.h"

namespace {

TEST(CErrorClient, WordsForDisksFilesAndPrinters) {
  struct Row {
    std::vector<std::int32_t> alError;
    TextView sDescription, sSuggestion;
  };
  const Row aoRow[] = {
      {{53, 54, 55, 57, 58, 59, 62, 63, 67, 74, 75},
       u"Disk Access Error",
       u"Contact your system administrator"},
      {{61, 3026, 3336}, u"Disk Full", u"Free some disk space and try again"},
      {{68, 71},
       u"Disk or Device Not Ready",
       u"Ensure a Disk is inserted and check the Device is Attached"},
      {{70}, u"File Permissions Error", u"Contact your system administrator"},
      {{482, 483, 484}, u"Printer Error", u"Contact your system administrator"},
      {{0, 5, 52, 56, 60, 64, 69, 72, 76, 481, 485, -53, 3025}, u"as", u"they came"},
  };
  Forms::HeadlessRenderer oRenderer;
  Forms::Toolkit oToolkit(oRenderer);
  CErrorClient oClient(oToolkit);
  for (const Row& oRow : aoRow)
    for (const std::int32_t lError : oRow.alError) {
      SCOPED_TRACE(lError);
      Text sDescription = u"as", sSuggestion = u"they came", sNotes;
      oClient.GetErrorText(lError, sDescription, sSuggestion, sNotes);
      EXPECT_EQ(sDescription, oRow.sDescription);
      EXPECT_EQ(sSuggestion, oRow.sSuggestion);
      EXPECT_EQ(sNotes.find(u"Detailed diagnostics for this error have been logged using "
                            u"Tarvane.\r\n"),
                0U);
      EXPECT_NE(sNotes.find(u"support@tarvane.example"), Text::npos);
    }
}

TEST(CErrorClient, EndsQuietlyBeforeAnyWindowHasOpened) {
  Forms::HeadlessRenderer oRenderer;
  Forms::Toolkit oToolkit(oRenderer);
  CErrorClient(oToolkit).EndApplication();
  EXPECT_TRUE(oToolkit.LoadedForms().empty());
}

TEST(Diagnostics, LinesDependOnThePlatform) {
  const std::string sProgram =
      "Application Version\r\n|  Major          = 3|  Minor          = 1|  Revision       = 0\r\n|";
  const std::string sHead = "Operating System\r\n|";
  const Text sService = Text(u" A\0rest", 7);
  struct Row {
    const char* sName;
    SystemVersion oSystem;
    std::string sLines;
  };
  const Row aoRow[] = {
      {"95",
       {true, 1, 4, 0, 0x040003B6, sService},
       sHead +
           "  Platform       = Windows 95|  Version        = 4.0|  Build          = 950 A\r\n|"},
      {"98",
       {true, 1, 4, 10, 0x040A07CE, {}},
       sHead +
           "  Platform       = Windows 98|  Version        = 4.10|  Build          = 1998\r\n|"},
      {"NT",
       {true, 2, 5, 1, 70000, u"Service Pack 2"},
       sHead + "  Platform       = Windows NT|  Version        = 5.1|  Build          = 70000|"
               "  Service Pack   = Service Pack 2\r\n|"},
      {"another platform", {true, 3, 6, 1, 1, sService}, sHead},
      {"no answer", {false, 2, 5, 1, 1, sService}, ""},
  };
  for (const Row& oRow : aoRow) {
    SCOPED_TRACE(oRow.sName);
    std::string sLines;
    for (const Text& sLine : DiagnosticLines(oRow.oSystem, {3, 1, 0}))
      sLines += ToUtf8(sLine) + '|';
    EXPECT_EQ(sLines, oRow.sLines + sProgram);
  }
}

}  // namespace
