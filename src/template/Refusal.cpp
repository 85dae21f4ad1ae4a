#include "Refusal.h"

namespace {

/// %l stands for the line, %n and %o for the two names.
TextView FormOf(RefusalKind kind) {
  switch (kind) {
    case RefusalKind::NoTemplateNamed:
      return u"No Template Specified";
    case RefusalKind::TemplateNotFound:
      return u"Template not Found [%n]";
    case RefusalKind::WrongType:
      return u"Template is not of type %o [%n]";
    case RefusalKind::SignatureNotReadable:
      return u"Signature of Template [%n] could not be read back";
    case RefusalKind::LockNotReadable:
      return u"Signature of a Lock could not be read back";
    case RefusalKind::TemplateThere:
      return u"Code holds a Template already; Line=%l [%n]";
    case RefusalKind::HeadNotFound:
      return u"Procedure Head Not Found";
    case RefusalKind::HeadAndEndShareLine:
      return u"Procedure Head and End share a Line";
    case RefusalKind::EndNotFound:
      return u"Procedure End Not Found";
    case RefusalKind::DirectivesUnbalanced:
      return u"Conditional Compilation in Procedure is not balanced";
    case RefusalKind::PlaceNotFound:
      return u"%n Not Found";
    case RefusalKind::PlaceAhead:
      return u"%n Found before %o";
    case RefusalKind::RowDoesNotFit:
      return u"Template Line does not fit its own Pattern [%n]";
    case RefusalKind::LineMismatch:
      return u"Code does not match Template; Line=%l [%n]";
    case RefusalKind::PlaceAmbiguous:
      return u"%o can't be told from other Code; Line=%l [%n]";
    case RefusalKind::NumberTooLong:
    case RefusalKind::HostFailure:
      return u"%n";
    case RefusalKind::JumpTargetLost:
      return u"Line number %n is the target of a jump";
    case RefusalKind::NotRemovable:
      return u"The template could not be taken out again: %n";
    case RefusalKind::LineChanged:
      return u"Line %l would come back as [%o] and not as [%n]";
    case RefusalKind::LineLost:
      return u"Line %l would not come back [%n]";
    case RefusalKind::LineAdded:
      return u"A line would come back that was not there [%n]";
    case RefusalKind::CleanUpChanged:
      return u"The clean-up code would come back changed";
    case RefusalKind::RowHoldsLineEnd:
      return u"A line of the template holds a line end of its own, so the module would read two "
             u"lines; Line=%l [%n]";
    case RefusalKind::RowIsAttribute:
      return u"A line of the template would be read as a hidden attribute; Line=%l [%n]";
    case RefusalKind::RowBeginsProcedure:
      return u"A line of the template would begin another procedure; Line=%l [%n]";
    case RefusalKind::RowEndsProcedure:
      return u"A line of the template would end the procedure; Line=%l [%n]";
    case RefusalKind::ErrRead:
      return u"The template would clear Err ahead of the code that reads it (err-read); give the "
             u"procedure no template; Line=%l [%n]";
    case RefusalKind::NameClash:
      return u"The template uses the name %n with another meaning (name-clash); rename one of "
             u"them; Line=%l [%o]";
    case RefusalKind::NameClashInModule:
      return u"The template uses the name %n, which this module gives another meaning "
             u"(name-clash); "
             u"rename one of them";
    case RefusalKind::HandlerOff:
      return u"The template's handler is off behind this line (handler-off); Line=%l [%n]";
    case RefusalKind::CleanUpSplit:
      return u"Clean-up code stands in two places (clean-up); write all 'FireExit: lines one "
             u"behind "
             u"the other at the end; Line=%l [%n]";
    case RefusalKind::CleanUpNotLast:
      return u"Code stands behind the clean-up code (clean-up); move the 'FireExit: lines to the "
             u"end; Line=%l [%n]";
    case RefusalKind::CleanUpPassedBy:
      return u"This exit passes the template's clean-up code by (clean-up); Line=%l [%n]";
    case RefusalKind::NumberTwice:
      return u"Line number %n would stand twice in the procedure (number-twice); take it out by "
             u"hand";
    case RefusalKind::LineTooLong:
      return u"A line would grow beyond 1,023 characters (line-length); break it up [%n]";
    case RefusalKind::TooManyContinuations:
      return u"A statement of the template would have more than 24 continuations (continuations) "
             u"[%n]";
    case RefusalKind::ProcedureTooLong:
      return u"The procedure would grow beyond 64 KB (procedure-size), to %n characters; split it";
    case RefusalKind::ModuleTooLong:
      return u"The module would grow beyond 65,534 lines (module-lines), to %n; split it";
    case RefusalKind::LinesFallToProcedure:
      return u"These lines would fall to the first procedure: no declaration keeps them from it";
  }
  return {};
}

}  // namespace

Text MessageOf(const Refusal& refusal) {
  Text message;
  TextView form = FormOf(refusal.kind);
  for (std::size_t mark; (mark = form.find(u'%')) != TextView::npos;) {
    message.append(form.substr(0, mark));
    const char16_t what = form[mark + 1];
    if (what == u'l') message.append(ToText(static_cast<long long>(refusal.line)));
    if (what == u'n') message.append(refusal.name);
    if (what == u'o') message.append(refusal.other);
    form.remove_prefix(mark + 2);
  }
  return message.append(form);
}

std::size_t SourceLine(const Refusal& refusal) {
  switch (refusal.kind) {
    case RefusalKind::TemplateThere:
    case RefusalKind::LineMismatch:
    case RefusalKind::PlaceAmbiguous:
      return refusal.line;
    default:
      return refusal.sourceLine;
  }
}
