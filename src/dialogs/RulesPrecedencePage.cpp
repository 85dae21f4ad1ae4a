#include "RulesPrecedencePage.h"

#include "Put.h"

using namespace Forms;

namespace {

void Place(Label& oLabel, TextView sCaption, Frame& oFrame, std::int32_t lTop) {
  Put(oLabel, sCaption, {150, lTop + 60, 1020, 240});
  oFrame.SetBorder(false);
  oFrame.Move(1200, lTop, 4290, 360);
}

void Place(RulesPrecedencePage::Pair& oPair, TextView sLeave, TextView sReplace) {
  Put(oPair(0), sLeave, {0, 0, 1800, 360});
  Put(oPair(1), sReplace, {1890, 0, 2400, 360});
}

}  // namespace

RulesPrecedencePage::RulesPrecedencePage(ControlContainer& oPage)
    : lblPrecedence(oPage, u"lblPrecedence"), fraPrecedence(oPage, u"fraPrecedence") {}

void RulesPrecedencePage::Design() {
  Put(lblPrecedence,
      u"Do you want Quillon to suggest Leaving Current Property values or to suggest Replacing "
      u"values according to the Default Value Rules?",
      {120, 30, 5760, 630});
  Put(fraPrecedence, u"Property Value Precedence", {120, 690, 5700, 2130});
  Place(lblTemplatePrecedence, u"&Template", fraTemplatePrecedence, 300);
  Place(optTemplatePrecedence, u"Leave Current", u"Replace with Default");
  Place(lblSeverityPrecedence, u"&Severity", fraSeverityPrecedence, 750);
  Place(optSeverityPrecedence, u"Leave", u"Replace");
  Place(lblRetryPrecedence, u"&Retry", fraRetryPrecedence, 1200);
  Place(optRetryPrecedence, u"Leave", u"Replace");
  Place(lblTracePrecedence, u"Tra&cing", fraTracePrecedence, 1650);
  Place(optTracePrecedence, u"Leave", u"Replace");
}

void RulesPrecedencePage::Fill(const MRules::Values& oRules) {
  optTemplatePrecedence(oRules.bTemplateReplace ? 1 : 0).SetValue(true);
  optSeverityPrecedence(oRules.bSeverityReplace ? 1 : 0).SetValue(true);
  optRetryPrecedence(oRules.bRetryReplace ? 1 : 0).SetValue(true);
  optTracePrecedence(oRules.bTraceReplace ? 1 : 0).SetValue(true);
}

void RulesPrecedencePage::Read(MRules::Values& oRules) const {
  oRules.bTemplateReplace = optTemplatePrecedence(1).Value();
  oRules.bSeverityReplace = optSeverityPrecedence(1).Value();
  oRules.bRetryReplace = optRetryPrecedence(1).Value();
  oRules.bTraceReplace = optTracePrecedence(1).Value();
}
