// Reads the lines of a template file into the two tables of a CTemplate. Lines end in CR LF and
// count from 1, comments and blank lines included. After trimming, in lower case, a line is
//
//   <## text                         a comment, when the blank is there
//   <#name key=value key='a value'>  a directive
//   <#if condition>text              a script line that is written under that condition
//   text                             a script line
//
// A fault is reported with its line and counted, and reading goes on, so that one load shows all
// faults of a file. A text that can't be taken apart into lines at all (it ends its lines in LF
// alone, it is UTF-16, it has more than 32,767 lines) gives one message and leaves the tables as
// they were.
#pragma once

#include <cstdint>
#include <string_view>

#include "CTag.h"
#include "CTemplate.h"
#include "Text.h"

class TemplateLoader {
 public:
  /// oTemplate must outlive the loader. Announces the file.
  TemplateLoader(CTemplate& oTemplate, TextView sFile);

  /// In the place of a load, when the file couldn't be read and the user goes on without it.
  void ReportUnread();
  /// The contents of a file: UTF-8 if they can be nothing else, or else code page 1252.
  void LoadBytes(std::string_view sBytes);
  /// Appends to the tables and ends with the result of the load as a message.
  void LoadText(TextView sText);

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

  void LoadLines(TextView sText);
  void LoadLine(TextView sLine);
  /// eDirective: NoDirective for one that is broken or unknown, which is reported here.
  void IsDirective(TextView sTrimmedLower, Directive& eDirective, bool& bDirective);
  void LoadDirective(Directive eDirective, TextView sLine);
  void LoadTemplateDirective();
  void LoadTemplateName(TemplateRow& oRow);
  void LoadTemplateType(TemplateRow& oRow);
  static Section SectionOf(Directive eDirective);
  void LoadPlace(Directive eDirective);
  void LoadScriptLine(TextView sLine, TextView sTrimmedLower);
  void NoteRoles(const Text& sFolded, const LineRow& oLine);
  void RememberPattern(const LikePattern& oPattern);
  void ValidateTemplate(std::int32_t lTemplate);
  void ReportError(std::int32_t lLine, TextView sMessage);
  void ReportResult();

  bool HasTemplate() const { return moTemplate.moSet.templates.size() > 1; }
  TemplateRow& LastTemplate() { return moTemplate.moSet.templates.back(); }
  std::int32_t LastRow() const {
    return static_cast<std::int32_t>(moTemplate.moSet.lines.size()) - 1;
  }
  void AddDirectiveRow();

  CTemplate& moTemplate;
  Text msFile;
  CTag moTag;
  std::int32_t mlLine = 0;
  Directive meLastDirective = NoDirective;
  /// Of the last script line that isn't blank. Kept across templates: a place without lines of its
  /// own ahead of it still gets a pattern, and TemplateCheck tells that it won't be found.
  LikePattern moLastPattern;
};
