// The template engine by its operations: one loaded template file, the account of a batch, and the
// rewriting of single texts, with events for whoever listens. Behind the rewriting stand functions
// that report nothing and change nothing (Rewriter.h, Insertion.h, Removal.h); the model of the
// group calls those.
//
// A template file says which lines of code go around a procedure; the same lines, made patterns,
// find that code again. Procedure text (sProcCode) is one string, lines joined by CR LF; lBodyLine
// is the number, from 1 within that text, of the line that begins the procedure's head. An
// operation that refuses sets bErrors, tells why through ReportError (a message begins with four
// blanks) and leaves sProcCode as it was.
//
//   CTemplate engine(MRules::oRules);
//   auto link = engine.ReportError.Connect([](TextView s) { ... });
//   engine.LoadTemplateFile(u"Template.dat");
//   if (engine.LoadErrors() == 0) engine.InsertTemplate(...);
//
// Rows of both tables count from 1; row 0 is empty and means no row. One thread; a sink of
// ReportError must not call back.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "CProcSettings.h"
#include "Choices.h"
#include "MRules.h"
#include "Refusal.h"
#include "Signal.h"
#include "TemplateSet.h"
#include "Text.h"

/// What a line of a batch's account says.
enum class BatchLine { Item, Problem, Total };

class CTemplate {
 public:
  /// The rules must outlive this object; numbering and removal read it at each call.
  explicit CTemplate(const MRules::Values& rules);

  Signal<TextView> ReportError;
  Signal<TextView> ReportDump;
  /// Raised ahead of ReportError for each fault of a template file: its line there and what it is,
  /// for programs that tell places in another way.
  Signal<std::int32_t, TextView> ReportFault;
  /// Raised beside ReportError for each line of a batch's account, for programs that show some of
  /// them in another way.
  Signal<BatchLine, TextView> ReportBatch;

  /// Puts a template in. The text must hold no template. sProcType: "Sub", "Function",
  /// "Property Get|Let|Set", empty for "(declarations)". sBoundary, sSeverity, sRetry: constant
  /// names, empty leaves their lines out. sProject, sFile: for rows that name them.
  void InsertTemplate(TextView sModuleName, TextView sProcName, TextView sProcType, Text& sProcCode,
                      std::int32_t lBodyLine, TextView sTemplate, bool bLocked, TextView sBoundary,
                      TextView sSeverity, TextView sRetry, bool bTrace,
                      MQuillon::LineNumAction eLineNumAction, bool& bErrors, TextView sProject = {},
                      TextView sFile = {});
  /// Takes the named template out. Refuses when a line of the template's sections fits no row.
  void RemoveTemplate(TextView sModuleName, TextView sProcName, TextView sProcType, Text& sProcCode,
                      std::int32_t lBodyLine, TextView sTemplate, bool& bErrors);
  /// Reads and loads a file; messages go through ReportError, faults are counted in LoadErrors.
  /// A file that can't be read throws a Failure with its path; if the user goes on behind it, it
  /// is a fault of the load.
  void LoadTemplateFile(TextView sTemplateFile);
  /// As above for text that is at hand; file is used in messages only.
  void LoadTemplateText(TextView file, TextView text);
  void PrintTemplateFile();
  /// Fills what is 0 in the settings from the procedure's text.
  void ExtractProcSettings(TextView sProcCode, CProcSettings& oProcSettings) const;
  /// Sparse arrays over the template rows: element i is the name of row i or empty.
  void GetModuleTemplates(TextArray& names) const;
  void GetProcTemplates(TextArray& names) const;
  void BatchStart();
  void BatchSummary();
  std::int32_t LoadErrors() const { return mLoadErrors; }
  /// True when the template inherits module defaults. Exact name; the last row of it decides.
  bool Inherit(TextView sTemplate) const;
  void BatchItem(TextView sModuleName, TextView sProcName);
  void BatchError();
  void InsertSignatureOnly(TextView sProcName, TextView sProcType, Text& sProcCode,
                           std::int32_t lBodyLine, bool bLocked, bool& bErrors);
  void RemoveSignatureOnly(Text& sProcCode, bool& bErrors);
  /// Puts sTraceExit in front of the first Exit statement of each line. Lines from 1 (element 0
  /// unused), both ends included; sProcType is the base type.
  static void DoTraceExits(TextArray& asLine, std::int32_t lStartLine, std::int32_t lEndLine,
                           TextView sProcType, TextView sTraceExit);

  /// The tables of the loaded file, for everything that rewrites. Good until the next load.
  const TemplateSet& Set() const { return mSet; }
  /// Tells why a procedure is left alone, a message each, and counts it as a failure of the batch.
  void BatchRefused(std::span<const Refusal> refusals);
  /// Tells what went wrong with a procedure that was rewritten all the same.
  void BatchNote(TextView message);

  std::int32_t BatchItems() const { return mBatchItems; }
  std::int32_t BatchErrors() const { return mBatchErrors; }
  /// Row of a template by name without regard to case, 0 if there is none.
  std::int32_t LookupTemplate(TextView sTemplate) const;
  const std::vector<TemplateRow>& Templates() const { return mSet.templates; }
  const std::vector<LineRow>& Lines() const { return mSet.lines; }

 private:
  friend class TemplateLoader;

  void TellBatch(BatchLine line, TextView message);
  /// Reports what refuses a text; bErrors is set when there is anything.
  void Tell(std::span<const Refusal> refusals, bool& bErrors);

  const MRules::Values& mRules;
  TemplateSet mSet;
  std::int32_t mLoadErrors = 0;
  std::int32_t mBatchItems = 0;
  std::int32_t mBatchErrors = 0;
};
