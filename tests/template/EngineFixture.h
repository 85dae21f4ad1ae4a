// A template engine over template text given line by line, and procedure texts in one literal:
// "|" stands for a line end, so that a row of a table holds a whole procedure.
#pragma once

#include <string>
#include <vector>

#include "../vocabulary/Ids.h"
#include "CTemplate.h"
#include "MXString.h"

inline Text Code(TextView sPiped) {
  return MXString::StringReplace(sPiped, u"|", CrLf);
}
inline std::string Piped(TextView sText) {
  return ToUtf8(MXString::StringReplace(sText, CrLf, u"|"));
}

class EngineFixture {
 public:
  explicit EngineFixture(TextView sPipedTemplates) : oEngine(oRules) {
    oEngine.LoadTemplateText(u"test", Code(sPipedTemplates));
    moLink = oEngine.ReportError.Connect(
        [this](TextView sMessage) { asMessage.push_back(ToUtf8(sMessage)); });
  }

  struct Settings {
    bool bTrace = false;
    bool bLocked = false;
    TextView sBoundary{}, sSeverity{}, sRetry{};
    std::int32_t eNumbers = 1;
  };
  /// The new text, or "! " and the messages when it is refused (the text must be unchanged then).
  std::string Insert(TextView sPiped, TextView sTemplate, Settings oSet, TextView sType = u"Sub",
                     TextView sName = u"Run", std::int32_t lBody = 1) {
    Text sCode = Code(sPiped);
    bool bErrors = false;
    oEngine.InsertTemplate(u"Mod", sName, sType, sCode, lBody, sTemplate, oSet.bLocked,
                           oSet.sBoundary, oSet.sSeverity, oSet.sRetry, oSet.bTrace,
                           Id{oSet.eNumbers}, bErrors);
    return Result(sCode, sPiped, bErrors);
  }
  std::string Remove(TextView sPiped, TextView sTemplate, TextView sType = u"Sub",
                     TextView sName = u"Run", std::int32_t lBody = 1) {
    Text sCode = Code(sPiped);
    bool bErrors = false;
    oEngine.RemoveTemplate(u"Mod", sName, sType, sCode, lBody, sTemplate, bErrors);
    return Result(sCode, sPiped, bErrors);
  }
  std::string Result(const Text& sCode, TextView sPiped, bool bErrors) {
    if (!bErrors) return Piped(sCode);
    std::string sRefusal = sCode == Code(sPiped) ? "!" : "! text changed";
    for (const std::string& sMessage : asMessage) sRefusal += sMessage.substr(3);
    asMessage.clear();
    return sRefusal;
  }

  MRules::Values oRules;
  CTemplate oEngine;
  std::vector<std::string> asMessage;

 private:
  Connection moLink;
};

/// A signature template, a procedure template with and without clean-up, a module template.
inline constexpr TextView Templates =
    u"<#Template name=Sig type=signature>|<#Start>|'Sig: <%Signature>|<#End>|"
    u"<#Template name=Plain type=procedure>|<#Start>|<#if trace>    T.Enter \"<%ProcName>\"|"
    u"    On Error GoTo Catch|<#BodyStart>|<#BodyEnd>|Leave:|"
    u"<#if trace>    T.TraceExit \"<%ProcName>\"|    Exit <%ProcType>|Catch:|"
    u"<#if boundary>    E.B <%Boundary>|<#if retry>    E.R <%Retry>|    Resume Leave|<#End>|"
    u"<#Template name=Fire type=procedure>|<#Start>|    On Error GoTo "
    u"Catch|<#BodyStart>|<#BodyEnd>|"
    u"Leave:|    'clean|<#FireExitStart>|<#FireExitEnd>|    'cleaned|    Exit <%ProcType>|Catch:|"
    u"    Resume Leave|<#End>|"
    u"<#Template name=Mod type=module>|<#Start>||Private Const M = \"<%ModuleName>\"||<#End>|"
    u"<#Template name=Gap type=procedure>|<#Start>|    On Error GoTo "
    u"Catch|||<#BodyStart>|<#BodyEnd>||"
    u"Leave:|    Exit <%ProcType>|Catch:|    Resume Leave|<#End>|"
    u"<#Template name=Bad type=procedure>|<#Start>|'begin|<#BodyStart>|<#BodyEnd>|'end|"
    u"#If Dbg Then|#End If|<#End>";
