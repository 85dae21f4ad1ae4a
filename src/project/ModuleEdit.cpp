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

/// Makes lines lStart and on read sOld again, whatever the failed calls left of old and new.
/// lBare: number of lines in the module without either.
void GiveBack(CodeModule& oModule, std::int32_t lStart, TextView sOld, std::int32_t lBare) {
  const std::int32_t lThere = oModule.CountOfLines() - lBare;
  if (lThere == CountLines(sOld) && (lThere == 0 || oModule.Lines(lStart, lThere) == sOld)) return;
  if (lThere > 0) oModule.DeleteLines(lStart, lThere);
  if (!sOld.empty()) oModule.InsertLines(lStart, sOld);
}

Failure LostLines(TextView sOld) {
  Failure oFailure(51, u"The old lines could not be given back; they read:\r\n" + Text(sOld));
  return oFailure;
}

}  // namespace

std::int32_t CountLines(TextView sText) {
  if (sText.empty()) return 0;
  std::int32_t lCount = 1;
  for (std::size_t l = 0; (l = FindLineEnd(sText, l)) < sText.size(); l += CrLf.size()) ++lCount;
  return lCount;
}

void ReplaceLines(GuardScope& oScope, CodeModule& oModule, std::int32_t lStart, TextView sOld,
                  TextView sNew, std::int32_t lBlankLines) {
  const std::int32_t lOld = CountLines(sOld);
  const SteppedModule oStepped(oScope, oModule);
  const std::int32_t lBare = oStepped.CountOfLines() - lOld;
  try {
    if (lOld > 0) oStepped.DeleteLines(lStart, lOld);
    if (!sNew.empty()) oStepped.InsertLines(lStart, sNew);
    for (std::int32_t i = 0; i < lBlankLines; ++i) {
      oStepped.InsertLines(lStart + CountLines(sNew), u"");
    }
  } catch (...) {
    const auto pFailure = std::current_exception();
    try {
      oScope.Require([&] { GiveBack(oModule, lStart, sOld, lBare); });
    } catch (const Failure&) {
      throw LostLines(sOld);
    }
    std::rethrow_exception(pFailure);
  }
}

bool ReplaceDeclarations(GuardScope& oScope, CodeModule& oModule, TextView sOld, TextView sNew,
                         std::int32_t lBlankLines) {
  ReplaceLines(oScope, oModule, 1, sOld, sNew, lBlankLines);
  const std::int32_t lNew = CountLines(sNew);
  if (lNew <= CountLines(sOld)) return true;
  if (SteppedModule(oScope, oModule).CountOfDeclarationLines() >= lNew) return true;
  Text sWritten(sNew);
  for (std::int32_t i = 0; i < lBlankLines; ++i) sWritten.append(CrLf);
  ReplaceLines(oScope, oModule, 1, sWritten, sOld, 0);
  return false;
}

Attributes Save(GuardScope& scope, Member& member) {
  Attributes oSaved;
  if (SteppedMember(scope, member).KeepsAttributes()) return oSaved;
  for (std::size_t i = 0; i < oSaved.size(); ++i) {
    try {
      oSaved[i] = member.Attribute(static_cast<MemberAttribute>(i));
    } catch (const Failure&) {
      // Not every host has every attribute: what can't be read isn't put back.
    }
  }
  return oSaved;
}

Text Restore(Member& oMember, const Attributes& oSaved) {
  Text sFailed;
  for (std::size_t i = 0; i < oSaved.size(); ++i) {
    const auto eAttribute = static_cast<MemberAttribute>(i);
    // A standard method's own number can be set only below 1: others belong to the host.
    if (!oSaved[i] || (eAttribute == MemberAttribute::StandardMethod && oSaved[i]->lNumber >= 1)) {
      continue;
    }
    try {
      Guard(Named(u"ReplaceProcedure"), [&](GuardScope& oScope) {
        SteppedMember(oScope, oMember).SetAttribute(eAttribute, *oSaved[i]);
      });
    } catch (const Failure&) {
      sFailed.append(sFailed.empty() ? u"" : u", ").append(AttributeNames[i]);
    }
  }
  return sFailed;
}

}  // namespace ModuleEdit
