// The two tables as text, a line per event: a diagnostic for authors of template files.
#include <array>

#include "CTemplate.h"

namespace {

constexpr BySection<TextView> Labels = {u"Global   ", u"Start    ", u"BodyStart", u"BodyEnd  ",
                                        u"FireStart", u"FireEnd  ", u"End      "};
constexpr TextView Rule = u"-------------------------------------";
constexpr TextView Gap = u" ";

Text Entry(TextView member, Section section) {
  return u"   ." + Text(member) + u'(' + Text(Labels[section]) + u")=";
}

Text Row(TextView table, std::size_t number) {
  return Text(table) + u'(' + ToText(static_cast<long long>(number)) + u')';
}

Text Boxed(TextView text) {
  return u'[' + Text(text) + u']';
}

void DumpTemplate(Signal<TextView>& dump, const TemplateRow& row) {
  dump(u"   .sName=" + Boxed(row.sName));
  dump(u"   .eType=" + ToText(static_cast<std::int32_t>(row.eType)));
  dump(row.bFire ? TextView(u"   .bFire=True") : TextView(u"   .bFire=False"));
  dump(Gap);
  for (const Section e : AllSections) {
    dump(Entry(u"lStart", e) + ToText(row.lStart[e]));
  }
  dump(Gap);
  for (const Section e : AllSections) {
    dump(Entry(u"sLike", e) + Boxed(row.sLike[e].Pattern()));
  }
  dump(Rule);
}

void DumpLine(Signal<TextView>& dump, const LineRow& row) {
  dump(u"   .eType=" + Boxed(row.script ? u"1" : u"0"));
  dump(u"   .sIfCondition=" + Boxed(row.sIfCondition));
  dump(u"   .sLine=" + Boxed(row.sLine));
  dump(u"   .sLike=" + Boxed(row.sLike.Pattern()));
  dump(Rule);
}

}  // namespace

void CTemplate::PrintTemplateFile() {
  for (std::size_t i = 1; i < mSet.templates.size(); ++i) {
    ReportDump(Row(u"matTemplate", i));
    DumpTemplate(ReportDump, mSet.templates[i]);
  }
  ReportDump(Gap);
  ReportDump(Gap);
  for (std::size_t i = 1; i < mSet.lines.size(); ++i) {
    ReportDump(Row(u"matLine", i));
    DumpLine(ReportDump, mSet.lines[i]);
  }
}
