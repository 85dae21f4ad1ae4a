// The two tables as text, a line per event: a diagnostic for authors of template files.
#include <array>

#include "CTemplate.h"

namespace {

constexpr BySection<TextView> asLabel = {u"Global   ", u"Start    ", u"BodyStart", u"BodyEnd  ",
                                         u"FireStart", u"FireEnd  ", u"End      "};
constexpr TextView Rule = u"-------------------------------------";
constexpr TextView Gap = u" ";

Text Entry(TextView sMember, Section eSection) {
  return u"   ." + Text(sMember) + u'(' + Text(asLabel[eSection]) + u")=";
}

Text Row(TextView sTable, std::size_t lRow) {
  return Text(sTable) + u'(' + ToText(static_cast<long long>(lRow)) + u')';
}

Text Boxed(TextView sText) {
  return u'[' + Text(sText) + u']';
}

void DumpTemplate(Signal<TextView>& oDump, const TemplateRow& oRow) {
  oDump(u"   .sName=" + Boxed(oRow.sName));
  oDump(u"   .eType=" + ToText(static_cast<std::int32_t>(oRow.eType)));
  oDump(oRow.bFire ? TextView(u"   .bFire=True") : TextView(u"   .bFire=False"));
  oDump(Gap);
  for (const Section e : AllSections) {
    oDump(Entry(u"lStart", e) + ToText(oRow.lStart[e]));
  }
  oDump(Gap);
  for (const Section e : AllSections) {
    oDump(Entry(u"sLike", e) + Boxed(oRow.sLike[e].Pattern()));
  }
  oDump(Rule);
}

void DumpLine(Signal<TextView>& oDump, const LineRow& oRow) {
  oDump(u"   .eType=" + Boxed(oRow.bScript ? u"1" : u"0"));
  oDump(u"   .sIfCondition=" + Boxed(oRow.sIfCondition));
  oDump(u"   .sLine=" + Boxed(oRow.sLine));
  oDump(u"   .sLike=" + Boxed(oRow.sLike.Pattern()));
  oDump(Rule);
}

}  // namespace

void CTemplate::PrintTemplateFile() {
  for (std::size_t i = 1; i < moSet.templates.size(); ++i) {
    ReportDump(Row(u"matTemplate", i));
    DumpTemplate(ReportDump, moSet.templates[i]);
  }
  ReportDump(Gap);
  ReportDump(Gap);
  for (std::size_t i = 1; i < moSet.lines.size(); ++i) {
    ReportDump(Row(u"matLine", i));
    DumpLine(ReportDump, moSet.lines[i]);
  }
}
