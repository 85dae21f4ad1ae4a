// In order: what both kinds of texts need, procedures, declarations.
#include "Removal.h"

#include <algorithm>

#include "CodeSettings.h"
#include "Insertion.h"
#include "MQuillon.h"
#include "MXStringVB.h"
#include "RowMatch.h"
#include "Sections.h"
#include "TailSearch.h"
#include "TraceExits.h"

namespace {

constexpr std::size_t None = static_cast<std::size_t>(-1);

/// The values as the code has them, and their names: an unset value has none, which says that lines
/// with that condition weren't written.
struct ValuesInCode {
  SectionValues values;

  ValuesInCode(const ParsedProcedure& procedure, const TemplateRow& row) {
    CProcSettings read;
    const CProcSettings* settings = &procedure.Settings();
    if (settings->sTemplate() != row.sName) {
      CodeSettings::ReadValues(procedure.Templates(), row, procedure.Code(), read);
      settings = &read;
    }
    values = procedure.NameValues();
    values.signature = row.sName;
    values.boundary = MQuillon::BoundaryName(settings->eBoundary());
    values.severity = MQuillon::SeverityName(settings->eSeverity());
    values.retry = MQuillon::RetryName(settings->eRetry());
    values.trace = settings->eTrace() == MQuillon::TriState::True;
  }
};

/// True when the row, as it was written, may not fit its pattern. A value that the code doesn't
/// state may have been changed by hand, or never have been there: then the text itself tells.
bool CouldStayBehind(const LineRow& row, const SectionValues& values, const ProcText& code) {
  if (!row.script || !IsWritten(row, values) || FitsItself(row, values)) return false;
  const Text own = FoldedRow(row, values);
  SectionValues filled = values;
  for (TextView* value : {&filled.boundary, &filled.severity, &filled.retry}) {
    if (value->empty()) *value = u"0";
  }
  if (!FitsItself(row, filled)) return true;
  for (std::size_t i = 0; i < code.Count(); ++i) {
    if (code.Folded(i) == own) return true;
  }
  return false;
}

/// Removal from one procedure: the places first, then whether they can be trusted, then the lines.
class ProcedureRemoval {
 public:
  ProcedureRemoval(const ParsedProcedure& procedure, const TemplateRow& row,
                   const SectionValues& values, const MRules::Values& rules)
      : mProcedure(procedure),
        mTemplate(row),
        mRows(procedure.Templates().lines),
        mCode(procedure.Code()),
        mValues(values),
        mRules(rules) {}

  Removal Run() {
    const ProcPlaces places = FindPlaces(mCode, mProcedure.HeadLine(), mValues.baseType);
    mFirstBody = places.firstBody;
    mProcEnd = places.refusal ? None : places.end;
    if (mFirstBody == 0) {
      Refuse({*places.refusal});
      return std::move(mResult);
    }
    FindBorders();
    CheckPlaces(places.refusal);
    if (Accepted()) CheckOwnText();
    if (Accepted()) CheckSections();
    if (Accepted()) Compose();
    return std::move(mResult);
  }

 private:
  bool Accepted() const { return mResult.refusals.empty(); }
  void Refuse(Refusal refusal) { mResult.refusals.push_back(std::move(refusal)); }
  const LineRow& Row(std::int32_t row) const { return mRows[static_cast<std::size_t>(row)]; }

  std::size_t FindFirst(Section place) const { return FindFrom(place, mFirstBody); }
  std::size_t FindBehind(Section place, std::size_t first) const {
    return IsAtEnd(mTemplate, place) ? mProcEnd : FindFrom(place, first);
  }
  std::size_t FindFrom(Section place, std::size_t first) const {
    const LikePattern& like = mTemplate.sLike[place];
    for (std::size_t i = first; i < mCode.Count(); ++i) {
      if (like.Matches(mCode.Folded(i))) return i;
    }
    return None;
  }

  void FindBorders() {
    mBodyStart = FindFirst(Section::BodyStart);
    const auto tail =
        mBodyStart < mProcEnd && mProcEnd != None
            ? FindTail(mProcedure.Templates(), mTemplate, mCode, mBodyStart + 1, mProcEnd)
            : std::nullopt;
    mBodyEnd = tail ? tail->bodyEnd : FindBehind(Section::BodyEnd, mFirstBody);
    if (!mTemplate.bFire) return;
    mFireStart = tail && tail->fireStart > 0
                     ? tail->fireStart
                     : FindFrom(Section::FireStart, tail ? mBodyEnd : mFirstBody);
    mFireEnd = FindBehind(Section::FireEnd, tail ? mBodyEnd + 1 : mFirstBody);
  }

  struct Place {
    std::size_t line;
    TextView name;
  };
  void TestFound(const Place& place) {
    if (place.line == None) Refuse({RefusalKind::PlaceNotFound, 0, Text(place.name)});
  }
  void TestOrder(const Place& upper, const Place& lower) {
    if (upper.line == None || lower.line == None || upper.line < lower.line) return;
    Refuse({RefusalKind::PlaceAhead, 0, Text(lower.name), Text(upper.name)});
  }

  void CheckPlaces(std::optional<RefusalKind> endRefusal) {
    const Place bodyStart{mBodyStart, u"BodyStart"}, bodyEnd{mBodyEnd, u"BodyEnd"},
        fireStart{mFireStart, u"FireStart"}, fireEnd{mFireEnd, u"FireEnd"},
        procEnd{mProcEnd, u"Procedure End"};
    TestFound(bodyStart);
    TestFound(bodyEnd);
    TestOrder(bodyStart, bodyEnd);
    if (endRefusal) Refuse({*endRefusal});
    if (mTemplate.bFire) {
      TestFound(fireStart);
      TestFound(fireEnd);
      TestOrder(fireStart, fireEnd);
      TestOrder(bodyEnd, fireStart);
    }
    // Lines behind the end are other code: a place found there isn't this procedure's.
    TestOrder(bodyStart, procEnd);
    if (!IsAtEnd(mTemplate, Section::BodyEnd)) TestOrder(bodyEnd, procEnd);
    if (!mTemplate.bFire) return;
    TestOrder(fireStart, procEnd);
    if (!IsAtEnd(mTemplate, Section::FireEnd)) TestOrder(fireEnd, procEnd);
  }

  /// A row whose own text doesn't fit its pattern can't be found again: taking out the others would
  /// leave it behind, or let it pass as the user's.
  void CheckOwnText() {
    CheckOwnText(Section::Start, Section::BodyStart);
    CheckOwnText(Section::BodyEnd, mTemplate.bFire ? Section::FireStart : Section::End);
    if (mTemplate.bFire) CheckOwnText(Section::FireEnd, Section::End);
  }
  void CheckOwnText(Section first, Section last) {
    for (std::int32_t i = mTemplate.lStart[first]; i <= mTemplate.lStart[last]; ++i) {
      if (CouldStayBehind(Row(i), mValues, mCode)) {
        Refuse({RefusalKind::RowDoesNotFit, 0, Row(i).sLine});
      }
    }
  }

  void CheckSections() {
    CheckLines(mFirstBody, mBodyStart + 1, Section::Start, Section::BodyStart);
    if (!mTemplate.bFire) {
      CheckLines(mBodyEnd, mProcEnd, Section::BodyEnd, Section::End);
    } else {
      CheckLines(mBodyEnd, mFireStart + 1, Section::BodyEnd, Section::FireStart);
      CheckLines(mFireEnd, mProcEnd, Section::FireEnd, Section::End);
    }
    if (Accepted()) CheckBorders();
    if (Accepted()) mResult.refusals = std::move(mBeyond);
  }

  void CheckLines(std::size_t from, std::size_t to, Section first, Section last) {
    RowMatch rows(mRows, mTemplate.lStart[first], mTemplate.lStart[last],
                  mProcedure.Templates().Signatures());
    for (std::size_t i = from; i < to; ++i) {
      if (rows.Passes(mCode.Folded(i))) continue;
      Refuse({RefusalKind::LineMismatch, i + 1, Text(mCode.Line(i))});
    }
    if (!rows.AllUnconditionalUsed()) mIncomplete[static_cast<std::size_t>(first)] = true;
    if (last == Section::BodyStart) CheckBeyond(rows, to, mBodyEnd, u"BodyStart");
    if (first == Section::BodyEnd) CheckBeyond(rows, from, mBodyStart + 1, u"BodyEnd");
    if (last == Section::FireStart) CheckBeyond(rows, to, mFireEnd, u"FireStart");
    if (first == Section::FireEnd) CheckBeyond(rows, from, mFireStart + 1, u"FireEnd");
    // A row that reads as the procedure's end.
    if (last == Section::End) CheckBeyond(rows, mProcEnd + 1, mCode.Count(), u"Procedure End");
  }

  /// A template's lines stand side by side. A line beyond the border that a row waits for says that
  /// the border is another line: what lies beyond would stay in the code and be written again.
  /// Looks at the lines from the border up to the other one, or down from the one above it.
  void CheckBeyond(const RowMatch& rows, std::size_t border, std::size_t other, TextView name) {
    const bool up = other < border;
    for (std::size_t l = border; l != other; up ? --l : ++l) {
      const std::size_t i = up ? l - 1 : l;
      if (mCode.Folded(i).empty()) continue;
      if (rows.WaitsFor(mCode.Folded(i), mValues)) mBeyond.push_back(Ambiguous(name, i));
      return;
    }
  }

  Refusal Ambiguous(TextView name, std::size_t line) const {
    return {RefusalKind::PlaceAmbiguous, line + 1, Text(mCode.Line(line)), Text(name)};
  }

  /// A border that fits several lines was taken at the first of them. That holds when the section
  /// is complete with it; when the template's own lines are missing there, the border may be a
  /// line of the user's, and the template's lines would be left in the body, or the user's go.
  void CheckBorders() {
    CheckBorder(Section::BodyStart, Section::Start, mBodyStart, mBodyEnd, u"BodyStart");
    CheckBorder(Section::BodyEnd, Section::BodyEnd, mBodyEnd,
                mTemplate.bFire ? mFireStart + 1 : mProcEnd, u"BodyEnd");
    if (!mTemplate.bFire) return;
    CheckBorder(Section::FireStart, Section::BodyEnd, mFireStart, mFireEnd, u"FireStart");
    CheckBorder(Section::FireEnd, Section::FireEnd, mFireEnd, mProcEnd, u"FireEnd");
  }

  void CheckBorder(Section place, Section section, std::size_t line, std::size_t end,
                   TextView name) {
    const LikePattern& like = mTemplate.sLike[place];
    if (like.IsEmpty()) return;
    std::size_t other = line + 1;
    while (other < end && !like.Matches(mCode.Folded(other))) ++other;
    if (other >= end) return;
    const bool firstIsOwn = IsOwnText(place, mCode.Folded(line));
    const bool otherIsOwn = IsOwnText(place, mCode.Folded(other));
    const bool tooMany = place == section && LinesFitting(like, line, end) > RowsFitting(place);
    const bool incomplete = mIncomplete[static_cast<std::size_t>(section)];
    if (!incomplete && !tooMany && (firstIsOwn || !otherIsOwn)) return;
    Refuse(Ambiguous(name, other));
  }

  std::size_t LinesFitting(const LikePattern& like, std::size_t first, std::size_t end) const {
    std::size_t count = 0;
    for (std::size_t i = first; i < end; ++i) count += like.Matches(mCode.Folded(i));
    return count;
  }

  /// How many lines that fit the pattern of a section's first place the template wrote there.
  std::size_t RowsFitting(Section place) const {
    const bool toFire = place == Section::BodyEnd && mTemplate.bFire;
    const std::int32_t end = mTemplate.lStart[toFire ? Section::FireStart : Section::End];
    std::size_t count = 0;
    for (std::int32_t i = mTemplate.lStart[place]; i <= end; ++i) {
      if (!IsWritten(Row(i), mValues)) continue;
      count += mTemplate.sLike[place].Matches(FoldedRow(Row(i), mValues));
    }
    return count;
  }

  /// True when the folded line reads as a row of the border's section is written in this procedure.
  bool IsOwnText(Section place, TextView folded) const {
    const bool above = place == Section::BodyStart || place == Section::FireStart;
    const Section first = place == Section::BodyStart   ? Section::Start
                          : place == Section::FireStart ? Section::BodyEnd
                                                        : place;
    const std::int32_t last = mTemplate.lStart[above ? place : Section::End];
    for (std::int32_t i = mTemplate.lStart[first]; i <= last; ++i) {
      if (i > 0 && IsWritten(Row(i), mValues) && FoldedRow(Row(i), mValues) == folded) return true;
    }
    return false;
  }

  /// How many blank rows the template wrote next to the body, at one side of it.
  std::size_t BlankRowsAbove() const {
    std::size_t count = 0;
    for (std::int32_t i = mTemplate.lStart[Section::BodyStart] - 1;
         i > mTemplate.lStart[Section::Start]; --i) {
      if (!IsWritten(Row(i), mValues)) continue;
      if (!IsBlankRow(Row(i))) break;
      ++count;
    }
    return count;
  }
  std::size_t BlankRowsBelow() const {
    const std::int32_t end = mTemplate.lStart[mTemplate.bFire ? Section::FireStart : Section::End];
    std::size_t count = 0;
    for (std::int32_t i = mTemplate.lStart[Section::BodyEnd] + 1; i < end; ++i) {
      if (!IsWritten(Row(i), mValues)) continue;
      if (!IsBlankRow(Row(i))) break;
      ++count;
    }
    return count;
  }

  void Compose() {
    ProcText& kept = mResult.code;
    kept.Keep(mCode, 0, mFirstBody);
    std::size_t first = mBodyStart + 1;
    std::size_t end = mBodyEnd;
    for (std::size_t n = BlankRowsAbove(); n > 0 && first < end && IsBlank(mCode.Line(first));
         --n) {
      ++first;
    }
    // A blank line that ends a continued statement belongs to that statement.
    for (std::size_t n = BlankRowsBelow();
         n > 0 && end > first && IsBlank(mCode.Line(end - 1)) && !mCode.IsContinued(end - 1); --n) {
      --end;
    }
    KeepBody(first, end);
    if (mTemplate.bFire) KeepCleanUp();
    kept.Keep(mCode, mProcEnd, mCode.Count());
  }

  /// The body without what was put into its lines: numbers and trace exits.
  void KeepBody(std::size_t first, std::size_t end) {
    const bool numbers = mRules.eLineNumAction != MQuillon::LineNumAction::Leave;
    Text traceExit;
    if (mTemplate.lTraceExit > 0 && mCode.MayHold(first, end, mTemplate.traceExitBegin)) {
      traceExit = TraceExits::GetTraceExit(Row(mTemplate.lTraceExit), mValues);
    }
    if (!numbers && traceExit.empty()) return mResult.code.Keep(mCode, first, end);
    std::size_t kept = first;  // lines from here on stay as they are
    bool comment = false;      // the line goes on with a comment that began above it
    for (std::size_t i = first; i < end; ++i) {
      const TextView line = mCode.Line(i);
      const bool goesOn = Continues(line);
      const bool isNumbered =
          numbers && BeginsWithDigit(line) && (i == first || !mCode.IsContinued(i));
      const bool isTraced = !traceExit.empty() && !comment && MayHoldTrace(i);
      if (isNumbered || isTraced) {
        Text changed(line);
        if (isNumbered) MXStringVB::RemoveVBLineNumber(changed);
        if (isTraced) {
          changed =
              TraceExits::Remove(changed, mValues.baseType, traceExit, mTemplate.traceExitLike);
        }
        mResult.code.Keep(mCode, kept, i);
        mResult.code.Add(changed);
        kept = i + 1;
      }
      comment = goesOn && (comment || mCode.CommentOf(i) < line.size());
    }
    mResult.code.Keep(mCode, kept, end);
  }

  static bool BeginsWithDigit(TextView line) {
    return !line.empty() && line.front() >= u'0' && line.front() <= u'9';
  }

  bool MayHoldTrace(std::size_t i) const {
    return FindText(mCode.Folded(i), mTemplate.traceExitBegin) != TextView::npos;
  }

  /// Clean-up code waits behind the body as comment lines until a template takes it back.
  void KeepCleanUp() {
    bool goesOn = false;
    for (std::size_t i = mFireStart + 1; i < mFireEnd; ++i) {
      const TextView line = mCode.Line(i);
      // A blank line is dropped, but not one that ends a continued statement: without it the
      // comment would go on into the next line.
      if (!IsBlank(line) || goesOn) mResult.code.Add(u"'FireExit: " + Text(line));
      goesOn = Continues(line);
    }
  }

  const ParsedProcedure& mProcedure;
  const TemplateRow& mTemplate;
  const std::vector<LineRow>& mRows;
  const ProcText& mCode;
  const SectionValues& mValues;
  const MRules::Values& mRules;
  Removal mResult;
  std::vector<Refusal> mBeyond;
  std::size_t mFirstBody = 0, mProcEnd = None;
  std::size_t mBodyStart = None, mBodyEnd = None, mFireStart = None, mFireEnd = None;
  bool mIncomplete[static_cast<std::size_t>(Section::End) + 1] = {};
};

/// Blank rows that the template writes directly behind a row; null: behind its <#Start>.
std::size_t BlankRowsBehind(const TemplateSet& templates, const TemplateRow& row,
                            const SectionValues& values, const LineRow* behind) {
  std::int32_t i = behind ? static_cast<std::int32_t>(behind - templates.lines.data())
                          : row.lStart[Section::Start];
  std::size_t count = 0;
  for (++i; i < row.lStart[Section::End]; ++i) {
    if (!IsWritten(templates.Row(i), values)) continue;
    if (!IsBlankRow(templates.Row(i))) break;
    ++count;
  }
  return count;
}

Removal RemoveFromDeclarations(const ParsedProcedure& procedure, const TemplateRow& row,
                               const SectionValues& values) {
  const TemplateSet& templates = procedure.Templates();
  const ProcText& code = procedure.Code();
  Removal result;
  for (std::int32_t i = row.lStart[Section::Start]; i <= row.lStart[Section::End]; ++i) {
    if (i >= 1 && CouldStayBehind(templates.Row(i), values, code)) {
      result.refusals.push_back({RefusalKind::RowDoesNotFit, 0, templates.Row(i).sLine});
    }
  }
  if (!result.refusals.empty()) return result;

  // The template was written behind its signature: lines ahead of that are the user's.
  std::size_t signature = 0;
  while (signature < code.Count() && !templates.Signatures().IsSignature(code.Folded(signature))) {
    ++signature;
  }
  if (signature == code.Count()) signature = 0;
  RowMatch rows(templates.lines, row.lStart[Section::Start], row.lStart[Section::End],
                templates.Signatures());
  std::size_t blankRows = 0;  // blank lines that the template wrote behind the row just dropped
  // A line end at the end of the text makes no line of its own here.
  const bool ended = code.Count() > 0 && code.Line(code.Count() - 1).empty();
  const std::size_t count = code.Count() - (ended ? 1 : 0);
  for (std::size_t i = 0; i < count; ++i) {
    const TextView folded = code.Folded(i);
    if (i >= signature && folded.empty() && blankRows > 0) {
      --blankRows;
    } else if (i >= signature && rows.Takes(folded)) {
      blankRows = BlankRowsBehind(templates, row, values, rows.LastRow());
    } else {
      blankRows = 0;
      result.code.Keep(code, i, i + 1);
    }
  }
  return result;
}

}  // namespace

Removal RemoveTemplate(const ParsedProcedure& procedure, const TemplateRow& row,
                       const MRules::Values& rules) {
  const ValuesInCode inCode(procedure, row);
  if (procedure.IsDeclarations()) return RemoveFromDeclarations(procedure, row, inCode.values);
  return ProcedureRemoval(procedure, row, inCode.values, rules).Run();
}
