// Files that are no sound source text, and big ones: nothing is lost, and nothing takes long.
#include "SourceText.h"

namespace {

std::string Repeated(std::string_view sPart, std::size_t lTimes) {
  std::string sAll;
  for (std::size_t l = 0; l < lTimes; ++l) sAll += Joined(sPart);
  return sAll;
}

TEST(SourceHostile, NothingIsLost) {
  const std::pair<const char*, std::string> aoRow[] = {
      {"NUL bytes", std::string("Sub A()\0\r\nEnd Sub\0\n\0", 20)},
      {"one long line", std::string(10'000'000, 'x')},
      {"brackets", "Sub A(): " + std::string(1'000'000, '[') + "\nEnd Sub"},
      {"colons", "Sub A()\n" + std::string(1'000'000, ':') + "\nEnd Sub"},
      {"quotes and signs", Repeated("\"#[(: ", 50'000)},
      {"line ends of one kind", std::string(1'000'000, '\r')},
      {"continued to the end", Repeated("x _|", 50'000)},
      {"open directives", Repeated("#If 0 Then|", 50'000)},
      {"nested brackets", "#If " + std::string(1'000'000, '(') + " Then\nDim a\n#End If"},
      {"nested blocks", "VERSION 5.00\n" + Repeated("Begin a b|", 50'000)},
      {"hidden lines only", Repeated("Attribute A.VB_X = 1|", 50'000)},
      {"heads only", Repeated("Sub A()|", 50'000)},
  };
  for (const auto& [szName, sBytes] : aoRow) {
    SCOPED_TRACE(szName);
    for (const char* szPage : {"1252", "932"}) {
      SourceDocument oDocument(sBytes, CodePage::Get(szPage), true, {});
      IndexText(oDocument);
      const std::int32_t lLines = oDocument.CountOfLines();
      const Text sText = oDocument.Lines(1, lLines);
      if (lLines > 0) {
        oDocument.DeleteLines(1, lLines);
        oDocument.InsertLines(1, sText);
      }
      EXPECT_TRUE(oDocument.Bytes() == sBytes);
      EXPECT_FALSE(oDocument.IsChanged());
    }
  }
}

// A big module, rewritten from top to bottom: each procedure longer, then as it was.
TEST(SourceHostile, ABigModuleIsRewrittenAndComesBack) {
  std::string sBytes = Joined("Option Explicit|");
  for (int n = 0; n < 2000; ++n) {
    const std::string sName = "P" + std::to_string(n);
    sBytes += Joined("|' note|Private Sub " + sName + "()|Attribute " + sName + ".VB_X = 1|");
    sBytes += Repeated("    x = x + 1|", 15) + Joined("End Sub|");
  }
  SourceDocument oDocument(sBytes, CodePage::Get("1252"), false, {});
  const std::string sIndex = IndexText(oDocument);
  for (const bool bLonger : {true, false}) {
    for (int n = 0; n < 2000; ++n) {
      const Text sName = FromUtf8("p" + std::to_string(n));
      const std::int32_t lStart = oDocument.ProcStartLine(sName, ProcKind::Method);
      const std::int32_t lCount = oDocument.ProcCountLines(sName, ProcKind::Method);
      Text sCode = oDocument.Lines(lStart, lCount);
      const std::size_t lBehindHead = sCode.find(u"()") + 4;
      if (bLonger) sCode.insert(lBehindHead, u"    On Error GoTo 0\r\n");
      if (!bLonger) sCode.erase(lBehindHead, 21);
      oDocument.DeleteLines(lStart, lCount);
      oDocument.InsertLines(lStart, sCode);
    }
    EXPECT_EQ(oDocument.IsChanged(), bLonger);
    EXPECT_EQ(oDocument.CountOfLines(), bLonger ? 40001 : 38001);
  }
  EXPECT_TRUE(oDocument.Bytes() == sBytes);
  EXPECT_EQ(IndexText(oDocument), sIndex);
}

}  // namespace
