// In order: the physical form, the kinds of lines, directives, script lines, messages. The rules
// for a whole template stand in TemplateValidation.cpp.
#include "TemplateLoader.h"

#include <array>
#include <string>

#include "CodePage.h"
#include "Failure.h"
#include "IErrorRuntime.h"
#include "MXString.h"

namespace {

constexpr std::int32_t MaxLines = 32767;

Text Quoted(TextView sText) {
  return u'"' + Text(sText) + u'"';
}

bool IsConditional(TextView sTrimmedLower) {
  return sTrimmedLower.starts_with(u"<#if ");
}

bool IsUtf16(std::string_view sBytes) {
  return sBytes.starts_with("\xFF\xFE") || sBytes.starts_with("\xFE\xFF");
}

// Version control on other systems likes to take the CR out of every line end. Such a file would
// be a single line, and its one message would lead nowhere.
bool HasForeignLineEnds(TextView sText) {
  return sText.find(u'\n') != TextView::npos && sText.find(CrLf) == TextView::npos;
}

// Each <%...> becomes a star; one that isn't closed stays as it is.
Text PatternOf(TextView sFolded) {
  Text sPattern;
  std::size_t lPos = 0;
  for (;;) {
    const std::size_t lOpen = sFolded.find(u"<%", lPos);
    const std::size_t lClose = lOpen == TextView::npos ? TextView::npos : sFolded.find(u'>', lOpen);
    if (lClose == TextView::npos) return sPattern.append(sFolded.substr(lPos));
    sPattern.append(sFolded.substr(lPos, lOpen - lPos)).push_back(u'*');
    lPos = lClose + 1;
  }
}

// Takes a condition off the line; what is left is the text, indentation behind the ">" included.
Text TakeCondition(TextView& sLine) {
  const std::size_t lClose = sLine.find(u'>');
  if (lClose == TextView::npos) return {};
  const std::size_t lCondition = sLine.find(u'<') + TextView(u"<#if ").size();
  const Text sCondition = LowerCase(sLine.substr(lCondition, lClose - lCondition));
  sLine.remove_prefix(lClose + 1);
  return sCondition;
}

void SetIfFirst(std::int32_t& lPlace, std::int32_t lRow, bool bFits) {
  if (lPlace == 0 && bFits) lPlace = lRow;
}

bool Holds(TextView sText, TextView sPart) {
  return sText.find(sPart) != TextView::npos;
}

}  // namespace

TemplateLoader::TemplateLoader(CTemplate& oTemplate, TextView sFile)
    : moTemplate(oTemplate), msFile(sFile) {
  moTemplate.ReportError(u"Processing Template File " + Quoted(sFile));
}

void TemplateLoader::ReportUnread() {
  ReportError(1, u"The file " + Quoted(msFile) + u" could not be read; open it again");
  ReportResult();
}

void TemplateLoader::LoadBytes(std::string_view sBytes) {
  if (IsUtf16(sBytes)) {
    ReportError(1, u"The file " + Quoted(msFile) +
                       u" is UTF-16 text; save it in the ANSI code page or in UTF-8");
    ReportResult();
    return;
  }
  const Text sText = CodePage::Detect(sBytes, CodePage::Get("1252")).Decode(sBytes);
  TextView sLines = sText;
  if (sLines.starts_with(u'\uFEFF')) sLines.remove_prefix(1);
  LoadText(sLines);
}

void TemplateLoader::LoadText(TextView sText) {
  if (HasForeignLineEnds(sText)) {
    ReportError(1, u"The lines of " + Quoted(msFile) +
                       u" end in LF alone; convert the file to CR LF line ends");
  } else {
    LoadLines(sText);
  }
  moTemplate.moSet.Prepare();
  ReportResult();
}

void TemplateLoader::LoadLines(TextView sText) {
  std::vector<TextView> asLine;
  try {
    asLine = SplitLines(sText);
  } catch (const Failure&) {
    ReportError(MaxLines + 1, u"The file " + Quoted(msFile) +
                                  u" has more than 32767 lines; take out what isn't needed");
    return;
  }
  for (TextView sLine : asLine) {
    ++mlLine;
    LoadLine(sLine);
  }
  ValidateTemplate(static_cast<std::int32_t>(moTemplate.moSet.templates.size()) - 1);
}

void TemplateLoader::LoadLine(TextView sLine) {
  const Text sTrimmedLower = LowerCase(Trim(sLine));
  if (sTrimmedLower.starts_with(u"<## ")) return;

  Directive eDirective;
  bool bDirective = false;
  IsDirective(sTrimmedLower, eDirective, bDirective);
  if (bDirective) {
    // A broken directive counts as the last one as well, so it opens a closed template again:
    // better too many messages than lines that silently go missing.
    meLastDirective = eDirective;
    LoadDirective(eDirective, sLine);
  } else if (meLastDirective != DirectiveEnd) {
    LoadScriptLine(sLine, sTrimmedLower);
  }
}

void TemplateLoader::IsDirective(TextView sTrimmedLower, Directive& eDirective, bool& bDirective) {
  static constexpr std::array<TextView, 8> asDirective = {
      u"",          u"<#template",      u"<#start",       u"<#bodystart",
      u"<#bodyend", u"<#fireexitstart", u"<#fireexitend", u"<#end"};
  eDirective = NoDirective;
  if (!sTrimmedLower.starts_with(u"<#") || IsConditional(sTrimmedLower)) return;
  bDirective = true;
  if (!Holds(sTrimmedLower, u">")) {
    ReportError(mlLine, u"Close Chevron missing from Directive " + Text(sTrimmedLower));
    return;
  }
  const TextView sName = sTrimmedLower.substr(0, sTrimmedLower.find_first_of(u" >"));
  for (std::size_t i = 1; i < asDirective.size(); ++i) {
    if (sName == asDirective[i]) eDirective = static_cast<Directive>(i);
  }
  if (eDirective == NoDirective) ReportError(mlLine, u"Unknown Directive " + Text(sName));
}

void TemplateLoader::LoadDirective(Directive eDirective, TextView sLine) {
  moTag.SetTag(Trim(sLine));
  if (eDirective == DirectiveTemplate) {
    LoadTemplateDirective();
  } else if (!HasTemplate()) {
    ReportError(mlLine, u"Directive found without preceding #Template directive");
  } else if (eDirective != NoDirective) {
    LoadPlace(eDirective);
  }
}

void TemplateLoader::AddDirectiveRow() {
  moTemplate.moSet.lines.emplace_back();
  moTemplate.moSet.lines.back().lFileLine = mlLine;
}

void TemplateLoader::LoadTemplateDirective() {
  ValidateTemplate(static_cast<std::int32_t>(moTemplate.moSet.templates.size()) - 1);
  TemplateRow& oRow = moTemplate.moSet.templates.emplace_back();
  AddDirectiveRow();
  oRow.lStart.values.fill(-1);
  oRow.lStart[Section::Global] = LastRow();
  oRow.lDirectiveLine = mlLine;
  LoadTemplateName(oRow);
  Text sInherit = moTag.Parameter(u"inherit");
  if (sInherit.empty()) sInherit = moTag.Parameter(u"usemoduledefaults");
  oRow.bInherit = EqualNoCase(sInherit, u"true");
  LoadTemplateType(oRow);
}

void TemplateLoader::LoadTemplateName(TemplateRow& oRow) {
  oRow.sName = moTag.Parameter(u"name");
  moTemplate.ReportError(u"Processing Template " + Quoted(oRow.sName));
  if (oRow.sName.empty()) {
    ReportError(mlLine, u"Name Parameter Missing from Template Directive");
  } else if (!MXString::IsAlphaNumeric(oRow.sName, u"_.")) {
    ReportError(mlLine, u"Name Parameter contains Invalid Characters");
  }
}

void TemplateLoader::LoadTemplateType(TemplateRow& oRow) {
  const Text sType = LowerCase(moTag.Parameter(u"type"));
  if (sType == u"signature") {
    oRow.eType = TemplateType::Signature;
  } else if (sType == u"module") {
    oRow.eType = TemplateType::Module;
  } else if (sType == u"procedure") {
    oRow.eType = TemplateType::Procedure;
  } else {
    ReportError(mlLine, sType.empty() ? TextView(u"Type Parameter Missing from Template Directive")
                                      : TextView(u"Type Parameter Invalid"));
  }
}

Section TemplateLoader::SectionOf(Directive eDirective) {
  // The sections are in the order of their directives.
  return static_cast<Section>(eDirective - DirectiveTemplate);
}

void TemplateLoader::LoadPlace(Directive eDirective) {
  const Section eSection = SectionOf(eDirective);
  TemplateRow& oRow = LastTemplate();
  AddDirectiveRow();
  if (oRow.lStart[eSection] < 0) {
    oRow.lStart[eSection] = LastRow();
  } else {
    ReportError(mlLine, u"Duplicate Directive");
  }

  const Text sLike = moTag.Parameter(u"like");
  if (!sLike.empty()) {
    oRow.sLike[eSection] = LikePattern(sLike);
  } else if (eDirective == DirectiveBodyStart || eDirective == DirectiveFireStart) {
    oRow.sLike[eSection] = moLastPattern;
  }
  if (eDirective == DirectiveEnd) {
    // Stretches of rows run to the row of <#End>; one row behind it may be looked at.
    AddDirectiveRow();
    ValidateTemplate(static_cast<std::int32_t>(moTemplate.moSet.templates.size()) - 1);
  }
}

void TemplateLoader::LoadScriptLine(TextView sLine, TextView sTrimmedLower) {
  if (!HasTemplate()) {
    ReportError(mlLine, u"Script line found without preceding #Template directive");
    return;
  }
  LineRow oLine;
  oLine.bScript = true;
  oLine.lFileLine = mlLine;
  if (IsConditional(sTrimmedLower)) oLine.sIfCondition = TakeCondition(sLine);
  oLine.sLine = Text(sLine);
  Text sFolded;
  MXString::FoldLine(sLine, sFolded);
  oLine.sLike = LikePattern(PatternOf(sFolded));

  moTemplate.moSet.lines.push_back(oLine);
  NoteRoles(sFolded, oLine);
  if (!oLine.sLike.IsEmpty()) RememberPattern(oLine.sLike);
}

void TemplateLoader::NoteRoles(const Text& sFolded, const LineRow& oLine) {
  TemplateRow& oRow = LastTemplate();
  const std::int32_t lRow = LastRow();
  SetIfFirst(oRow.lBoundary, lRow, Holds(sFolded, u"<%boundary>"));
  SetIfFirst(oRow.lSeverity, lRow, Holds(sFolded, u"<%severity>"));
  SetIfFirst(oRow.lRetry, lRow, Holds(sFolded, u"<%retry>"));
  SetIfFirst(oRow.lTrace, lRow, oLine.sIfCondition == u"trace");
  // The text as it stands: a blank that ends the line counts here.
  const Text sLower = LowerCase(oLine.sLine);
  if (Holds(sLower, u".traceexit ") || Holds(sLower, u".traceexit(")) oRow.lTraceExit = lRow;
}

void TemplateLoader::RememberPattern(const LikePattern& oPattern) {
  moLastPattern = oPattern;
  if (meLastDirective != DirectiveBodyEnd && meLastDirective != DirectiveFireEnd) return;
  LikePattern& oPlace = LastTemplate().sLike[SectionOf(meLastDirective)];
  if (oPlace.IsEmpty()) oPlace = oPattern;
}

void TemplateLoader::ReportError(std::int32_t lLine, TextView sMessage) {
  if (sMessage.empty()) return;
  moTemplate.ReportError(u"    Line " + ToText(lLine) + u' ' + Text(sMessage));
  goError->CloseError(1);
  ++moTemplate.mlLoadErrors;
}

void TemplateLoader::ReportResult() {
  if (moTemplate.mlLoadErrors == 0) {
    moTemplate.ReportError(u"No Errors - Template File Loaded\r\n");
    return;
  }
  moTemplate.ReportError(ToText(moTemplate.mlLoadErrors) + u" Errors Found");
  goError->CloseError(1);
}
