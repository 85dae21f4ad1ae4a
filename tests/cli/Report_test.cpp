// report: both reports as text, the PDF file, what is refused.
#include <cstdlib>
#include <regex>

#include "WorkFolder.h"

namespace {

/// A group whose files and reports are of one moment, the paper A4.
struct Report : testing::Test {
  WorkFolder oPlace;
  Report() {
    for (const auto& [sName, sValue] :
         {std::pair{"SOURCE_DATE_EPOCH", "1717609509"}, {"TZ", "UTC"}, {"LC_ALL", "C.UTF-8"}})
      setenv(sName, sValue, 1);
    if (std::system(("find " + oPlace.Folder().string() + "/src -exec touch -d @1717609509 {} +")
                        .c_str()) != 0)
      ADD_FAILURE() << "touch";
  }
  ~Report() override { unsetenv("SOURCE_DATE_EPOCH"); }

  /// The program's text without the test's folder; of a long one the program leaves out folders.
  static std::string Shown(const WorkFolder::Result& oResult) {
    static const std::regex oFolder("/[^ ]*/src/");
    EXPECT_EQ(oResult.nExit, 0) << oResult.sErr;
    return std::regex_replace(oResult.sOut, oFolder, "src/");
  }
  std::string PdfText(const std::string& sFile) {
    std::string sOut = (oPlace.Folder() / "io/pdf").string();
    std::string sIn = (oPlace.Folder() / "src" / sFile).string();
    EXPECT_EQ(std::system(("pdftotext -layout " + sIn + " " + sOut).c_str()), 0);
    return oPlace.Read("io/pdf");
  }
};

TEST_F(Report, SummaryAsText) {
  EXPECT_EQ(
      Shown(oPlace.Run("report summary Demo.vbg")),
      R"(Tarvane Quillon 3.1                                                                                               https://tarvane.example/quillon

Project             Type                                      ReadOnly             Modified                    FileName
Demo                Standard EXE                                                   2024/06/05 17:45:09         src/App/Demo.vbp
Module              Type                 Instancing           ReadOnly             Modified                    FileName
modMain             Standard Module                                                2024/06/05 17:45:09         src/App/modMain.bas
clsStock            Class Module                                                   2024/06/05 17:45:09         src/Core/clsStock.cls

Project Summary                                                      Page 1                                                       05-Jun-24 17:45
)");
}

TEST_F(Report, PropertiesAsText) {
  EXPECT_EQ(
      Shown(oPlace.Run("report properties --component cls* Demo.vbg")),
      R"(Tarvane Quillon 3.0                                                                                               https://tarvane.example/quillon

Demo - Standard EXE
clsStock -  Class Module
Procedure                  Type          Scope         Template      Locked        Boundary      Severity      Retry      Trace
(declarations)
Count                      Property Get  Public

Procedure Properties                                                 Page 1                                                       05-Jun-24 17:45
)");
}

TEST_F(Report, PdfHoldsADocumentPerProjectAndIsTheSameEachTime) {
  oPlace.Write("src/App/Other.vbp", WorkFolder::Dos("Type=OleDll\nModule=modMain; modMain.bas\n"
                                                    "Name=\"Other\"\n"));
  oPlace.Write("src/Demo.vbg", WorkFolder::Dos("VBGROUP 5.0\nStartupProject=App\\Demo.vbp\n"
                                               "Project=App\\Other.vbp\n"));
  EXPECT_EQ(Shown(oPlace.Run("report properties --pdf a.pdf Demo.vbg")), "");
  const std::string sText = PdfText("a.pdf");
  for (const char* sPart :
       {"Demo - Standard EXE", "clsStock - ", "Jumps", "Page 1", "\f", "Other - ActiveX DLL"})
    EXPECT_HOLDS(sText, std::string(sPart));
  EXPECT_EQ(sText.find("Page 2"), std::string::npos) << "page numbers begin anew";
  EXPECT_EQ(Shown(oPlace.Run("-q report properties --pdf b.pdf Demo.vbg")), "");
  EXPECT_EQ(oPlace.Read("src/a.pdf"), oPlace.Read("src/b.pdf"));
  EXPECT_EQ(Shown(oPlace.Run("report summary --project oth* --pdf b.pdf Demo.vbg")), "");
  EXPECT_EQ(PdfText("b.pdf").find("Demo "), std::string::npos);
}

TEST_F(Report, RefusesWhatCantBePrintedAndTellsWhatCantBeRead) {
  oPlace.Write("src/Gone.vbp",
               WorkFolder::Dos("Type=Exe\nModule=modGone; gone.bas\nName=\"Gone\"\n"));
  ExpectRuns(
      oPlace,
      {
          {"no report", "report Demo.vbg", 2, Any, "summary"},
          {"two outputs", "report summary --pdf a.pdf --format text .", 2, Any,
           "--pdf or --format"},
          {"summary of a component", "report summary --component a .", 2, Any, "whole projects"},
          {"procedures ahead", "--procedure a report properties .", 2, Any, "not --procedure"},
          {"nothing fits", "report summary --project None Demo.vbg", 2, Any, "Nothing to report"},
          {"no folder for the file", "report summary --pdf no/a.pdf Demo.vbg", 1, Any, "no/a.pdf"},
          {"moment is no number",
           "version; SOURCE_DATE_EPOCH=now " QUILLON_BIN_DIR "/quillon report summary Demo.vbg", 2,
           Any, "SOURCE_DATE_EPOCH is now"},
          {"code is gone", "report properties -t TEMPLATE.DAT Gone.vbp", 1, Any, "gone.bas"},
          {"a summary needs no code", "report summary -t TEMPLATE.DAT Gone.vbp", 0,
           "1 File(s) without a date", Any},
      });
  EXPECT_FALSE(std::filesystem::exists(oPlace.Folder() / "src/a.pdf"));
}

}  // namespace
