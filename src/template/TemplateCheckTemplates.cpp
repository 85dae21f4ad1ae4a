// Templates as wholes: their names, the order of their directives, and the first of them, which
// makes the line by which every other one is found again.
#include "Signature.h"
#include "TemplateChecks.h"

namespace TemplateChecks {

namespace {

constexpr TextView SignatureToken = u"<%Signature>";

void CheckName(Findings& oFindings, const TemplateRow& oRow, std::size_t lIndex) {
  if (oRow.sName.empty()) return;  // the load has told
  if (EqualNoCase(oRow.sName, u"locked")) {
    oFindings.Add(oRow.lDirectiveLine, {u"A template can't be named ", oRow.sName,
                                        u", since a signature of that text means a lock"});
  }
  const std::int32_t lFirst = oFindings.Template().LookupTemplate(oRow.sName);
  if (lFirst == static_cast<std::int32_t>(lIndex)) return;
  const TemplateRow& oFirst = oFindings.Template().Templates()[static_cast<std::size_t>(lFirst)];
  oFindings.Add(oRow.lDirectiveLine,
                {u"The template in line ", ToText(oFirst.lDirectiveLine), u" has the name ",
                 oRow.sName, u" too, letter case aside; only that one can be used"});
}

// The load doesn't look where #Start and #End stand.
void CheckOrder(Findings& oFindings, const TemplateRow& oRow) {
  const std::int32_t lStart = oRow.lStart[Section::Start], lEnd = oRow.lStart[Section::End];
  if (lStart < 1 || lEnd < 1) return;
  for (const Section e : AllSections) {
    if (e < Section::BodyStart) continue;
    const std::int32_t lOther = oRow.lStart[e];
    if (lOther < 1) continue;
    if (lOther < lStart) {
      oFindings.Add(
          oFindings.Line(lStart).lFileLine,
          {u"#Start must stand ahead of the other directives of its template, or its section "
           u"isn't written"});
      return;
    }
    if (lOther > lEnd) {
      oFindings.Add(oFindings.Line(lEnd).lFileLine,
                    {u"#End must be the last directive of its template, or the sections behind it "
                     u"aren't written"});
      return;
    }
  }
}

void CheckReadsBack(Findings& oFindings, const LineRow& oRow, TextView sName, bool bLocked) {
  if (oFindings.HasLine(oRow.lFileLine)) return;  // the cause is told, or once is enough
  const Signature& oSignature = oFindings.Template().Set().Signatures();
  if (oSignature.IsReadable(sName, bLocked)) return;
  oFindings.Add(oRow.lFileLine, {u"The signature [", Trim(oSignature.Line(sName, bLocked)),
                                 u"] can't be read back; write <%Signature> once, with "
                                 u"text on both sides that is in no template's name"});
}

void CheckSignatureLine(Findings& oFindings, const LineRow& oRow) {
  const TextView sOrdinary = OrdinaryCodeFitting(oRow.sLike);
  if (!sOrdinary.empty()) {
    oFindings.Add(oRow.lFileLine,
                  {u"The pattern [", oRow.sLike.Pattern(), u"] fits [", sOrdinary,
                   u"] too, and such a line would be read as a signature; write a comment "
                   u"with words that no other line has"});
  }
  CheckReadsBack(oFindings, oRow, u"", true);
  for (const TemplateRow& oTemplate : oFindings.Template().Templates()) {
    if (oTemplate.eType != TemplateType::Module && oTemplate.eType != TemplateType::Procedure)
      continue;
    if (oFindings.HasLine(oTemplate.lDirectiveLine)) continue;
    CheckReadsBack(oFindings, oRow, oTemplate.sName, false);
    CheckReadsBack(oFindings, oRow, oTemplate.sName, true);
  }
}

// Rows behind the first are never written, but a line of code that fits one is a signature.
void CheckFurtherRow(Findings& oFindings, const LineRow& oRow) {
  if (!oRow.bScript || IsBlankRow(oRow)) return;
  if (oRow.sLine.find(SignatureToken) != Text::npos) return;
  oFindings.Add(oRow.lFileLine,
                {u"A line of code that fits this row would be taken out as a signature, "
                 u"though the row has no <%Signature> and is never written"});
}

}  // namespace

void CheckTemplates(Findings& oFindings) {
  const std::vector<TemplateRow>& atTemplate = oFindings.Template().Templates();
  for (std::size_t i = 1; i < atTemplate.size(); ++i) {
    CheckName(oFindings, atTemplate[i], i);
    CheckOrder(oFindings, atTemplate[i]);
  }
}

void CheckSignature(Findings& oFindings) {
  const std::vector<TemplateRow>& atTemplate = oFindings.Template().Templates();
  if (atTemplate.size() < 2) {
    oFindings.Add(1, {u"The file holds no template; it begins with one of type signature"});
    return;
  }
  const TemplateRow& oFirst = atTemplate[1];
  if (oFirst.eType != TemplateType::Signature) {
    oFindings.Add(oFirst.lDirectiveLine,
                  {u"The first template of the file must have type=signature: its "
                   u"first line names the template in code"});
    return;
  }
  const Stretch oRows = Between(oFirst, Section::Start, Section::End);
  if (oRows.lFirst == 0) return;  // the load has told
  const LineRow& oLine = oFindings.Line(oRows.lFirst);
  if (!oLine.bScript || oLine.sLine.find(SignatureToken) == Text::npos) {
    oFindings.Add(oLine.lFileLine,
                  {u"The first line behind #Start of the signature template must hold "
                   u"<%Signature>"});
    return;
  }
  CheckSignatureLine(oFindings, oLine);
  for (std::int32_t l = oRows.lFirst + 1; l < oRows.lLast; ++l) {
    CheckFurtherRow(oFindings, oFindings.Line(l));
  }
}

}  // namespace TemplateChecks
