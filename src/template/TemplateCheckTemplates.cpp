// Templates as wholes: their names, the order of their directives, and the first of them, which
// makes the line by which every other one is found again.
#include <unordered_map>

#include "Signature.h"
#include "TemplateChecks.h"

namespace TemplateChecks {

namespace {

constexpr TextView SignatureToken = u"<%Signature>";

/// The first template of each name, in lower case.
using FirstOfName = std::unordered_map<Text, const TemplateRow*>;

void CheckName(Findings& findings, const TemplateRow& row, FirstOfName& firsts) {
  if (row.sName.empty()) return;  // reported by the load
  if (EqualNoCase(row.sName, u"locked")) {
    findings.Add(row.lDirectiveLine, {u"A template can't be named ", row.sName,
                                      u", since a signature of that text means a lock"});
  }
  const auto [first, isNew] = firsts.try_emplace(LowerCase(row.sName), &row);
  if (isNew) return;
  findings.Add(row.lDirectiveLine,
               {u"The template in line ", ToText(first->second->lDirectiveLine), u" has the name ",
                row.sName, u" too, letter case aside; only that one can be used"});
}

// The load doesn't look where #Start and #End stand.
void CheckOrder(Findings& findings, const TemplateRow& row) {
  const std::int32_t start = row.lStart[Section::Start], end = row.lStart[Section::End];
  if (start < 1 || end < 1) return;
  for (const Section e : AllSections) {
    if (e < Section::BodyStart) continue;
    const std::int32_t other = row.lStart[e];
    if (other < 1) continue;
    if (other < start) {
      findings.Add(
          findings.Line(start).fileLine,
          {u"#Start must stand ahead of the other directives of its template, or its section "
           u"isn't written"});
      return;
    }
    if (other > end) {
      findings.Add(findings.Line(end).fileLine,
                   {u"#End must be the last directive of its template, or the sections behind it "
                    u"aren't written"});
      return;
    }
  }
}

void CheckReadsBack(Findings& findings, const LineRow& row, TextView name, bool locked) {
  if (findings.HasLine(row.fileLine)) return;  // reported already: the cause, or another name
  const Signature& signature = findings.Template().Set().Signatures();
  if (signature.IsReadable(name, locked)) return;
  findings.Add(row.fileLine, {u"The signature [", Trim(signature.Line(name, locked)),
                              u"] can't be read back; write <%Signature> once, with "
                              u"text on both sides that is in no template's name"});
}

void CheckSignatureLine(Findings& findings, const LineRow& row) {
  const TextView ordinary = OrdinaryCodeFitting(row.sLike);
  if (!ordinary.empty()) {
    findings.Add(row.fileLine,
                 {u"The pattern [", row.sLike.Pattern(), u"] fits [", ordinary,
                  u"] too, and such a line would be read as a signature; write a comment "
                  u"with words that no other line has"});
  }
  CheckReadsBack(findings, row, u"", true);
  for (const TemplateRow& templateRow : findings.Template().Templates()) {
    if (templateRow.eType != TemplateType::Module && templateRow.eType != TemplateType::Procedure)
      continue;
    if (findings.HasLine(templateRow.lDirectiveLine)) continue;
    CheckReadsBack(findings, row, templateRow.sName, false);
    CheckReadsBack(findings, row, templateRow.sName, true);
  }
}

// Rows behind the first are never written, but a line of code that fits one is a signature.
void CheckFurtherRow(Findings& findings, const LineRow& row) {
  if (!row.script || IsBlankRow(row)) return;
  if (row.sLine.find(SignatureToken) != Text::npos) return;
  findings.Add(row.fileLine,
               {u"A line of code that fits this row would be taken out as a signature, "
                u"though the row has no <%Signature> and is never written"});
}

}  // namespace

void CheckTemplates(Findings& findings) {
  const std::vector<TemplateRow>& templates = findings.Template().Templates();
  FirstOfName firsts;
  for (std::size_t i = 1; i < templates.size(); ++i) {
    CheckName(findings, templates[i], firsts);
    CheckOrder(findings, templates[i]);
  }
}

void CheckSignature(Findings& findings) {
  const std::vector<TemplateRow>& templates = findings.Template().Templates();
  if (templates.size() < 2) {
    findings.Add(1, {u"The file holds no template; it begins with one of type signature"});
    return;
  }
  const TemplateRow& firstTemplate = templates[1];
  if (firstTemplate.eType != TemplateType::Signature) {
    findings.Add(firstTemplate.lDirectiveLine,
                 {u"The first template of the file must have type=signature: its "
                  u"first line names the template in code"});
    return;
  }
  const Stretch rows = Between(firstTemplate, Section::Start, Section::End);
  if (rows.first == 0) return;  // reported by the load
  const LineRow& line = findings.Line(rows.first);
  if (!line.script || line.sLine.find(SignatureToken) == Text::npos) {
    findings.Add(line.fileLine,
                 {u"The first line behind #Start of the signature template must hold "
                  u"<%Signature>"});
    return;
  }
  CheckSignatureLine(findings, line);
  for (std::int32_t l = rows.first + 1; l < rows.last; ++l) {
    CheckFurtherRow(findings, findings.Line(l));
  }
}

}  // namespace TemplateChecks
