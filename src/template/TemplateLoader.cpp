// In order: the physical form, the kinds of lines, directives, script lines, messages. The rules
// for a whole template stand in TemplateValidation.cpp.
#include "TemplateLoader.h"

#include <algorithm>
#include <array>
#include <string>

#include "CodePage.h"
#include "Failure.h"
#include "IErrorRuntime.h"
#include "MXString.h"
#include "ProcText.h"

namespace {

constexpr std::int32_t MaxLines = 32767;

Text Quoted(TextView text) {
  return u'"' + Text(text) + u'"';
}

bool IsConditional(TextView trimmedLower) {
  return trimmedLower.starts_with(u"<#if ");
}

bool IsUtf16(std::string_view bytes) {
  return bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
}

// Version control on other systems likes to take the CR out of every line end. Such a file would
// be a single line, and its one message would lead nowhere.
bool HasForeignLineEnds(TextView text) {
  return text.find(u'\n') != TextView::npos && text.find(CrLf) == TextView::npos;
}

// Each <%...> becomes a star; one that isn't closed stays as it is.
Text PatternOf(TextView folded) {
  Text pattern;
  std::size_t pos = 0;
  for (;;) {
    const std::size_t open = folded.find(u"<%", pos);
    const std::size_t close = open == TextView::npos ? TextView::npos : folded.find(u'>', open);
    if (close == TextView::npos) return pattern.append(folded.substr(pos));
    pattern.append(folded.substr(pos, open - pos)).push_back(u'*');
    pos = close + 1;
  }
}

// Takes a condition off the line; what is left is the text, indentation behind the ">" included.
Text TakeCondition(TextView& line) {
  const std::size_t close = line.find(u'>');
  if (close == TextView::npos) return {};
  const std::size_t begin = line.find(u'<') + TextView(u"<#if ").size();
  const Text condition = LowerCase(line.substr(begin, close - begin));
  line.remove_prefix(close + 1);
  return condition;
}

void SetIfFirst(std::int32_t& place, std::int32_t number, bool fits) {
  if (place == 0 && fits) place = number;
}

bool Holds(TextView text, TextView part) {
  return text.find(part) != TextView::npos;
}

}  // namespace

TemplateLoader::TemplateLoader(CTemplate& engine, TextView file) : mEngine(engine), mFile(file) {
  mEngine.ReportError(u"Processing Template File " + Quoted(file));
}

void TemplateLoader::ReportUnread() {
  ReportError(1, u"The file " + Quoted(mFile) + u" could not be read; open it again");
  ReportResult();
}

void TemplateLoader::LoadBytes(std::string_view bytes) {
  if (IsUtf16(bytes)) {
    ReportError(1, u"The file " + Quoted(mFile) +
                       u" is UTF-16 text; save it in the ANSI code page or in UTF-8");
    ReportResult();
    return;
  }
  const Text text = CodePage::Detect(bytes, CodePage::Get("1252")).Decode(bytes);
  TextView lines = text;
  if (lines.starts_with(u'\uFEFF')) lines.remove_prefix(1);
  LoadText(lines);
}

void TemplateLoader::LoadText(TextView text) {
  if (HasForeignLineEnds(text)) {
    ReportError(1, u"The lines of " + Quoted(mFile) +
                       u" end in LF alone; convert the file to CR LF line ends");
  } else {
    LoadLines(text);
  }
  mEngine.mSet.Prepare();
  ReportResult();
}

void TemplateLoader::LoadLines(TextView text) {
  std::vector<TextView> lines;
  try {
    lines = SplitLines(text);
  } catch (const Failure&) {
    ReportError(MaxLines + 1, u"The file " + Quoted(mFile) +
                                  u" has more than 32767 lines; take out what isn't needed");
    return;
  }
  for (TextView line : lines) {
    ++mLine;
    LoadLine(line);
  }
  ValidateTemplate(static_cast<std::int32_t>(mEngine.mSet.templates.size()) - 1);
}

void TemplateLoader::LoadLine(TextView line) {
  const Text trimmedLower = LowerCase(Trim(line));
  if (trimmedLower.starts_with(u"<## ")) return;

  if (const std::optional<Directive> directive = DirectiveIn(trimmedLower)) {
    // A broken directive counts as the last one as well, so it opens a closed template again:
    // better too many messages than lines that silently go missing.
    mLastDirective = *directive;
    LoadDirective(*directive, line);
  } else if (mLastDirective != DirectiveEnd) {
    LoadScriptLine(line, trimmedLower);
  }
}

std::optional<TemplateLoader::Directive> TemplateLoader::DirectiveIn(TextView trimmedLower) {
  static constexpr std::array<TextView, 8> Names = {
      u"",          u"<#template",      u"<#start",       u"<#bodystart",
      u"<#bodyend", u"<#fireexitstart", u"<#fireexitend", u"<#end"};
  if (!trimmedLower.starts_with(u"<#") || IsConditional(trimmedLower)) return std::nullopt;
  if (!Holds(trimmedLower, u">")) {
    ReportError(mLine, u"Close Chevron missing from Directive " + Text(trimmedLower));
    return NoDirective;
  }
  const TextView name = trimmedLower.substr(0, trimmedLower.find_first_of(u" >"));
  const auto found = std::find(Names.begin() + 1, Names.end(), name);
  if (found != Names.end()) return static_cast<Directive>(found - Names.begin());
  ReportError(mLine, u"Unknown Directive " + Text(name));
  return NoDirective;
}

void TemplateLoader::LoadDirective(Directive directive, TextView line) {
  mTag.SetTag(Trim(line));
  if (directive == DirectiveTemplate) {
    LoadTemplateDirective();
  } else if (!HasTemplate()) {
    ReportError(mLine, u"Directive found without preceding #Template directive");
  } else if (directive != NoDirective) {
    LoadPlace(directive);
  }
}

void TemplateLoader::AddDirectiveRow() {
  mEngine.mSet.lines.emplace_back();
  mEngine.mSet.lines.back().fileLine = mLine;
}

void TemplateLoader::LoadTemplateDirective() {
  ValidateTemplate(static_cast<std::int32_t>(mEngine.mSet.templates.size()) - 1);
  TemplateRow& row = mEngine.mSet.templates.emplace_back();
  AddDirectiveRow();
  row.lStart.values.fill(-1);
  row.lStart[Section::Global] = LastRow();
  row.lDirectiveLine = mLine;
  LoadTemplateName(row);
  Text inherit = mTag.Parameter(u"inherit");
  if (inherit.empty()) inherit = mTag.Parameter(u"usemoduledefaults");
  row.bInherit = EqualNoCase(inherit, u"true");
  LoadTemplateType(row);
}

void TemplateLoader::LoadTemplateName(TemplateRow& row) {
  row.sName = mTag.Parameter(u"name");
  mEngine.ReportError(u"Processing Template " + Quoted(row.sName));
  if (row.sName.empty()) {
    ReportError(mLine, u"Name Parameter Missing from Template Directive");
  } else if (!MXString::IsAlphaNumeric(row.sName, u"_.")) {
    ReportError(mLine, u"Name Parameter contains Invalid Characters");
  }
}

void TemplateLoader::LoadTemplateType(TemplateRow& row) {
  const Text type = LowerCase(mTag.Parameter(u"type"));
  if (type == u"signature") {
    row.eType = TemplateType::Signature;
  } else if (type == u"module") {
    row.eType = TemplateType::Module;
  } else if (type == u"procedure") {
    row.eType = TemplateType::Procedure;
  } else {
    ReportError(mLine, type.empty() ? TextView(u"Type Parameter Missing from Template Directive")
                                    : TextView(u"Type Parameter Invalid"));
  }
}

Section TemplateLoader::SectionOf(Directive directive) {
  // The sections are in the order of their directives.
  return static_cast<Section>(directive - DirectiveTemplate);
}

void TemplateLoader::LoadPlace(Directive directive) {
  const Section section = SectionOf(directive);
  TemplateRow& row = LastTemplate();
  AddDirectiveRow();
  if (row.lStart[section] < 0) {
    row.lStart[section] = LastRow();
  } else {
    ReportError(mLine, u"Duplicate Directive");
  }

  const Text like = mTag.Parameter(u"like");
  if (!like.empty()) {
    row.sLike[section] = LikePattern(like);
  } else if (directive == DirectiveBodyStart || directive == DirectiveFireStart) {
    row.sLike[section] = mLastPattern;
  }
  if (directive == DirectiveEnd) {
    // Stretches of rows run to the row of <#End>; one row behind it may be looked at.
    AddDirectiveRow();
    ValidateTemplate(static_cast<std::int32_t>(mEngine.mSet.templates.size()) - 1);
  }
}

void TemplateLoader::LoadScriptLine(TextView line, TextView trimmedLower) {
  if (!HasTemplate()) {
    ReportError(mLine, u"Script line found without preceding #Template directive");
    return;
  }
  LineRow scriptRow;
  scriptRow.script = true;
  scriptRow.fileLine = mLine;
  if (IsConditional(trimmedLower)) scriptRow.sIfCondition = TakeCondition(line);
  scriptRow.sLine = Text(line);
  Text folded;
  MXString::FoldLine(line, folded);
  if (scriptRow.sIfCondition == u"optional") CheckOptional(folded);
  scriptRow.sLike = LikePattern(PatternOf(folded));

  mEngine.mSet.lines.push_back(scriptRow);
  NoteRoles(folded, scriptRow);
  if (!scriptRow.sLike.IsEmpty()) RememberPattern(scriptRow.sLike);
}

void TemplateLoader::CheckOptional(TextView folded) {
  if (LastTemplate().eType == TemplateType::Signature) {
    ReportError(mLine, u"Optional Line found in Signature type Template");
  } else if (CommentStart(folded) > 0) {
    ReportError(mLine, u"Optional Line holds Code; only a Comment or a blank Line may be optional");
  }
}

void TemplateLoader::NoteRoles(const Text& folded, const LineRow& scriptRow) {
  TemplateRow& row = LastTemplate();
  const std::int32_t number = LastRow();
  SetIfFirst(row.lBoundary, number, Holds(folded, u"<%boundary>"));
  SetIfFirst(row.lSeverity, number, Holds(folded, u"<%severity>"));
  SetIfFirst(row.lRetry, number, Holds(folded, u"<%retry>"));
  SetIfFirst(row.lTrace, number, scriptRow.sIfCondition == u"trace");
  // The text as it stands: a blank that ends the line counts here.
  const Text lower = LowerCase(scriptRow.sLine);
  if (Holds(lower, u".traceexit ") || Holds(lower, u".traceexit(")) row.lTraceExit = number;
}

void TemplateLoader::RememberPattern(const LikePattern& pattern) {
  mLastPattern = pattern;
  if (mLastDirective != DirectiveBodyEnd && mLastDirective != DirectiveFireEnd) return;
  LikePattern& place = LastTemplate().sLike[SectionOf(mLastDirective)];
  if (place.IsEmpty()) place = pattern;
}

void TemplateLoader::ReportError(std::int32_t lineNumber, TextView message) {
  if (message.empty()) return;
  mEngine.ReportFault(lineNumber, message);
  mEngine.ReportError(u"    Line " + ToText(lineNumber) + u' ' + Text(message));
  goError->CloseError(1);
  ++mEngine.mLoadErrors;
}

void TemplateLoader::ReportResult() {
  if (mEngine.mLoadErrors == 0) {
    mEngine.ReportError(u"No Errors - Template File Loaded\r\n");
    return;
  }
  mEngine.ReportError(ToText(mEngine.mLoadErrors) + u" Errors Found");
  goError->CloseError(1);
}
