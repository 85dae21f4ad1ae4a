// Reads the lines of a template file into the two tables of a CTemplate. Lines end in CR LF and
// count from 1, comments and blank lines included. After trimming, in lower case, a line is
//
//   <## text                         a comment, when the blank is there
//   <#name key=value key='a value'>  a directive
//   <#if condition>text              a script line that is written under that condition
//   <#if optional>text               a script line that may be missing in code
//   text                             a script line
//
// A fault is reported with its line and counted, and reading goes on, so that one load shows all
// faults of a file. A text that can't be taken apart into lines at all (it ends its lines in LF
// alone, it is UTF-16, it has more than 32,767 lines) gives one message and leaves the tables as
// they were.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "CTag.h"
#include "CTemplate.h"
#include "Text.h"

class TemplateLoader {
 public:
  /// engine must outlive the loader. Announces the file.
  TemplateLoader(CTemplate& engine, TextView file);

  /// In the place of a load, when the file couldn't be read and the user goes on without it.
  void ReportUnread();
  /// The contents of a file: UTF-8 if they can be nothing else, or else code page 1252.
  void LoadBytes(std::string_view bytes);
  /// Appends to the tables and ends with the result of the load as a message.
  void LoadText(TextView text);

 private:
  enum Directive : std::int32_t {
    NoDirective,
    DirectiveTemplate,
    DirectiveStart,
    DirectiveBodyStart,
    DirectiveBodyEnd,
    DirectiveFireStart,
    DirectiveFireEnd,
    DirectiveEnd
  };

  void LoadLines(TextView text);
  void LoadLine(TextView line);
  /// Nothing for a line that is no directive; NoDirective for one that is broken or unknown, which
  /// is reported here.
  std::optional<Directive> DirectiveIn(TextView trimmedLower);
  void LoadDirective(Directive directive, TextView line);
  void LoadTemplateDirective();
  void LoadTemplateName(TemplateRow& row);
  void LoadTemplateType(TemplateRow& row);
  static Section SectionOf(Directive directive);
  void LoadPlace(Directive directive);
  void LoadScriptLine(TextView line, TextView trimmedLower);
  /// An optional row may be missing in code: only a row that does nothing can be.
  void CheckOptional(TextView folded);
  void NoteRoles(const Text& folded, const LineRow& scriptRow);
  void RememberPattern(const LikePattern& pattern);
  void ValidateTemplate(std::int32_t number);
  /// The rows beside body and clean-up code tell where these are, and must be there.
  void CheckBorders(const TemplateRow& row);
  void ReportError(std::int32_t lineNumber, TextView message);
  void ReportResult();

  bool HasTemplate() const { return mEngine.mSet.templates.size() > 1; }
  TemplateRow& LastTemplate() { return mEngine.mSet.templates.back(); }
  std::int32_t LastRow() const { return static_cast<std::int32_t>(mEngine.mSet.lines.size()) - 1; }
  void AddDirectiveRow();

  CTemplate& mEngine;
  Text mFile;
  CTag mTag;
  std::int32_t mLine = 0;
  Directive mLastDirective = NoDirective;
  /// Of the last script line that isn't blank. Kept across templates: a place without lines of its
  /// own ahead of it still gets a pattern, and TemplateCheck tells that it won't be found.
  LikePattern mLastPattern;
};
