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

/// Template, Boundary, Severity, Retry, Trace, and a letter for each flag.
Text Shown(const CProcSettings& o) {
  const std::pair<bool, char16_t> Flags[] = {{o.bTemplateLeave, 't'},  {o.bSeverityLeave, 's'},
                                             {o.bRetryLeave, 'r'},     {o.bTraceLeave, 'c'},
                                             {o.bBoundaryExpert, 'X'}, {o.bFirewallLeave, 'F'},
                                             {o.bBoundaryLeave, 'B'}};
  Text sResult = Text(o.sTemplate()) + u' ';
  for (const auto e : Numbers(o.eBoundary(), o.eSeverity(), o.eRetry(), o.eTrace()))
    sResult += ToText(e);
  for (const auto& [bFlag, cFlag] : Flags) sResult.append(bFlag, cFlag);
  return sResult;
}

TEST(Suggestions, WorksOutTheBoundaryFromThePlaceOfTheProcedure) {
  const Text asForeign[] = {u"iother", u"iview"};
  // m method, p property, d declarations; scope; P public class, S event source, E event handler,
  // D designer, I foreign interfaces; the name.
  ExpectRows(
      u"m1SED cmdOK_Click~2; m2SDP cmdOK_Click~1; m2P Class_Terminate~2; m2P class_terminate~4; "
      u"m1I IVIEW_Draw~4; m1SEI IOther_Draw~4; m1I IViewDraw~1; m1 IView_Draw~1; m1I IView~1; "
      u"m2P Run~4; m3P Run~1; m2 Run~1; m2I Class_Terminate~2; p2PS Size~4; p1P Size~1; "
      u"p2SD Size~1; p1I IView_X~4; p1P Class_Terminate~1; dSDP ~2; dSP ~4; dS ~1; dI IView_~1; dD "
      u"~1",
      [&](TextView s) {
        const Text sFacts = MXString::StringBefore(s, u" "), sName = MXString::StringAfter(s, u" ");
        const auto Has = [&](char16_t c) { return sFacts.find(c) != Text::npos; };
        const Kind eKind = Has('m') ? Kind::Method : Has('p') ? Kind::Property : Kind::Declarations;
        const std::int32_t lScope = Has('1') ? 1 : Has('2') ? 2 : Has('3') ? 3 : 0;
        Facts oFacts = {eKind, sName, Id{lScope}, Has('E'), Has('P'), Has('S'), Has('D'), {}};
        if (Has('I')) oFacts.asForeignInterface = asForeign;
        return ToText(MQuillon::ToNumber(Suggestions::BoundaryCandidate(oFacts)));
      });
}

TEST(Suggestions, WeighsTheCodeAgainstTheRules) {
  // m method, p property, d declarations; R replace all, O expert off and boundaries left, E no
  // default template; Boundary in the code, the three other ids, its template.
  ExpectRows(
      u"m00~P 1212X; p00~P 1212X; d00~M 1322X; m31A~A 3111tsrcXF; mR33A~P 1212X; m40A~A 1212tX; "
      u"mO00~P 3212; mO20~P 2212B; mO30~P 3212F; mE31~ 0000; mRE31A~ 0000; dE00~M 1322X; "
      u"d03A~A 1333tsrcX; m10A~A 1212tX; mRO31A~P 3212; mR00(bespoke)~P 1212X; "
      u"m41(bespoke)~(bespoke) 0000tsrcX; m00[Gone]~[Gone] 0000tX",
      [](TextView s) {
        const auto Has = [&](char16_t c) { return s.substr(0, 4).find(c) != TextView::npos; };
        const std::size_t lIds = s.find_first_of(u"01234");
        MRules::Values o;
        o.sDefaultProcTemplate = Has('E') ? u"" : u"P";
        o.sDefaultModTemplate = u"M";
        o.eModSeverityDefault = Id{3};
        o.eModRetryDefault = Id{2};
        o.bTemplateReplace = o.bSeverityReplace = o.bRetryReplace = o.bTraceReplace =
            o.bFirewallReplace = Has('R');
        o.bExpertEnabled = o.bBoundaryReplace = !Has('O');
        o.eBoundaryDefault = Id{3};
        CProcSettings oSuggest;
        Suggestions::Suggest({.eKind = Has('m')   ? Kind::Method
                                       : Has('p') ? Kind::Property
                                                  : Kind::Declarations},
                             Current(s.substr(lIds + 2), s[lIds] - u'0', s[lIds + 1] - u'0'), o,
                             oSuggest);
        return Shown(oSuggest);
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
}

}  // namespace
