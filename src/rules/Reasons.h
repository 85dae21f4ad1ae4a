// Why a value is suggested. A suggestion holds a reason beside each value; in settings the flags
// keep what decided, and the notes that people see are worded from what is read back there.
//
//   const Suggestion suggestion = SuggestionOf(record.oSuggest);
//   Note(suggestion.boundary.reason);   // u"[Property Expert]"
#pragma once

#include "CProcSettings.h"
#include "Choices.h"
#include "Text.h"

namespace Suggestions {

/// What decided about a value.
enum class Rule {
  Default,        ///< the default of the rules
  NoTemplate,     ///< no template is suggested, and without one no other value
  Leave,          ///< the value in the code stays: the rule of its property says so
  LeaveBoundary,  ///< the same for a boundary other than Firewall
  LeaveFirewall,  ///< the same for Firewall, which has a rule of its own
  Expert,         ///< the Property Expert, by a fact
  Differs,        ///< the procedures of a selection have no reason in common
};

/// What the Property Expert goes by; it is told for a value that is left, too. The last one goes
/// with a template.
enum class Fact {
  None,            ///< the Expert is off or has no say in the property; or read back from settings
  Inside,          ///< only the project's own code calls it
  NoEventHandler,  ///< a method that handles no event, beside event sources
  EventHandler,    ///< the run-time calls it for an event
  ClassTerminate,  ///< the run-time calls it at the end of an object
  Designer,        ///< declarations of a form or another component with a designer
  PublicClass,     ///< other programs reach it: a public member or the class itself
  ForeignInterface,  ///< it implements an interface from outside the group
  HandlerNoCase,     ///< an event handler, by the rule that letter case doesn't count
  OwnInterfaceName,  ///< it implements such an interface, by the rule about the interface's own
                     ///< name
  ClearsErr,         ///< the template would clear Err ahead of the code that reads it
};

struct Reason {
  Rule rule = Rule::Default;
  Fact fact = Fact::None;

  bool IsLeft() const {
    return rule == Rule::Leave || rule == Rule::LeaveBoundary || rule == Rule::LeaveFirewall;
  }
};

template <class Value>
struct Suggested {
  Value value{};
  Reason reason{};
};

struct Suggestion {
  /// A view into the kept names of settings, or into the rules that it was worked out by.
  Suggested<TextView> templateName{};
  Suggested<MQuillon::Boundary> boundary{};
  Suggested<MQuillon::Severity> severity{};
  Suggested<MQuillon::Retry> retry{};
  Suggested<MQuillon::TriState> trace{};
};

/// Values and flags into settings. A foreign template that they hold stays, and then no value
/// gets in: the flags tell what would have decided.
void Write(const Suggestion& suggestion, CProcSettings& settings);

/// Reads back what Write put in, without the Property Expert's facts. isSelection: the settings are
/// what several procedures have in common.
Suggestion SuggestionOf(const CProcSettings& settings, bool isSelection = false);

/// "[Leave]", "[Leave Boundary]", "[Leave Firewall]", "[Property Expert]", "[Clears Err]" or
/// nothing.
TextView Note(const Reason& reason);

}  // namespace Suggestions
