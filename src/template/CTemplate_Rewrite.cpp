// The operations that rewrite a single text: each takes it apart, calls the function that does the
// work, and takes the result over only when nothing refused it.
#include "CTemplate.h"
#include "CodeSettings.h"
#include "Guard.h"
#include "Insertion.h"
#include "MQuillon.h"
#include "ParsedProcedure.h"
#include "Removal.h"
#include "Rewriter.h"
#include "TraceExits.h"

namespace {

/// The template that a rewrite names, or why there is none.
const TemplateRow* FindTemplate(const TemplateSet& templates, TextView name,
                                std::vector<Refusal>& refusals) {
  if (Trim(name).empty()) {
    refusals.push_back({RefusalKind::NoTemplateNamed});
    return nullptr;
  }
  const TemplateRow* const row = templates.Find(name);
  if (!row) refusals.push_back({RefusalKind::TemplateNotFound, 0, Text(name)});
  return row;
}

}  // namespace

void CTemplate::Tell(std::span<const Refusal> refusals, bool& bErrors) {
  for (const Refusal& refusal : refusals) {
    bErrors = true;
    ReportError(u"    " + MessageOf(refusal));
  }
}

void CTemplate::InsertTemplate(TextView sModuleName, TextView sProcName, TextView sProcType,
                               Text& sProcCode, std::int32_t lBodyLine, TextView sTemplate,
                               bool bLocked, TextView sBoundary, TextView sSeverity,
                               TextView sRetry, bool bTrace, MQuillon::LineNumAction eLineNumAction,
                               bool& bErrors, TextView sProject, TextView sFile) {
  bErrors = true;  // until the work has come to its end
  Guard({u"CTemplate", u"InsertTemplate"}, [&](GuardScope&) {
    bErrors = false;
    std::vector<Refusal> refusals;
    const TemplateRow* const row = FindTemplate(mSet, sTemplate, refusals);
    if (!row) return Tell(refusals, bErrors);
    const ParsedProcedure procedure(
        mSet, sProcCode, {sModuleName, sProcName, sProcType, sProject, sFile}, lBodyLine);
    const WantedSettings wanted{sTemplate, true, bLocked, sBoundary, sSeverity, sRetry, bTrace};
    const ProcText clean = mSet.Signatures().WithoutLocks(procedure.Code(), lBodyLine);
    Insertion insertion = ::InsertTemplate({.templates = mSet,
                                            .rules = mRules,
                                            .row = *row,
                                            .values = ValuesFor(procedure, wanted),
                                            .declarations = procedure.IsDeclarations(),
                                            .locked = bLocked,
                                            .signedCode = procedure.IsSigned(),
                                            .headLine = lBodyLine,
                                            .numbering = eLineNumAction},
                                           clean);
    Tell(insertion.refusals, bErrors);
    if (!bErrors) sProcCode = std::move(insertion.text);
  });
}

void CTemplate::RemoveTemplate(TextView sModuleName, TextView sProcName, TextView sProcType,
                               Text& sProcCode, std::int32_t lBodyLine, TextView sTemplate,
                               bool& bErrors) {
  bErrors = true;
  Guard({u"CTemplate", u"RemoveTemplate"}, [&](GuardScope&) {
    bErrors = false;
    std::vector<Refusal> refusals;
    const TemplateRow* const row = FindTemplate(mSet, sTemplate, refusals);
    if (!row) return Tell(refusals, bErrors);
    const ParsedProcedure procedure(mSet, sProcCode, {sModuleName, sProcName, sProcType},
                                    lBodyLine);
    const Removal removal = ::RemoveTemplate(procedure, *row, mRules);
    Tell(removal.refusals, bErrors);
    if (bErrors) return;
    Text text = removal.code.Joined();
    // A declarations section comes back with a line end behind its last line.
    if (procedure.IsDeclarations() && removal.code.Count() > 0) text.append(CrLf);
    sProcCode = std::move(text);
  });
}

void CTemplate::InsertSignatureOnly(TextView sProcName, TextView, Text& sProcCode,
                                    std::int32_t lBodyLine, bool bLocked, bool& bErrors) {
  bErrors = true;
  Guard({u"CTemplate", u"InsertSignatureOnly"}, [&](GuardScope&) {
    bErrors = false;
    const ProcText code(sProcCode);
    const LockedCode locked =
        WithLock(mSet, code, lBodyLine, sProcName == MQuillon::DeclarationsName, bLocked);
    Tell(locked.refusals, bErrors);
    if (!bErrors) sProcCode = locked.code.Joined();
  });
}

void CTemplate::RemoveSignatureOnly(Text& sProcCode, bool& bErrors) {
  bErrors = true;
  Guard({u"CTemplate", u"RemoveSignatureOnly"}, [&](GuardScope&) {
    bErrors = false;
    const ProcText code(sProcCode);
    ProcText kept;
    bool drop = false;  // blank lines go with the signature that they stand behind
    for (std::size_t i = 0; i < code.Count(); ++i) {
      if (!code.Folded(i).empty()) {
        drop = mSet.Signatures().IsSignature(code.Folded(i)) && !code.IsContinued(i);
      }
      if (!drop) kept.Keep(code, i, i + 1);
    }
    sProcCode = kept.Joined();
  });
}

void CTemplate::ExtractProcSettings(TextView sProcCode, CProcSettings& oProcSettings) const {
  CodeSettings::Read(mSet, sProcCode, oProcSettings);
}

void CTemplate::DoTraceExits(TextArray& asLine, std::int32_t lStartLine, std::int32_t lEndLine,
                             TextView sProcType, TextView sTraceExit) {
  const TextView traceExit = Trim(sTraceExit);
  if (traceExit.empty()) return;
  for (std::int32_t l = lStartLine; l <= lEndLine; ++l) {
    Text& line = asLine[static_cast<std::size_t>(l)];
    line = TraceExits::Insert(line, sProcType, traceExit);
  }
}
