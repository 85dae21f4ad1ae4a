// Each template is put into sample code under every combination of settings, read back and taken
// out again, by the functions that do so in earnest.
#include <array>
#include <span>

#include "Failure.h"
#include "MQuillon.h"
#include "Proof.h"
#include "Removal.h"
#include "Rewriter.h"
#include "TemplateChecks.h"

namespace TemplateChecks {

namespace {

struct Trial {
  TextView procType;
  std::uint32_t without = 0;
  bool trace = false;
};

constexpr TextView ModuleName = u"Module1";
constexpr TextView ProcName = u"Total";

Text SampleCode(TextView procType) {
  if (procType.empty()) return u"Option Explicit\r\nPrivate mlCount As Long";
  const Text base(procType.substr(0, procType.find(u' ')));
  return u"Public " + Text(procType) + u" Total()\r\n    Dim l As Long\r\n    If l = 1 Then Exit " +
         base + u"\r\n    l = 2\r\n    'FireExit: l = 3\r\nEnd " + base;
}

Text NameOf(const Trial& trial) {
  Text name =
      trial.procType.empty() ? Text(u"a declarations section") : u"a " + Text(trial.procType);
  if (trial.without != 0) name += u" without " + NamesOf(trial.without);
  return name + (trial.trace ? u" with trace" : u"");
}

// A template's way into a sample text and out of it again.
class TemplateTrial {
 public:
  TemplateTrial(const TemplateSet& templates, const TemplateRow& row)
      : mTemplates(templates), mRow(row) {}

  /// What went wrong first, or empty.
  Text Run(const Trial& trial) const {
    try {
      return Attempt(trial);
    } catch (const Failure& failure) {
      return failure.Description();
    }
  }

 private:
  Text Attempt(const Trial& trial) const {
    const SectionValues sample = SampleValues(mRow, 0);
    const ProcedureName name{ModuleName, NameIn(trial), trial.procType, sample.project,
                             sample.file};
    const Text before = SampleCode(trial.procType);
    const ParsedProcedure procedure(mTemplates, before, name, 1);
    const Rewrite inserted = Insert(trial, procedure, false);
    if (inserted.Refused()) return Told(u"it can't be put in: ", inserted.refusals);
    const ParsedProcedure after(mTemplates, inserted.text, name, 1);
    const Text lost = LostSetting(trial, after.Settings());
    if (!lost.empty()) return lost;
    const Removal removal = RemoveTemplate(after, mRow, MRules::Values{});
    if (!removal.refusals.empty()) {
      return Told(u"it can't be taken out again: ", removal.refusals);
    }
    if (const auto fault = Proof::FirstDifference(procedure.Code(), removal.code, false)) {
      return MessageOf(*fault);
    }
    return Told({}, Insert(trial, procedure, true).refusals);
  }

  static TextView NameIn(const Trial& trial) {
    return trial.procType.empty() ? MQuillon::DeclarationsName : ProcName;
  }
  static Text Told(TextView what, std::span<const Refusal> refusals) {
    return refusals.empty() ? Text() : Text(what) + MessageOf(refusals.front());
  }

  Rewrite Insert(const Trial& trial, const ParsedProcedure& procedure, bool prove) const {
    const SectionValues values = SampleValues(mRow, trial.without);
    return RewriteProcedure(procedure,
                            {.templateName = mRow.sName,
                             .locked = true,
                             .boundary = values.boundary,
                             .severity = values.severity,
                             .retry = values.retry,
                             .trace = trial.trace},
                            {.prove = prove}, MRules::Values{});
  }

  // A setting that the template writes and that isn't read back would show as not set.
  Text LostSetting(const Trial& trial, const CProcSettings& read) const {
    if (read.sTemplate() != mRow.sName) return u"its name isn't read back from the code";
    const auto isLost = [&](std::uint32_t bit, std::int32_t row, auto value) {
      return row > 0 && (trial.without & bit) == 0 && value == decltype(value)::Unset;
    };
    if (isLost(1, mRow.lBoundary, read.eBoundary())) return LostText(u"Boundary", mRow.lBoundary);
    if (isLost(2, mRow.lSeverity, read.eSeverity())) return LostText(u"Severity", mRow.lSeverity);
    if (isLost(4, mRow.lRetry, read.eRetry())) return LostText(u"Retry", mRow.lRetry);
    const bool traces = mRow.lTrace > 0 || mRow.lTraceExit > 0;
    if (traces && trial.trace != (read.eTrace() == MQuillon::TriState::True)) {
      return u"trace isn't read back from the code; write a line with <#if trace> that no other "
             u"line of the template looks like";
    }
    return {};
  }

  Text LostText(TextView token, std::int32_t row) const {
    return Text(token) + u" isn't read back from the code; the first line with <%" + Text(token) +
           u"> is line " + ToText(mTemplates.Row(row).fileLine) +
           u", and it must be written whenever that is set";
  }

  const TemplateSet& mTemplates;
  const TemplateRow& mRow;
};

void TryTemplate(Findings& findings, const TemplateRow& row, std::span<const TextView> procTypes) {
  const TemplateTrial attempt(findings.Template().Set(), row);
  for (TextView procType : procTypes) {
    for (std::uint32_t without = 0; without < 8; ++without) {
      for (bool trace : {false, true}) {
        const Trial trial{procType, without, trace};
        const Text fault = attempt.Run(trial);
        if (fault.empty()) continue;
        findings.Add(row.lDirectiveLine,
                     {u"A trial of ", row.sName, u" on ", NameOf(trial), u" fails: ", fault});
        return;
      }
    }
  }
}

}  // namespace

void TryTemplates(Findings& findings) {
  static constexpr std::array<TextView, 3> Procedures = {u"Sub", u"Function", u"Property Get"};
  static constexpr std::array<TextView, 1> Declarations = {u""};
  for (const TemplateRow& row : findings.Template().Templates()) {
    if (row.eType == TemplateType::Procedure) TryTemplate(findings, row, Procedures);
    if (row.eType == TemplateType::Module) TryTemplate(findings, row, Declarations);
  }
}

}  // namespace TemplateChecks
