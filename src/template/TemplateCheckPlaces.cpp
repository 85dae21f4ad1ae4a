// The four places by which a removal finds the parts of a procedure's template: the last line
// ahead of the body, the first one behind it, and the same around the clean-up code. Each must be
// the first line of the procedure that fits its pattern, whatever the procedure's settings are.
#include <algorithm>

#include "TailSearch.h"
#include "TemplateChecks.h"

namespace TemplateChecks {

namespace {

/// A line that the template may write.
struct Written {
  std::int32_t fileLine = 0;
  std::size_t part = 0;  ///< index of its stretch; the signature belongs to the first
  bool always = false;
  Text folded;
};

struct Place {
  Section section;
  TextView name;
  std::size_t part;  ///< the stretch that it begins or ends
  bool ends;         ///< true: the last line of that stretch, false: the first one
};

constexpr Place Places[] = {{Section::BodyStart, u"#BodyStart", 0, true},
                            {Section::BodyEnd, u"#BodyEnd", 1, false},
                            {Section::FireStart, u"#FireExitStart", 1, true},
                            {Section::FireEnd, u"#FireExitEnd", 2, false}};

bool MayBeWritten(const LineRow& row, const SectionValues& values) {
  return IsWritten(row, values) && !IsBlankRow(row);
}

// The signature stands ahead of the first stretch and can serve as the body's start.
void AddSignature(const Findings& findings, const TemplateRow& templateRow,
                  std::vector<Written>& written) {
  const TemplateRow& signature = findings.Template().Templates()[1];
  const Stretch rows = Between(signature, Section::Start, Section::End);
  if (signature.eType != TemplateType::Signature || rows.first >= rows.last) return;
  const LineRow& row = findings.Line(rows.first);
  written.push_back({row.fileLine, 0, true, FoldedRow(row, SampleValues(templateRow, 0))});
}

std::vector<Written> WrittenLines(const Findings& findings, const TemplateRow& templateRow) {
  std::vector<Written> written;
  AddSignature(findings, templateRow, written);
  const SectionValues values = SampleValues(templateRow, 0);
  std::size_t part = 0;
  for (const Stretch& stretch : WrittenStretches(templateRow)) {
    for (std::int32_t l = stretch.first; l < stretch.last; ++l) {
      const LineRow& row = findings.Line(l);
      if (!MayBeWritten(row, values)) continue;
      written.push_back({row.fileLine, part, row.sIfCondition.empty(), FoldedRow(row, values)});
    }
    ++part;
  }
  return written;
}

class PlaceCheck {
 public:
  PlaceCheck(Findings& findings, const TemplateRow& templateRow, const Place& place)
      : mFindings(findings),
        mRow(templateRow),
        mPlace(place),
        mPattern(templateRow.sLike[place.section]),
        mLine(findings.Line(templateRow.lStart[place.section]).fileLine) {}

  void Run(const std::vector<Written>& written) {
    if (IsAtEnd(mRow, mPlace.section)) return;
    if (PatternIsSound()) FindIn(written);
  }

 private:
  TextView Side() const { return mPlace.ends ? u"ahead of" : u"behind"; }

  /// Found by all of its stretch's rows together, whatever stands ahead of them.
  bool IsFromEnd() const { return mRow.tailFromEnd && mPlace.part == 1; }
  bool MayFit(TextView ordinary) const {
    return ordinary.empty() || (IsFromEnd() && ordinary.starts_with(u"exit "));
  }

  void Add(std::initializer_list<TextView> parts) { mFindings.Add(mLine, parts); }

  bool PatternIsSound() {
    const TextView pattern = mPattern.Pattern();
    if (pattern.empty()) {
      Add({u"No line tells where ", mPlace.name, u" is; write a line ", Side(),
           u" it, or give it a like"});
    } else if (!mPattern.IsValid()) {
      Add({u"The pattern [", pattern, u"] of ", mPlace.name,
           u" can't be read: a list of characters isn't closed by \"]\", or a range runs "
           u"downwards"});
    } else if (LowerCase(pattern) != pattern) {
      Add({u"The pattern [", pattern, u"] of ", mPlace.name,
           u" fits nothing, since code is compared in lower case; write [", LowerCase(pattern),
           u"]"});
    } else if (const TextView ordinary = OrdinaryCodeFitting(mPattern); !MayFit(ordinary)) {
      Add({u"The pattern [", pattern, u"] of ", mPlace.name, u" fits [", ordinary,
           u"] too, and such a line of the user's would be taken for it; write a line ", Side(),
           u" it that only the template has, such as a comment"});
    } else {
      return true;
    }
    return false;
  }

  void FindIn(const std::vector<Written>& written) {
    const Written* first = nullptr;   // the first line anywhere that fits
    const Written* border = nullptr;  // the line that ought to be found
    bool fits = false, fitsAlways = false;
    for (const Written& line : written) {
      const bool hit = mPattern.Matches(line.folded);
      const bool own = line.part == mPlace.part;
      if (hit && first == nullptr && (own || !IsFromEnd())) first = &line;
      if (!own) continue;
      if (mPlace.ends || border == nullptr) border = &line;
      fits = fits || hit;
      fitsAlways = fitsAlways || (hit && line.always);
    }
    if (!fits) {
      Add({u"No line that is written ", Side(), u" ", mPlace.name, u" fits its pattern [",
           mPattern.Pattern(), u"], so it can't be found again; write one, or change its like"});
    } else if (!fitsAlways) {
      Add({u"The line by which ", mPlace.name,
           u" is found is written under a condition only; write one without a condition ", Side(),
           u" it"});
    } else if (first != border) {
      ReportWrongLine(*first, *border);
    }
  }

  void ReportWrongLine(const Written& first, const Written& border) {
    const Text firstLine = ToText(first.fileLine), borderLine = ToText(border.fileLine);
    const bool early = first.part < border.part || mPlace.ends;
    Add({u"The pattern [", mPattern.Pattern(), u"] of ", mPlace.name, u" is found in line ",
         firstLine, u" and not in line ", borderLine,
         early ? TextView(u"; write a line there that no line above it looks like")
               : TextView(u", so what stands above would stay in the code; take its pattern from "
                          u"there")});
  }

  Findings& mFindings;
  const TemplateRow& mRow;
  const Place& mPlace;
  const LikePattern& mPattern;
  const std::int32_t mLine;
};

// The end of the body and the start of the clean-up code can't be one and the same line.
void CheckOneLine(Findings& findings, const TemplateRow& templateRow,
                  const std::vector<Written>& written) {
  const auto count = std::count_if(written.begin(), written.end(), [](const Written& line) {
    return line.part == 1 && line.always;
  });
  if (count != 1) return;
  const std::int32_t fileLine = findings.Line(templateRow.lStart[Section::FireStart]).fileLine;
  if (findings.HasLine(fileLine)) return;
  findings.Add(fileLine, {u"#BodyEnd and #FireExitStart would be found in the same line; write two "
                          u"lines without a condition between them"});
}

// Load faults leave places out or in another order; the load reports them.
bool HasItsPlaces(const TemplateRow& row) {
  if (row.eType != TemplateType::Procedure || row.lStart[Section::BodyStart] < 1) return false;
  if (row.lStart[Section::BodyEnd] < row.lStart[Section::BodyStart]) return false;
  return !row.bFire || (row.lStart[Section::FireStart] > row.lStart[Section::BodyEnd] &&
                        row.lStart[Section::FireEnd] > row.lStart[Section::FireStart]);
}

}  // namespace

void CheckPlaces(Findings& findings) {
  for (const TemplateRow& row : findings.Template().Templates()) {
    if (!HasItsPlaces(row)) continue;
    const std::vector<Written> written = WrittenLines(findings, row);
    for (const Place& place : std::span(Places, row.bFire ? 4 : 2)) {
      PlaceCheck(findings, row, place).Run(written);
    }
    if (row.bFire) CheckOneLine(findings, row, written);
  }
}

}  // namespace TemplateChecks
