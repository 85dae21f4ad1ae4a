// A model over an IDE in memory with a template file of its own: what every test here starts from.
#pragma once

#include "../vocabulary/Ids.h"
#include "CIDEHandler.h"
#include "FakeIDE.h"
#include "Handles.h"
#include "MQuillon.h"
#include "MRules.h"

inline constexpr TextView TestTemplates =
    u"<#Template name=Sig type=signature>\r\n<#Start>\r\n'@ <%Signature>\r\n<#End>\r\n"
    u"<#Template name=Mod type=module>\r\n<#Start>\r\n"
    u"<#if severity>Const Sev = <%Severity>\r\n<#End>\r\n"
    u"<#Template name=Std type=procedure inherit=true>\r\n<#Start>\r\n"
    u"    On Error GoTo Trap\r\n<#BodyStart>\r\n<#BodyEnd>\r\nTrap:\r\n"
    u"<#if severity>    Fail <%Severity>\r\n<#End>\r\n"
    // Its border fits a line of code that nothing else tells from it: a removal is never sure.
    u"<#Template name=Vague type=procedure>\r\n<#Start>\r\n    x = 1\r\n<#BodyStart>\r\n"
    u"<#BodyEnd>\r\n    x = 2\r\n<#End>\r\n";

struct Model {
  FakeIDE oIDE;
  CTemplate oTemplate{MRules::oRules};
  CIDEHandler oHandler;
  std::string sAccount;  ///< all messages, each followed by "|"
  std::string sRefused;  ///< "handle reason|"
  Connection oReport, oRefusal;

  Model() {
    MRules::oRules = {};
    MQuillon::Initialize();
    oTemplate.LoadTemplateText(u"Test.dat", TestTemplates);
    oReport = oTemplate.ReportError.Connect([this](TextView s) { sAccount += ToUtf8(s) + "|"; });
    oRefusal = oHandler.ProcedureRefused.Connect(
        [this](ProcedureHandle h, const std::vector<Refusal>& refusals) {
          sRefused += std::to_string(h.Number()) + " " + ToUtf8(MessageOf(refusals.front())) + "|";
        });
  }
  void Open(bool bLoad = true) {
    oHandler.LoadProjects(oIDE);
    oHandler.oTemplate = &oTemplate;
    if (bLoad) oHandler.ForceLoadGroupComponents();
  }
  void Apply(bool bRefresh = false,
             MQuillon::LineNumAction eAction = MQuillon::LineNumAction::AsRule) {
    oHandler.ApplyPendingSettings(ModelScope::Group(), bRefresh, eAction);
  }
  /// Template, locked, boundary, severity, retry, trace, such as "Std 1 0 2 0 1".
  static std::string Show(const CProcSettings& o) {
    std::string s = ToUtf8(o.sTemplate());
    for (const auto e :
         Numbers(o.eLocked(), o.eBoundary(), o.eSeverity(), o.eRetry(), o.eTrace())) {
      s += " " + std::to_string(e);
    }
    return s;
  }
  std::string Current(ProcedureHandle h) const { return Show(oHandler.Procedure(h).oCurrent); }
};
