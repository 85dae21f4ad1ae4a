// Each template is put into sample code under every combination of settings, read back and taken
// out again, by the operations that do so in earnest.
#include <array>

#include "CProcSettings.h"
#include "Failure.h"
#include "MQuillon.h"
#include "Proof.h"
#include "TemplateChecks.h"
#include "TemplateLoader.h"

namespace TemplateChecks {

namespace {

struct Trial {
  TextView sProcType;
  std::uint32_t lWithout = 0;
  bool bTrace = false;
};

constexpr TextView ModuleName = u"Module1";
constexpr TextView ProcName = u"Total";

Text SampleCode(TextView sProcType) {
  if (sProcType.empty()) return u"Option Explicit\r\nPrivate mlCount As Long";
  const Text sBase(sProcType.substr(0, sProcType.find(u' ')));
  return u"Public " + Text(sProcType) +
         u" Total()\r\n    Dim l As Long\r\n    If l = 1 Then Exit " + sBase +
         u"\r\n    l = 2\r\n    'FireExit: l = 3\r\nEnd " + sBase;
}

Text NameOf(const Trial& oTrial) {
  Text sName =
      oTrial.sProcType.empty() ? Text(u"a declarations section") : u"a " + Text(oTrial.sProcType);
  if (oTrial.lWithout != 0) sName += u" without " + NamesOf(oTrial.lWithout);
  return sName + (oTrial.bTrace ? u" with trace" : u"");
}

// A template's way through an engine that reports to nobody else.
class TemplateTrial {
 public:
  TemplateTrial(CTemplate& oEngine, const TemplateRow& oRow)
      : moEngine(oEngine),
        moRow(oRow),
        moLink(oEngine.ReportError.Connect([this](TextView sMessage) {
          if (msMessage.empty()) msMessage = Trim(sMessage);
        })) {}

  /// What went wrong first, or empty.
  Text Run(const Trial& oTrial) {
    try {
      return Attempt(oTrial);
    } catch (const Failure& oFailure) {
      return oFailure.Description();
    }
  }

 private:
  Text Attempt(const Trial& oTrial) {
    const Text sBefore = SampleCode(oTrial.sProcType);
    Text sCode = sBefore;
    msMessage.clear();
    if (!Insert(oTrial, sCode)) return Told(u"it can't be put in: ");
    const Text sLost = LostSetting(oTrial, sCode);
    if (!sLost.empty()) return sLost;
    if (!Remove(oTrial, sCode)) return Told(u"it can't be taken out again: ");
    return Proof::FirstDifference(sBefore, sCode, false);
  }

  TextView Name(const Trial& oTrial) const {
    return oTrial.sProcType.empty() ? MQuillon::DeclarationsName : ProcName;
  }
  Text Told(TextView sWhat) const { return Text(sWhat) + msMessage; }

  bool Insert(const Trial& oTrial, Text& sCode) {
    const SectionValues oValues = SampleValues(moRow, oTrial.lWithout);
    bool bErrors = false;
    moEngine.InsertTemplate(ModuleName, Name(oTrial), oTrial.sProcType, sCode, 1, moRow.sName, true,
                            oValues.sBoundary, oValues.sSeverity, oValues.sRetry, oTrial.bTrace,
                            MQuillon::LineNumAction::Leave, bErrors);
    return !bErrors;
  }

  bool Remove(const Trial& oTrial, Text& sCode) {
    bool bErrors = false;
    moEngine.RemoveTemplate(ModuleName, Name(oTrial), oTrial.sProcType, sCode, 1, moRow.sName,
                            bErrors);
    // A declarations section comes back with a line end behind its last line.
    if (oTrial.sProcType.empty() && sCode.ends_with(CrLf)) sCode.resize(sCode.size() - CrLf.size());
    return !bErrors;
  }

  // A setting that the template writes and that isn't read back would show as not set.
  Text LostSetting(const Trial& oTrial, const Text& sCode) const {
    CProcSettings oRead;
    moEngine.ExtractProcSettings(sCode, oRead);
    if (oRead.sTemplate() != moRow.sName) return u"its name isn't read back from the code";
    const auto Lost = [&](std::uint32_t lBit, std::int32_t lRow, auto eRead) {
      return lRow > 0 && (oTrial.lWithout & lBit) == 0 && eRead == decltype(eRead)::Unset;
    };
    if (Lost(1, moRow.lBoundary, oRead.eBoundary())) return LostText(u"Boundary", moRow.lBoundary);
    if (Lost(2, moRow.lSeverity, oRead.eSeverity())) return LostText(u"Severity", moRow.lSeverity);
    if (Lost(4, moRow.lRetry, oRead.eRetry())) return LostText(u"Retry", moRow.lRetry);
    const bool bTraces = moRow.lTrace > 0 || moRow.lTraceExit > 0;
    if (bTraces && oTrial.bTrace != (oRead.eTrace() == MQuillon::TriState::True)) {
      return u"trace isn't read back from the code; write a line with <#if trace> that no other "
             u"line "
             u"of the template looks like";
    }
    return {};
  }

  Text LostText(TextView sToken, std::int32_t lRow) const {
    const std::int32_t lLine = moEngine.Lines()[static_cast<std::size_t>(lRow)].lFileLine;
    return Text(sToken) + u" isn't read back from the code; the first line with <%" + Text(sToken) +
           u"> is line " + ToText(lLine) + u", and it must be written whenever that is set";
  }

  CTemplate& moEngine;
  const TemplateRow& moRow;
  Text msMessage;
  Connection moLink;
};

void TryTemplate(Findings& oFindings, CTemplate& oEngine, const TemplateRow& oRow,
                 std::span<const TextView> asProcType) {
  TemplateTrial oTrials(oEngine, oRow);
  for (TextView sProcType : asProcType) {
    for (std::uint32_t lWithout = 0; lWithout < 8; ++lWithout) {
      for (bool bTrace : {false, true}) {
        const Trial oTrial{sProcType, lWithout, bTrace};
        const Text sFault = oTrials.Run(oTrial);
        if (sFault.empty()) continue;
        oFindings.Add(oRow.lDirectiveLine,
                      {u"A trial of ", oRow.sName, u" on ", NameOf(oTrial), u" fails: ", sFault});
        return;
      }
    }
  }
}

}  // namespace

void TryTemplates(Findings& oFindings) {
  static constexpr std::array<TextView, 3> asProcedure = {u"Sub", u"Function", u"Property Get"};
  static constexpr std::array<TextView, 1> asDeclarations = {u""};
  const auto pEngine = TemplateLoader::SilentCopy(oFindings.Template());
  for (const TemplateRow& oRow : pEngine->Templates()) {
    if (oRow.eType == TemplateType::Procedure) TryTemplate(oFindings, *pEngine, oRow, asProcedure);
    if (oRow.eType == TemplateType::Module) TryTemplate(oFindings, *pEngine, oRow, asDeclarations);
  }
}

}  // namespace TemplateChecks
