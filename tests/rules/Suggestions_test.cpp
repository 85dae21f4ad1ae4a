#include "Suggestions.h"
#include "../vocabulary/Ids.h"

#include "../vocabulary/TextRows.h"

using Suggestions::Facts;
using Suggestions::Kind;

namespace {

CProcSettings Current(TextView sTemplate, std::int32_t eBoundary = 0, std::int32_t eOthers = 0) {
  CProcSettings oSettings;
  oSettings.SeteBoundary(Id{eBoundary});
  oSettings.SeteSeverity(Id{eOthers});
  oSettings.SeteRetry(Id{eOthers});
  oSettings.SeteTrace(Id{eOthers});
  oSettings.SetsTemplate(sTemplate);
  return oSettings;
}

/// What decided about template, boundary, severity, retry and trace: default, no template, left,
/// boundary left, Firewall left, expert, a selection that differs.
Text Reasons(const Suggestions::Suggestion& o) {
  Text sResult;
  for (const auto& reason : {o.templateName.reason, o.boundary.reason, o.severity.reason,
                             o.retry.reason, o.trace.reason})
    sResult += u"dnlbfxs"[static_cast<std::size_t>(reason.rule)];
  return sResult;
}

constexpr std::pair<bool CProcSettings::*, char16_t> Flags[] = {
    {&CProcSettings::bTemplateLeave, 't'},  {&CProcSettings::bSeverityLeave, 's'},
    {&CProcSettings::bRetryLeave, 'r'},     {&CProcSettings::bTraceLeave, 'c'},
    {&CProcSettings::bBoundaryExpert, 'X'}, {&CProcSettings::bFirewallLeave, 'F'},
    {&CProcSettings::bBoundaryLeave, 'B'},  {&CProcSettings::bTemplateClearsErr, 'E'}};

/// Template, Boundary, Severity, Retry, Trace, and a letter for each flag.
Text Shown(const CProcSettings& o) {
  Text sResult = Text(o.sTemplate()) + u' ';
  for (const auto e : Numbers(o.eBoundary(), o.eSeverity(), o.eRetry(), o.eTrace()))
    sResult += ToText(e);
  for (const auto& [oFlag, cFlag] : Flags) sResult.append(o.*oFlag, cFlag);
  return sResult;
}

TEST(Suggestions, WorksOutTheBoundaryFromThePlaceOfTheProcedure) {
  const Text asForeign[] = {u"iother", u"iview"};
  // m method, p property, d declarations; scope; P public class, S event source, E event handler,
  // D designer, I foreign interfaces; the name. Then the boundary and the fact that decides: i
  // inside, n no event handler, e event handler, t Class_Terminate, d designer, p public class, f
  // foreign interface.
  ExpectRows(
      u"m1SED cmdOK_Click~2e; m2SDP cmdOK_Click~1n; m2P Class_Terminate~2t; "
      u"m2P class_terminate~4p; m1I IVIEW_Draw~4f; m1SEI IOther_Draw~4f; m1I IViewDraw~1i; "
      u"m1 IView_Draw~1i; m1I IView~1i; m2P Run~4p; m3P Run~1i; m2 Run~1i; m2I Class_Terminate~2t; "
      u"p2PS Size~4p; p1P Size~1i; p2SD Size~1i; p1I IView_X~4f; p2PI IView_X~4f; "
      u"p1P Class_Terminate~1i; dSDP ~2d; dSP ~4p; dS ~1i; dI IView_~1i; dD ~1i",
      [&](TextView s) {
        const Text sFacts = MXString::StringBefore(s, u" "), sName = MXString::StringAfter(s, u" ");
        const auto Has = [&](char16_t c) { return sFacts.find(c) != Text::npos; };
        const Kind eKind = Has('m') ? Kind::Method : Has('p') ? Kind::Property : Kind::Declarations;
        const std::int32_t lScope = Has('1') ? 1 : Has('2') ? 2 : Has('3') ? 3 : 0;
        Facts oFacts = {eKind, sName, Id{lScope}, Has('E'), {}, Has('P'), Has('S'), Has('D'), {}};
        if (Has('I')) oFacts.asForeignInterface = asForeign;
        const Suggestions::Fact fact = Suggestions::DecidingFact(oFacts);
        return ToText(MQuillon::ToNumber(Suggestions::BoundaryBy(fact))) +
               u" inetdpf"[static_cast<std::size_t>(fact)];
      });
}

TEST(Suggestions, TwoRulesReadNamesAsTheLanguageDoes) {
  const Text asForeign[] = {u"excel.iview", u"iother"};
  using MRules::Values;
  // Facts as above, with N for a handler that fits in other letter case. Boundary and rules that
  // would judge otherwise, with none on; the boundaries with the first, the second, and both.
  const auto Judged = [&](const Facts& oFacts, bool bCase, bool bOwn) {
    Values o;
    o.sDefaultProcTemplate = o.sDefaultModTemplate = u"P";
    o.bHandlersIgnoreCase = bCase;
    o.bInterfaceOwnName = bOwn;
    CProcSettings oSuggest;
    Suggestions::Suggest(oFacts, {}, o, oSuggest);
    Text s = ToText(MQuillon::ToNumber(oSuggest.eBoundary()));
    for (const TextView sRule : Suggestions::RulesJudgingOtherwise(oFacts, {}, o)) s += sRule[0];
    return s;
  };
  ExpectRows(
      u"m1SN CmdOK_click~1E 2 1E 2; m1SEN cmdOK_Click~2 2 2 2; m2P class_terminate~4E 2 4E 2; "
      u"m1NI iview_Draw~1I 1I 4 4; m1SNI IView_x~1EI 2I 4 4; m1I IOther_Draw~4 4 4 4; "
      u"p1I IView_Name~1I 1I 4 4; m1I IViewDraw~1 1 1 1; m1I Excel_Draw~1 1 1 1; m1N a_b~1 1 1 1; "
      u"dI IView_~1 1 1 1",
      [&](TextView s) {
        const Text sFacts = MXString::StringBefore(s, u" "), sName = MXString::StringAfter(s, u" ");
        const auto Has = [&](char16_t c) { return sFacts.find(c) != Text::npos; };
        Facts o = {.eKind = Has('m')   ? Kind::Method
                            : Has('p') ? Kind::Property
                                       : Kind::Declarations,
                   .sName = sName,
                   .nScope = Id{Has('2') ? 2 : 1},
                   .bEventHandler = Has('E'),
                   .bHandlerNoCase = Has('N') && !Has('E'),
                   .bPublicClass = Has('P'),
                   .bHasEventSource = Has('S')};
        if (Has('I')) o.asForeignInterface = asForeign;
        return Judged(o, false, false) + u' ' + Judged(o, true, false) + u' ' +
               Judged(o, false, true) + u' ' + Judged(o, true, true);
      });
}

TEST(Suggestions, WeighsTheCodeAgainstTheRules) {
  // m method, p property, d declarations; R replace all, s r c one of them, O expert off and
  // boundaries left, E no default template, C it clears Err; Boundary in the code, the three other
  // ids, its template.
  ExpectRows(
      u"m00~P 1212X dxddd; p00~P 1212X dxddd; d00~M 1322X dxddd; m31A~A 3111tsrcXF lflll; "
      u"mR33A~P 1212X dxddd; m40A~A 1212tX lxddd; mO00~P 3212 ddddd; mO20~P 2212B dbddd; "
      u"mO30~P 3212F dfddd; mE31~ 0000 dnnnn; mRE31A~ 0000 dnnnn; dE00~M 1322X dxddd; "
      u"d03A~A 1333tsrcX lxlll; m10A~A 1212tX lxddd; mRO31A~P 3212 ddddd; "
      u"mR00(bespoke)~P 1212X dxddd; m41(bespoke)~(bespoke) 0000tsrcX lxlll; "
      u"m00[Gone]~[Gone] 0000tX lxddd; ms03A~A 1233trcX lxdll; mr03A~A 1313tscX lxldl; "
      u"mc03A~A 1332tsrX lxlld; "
      u"mC00~P 1212XE dxddd; mC00A~A 1212tX lxddd; mCE00~ 0000 dnnnn; mCR00A~P 1212X dxddd",
      [](TextView s) {
        const auto Has = [&](char16_t c) { return s.substr(0, 4).find(c) != TextView::npos; };
        const std::size_t lIds = s.find_first_of(u"01234");
        MRules::Values o;
        o.sDefaultProcTemplate = Has('E') ? u"" : u"P";
        o.sDefaultModTemplate = u"M";
        o.eModSeverityDefault = Id{3};
        o.eModRetryDefault = Id{2};
        o.bTemplateReplace = o.bFirewallReplace = Has('R');
        o.bSeverityReplace = Has('R') || Has('s');
        o.bRetryReplace = Has('R') || Has('r');
        o.bTraceReplace = Has('R') || Has('c');
        o.bExpertEnabled = o.bBoundaryReplace = !Has('O');
        o.eBoundaryDefault = Id{3};
        const Facts oFacts = {.eKind = Has('m')   ? Kind::Method
                                       : Has('p') ? Kind::Property
                                                  : Kind::Declarations,
                              .bClearsErr = Has('C')};
        const auto oCurrent = Current(s.substr(lIds + 2), s[lIds] - u'0', s[lIds + 1] - u'0');
        CProcSettings oSuggest;
        Suggestions::Suggest(oFacts, oCurrent, o, oSuggest);
        const Text sReasons = Reasons(Suggestions::SuggestionFor(oFacts, oCurrent, o));
        EXPECT_EQ(Reasons(Suggestions::SuggestionOf(oSuggest)), sReasons) << "read back";
        return Shown(oSuggest) + u' ' + sReasons;
      });
}

TEST(Suggestions, NotesWordTheReasonThatFlagsTell) {
  // Flags as above; S of a selection. Then the reasons, and the notes of boundary and severity.
  ExpectRows(
      u"~ddddd ; XFB~dfddd [Leave Firewall]; XB~dbddd [Leave Boundary]; X~dxddd [Property Expert]; "
      u"s~ddldd [Leave]; tr~lddld ; c~ddddl ; S~sssss ; SXB~sssss ; SFX~sssss ; "
      u"SB~sbsss [Leave Boundary]; SF~sfsss [Leave Firewall]; SX~sxsss [Property Expert]; "
      u"Strc~lssll ; Ss~sslss [Leave]; E~ddddd [Clears Err]",
      [](TextView s) {
        const auto Has = [&](char16_t c) { return s.find(c) != TextView::npos; };
        CProcSettings o = Current(u"A");
        for (const auto& [oFlag, cFlag] : Flags) o.*oFlag = Has(cFlag);
        const Suggestions::Suggestion suggestion = Suggestions::SuggestionOf(o, Has('S'));
        return Reasons(suggestion) + u' ' + Text(Note(suggestion.boundary.reason)) +
               Text(Has('E') ? Note(suggestion.templateName.reason) : TextView()) +
               Text(Note(suggestion.severity.reason));
      });
}

TEST(Suggestions, DescribesTheLatestPassAndKeepsAForeignName) {
  MRules::Values oRules;
  CProcSettings oSuggest;
  Suggestions::Suggest({}, Current(u"A", 3, 1), oRules, oSuggest);
  Suggestions::Suggest({}, Current(u""), oRules, oSuggest);
  EXPECT_EQ(Shown(oSuggest), u" 0000");
  Suggestions::Suggest({}, Current(u"[Gone]"), oRules, oSuggest);
  oRules.bTemplateReplace = true;
  oRules.sDefaultProcTemplate = u"P";
  Suggestions::Suggest({}, Current(u"[Gone]"), oRules, oSuggest);
  EXPECT_EQ(Shown(oSuggest), u"[Gone] 0000X");
  oRules.sDefaultProcTemplate.clear();
  Suggestions::Suggest({}, Current(u"", 0, 1), oRules, oSuggest);
  EXPECT_EQ(Shown(oSuggest), u"[Gone] 0000srcX") << "kept, though no template is suggested";
}

}  // namespace
