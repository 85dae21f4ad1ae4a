#include "CProcSettings.h"

#include <gtest/gtest.h>

#include "MQuillon.h"

namespace {

CProcSettings Made(TextView sTemplate, std::int32_t eBoundary, std::int32_t eSeverity,
                   std::int32_t eLocked = 1, bool bInherited = false) {
  CProcSettings oSettings;
  oSettings.SeteBoundary(eBoundary);
  oSettings.SeteSeverity(eSeverity);
  oSettings.SeteRetry(3);
  oSettings.SeteTrace(2);
  oSettings.SeteLocked(eLocked);
  oSettings.BoundaryInherited = oSettings.bTraceLeave = bInherited;
  oSettings.SetsTemplate(sTemplate);
  return oSettings;
}

/// Selection name, the four ids and Locked, F for foreign, I and t for the two flags of Made.
std::string Shown(const CProcSettings& o) {
  std::string sResult = ToUtf8(o.sTemplateSelectionName());
  for (const auto e : {o.eBoundary(), o.eSeverity(), o.eRetry(), o.eTrace(), o.eLocked()}) {
    sResult += " " + std::to_string(e);
  }
  return sResult + (o.bForeign() ? " F" : "") + (o.BoundaryInherited ? " I" : "") +
         (o.bTraceLeave ? " t" : "");
}

TEST(CProcSettings, FreezesOnAForeignTemplate) {
  EXPECT_EQ(Shown(CProcSettings()), "(none) 0 0 0 0 0");
  for (TextView sForeign : {u"(bespoke)", u"[Gone]", u"("}) {
    CProcSettings oSettings = Made(sForeign, 2, 1);
    oSettings.SetsTemplate(u"Standard");
    oSettings.CopyFrom(Made(u"Standard", 4, 3, 2, true));
    EXPECT_EQ(Shown(oSettings), ToUtf8(sForeign) + " 2 1 3 2 2 F I t");
  }
  CProcSettings oCopy = Made(u"Standard", 4, 2);
  oCopy.CopyFrom(Made(u"(bespoke)", 1, 1));
  EXPECT_EQ(Shown(oCopy), "(bespoke) 4 2 3 2 1 F");
}

TEST(CProcSettings, AggregatesWhatASelectionHasInCommon) {
  const CProcSettings oA1 = Made(u"A", 2, 1, 1, true), oA2 = Made(u"A", 2, 2, 2, true),
                      oLower = Made(u"a", 2, 1), oBespoke = Made(u"(bespoke)", 2, 2, 2, true),
                      oGone = Made(u"[Gone]", 2, 2);
  CProcSettings oAllForeign;
  oAllForeign.Aggregate(oBespoke);
  const struct {
    const char* sName;
    std::vector<CProcSettings> oSelected;
    const char* sCommon;
  } Rows[] = {
      {"one", {oA1}, "A 2 1 3 2 1 I t"},
      {"some alike", {oA1, oA2}, "A 2 0 3 2 0 I t"},
      {"mixed stays mixed", {oA1, oA2, oA1}, "A 2 0 3 2 0 I t"},
      {"case of names counts", {oA1, oLower}, " 2 1 3 2 1"},
      {"none has a template", {CProcSettings(), CProcSettings()}, " 0 0 0 0 0"},
      {"one foreign", {oBespoke}, "(bespoke) 0 0 0 0 0 F"},
      {"foreign alike", {oBespoke, oBespoke}, "(bespoke) 0 0 0 0 0 F"},
      {"foreign differ", {oBespoke, oGone, oBespoke}, " 0 0 0 0 0 F"},
      {"a foreign aggregate is foreign", {oAllForeign}, "(bespoke) 0 0 0 0 0 F"},
      {"foreign have no say", {oA1, oBespoke, oGone}, "A 2 1 3 2 1 I t"},
      {"foreign first", {oBespoke, oA1}, "A 2 1 3 2 1 I"},
      {"foreign first, two others", {oBespoke, oA1, oA2, oGone}, "A 2 0 3 2 0 I"},
      {"more than a 16-bit count", std::vector<CProcSettings>(70'000, oA1), "A 2 1 3 2 1 I t"},
  };
  for (const auto& o : Rows) {
    SCOPED_TRACE(o.sName);
    CProcSettings oAggregate;
    for (const CProcSettings& oSettings : o.oSelected) oAggregate.Aggregate(oSettings);
    EXPECT_EQ(Shown(oAggregate), o.sCommon);
  }
}

TEST(CProcSettings, ComparesNamesWithoutCase) {
  const struct {
    const char* sName;
    CProcSettings oLeft, oRight;
    bool bEqual;
  } Rows[] = {
      {"no template in two forms", Made(u"(None)", 0, 0), Made(u"", 0, 0), true},
      {"case", Made(u"Standard", 2, 1), Made(u"STANDARD", 2, 1), true},
      {"flags don't count", Made(u"A", 2, 1), Made(u"A", 2, 1, 1, true), true},
      {"locked counts", Made(u"A", 2, 1, 1), Made(u"A", 2, 1, 2), false},
      {"boundary counts", Made(u"A", 2, 1), Made(u"A", 3, 1), false},
      {"template counts", Made(u"A", 2, 1), Made(u"", 2, 1), false},
  };
  for (const auto& o : Rows) {
    SCOPED_TRACE(o.sName);
    EXPECT_EQ(o.oLeft.Equals(o.oRight), o.bEqual);
    EXPECT_EQ(o.oRight.Equals(o.oLeft), o.bEqual);
  }
}

TEST(CProcSettings, TakesItsHandleFromTheLookups) {
  MQuillon::LoadLookups({u"", u"Sig", u"", u"Both"}, {u"", u"", u"Proc", u"both", u"Late"});
  const struct {
    TextView sName;
    std::int32_t hTemplate;
  } Rows[] = {{u"sig", 1}, {u"BOTH", 2}, {u"proc", 1}, {u"Late", 3}, {u"", 0}, {u"other", 0}};
  for (const auto& o : Rows) EXPECT_EQ(Made(o.sName, 0, 0).hTemplate(), o.hTemplate);
  MQuillon::ReleaseLookups();
  EXPECT_EQ(Made(u"Sig", 0, 0).hTemplate(), 0);
}

}  // namespace
