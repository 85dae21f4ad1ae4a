#include "CProcSettings.h"
#include "Ids.h"

#include <map>

#include "MQuillon.h"
#include "TextRows.h"

namespace {

CProcSettings Made(TextView sTemplate, std::int32_t eBoundary, std::int32_t eSeverity,
                   std::int32_t eLocked = 1, bool bInherited = false) {
  CProcSettings oSettings;
  oSettings.SeteBoundary(Id{eBoundary});
  oSettings.SeteSeverity(Id{eSeverity});
  oSettings.SeteRetry(Id{3});
  oSettings.SeteTrace(Id{2});
  oSettings.SeteLocked(Id{eLocked});
  oSettings.BoundaryInherited = oSettings.bTraceLeave = bInherited;
  oSettings.SetsTemplate(sTemplate);
  return oSettings;
}

/// Selection name, the four ids and Locked, F for foreign, I and t for the two flags of Made.
Text Shown(const CProcSettings& o) {
  Text sResult = o.sTemplateSelectionName() + u' ';
  for (const auto e : Numbers(o.eBoundary(), o.eSeverity(), o.eRetry(), o.eTrace(), o.eLocked())) {
    sResult += ToText(e);
  }
  return sResult.append(o.bForeign(), u'F')
      .append(o.BoundaryInherited, u'I')
      .append(o.bTraceLeave, u't');
}

TEST(CProcSettings, FreezesOnAForeignTemplate) {
  EXPECT_EQ(Shown(CProcSettings()), u"(none) 00000");
  for (TextView sForeign : {u"(bespoke)", u"[Gone]", u"("}) {
    CProcSettings oSettings = Made(sForeign, 2, 1);
    oSettings.SetsTemplate(u"Standard");
    oSettings.CopyFrom(Made(u"Standard", 4, 3, 2, true));
    EXPECT_EQ(Shown(oSettings), Text(sForeign) + u" 21322FIt");
  }
  CProcSettings oCopy = Made(u"Standard", 4, 2);
  oCopy.CopyFrom(Made(u"(bespoke)", 1, 1));
  EXPECT_EQ(Shown(oCopy), u"(bespoke) 42321F");
}

TEST(CProcSettings, AggregatesWhatASelectionHasInCommon) {
  CProcSettings oForeign;
  oForeign.Aggregate(Made(u"(bespoke)", 2, 2, 2, true));
  const std::map<char16_t, CProcSettings> oOf = {{'A', Made(u"A", 2, 1, 1, true)},
                                                 {'B', Made(u"A", 2, 2, 2, true)},
                                                 {'a', Made(u"a", 2, 1)},
                                                 {'(', Made(u"(bespoke)", 2, 2, 2, true)},
                                                 {'[', Made(u"[Gone]", 2, 2)},
                                                 {'0', CProcSettings()},
                                                 {'F', oForeign}};
  const auto Aggregated = [&](TextView sSelected) {
    CProcSettings oAggregate;
    for (const char16_t c : sSelected) oAggregate.Aggregate(oOf.at(c));
    return Shown(oAggregate);
  };
  ExpectRows(
      u"A~A 21321It; AB~A 20320It; ABA~A 20320It; Aa~ 21321; 00~ 00000; ~(none) 00000; "
      u"((~(bespoke) 00000F; ([(~ 00000F; F~(bespoke) 00000F; A([~A 21321It; (A~A 21321I; "
      u"(AB[~A 20320I; A0A~ 00000",
      Aggregated);
  EXPECT_EQ(Aggregated(Text(70'000, u'A')), u"A 21321It") << "more than a 16-bit count";
}

TEST(CProcSettings, ComparesNamesWithoutCase) {
  const CProcSettings oA = Made(u"Standard", 2, 1);
  EXPECT_TRUE(oA.Equals(Made(u"STANDARD", 2, 1, 1, true)));
  EXPECT_TRUE(Made(u"(None)", 2, 1).Equals(Made(u"", 2, 1)));
  EXPECT_TRUE(Made(u"", 2, 1).Equals(Made(u"(none)", 2, 1)));
  for (const auto& o : {Made(u"", 2, 1), Made(u"Standard", 2, 1, 2), Made(u"Standard", 3, 1),
                        Made(u"Standard", 2, 2), CProcSettings()}) {
    EXPECT_FALSE(oA.Equals(o) || o.Equals(oA)) << ToUtf8(Shown(o));
  }
}

TEST(CProcSettings, TakesItsHandleFromTheLookups) {
  MQuillon::LoadLookups({u"", u"Sig", u"", u"Both"}, {u"", u"", u"Proc", u"both", u"Late"});
  ExpectRows(u"sig~1; BOTH~2; proc~1; Late~3; ~0; other~0",
             [](TextView s) { return ToText(Made(s, 0, 0).hTemplate()); });
  MQuillon::ReleaseLookups();
  EXPECT_EQ(Made(u"Sig", 0, 0).hTemplate(), 0);
}

}  // namespace
