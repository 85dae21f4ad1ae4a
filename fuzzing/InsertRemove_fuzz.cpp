// A body of any text takes each template; what the engine lets in must come out again unchanged,
// or the removal must refuse it.
#include <cstdint>
#include <cstdlib>

#include "CTemplate.h"
#include "CodePage.h"
#include "MXString.h"
#include "Proof.h"

namespace {

constexpr TextView Templates =
    u"<#Template name=Sig type=signature>|<#Start>|'Sig: <%Signature>|<#End>|"
    u"<#Template name=A type=procedure>|<#Start>|<#if trace>T.Enter \"<%ProcName>\"|On Error GoTo "
    u"C|"
    u"<#BodyStart>|<#BodyEnd>|L:|<#if trace>T.TraceExit \"<%ProcName>\"|Exit <%ProcType>|C:|"
    u"<#if boundary>E.B <%Boundary>|Resume L|<#End>|"
    u"<#Template name=B type=procedure>|<#Start>|On Error GoTo C||<#BodyStart>|<#BodyEnd>||L:|"
    u"<#FireExitStart>|<#FireExitEnd>|'done|C:|<#End>|"
    u"<#Template name=M type=module>|<#Start>||Const X = \"<%ModuleName>\"|<#if retry>Const R = "
    u"<%Retry>||<#End>";

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t lSize) {
  if (lSize < 1) return 0;
  const unsigned nBits = pData[0];
  static MRules::Values oRules;
  static CTemplate oEngine(oRules);
  if (oEngine.Templates().size() == 1) {
    oEngine.LoadTemplateText(u"", MXString::StringReplace(Templates, u"|", CrLf));
  }
  oRules.eLineNumAction =
      MQuillon::FromNumber<MQuillon::LineNumAction>(static_cast<std::int32_t>(nBits >> 6) % 3);
  const bool bDeclarations = nBits & 1;
  const Text sBody = CodePage::Get("1252").Decode(
      std::string_view(reinterpret_cast<const char*>(pData) + 1, lSize - 1));
  const Text sBefore = bDeclarations ? sBody : u"Sub Run()\r\n" + sBody + u"\r\nEnd Sub";
  const TextView sProc = bDeclarations ? u"(declarations)" : u"Run";
  const TextView sTemplate = bDeclarations ? u"M" : nBits & 2 ? u"A" : u"B";
  Text sCode = sBefore;
  bool bErrors = false;
  oEngine.InsertTemplate(u"Mod", sProc, u"Sub", sCode, 1, sTemplate, nBits & 4,
                         nBits & 8 ? u"tvnBoundaryVB" : u"", u"", nBits & 8 ? u"tvnRetryNone" : u"",
                         nBits & 16, oRules.eLineNumAction, bErrors);
  if (bErrors) {
    if (sCode != sBefore) std::abort();
    return 0;
  }
  CProcSettings oRead;
  oEngine.ExtractProcSettings(sCode, oRead);
  Text sBack = sCode;
  oEngine.RemoveTemplate(u"Mod", sProc, u"Sub", sBack, 1, sTemplate, bErrors);
  if (bErrors) return 0;
  const ProcText oBefore(sBefore);
  std::int32_t lHead = 1;
  Text sClean = oEngine.Set().Signatures().WithoutLocks(oBefore, lHead).Joined();
  // The removal ends the last line of declarations.
  if (bDeclarations && !sClean.empty() && !sClean.ends_with(CrLf)) sClean += CrLf;
  if (Proof::FirstDifference(ProcText(sClean), ProcText(sBack), true)) std::abort();
  return 0;
}
