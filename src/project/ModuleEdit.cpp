#include "ModuleEdit.h"

#include "HandlerGuard.h"
#include "SteppedIDE.h"

using namespace HandlerGuard;

namespace ModuleEdit {

namespace {

constexpr std::array<TextView, MemberAttributeCount> AttributeNames = {
    u"Description",    u"HelpContextID", u"Category",    u"PropertyPage",
    u"StandardMethod", u"Hidden",        u"Bindable",    u"Browsable",
    u"DefaultBind",    u"DisplayBind",   u"RequestEdit", u"UIDefault"};

/// Makes lines start and on read oldText again, whatever the failed calls left of old and new.
/// bareLines: number of lines in the module without either.
void GiveBack(CodeModule& module, std::int32_t start, TextView oldText, std::int32_t bareLines) {
  const std::int32_t there = module.CountOfLines() - bareLines;
  if (there == CountLines(oldText) && (there == 0 || module.Lines(start, there) == oldText)) return;
  if (there > 0) module.DeleteLines(start, there);
  if (!oldText.empty()) module.InsertLines(start, oldText);
}

Failure LostLines(TextView oldText) {
  Failure failure(51, u"The old lines could not be given back; they read:\r\n" + Text(oldText));
  return failure;
}

}  // namespace

std::int32_t CountLines(TextView text) {
  if (text.empty()) return 0;
  std::int32_t count = 1;
  for (std::size_t at = 0; (at = FindLineEnd(text, at)) < text.size(); at += CrLf.size()) ++count;
  return count;
}

void ReplaceLines(GuardScope& scope, CodeModule& module, std::int32_t start, TextView oldText,
                  TextView newText, std::int32_t blankLines) {
  const std::int32_t oldLines = CountLines(oldText);
  const SteppedModule stepped(scope, module);
  const std::int32_t bareLines = stepped.CountOfLines() - oldLines;
  try {
    if (oldLines > 0) stepped.DeleteLines(start, oldLines);
    if (!newText.empty()) stepped.InsertLines(start, newText);
    for (std::int32_t i = 0; i < blankLines; ++i) {
      stepped.InsertLines(start + CountLines(newText), u"");
    }
  } catch (...) {
    const auto failure = std::current_exception();
    try {
      scope.Require([&] { GiveBack(module, start, oldText, bareLines); });
    } catch (const Failure&) {
      throw LostLines(oldText);
    }
    std::rethrow_exception(failure);
  }
}

bool ReplaceDeclarations(GuardScope& scope, CodeModule& module, TextView oldText, TextView newText,
                         std::int32_t blankLines) {
  ReplaceLines(scope, module, 1, oldText, newText, blankLines);
  const std::int32_t newLines = CountLines(newText);
  if (newLines <= CountLines(oldText)) return true;
  if (SteppedModule(scope, module).CountOfDeclarationLines() >= newLines) return true;
  Text written(newText);
  for (std::int32_t i = 0; i < blankLines; ++i) written.append(CrLf);
  ReplaceLines(scope, module, 1, written, oldText, 0);
  return false;
}

Attributes Save(GuardScope& scope, Member& member) {
  Attributes saved;
  if (SteppedMember(scope, member).KeepsAttributes()) return saved;
  for (std::size_t i = 0; i < saved.size(); ++i) {
    try {
      saved[i] = member.Attribute(static_cast<MemberAttribute>(i));
    } catch (const Failure&) {
      // Not every host has every attribute: what can't be read isn't put back.
    }
  }
  return saved;
}

Text Restore(Member& member, const Attributes& saved) {
  Text failed;
  for (std::size_t i = 0; i < saved.size(); ++i) {
    const auto attribute = static_cast<MemberAttribute>(i);
    // A standard method's own number can be set only below 1: others belong to the host.
    if (!saved[i] || (attribute == MemberAttribute::StandardMethod && saved[i]->lNumber >= 1)) {
      continue;
    }
    try {
      Guard(Named(u"ReplaceProcedure"), [&](GuardScope& scope) {
        SteppedMember(scope, member).SetAttribute(attribute, *saved[i]);
      });
    } catch (const Failure&) {
      failed.append(failed.empty() ? u"" : u", ").append(AttributeNames[i]);
    }
  }
  return failed;
}

}  // namespace ModuleEdit
