#include "CodeSettings.h"

#include "MQuillon.h"
#include "MXStringVB.h"

using MQuillon::TriState;

namespace {

bool IsR(char16_t unit) {
  return (unit | 0x20) == u'r';
}

/// True when a text holds two of "r" in a row, in any case. Without a way out in its middle, so
/// that the compiler can look at many units at once.
bool HoldsTwoR(TextView text) {
  std::uint16_t found = 0;
  for (std::size_t i = 1; i < text.size(); ++i) {
    const int first = IsR(text[i - 1]), second = IsR(text[i]);
    found = static_cast<std::uint16_t>(found | (first & second));
  }
  return found != 0;
}

/// True when the text holds the word in any case. Most texts are long and don't: the two letters
/// behind its first are rare.
bool HoldsError(TextView text) {
  constexpr TextView Word = u"error";
  constexpr std::size_t Block = 128;
  for (std::size_t start = 0; start + Word.size() <= text.size(); start += Block) {
    // The second letters of words that begin in the block, and what is behind them.
    const TextView block = text.substr(start + 1, Block + 1);
    if (!HoldsTwoR(block)) continue;
    for (std::size_t i = 1; i < block.size(); i += IsR(block[i]) ? 1 : 2) {
      if (IsR(block[i]) && IsR(block[i - 1]) &&
          EqualNoCase(text.substr(start + i - 1, Word.size()), Word)) {
        return true;
      }
    }
  }
  return false;
}

/// True when the code handles errors on its own: anything but balanced pairs of Resume Next and
/// GoTo 0.
bool IsBespoke(const ProcText& code) {
  bool inside = false;
  for (std::size_t i = 0; i < code.Count(); ++i) {
    const TextView folded = code.Folded(i);
    if (folded.find(u"on error ") == TextView::npos) continue;
    const Text statement = MXStringVB::TrimVBLiterals(MXStringVB::TrimVBComments(folded));
    const auto holds = [&](TextView part) { return statement.find(part) != Text::npos; };
    const bool goTo0 = holds(u"on error goto 0");
    if (!goTo0 && holds(u"on error goto ")) return true;
    if (holds(u"on error resume next")) {
      if (inside) return true;
      inside = true;
    } else if (goTo0) {
      if (!inside) return true;
      inside = false;
    }
  }
  return inside;
}

/// The value that a line holds in the place of a row's token; the constant names nothing when the
/// line holds none.
template <class Choice>
Choice ReadChoice(const TokenReader& reader, TextView folded, TextView token,
                  Choice (*byName)(TextView)) {
  const auto value = reader.Value(folded, token);
  return value ? byName(Trim(*value)) : Choice::Unset;
}

/// Shared by both ways of reading: code gives the lines when they are needed.
template <class Code>
bool ReadSigned(const TemplateSet& templates, const std::optional<SignatureValue>& signature,
                TextView procCode, const Code& code, CProcSettings& settings) {
  settings.SeteLocked(signature && signature->locked ? TriState::True : TriState::False);
  if (!signature || signature->name.empty()) {
    const bool bespoke = HoldsError(procCode) && IsBespoke(code());
    settings.SetsTemplate(bespoke ? MQuillon::BespokeName : TextView());
    return signature.has_value();
  }
  const TemplateRow* const row = templates.Find(signature->name);
  if (!row) {
    settings.SetsTemplate(u"[" + signature->name + u"]");
    return true;
  }
  settings.SetsTemplate(row->sName);
  CodeSettings::ReadValues(templates, *row, code(), settings);
  return true;
}

}  // namespace

bool CodeSettings::Read(const TemplateSet& templates, TextView procCode, CProcSettings& settings) {
  return ReadSigned(
      templates, templates.Signatures().Find(procCode), procCode,
      [&] { return ProcText(procCode); }, settings);
}

bool CodeSettings::Read(const TemplateSet& templates, TextView procCode, const ProcText& code,
                        CProcSettings& settings) {
  return ReadSigned(
      templates, templates.Signatures().Find(code), procCode,
      [&]() -> const ProcText& { return code; }, settings);
}

void CodeSettings::ReadValues(const TemplateSet& templates, const TemplateRow& row,
                              const ProcText& code, CProcSettings& settings) {
  const LikePattern &boundary = templates.Row(row.lBoundary).sLike,
                    &severity = templates.Row(row.lSeverity).sLike,
                    &retry = templates.Row(row.lRetry).sLike,
                    &trace = templates.Row(row.lTrace).sLike;
  for (std::size_t i = 0; i < code.Count(); ++i) {
    const TextView folded = code.Folded(i);
    if (folded.empty()) continue;
    if (settings.eBoundary() == MQuillon::Boundary::Unset && boundary.Matches(folded)) {
      settings.SeteBoundary(
          ReadChoice(row.boundaryReader, folded, u"%boundary", MQuillon::BoundaryId));
    }
    if (settings.eSeverity() == MQuillon::Severity::Unset && severity.Matches(folded)) {
      settings.SeteSeverity(
          ReadChoice(row.severityReader, folded, u"%severity", MQuillon::SeverityId));
    }
    if (settings.eRetry() == MQuillon::Retry::Unset && retry.Matches(folded)) {
      settings.SeteRetry(ReadChoice(row.retryReader, folded, u"%retry", MQuillon::RetryId));
    }
    if (settings.eTrace() == TriState::Unset && trace.Matches(folded)) {
      settings.SeteTrace(TriState::True);
    }
  }
  if (settings.eTrace() == TriState::Unset) settings.SeteTrace(TriState::False);
}
