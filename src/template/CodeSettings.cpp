#include "CodeSettings.h"

#include "ErrRead.h"
#include "MQuillon.h"
#include "MXString.h"
#include "MXStringVB.h"

using MQuillon::TriState;

namespace {

/// In any case.
bool HoldsError(TextView text) {
  return AnyErr(text, [&](std::size_t at) { return EqualNoCase(text.substr(at, 5), u"error"); });
}

/// True when the code handles errors on its own: anything but balanced pairs of Resume Next and
/// GoTo 0.
bool IsBespoke(const ProcText& code) {
  bool inside = false;
  for (std::size_t i = 0; i < code.Count(); ++i) {
    const TextView folded = code.Folded(i);
    if (folded.find(u"on error ") == TextView::npos) continue;
    const Text statement = MXStringVB::TrimVBLiterals(MXStringVB::TrimVBComments(folded));
    const auto holds = [&](TextView part) { return statement.find(part) != Text::npos; };
    const bool goTo0 = holds(u"on error goto 0");
    if (!goTo0 && holds(u"on error goto ")) return true;
    if (holds(u"on error resume next")) {
      if (inside) return true;
      inside = true;
    } else if (goTo0) {
      if (!inside) return true;
      inside = false;
    }
  }
  return inside;
}

/// The value that a line holds in the place of a row's token; the constant names nothing when the
/// line holds none.
template <class Choice>
Choice ReadChoice(const TokenReader& reader, TextView folded, TextView token,
                  Choice (*byName)(TextView)) {
  const auto value = reader.Value(folded, token);
  return value ? byName(Trim(*value)) : Choice::Unset;
}

/// Takes the values out of the lines of one text.
class ValueReader {
 public:
  ValueReader(const TemplateSet& templates, const TemplateRow& row, CProcSettings& settings)
      : mRow(row),
        mBoundary(templates.Row(row.lBoundary).sLike),
        mSeverity(templates.Row(row.lSeverity).sLike),
        mRetry(templates.Row(row.lRetry).sLike),
        mTrace(templates.Row(row.lTrace).sLike),
        mSettings(settings) {}

  /// False for most lines that hold no value, by their first unit that isn't a blank, in lower
  /// case.
  bool MayBeginWith(char16_t lower) const {
    return mBoundary.MayBeginWith(lower) || mSeverity.MayBeginWith(lower) ||
           mRetry.MayBeginWith(lower) || mTrace.MayBeginWith(lower);
  }

  void Read(TextView folded) {
    if (mSettings.eBoundary() == MQuillon::Boundary::Unset && mBoundary.Matches(folded)) {
      mSettings.SeteBoundary(
          ReadChoice(mRow.boundaryReader, folded, u"%boundary", MQuillon::BoundaryId));
    }
    if (mSettings.eSeverity() == MQuillon::Severity::Unset && mSeverity.Matches(folded)) {
      mSettings.SeteSeverity(
          ReadChoice(mRow.severityReader, folded, u"%severity", MQuillon::SeverityId));
    }
    if (mSettings.eRetry() == MQuillon::Retry::Unset && mRetry.Matches(folded)) {
      mSettings.SeteRetry(ReadChoice(mRow.retryReader, folded, u"%retry", MQuillon::RetryId));
    }
    if (mSettings.eTrace() == TriState::Unset && mTrace.Matches(folded)) {
      mSettings.SeteTrace(TriState::True);
    }
  }

  void Finish() {
    if (mSettings.eTrace() == TriState::Unset) mSettings.SeteTrace(TriState::False);
  }

 private:
  const TemplateRow& mRow;
  const LikePattern &mBoundary, &mSeverity, &mRetry, &mTrace;
  CProcSettings& mSettings;
};

/// From a text that isn't taken apart: only lines that may hold a value are folded.
void ReadValuesOf(TextView procCode, ValueReader reader) {
  Text folded;
  for (std::size_t start = 0; start < procCode.size();) {
    const std::size_t end = FindLineEnd(procCode, start);
    std::size_t first = start;
    while (first < end && procCode[first] == u' ') ++first;
    if (first < end && reader.MayBeginWith(LowerCase(procCode[first]))) {
      MXString::FoldLine(procCode.substr(first, end - first), folded);
      reader.Read(folded);
    }
    start = end + CrLf.size();
  }
  reader.Finish();
}

/// Shared by both ways of reading. code gives the lines, readValues reads a template's values.
template <class Code, class ReadValues>
bool ReadSigned(const TemplateSet& templates, const std::optional<SignatureValue>& signature,
                TextView procCode, const Code& code, const ReadValues& readValues,
                CProcSettings& settings) {
  settings.SeteLocked(signature && signature->locked ? TriState::True : TriState::False);
  if (!signature || signature->name.empty()) {
    const bool bespoke = HoldsError(procCode) && IsBespoke(code());
    settings.SetsTemplate(bespoke ? MQuillon::BespokeName : TextView());
    return signature.has_value();
  }
  const TemplateRow* const row = templates.Find(signature->name);
  if (!row) {
    settings.SetsTemplate(u"[" + signature->name + u"]");
    return true;
  }
  settings.SetsTemplate(row->sName);
  readValues(*row);
  return true;
}

}  // namespace

bool CodeSettings::Read(const TemplateSet& templates, TextView procCode, CProcSettings& settings) {
  return ReadSigned(
      templates, templates.Signatures().Find(procCode), procCode,
      [&] { return ProcText(procCode); },
      [&](const TemplateRow& row) {
        ReadValuesOf(procCode, ValueReader(templates, row, settings));
      },
      settings);
}

bool CodeSettings::Read(const TemplateSet& templates, TextView procCode, const ProcText& code,
                        CProcSettings& settings) {
  return ReadSigned(
      templates, templates.Signatures().Find(code), procCode,
      [&]() -> const ProcText& { return code; },
      [&](const TemplateRow& row) { ReadValues(templates, row, code, settings); }, settings);
}

void CodeSettings::ReadValues(const TemplateSet& templates, const TemplateRow& row,
                              const ProcText& code, CProcSettings& settings) {
  ValueReader reader(templates, row, settings);
  for (std::size_t i = 0; i < code.Count(); ++i) {
    const TextView folded = code.Folded(i);
    if (!folded.empty() && reader.MayBeginWith(folded.front())) reader.Read(folded);
  }
  reader.Finish();
}
