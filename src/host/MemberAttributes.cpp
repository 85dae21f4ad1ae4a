#include "MemberAttributes.h"

#include <algorithm>
#include <cstdlib>

#include "ByteText.h"
#include "Failure.h"
#include "LineSplit.h"
#include "PageBytes.h"
#include "QuotedText.h"

namespace {

constexpr std::int32_t FirstFreeId = 0x60030000;  // as the IDE numbers what has no id of its own
constexpr std::uint32_t NonBrowsable = 0x400;

// The bit that an attribute stands for; 0: none.
std::uint32_t FlagOf(MemberAttribute eAttribute) {
  switch (eAttribute) {
    case MemberAttribute::Hidden:
      return 0x40;
    case MemberAttribute::Bindable:
      return 0x4;
    case MemberAttribute::Browsable:
      return NonBrowsable;
    case MemberAttribute::DefaultBind:
      return 0x20;
    case MemberAttribute::DisplayBind:
      return 0x10;
    case MemberAttribute::RequestEdit:
      return 0x8;
    case MemberAttribute::UIDefault:
      return 0x200;
    default:
      return 0;
  }
}

std::int32_t Number(const Text& sValue) {
  return static_cast<std::int32_t>(std::strtol(ToUtf8(sValue).c_str(), nullptr, 10));
}

std::uint32_t Flags(const Text& sValue) {
  return static_cast<std::uint32_t>(std::strtoul(ToUtf8(Unquoted(sValue)).c_str(), nullptr, 16));
}

Text HexText(std::uint32_t lFlags) {
  Text sDigits;
  for (; lFlags > 0; lFlags >>= 4U) sDigits.insert(0, 1, u"0123456789abcdef"[lFlags & 15U]);
  return sDigits;
}

}  // namespace

AttributeLine ReadAttributeLine(std::string_view sLine) {
  if (!IsMemberAttribute(sLine)) return {};
  const std::string_view sRest = SkipBlanks(sLine.substr(std::string_view("attribute").size()));
  const std::size_t lDot = sRest.find('.');
  const std::size_t lSign = sRest.find('=', lDot);
  if (lSign == std::string_view::npos) return {};
  std::string_view sName = sRest.substr(0, lDot);
  if (sName.size() > 2 && sName.front() == '[' && sName.back() == ']') {
    sName = sName.substr(1, sName.size() - 2);
  }
  return {sName, TrimBlanks(sRest.substr(lDot + 1, lSign - lDot - 1)),
          TrimBlanks(sRest.substr(lSign + 1))};
}

MemberAttributes::Slot MemberAttributes::SlotOf(MemberAttribute eAttribute) {
  switch (eAttribute) {
    case MemberAttribute::Description:
      return Slot::Description;
    case MemberAttribute::HelpContextID:
      return Slot::HelpId;
    case MemberAttribute::Category:
    case MemberAttribute::PropertyPage:
      return Slot::Invoke;
    case MemberAttribute::StandardMethod:
      return Slot::UserMemId;
    default:
      return Slot::Flags;
  }
}

// The keys of variables are taken for those of procedures and the other way round.
std::optional<MemberAttributes::Slot> MemberAttributes::SlotOf(std::string_view sKey) {
  if (!StartsNoCase(sKey, "vb_")) return {};
  sKey.remove_prefix(3);
  if (StartsNoCase(sKey, "var")) sKey.remove_prefix(3);
  if (IsWord(sKey, "description")) return Slot::Description;
  if (IsWord(sKey, "helpid")) return Slot::HelpId;
  if (StartsNoCase(sKey, "procdata.vb_invoke_property")) return Slot::Invoke;
  if (IsWord(sKey, "usermemid")) return Slot::UserMemId;
  if (IsWord(sKey, "memberflags")) return Slot::Flags;
  return {};
}

const MemberAttributes::Found& MemberAttributes::Look(std::int32_t lMember) {
  if (moFound.lMember == lMember && moFound.lVersion == moLines.Version()) return moFound;
  moFound.lMember = lMember;
  moFound.lVersion = moLines.Version();
  moFound.oMember = moIndex.MemberAt(lMember);
  moFound.asValue = {};
  LookAtCarriers();
  for (const Carrier& oCarrier : moFound.oCarriers) LookAtTail(oCarrier);
  return moFound;
}

bool MemberAttributes::IsBare(std::int32_t lMember) {
  if (moBare.lMember == lMember && moBare.lVersion == moLines.Version()) return moBare.bBare;
  moBare = {lMember, moLines.Version(), false};
  for (const ProcIndex::Declaration& oDeclaration : moIndex.DeclarationsOf(lMember)) {
    std::int32_t l = oDeclaration.lLine;
    while (!moLines.At(l).bTail && l < moLines.Count() &&
           ContinuationMark(moLines.TextOf(l)) != std::string_view::npos) {
      ++l;
    }
    if (moLines.At(l).bTail) return false;
  }
  return moBare.bBare = true;
}

void MemberAttributes::LookAtCarriers() {
  moFound.oCarriers.clear();
  LexicalScan& oScan = moIndex.Scan();
  const ProcIndex::Declarations oDeclarations = moIndex.DeclarationsOf(moFound.lMember);
  moFound.lPreferred = oDeclarations.lGet;
  for (const auto& [lLine, nKind] : oDeclarations) {
    oScan.Start(lLine);
    moFound.oCarriers.push_back({oScan.LastLine(), nKind});
  }
}

void MemberAttributes::LookAtTail(const Carrier& oCarrier) {
  LineSplit oTail(moLines.TailOf(moLines.At(oCarrier.lLine)));
  while (oTail.Next()) {
    const AttributeLine oLine = ReadAttributeLine(oTail.Text());
    const std::optional<Slot> eSlot = SlotOf(oLine.sKey);
    if (!eSlot || !Belongs(oLine)) continue;
    std::optional<Text>& sValue = moFound.asValue[static_cast<std::size_t>(*eSlot)];
    if (!sValue) sValue = moPage.Decode(oLine.sValue);
  }
}

bool MemberAttributes::Belongs(const AttributeLine& oLine) const {
  return !oLine.sName.empty() && EqualNoCase(moPage.Decode(oLine.sName), moFound.oMember.sName);
}

const std::optional<Text>& MemberAttributes::ValueOf(std::int32_t lMember, Slot eSlot) {
  return Look(lMember).asValue[static_cast<std::size_t>(eSlot)];
}

AttributeValue MemberAttributes::Missing(std::int32_t lMember, MemberAttribute eAttribute) {
  if (eAttribute == MemberAttribute::StandardMethod) return {{}, FirstFreeId + lMember - 1};
  return {{}, eAttribute == MemberAttribute::Browsable ? -1 : 0};
}

AttributeValue MemberAttributes::Get(std::int32_t lMember, MemberAttribute eAttribute) {
  // Twelve attributes of each procedure are asked for around a rewrite; most have none.
  if (!moLines.MayHaveTails() || IsBare(lMember)) return Missing(lMember, eAttribute);
  const std::optional<Text>& sValue = ValueOf(lMember, SlotOf(eAttribute));
  if (!sValue) return Missing(lMember, eAttribute);
  const Text sText = Unquoted(*sValue);
  const std::size_t lSemicolon = std::min(sText.find(u';'), sText.size());
  switch (eAttribute) {
    case MemberAttribute::Description:
      return {sText, 0};
    case MemberAttribute::HelpContextID:
      return {{}, std::max(Number(*sValue), 0)};
    case MemberAttribute::PropertyPage:
      return {sText.substr(0, lSemicolon), 0};
    case MemberAttribute::Category:
      return {sText.substr(std::min(lSemicolon + 1, sText.size())), 0};
    case MemberAttribute::StandardMethod:
      return {{}, Number(*sValue)};
    default:
      break;
  }
  const bool bSet = (Flags(*sValue) & FlagOf(eAttribute)) != 0;
  return {{}, bSet == (eAttribute == MemberAttribute::Browsable) ? 0 : -1};
}

// Page and category share one line.
std::optional<Text> MemberAttributes::InvokeForm(std::int32_t lMember, MemberAttribute eAttribute,
                                                 TextView sText) {
  const bool bPage = eAttribute == MemberAttribute::PropertyPage;
  const Text sPage = bPage ? Text(sText) : Get(lMember, MemberAttribute::PropertyPage).sText;
  const Text sCategory = bPage ? Get(lMember, MemberAttribute::Category).sText : Text(sText);
  if (sPage.empty() && sCategory.empty()) return {};
  return Quoted(sCategory.empty() ? sPage : sPage + u';' + sCategory);
}

// What stands behind the sign; nothing for a value that needs no line.
std::optional<Text> MemberAttributes::FileForm(std::int32_t lMember, MemberAttribute eAttribute,
                                               const AttributeValue& oValue) {
  const std::int32_t lNumber = oValue.lNumber;
  switch (SlotOf(eAttribute)) {
    case Slot::Description:
      return oValue.sText.empty() ? std::nullopt : std::optional(Quoted(oValue.sText));
    case Slot::HelpId:
      return lNumber <= 0 ? std::nullopt : std::optional(ToText(lNumber));
    case Slot::Invoke:
      return InvokeForm(lMember, eAttribute, oValue.sText);
    case Slot::UserMemId:
      return lNumber > 0 ? std::nullopt : std::optional(ToText(lNumber));
    default:
      break;
  }
  const bool bSet = (lNumber != 0) != (eAttribute == MemberAttribute::Browsable);
  const std::uint32_t lOld = Flags(ValueOf(lMember, Slot::Flags).value_or(Text()));
  const std::uint32_t lNew = bSet ? lOld | FlagOf(eAttribute) : lOld & ~FlagOf(eAttribute);
  return lNew == 0 ? std::nullopt : std::optional(Quoted(HexText(lNew)));
}

// The usual case of a value that is set again behind a rewrite: no hidden lines, and none needed.
bool MemberAttributes::IsMissing(std::int32_t lMember, MemberAttribute eAttribute,
                                 const AttributeValue& oValue) {
  if (!oValue.sText.empty() || oValue.lNumber != Missing(lMember, eAttribute).lNumber) return false;
  return !moLines.MayHaveTails() || IsBare(lMember);
}

void MemberAttributes::Set(std::int32_t lMember, MemberAttribute eAttribute,
                           const AttributeValue& oValue) {
  const Slot eSlot = SlotOf(eAttribute);
  if (IsMissing(lMember, eAttribute, oValue)) return;
  if (oValue.sText.find_first_of(u"\r\n") != Text::npos) {
    throw Failure(5, u"The text of a member's attribute can't hold a line break", u"host");
  }
  AttributeValue oNew{{}, oValue.lNumber};
  if (eSlot == Slot::Description || eSlot == Slot::Invoke) oNew = {oValue.sText, 0};
  if (eSlot == Slot::Flags) oNew.lNumber = oValue.lNumber != 0 ? -1 : 0;
  if (eSlot == Slot::HelpId) oNew.lNumber = std::max(oValue.lNumber, 0);  // -1 is "none", too
  if (oNew == Get(lMember, eAttribute)) return;
  const std::optional<Text> sNew = FileForm(lMember, eAttribute, oNew);
  if (sNew != ValueOf(lMember, eSlot)) Write(eSlot, sNew);
}
