// A source file in a page that its first byte picks. The second byte seeds edits: every procedure
// is rewritten as it is, then some with changes. The bytes must come back, and the index that
// edits leave must be the one that a new reading of the new bytes gives.
#include <cstdlib>

#include "SourceDocument.h"

namespace {

void Require(bool bHolds) {
  if (!bHolds) std::abort();
}

// Name, kind and lines of all that can be asked for.
Text IndexOf(const SourceDocument& oDocument) {
  Text sIndex = ToText(oDocument.CountOfDeclarationLines());
  for (std::int32_t l = 1; l <= oDocument.MemberCount(); ++l) {
    const auto o = oDocument.MemberAt(l);
    sIndex += u"\n" + o.sName + u" " + ToText(MQuillon::ToNumber(o.nType)) +
              ToText(MQuillon::ToNumber(o.nScope)) + u"@" + ToText(o.lLine);
    for (const ProcKind k : MQuillon::CodeKinds) {
      if (!oDocument.HasProcedure(o.sName, k)) continue;
      const std::int32_t lStart = oDocument.ProcStartLine(o.sName, k);
      const std::int32_t lBody = oDocument.ProcBodyLine(o.sName, k);
      const std::int32_t lCount = oDocument.ProcCountLines(o.sName, k);
      Require(lBody >= lStart && lBody < lStart + lCount);
      sIndex += u" " + ToText(MQuillon::ToNumber(k)) + u":" + ToText(lStart) + u"/" +
                ToText(lBody) + u"/" + ToText(lCount);
    }
  }
  return sIndex;
}

Text Changed(const Text& sCode, unsigned nHow) {
  constexpr TextView asLine[] = {u"' note",
                                 u"x = 1: y _\r\n = 2",
                                 u"#If 1 Then\r\nz\r\n#End If",
                                 u"",
                                 u"Dim v",
                                 u"End Sub",
                                 u"Attribute A.VB_x = 1",
                                 u"Private Sub Q()"};
  const Text sLine(asLine[nHow / 4 % 8]);
  const std::size_t lEnd = sCode.find(u"\r\n", nHow / 32 % 64);
  if (nHow % 4 == 0) return sLine + u"\r\n" + sCode;
  if (nHow % 4 == 1) return sCode + u"\r\n" + sLine;
  if (lEnd == Text::npos) return sCode;
  return sCode.substr(0, lEnd + 2) + (nHow % 4 == 2 ? sLine + u"\r\n" : Text()) +
         sCode.substr(nHow % 4 == 2 ? lEnd + 2 : std::min(lEnd + 5, sCode.size()));
}

// One look at the index only behind all edits of one round.
void Rewrite(SourceDocument& oDocument, unsigned nSeed) {
  for (std::int32_t l = 1; l <= std::min(oDocument.MemberCount(), 30); ++l) {
    const auto o = oDocument.MemberAt(l);
    for (const ProcKind k : MQuillon::CodeKinds) {
      if (!oDocument.HasProcedure(o.sName, k)) continue;
      const std::int32_t lStart = oDocument.ProcStartLine(o.sName, k);
      const std::int32_t lCount = oDocument.ProcCountLines(o.sName, k);
      const Text sCode = oDocument.Lines(lStart, lCount);
      oDocument.DeleteLines(lStart, lCount);
      oDocument.InsertLines(lStart, nSeed == 0 ? sCode : Changed(sCode, nSeed));
      if (nSeed != 0) nSeed = nSeed * 1103515245U % 65521U + 1;
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t lSize) {
  if (lSize < 2) return 0;
  constexpr const char* aszPage[] = {"1252", "932", "936", "utf-8", "1256"};
  const CodePage& oPage = CodePage::Get(aszPage[pData[0] % 5]);
  const std::string sBytes(reinterpret_cast<const char*>(pData) + 2, lSize - 2);
  SourceDocument oDocument(sBytes, oPage, true, {{u"debug", 1}});
  Require(oDocument.Bytes() == sBytes && !oDocument.IsChanged());
  const Text sIndex = IndexOf(oDocument);
  Rewrite(oDocument, 0);
  Require(oDocument.Bytes() == sBytes && !oDocument.IsChanged() && IndexOf(oDocument) == sIndex);
  Rewrite(oDocument, pData[1] + 1U);
  const std::string sNew = oDocument.Bytes();
  Require(oDocument.IsChanged() == (sNew != sBytes));
  const SourceDocument oAgain(sNew, oPage, true, {{u"debug", 1}});
  const std::int32_t lLines = oDocument.CountOfLines();
  // Text that was put in may read as a header or as hidden lines; then the two can't agree.
  if (oAgain.CountOfLines() == lLines && oAgain.Lines(1, lLines) == oDocument.Lines(1, lLines)) {
    Require(IndexOf(oAgain) == IndexOf(oDocument));
  }
  oDocument.MarkSaved();
  Require(oDocument.Bytes() == sNew && !oDocument.IsChanged());
  return 0;
}
