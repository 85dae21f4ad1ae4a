#include "ReviewFinding.h"

std::string ReviewFinding::FullMessage() const {
  if (!changes.empty() || component.empty()) return message;
  std::string text = component;
  if (!procedure.empty()) text.append(".").append(procedure);
  text += ": ";
  if (rule->rule == CheckRule::WouldRefuse) text += "refused: ";
  if (rule->rule == CheckRule::Unreadable) text += "can't be read: ";
  return text + message;
}
