// The four places by which a removal finds the parts of a procedure's template: the last line
// ahead of the body, the first one behind it, and the same around the clean-up code. Each must be
// the first line of the procedure that fits its pattern, whatever the procedure's settings are.
#include <algorithm>

#include "TemplateChecks.h"

namespace TemplateChecks {

namespace {

/// A line that the template may write.
struct Written {
  std::int32_t lFileLine = 0;
  std::size_t lPart = 0;  ///< index of its stretch; the signature belongs to the first
  bool bAlways = false;
  Text sFolded;
};

struct Place {
  Section eSection;
  TextView sName;
  std::size_t lPart;  ///< the stretch that it begins or ends
  bool bEnds;         ///< true: the last line of that stretch, false: the first one
};

constexpr Place atPlace[] = {{Section::BodyStart, u"#BodyStart", 0, true},
                             {Section::BodyEnd, u"#BodyEnd", 1, false},
                             {Section::FireStart, u"#FireExitStart", 1, true},
                             {Section::FireEnd, u"#FireExitEnd", 2, false}};

bool MayBeWritten(const LineRow& oRow, const SectionValues& oValues) {
  return IsWritten(oRow, oValues) && !IsBlankRow(oRow);
}

// The signature stands ahead of the first stretch and can serve as the body's start.
void AddSignature(const Findings& oFindings, const TemplateRow& oTemplate,
                  std::vector<Written>& atWritten) {
  const TemplateRow& oSignature = oFindings.Template().Templates()[1];
  const Stretch oRows = Between(oSignature, Section::Start, Section::End);
  if (oSignature.eType != TemplateType::Signature || oRows.lFirst >= oRows.lLast) return;
  const LineRow& oRow = oFindings.Line(oRows.lFirst);
  atWritten.push_back({oRow.lFileLine, 0, true, FoldedRow(oRow, SampleValues(oTemplate, 0))});
}

std::vector<Written> WrittenLines(const Findings& oFindings, const TemplateRow& oTemplate) {
  std::vector<Written> atWritten;
  AddSignature(oFindings, oTemplate, atWritten);
  const SectionValues oValues = SampleValues(oTemplate, 0);
  std::size_t lPart = 0;
  for (const Stretch& oStretch : WrittenStretches(oTemplate)) {
    for (std::int32_t l = oStretch.lFirst; l < oStretch.lLast; ++l) {
      const LineRow& oRow = oFindings.Line(l);
      if (!MayBeWritten(oRow, oValues)) continue;
      atWritten.push_back(
          {oRow.lFileLine, lPart, oRow.sIfCondition.empty(), FoldedRow(oRow, oValues)});
    }
    ++lPart;
  }
  return atWritten;
}

class PlaceCheck {
 public:
  PlaceCheck(Findings& oFindings, const TemplateRow& oTemplate, const Place& oPlace)
      : moFindings(oFindings),
        moPlace(oPlace),
        moPattern(oTemplate.sLike[oPlace.eSection]),
        mlLine(oFindings.Line(oTemplate.lStart[oPlace.eSection]).lFileLine) {}

  void Run(const std::vector<Written>& atWritten) {
    if (PatternIsSound()) FindIn(atWritten);
  }

 private:
  TextView Side() const { return moPlace.bEnds ? u"ahead of" : u"behind"; }

  void Add(std::initializer_list<TextView> asPart) { moFindings.Add(mlLine, asPart); }

  bool PatternIsSound() {
    const TextView sPattern = moPattern.Pattern();
    if (sPattern.empty()) {
      Add({u"No line tells where ", moPlace.sName, u" is; write a line ", Side(),
           u" it, or give it a like"});
    } else if (!moPattern.IsValid()) {
      Add({u"The pattern [", sPattern, u"] of ", moPlace.sName,
           u" can't be read: a list of characters isn't closed by \"]\", or a range runs "
           u"downwards"});
    } else if (LowerCase(sPattern) != sPattern) {
      Add({u"The pattern [", sPattern, u"] of ", moPlace.sName,
           u" fits nothing, since code is compared in lower case; write [", LowerCase(sPattern),
           u"]"});
    } else if (const TextView sOrdinary = OrdinaryCodeFitting(moPattern); !sOrdinary.empty()) {
      Add({u"The pattern [", sPattern, u"] of ", moPlace.sName, u" fits [", sOrdinary,
           u"] too, and such a line of the user's would be taken for it; write a line ", Side(),
           u" it that only the template has, such as a comment"});
    } else {
      return true;
    }
    return false;
  }

  void FindIn(const std::vector<Written>& atWritten) {
    const Written* pFirst = nullptr;   // the first line anywhere that fits
    const Written* pBorder = nullptr;  // the line that ought to be found
    bool bFits = false, bFitsAlways = false;
    for (const Written& oLine : atWritten) {
      const bool bHit = moPattern.Matches(oLine.sFolded);
      if (bHit && pFirst == nullptr) pFirst = &oLine;
      if (oLine.lPart != moPlace.lPart) continue;
      if (moPlace.bEnds || pBorder == nullptr) pBorder = &oLine;
      bFits = bFits || bHit;
      bFitsAlways = bFitsAlways || (bHit && oLine.bAlways);
    }
    if (!bFits) {
      Add({u"No line that is written ", Side(), u" ", moPlace.sName, u" fits its pattern [",
           moPattern.Pattern(), u"], so it can't be found again; write one, or change its like"});
    } else if (!bFitsAlways) {
      Add({u"The line by which ", moPlace.sName,
           u" is found is written under a condition only; write one without a condition ", Side(),
           u" it"});
    } else if (pFirst != pBorder) {
      ReportWrongLine(*pFirst, *pBorder);
    }
  }

  void ReportWrongLine(const Written& oFirst, const Written& oBorder) {
    const Text sFirst = ToText(oFirst.lFileLine), sBorder = ToText(oBorder.lFileLine);
    const bool bEarly = oFirst.lPart < oBorder.lPart || moPlace.bEnds;
    Add({u"The pattern [", moPattern.Pattern(), u"] of ", moPlace.sName, u" is found in line ",
         sFirst, u" and not in line ", sBorder,
         bEarly ? TextView(u"; write a line there that no line above it looks like")
                : TextView(u", so what stands above would stay in the code; take its pattern from "
                           u"there")});
  }

  Findings& moFindings;
  const Place& moPlace;
  const LikePattern& moPattern;
  const std::int32_t mlLine;
};

// The end of the body and the start of the clean-up code can't be one and the same line.
void CheckOneLine(Findings& oFindings, const TemplateRow& oTemplate,
                  const std::vector<Written>& atWritten) {
  const auto lLines = std::count_if(atWritten.begin(), atWritten.end(), [](const Written& oLine) {
    return oLine.lPart == 1 && oLine.bAlways;
  });
  if (lLines != 1) return;
  const std::int32_t lLine = oFindings.Line(oTemplate.lStart[Section::FireStart]).lFileLine;
  if (oFindings.HasLine(lLine)) return;
  oFindings.Add(lLine, {u"#BodyEnd and #FireExitStart would be found in the same line; write two "
                        u"lines without a condition between them"});
}

// Load faults leave places out or in another order; they are told by the load.
bool HasItsPlaces(const TemplateRow& oRow) {
  if (oRow.eType != TemplateType::Procedure || oRow.lStart[Section::BodyStart] < 1) return false;
  if (oRow.lStart[Section::BodyEnd] < oRow.lStart[Section::BodyStart]) return false;
  return !oRow.bFire || (oRow.lStart[Section::FireStart] > oRow.lStart[Section::BodyEnd] &&
                         oRow.lStart[Section::FireEnd] > oRow.lStart[Section::FireStart]);
}

}  // namespace

void CheckPlaces(Findings& oFindings) {
  for (const TemplateRow& oRow : oFindings.Template().Templates()) {
    if (!HasItsPlaces(oRow)) continue;
    const std::vector<Written> atWritten = WrittenLines(oFindings, oRow);
    for (const Place& oPlace : std::span(atPlace, oRow.bFire ? 4 : 2)) {
      PlaceCheck(oFindings, oRow, oPlace).Run(atWritten);
    }
    if (oRow.bFire) CheckOneLine(oFindings, oRow, atWritten);
  }
}

}  // namespace TemplateChecks
