#include "LearnedTemplate.h"

#include <algorithm>

namespace {

bool HoldsToken(TextView text) {
  return text.find(u"<%") != TextView::npos;
}

/// The form that becomes the template's row. Most have it; but names as tokens
/// have to fit nearly all of them.
const RowForm& ChosenForm(const std::vector<RowForm>& forms, std::size_t members) {
  const RowForm& first = forms.front();
  const auto isPlain = [](const RowForm& form) { return !HoldsToken(form.text); };
  if (!HoldsToken(first.text) || first.members.size() * 10 >= members * 9) return first;
  const auto plain = std::find_if(forms.begin(), forms.end(), isPlain);
  return plain == forms.end() ? first : *plain;
}

bool IsLabel(TextView row) {
  return row.ends_with(u':') && row.find(u' ') == TextView::npos;
}

}  // namespace

LearnedTemplate LearnTemplate(const Shape& shape, TextView name) {
  LearnedTemplate learned;
  const auto add = [&](TextView line) { learned.lines.emplace_back(line); };
  add(u"<#Template name=" + Text(name) + u" type=procedure>");
  add(u"<#Start>");
  for (std::size_t i = 0; i <= shape.rows.size(); ++i) {
    if (i == shape.above) {
      add(u"<#BodyStart>");
      add(u"<#BodyEnd>");
    }
    if (i > 0 && i == shape.cleanUp) {
      add(u"<#FireExitStart>");
      add(u"<#FireExitEnd>");
    }
    if (i == shape.rows.size()) break;
    const RowForm& chosen = ChosenForm(shape.forms[i], shape.members.size());
    add(IsLabel(chosen.text) ? chosen.text : u"    " + chosen.text);
    for (const RowForm& form : shape.forms[i]) {
      if (&form == &chosen) continue;
      for (const std::size_t member : form.members) {
        learned.others.push_back({member, form.text, chosen.text});
      }
    }
  }
  add(u"<#End>");
  return learned;
}
