// The writing half: which declaration carries a new line, where it goes among its neighbours.
#include <algorithm>

#include "ByteText.h"
#include "LineSplit.h"
#include "MemberAttributes.h"
#include "PageBytes.h"

namespace {

std::string_view InvokeKey(ProcKind nKind) {
  if (nKind == ProcKind::Let) return "VB_ProcData.VB_Invoke_PropertyPut";
  if (nKind == ProcKind::Set) return "VB_ProcData.VB_Invoke_PropertyPutRef";
  return "VB_ProcData.VB_Invoke_Property";
}

std::string Terminated(std::string_view sLine, std::string_view sEnd) {
  const bool bEnd = !sLine.empty() && (sLine.back() == '\n' || sLine.back() == '\r');
  return std::string(sLine).append(bEnd ? std::string_view() : sEnd);
}

}  // namespace

std::string MemberAttributes::KeyOf(Slot eSlot, bool bVariable, ProcKind nKind) {
  if (eSlot == Slot::Invoke) {
    return bVariable ? "VB_VarProcData.VB_Invoke_Property" : std::string(InvokeKey(nKind));
  }
  const char* const szKey = eSlot == Slot::Description ? "Description"
                            : eSlot == Slot::HelpId    ? "HelpID"
                            : eSlot == Slot::UserMemId ? "UserMemId"
                                                       : "MemberFlags";
  return std::string(bVariable ? "VB_Var" : "VB_") + szKey;
}

// Behind a variable the flags stand ahead of the id.
int MemberAttributes::Rank(Slot eSlot, bool bVariable) {
  if (bVariable && eSlot == Slot::UserMemId) return static_cast<int>(Slot::Flags);
  if (bVariable && eSlot == Slot::Flags) return static_cast<int>(Slot::UserMemId);
  return static_cast<int>(eSlot);
}

void MemberAttributes::SetTail(std::int32_t lLine, const std::string& sTail) {
  const LineTable::Line oLine = moLines.At(lLine);
  const std::string sText(moLines.TextOf(oLine));
  const std::string_view sEnd = moLines.EndOf(oLine);
  moLines.Set(lLine, moLines.Add(sText, sEnd.empty() ? moLines.OwnEnd() : sEnd, sTail));
}

// Where they were, else on the Get, else on the first declaration.
void MemberAttributes::Write(Slot eSlot, const std::optional<Text>& sValue) {
  const std::string sBytes = sValue ? PageBytes(*sValue, moPage) : std::string();
  const std::vector<Carrier>& oCarriers = moFound.oCarriers;
  for (const Carrier& oCarrier : oCarriers) {
    if (Replace(oCarrier, eSlot, sBytes)) return;
  }
  const auto pUsed = std::find_if(oCarriers.begin(), oCarriers.end(), [&](const Carrier& o) {
    LineSplit oTail(moLines.TailOf(moLines.At(o.lLine)));
    return oTail.Next() && Belongs(ReadAttributeLine(oTail.Text()));
  });
  Insert(pUsed == oCarriers.end() ? oCarriers[moFound.lPreferred] : *pUsed, eSlot, sBytes);
}

// Puts a value in the place of the one that is there, and takes the line away for an empty one.
bool MemberAttributes::Replace(const Carrier& oCarrier, Slot eSlot, std::string_view sValue) {
  std::string sTail;
  bool bFound = false;
  LineSplit oSplit(moLines.TailOf(moLines.At(oCarrier.lLine)));
  while (oSplit.Next()) {
    const AttributeLine oLine = ReadAttributeLine(oSplit.Text());
    const bool bThis = !bFound && SlotOf(oLine.sKey) == eSlot && Belongs(oLine);
    bFound = bFound || bThis;
    if (bThis && sValue.empty()) continue;
    const std::size_t lKeep =
        bThis ? static_cast<std::size_t>(oLine.sValue.data() - oSplit.Text().data())
              : oSplit.Text().size();
    sTail.append(oSplit.Text().substr(0, lKeep)).append(bThis ? sValue : std::string_view());
    sTail.append(oSplit.End());
  }
  if (bFound) SetTail(oCarrier.lLine, sTail);
  return bFound;
}

void MemberAttributes::Insert(const Carrier& oCarrier, Slot eSlot, std::string_view sValue) {
  const SourceDocument::MemberInfo& oMember = moFound.oMember;
  const bool bVariable = oMember.nType == MemberType::Variable;
  const std::string sEnd(moLines.OwnEnd());
  const std::string sLine = "Attribute " + PageBytes(oMember.sName, moPage) + "." +
                            KeyOf(eSlot, bVariable, oCarrier.nKind) + " = " + std::string(sValue) +
                            sEnd;
  std::string sTail;
  std::size_t lPlace = std::string::npos;  // ahead of the first line of a higher rank
  LineSplit oSplit(moLines.TailOf(moLines.At(oCarrier.lLine)));
  while (oSplit.Next()) {
    const AttributeLine oLine = ReadAttributeLine(oSplit.Text());
    const std::optional<Slot> eThis = SlotOf(oLine.sKey);
    const bool bHigher =
        eThis && Belongs(oLine) && Rank(*eThis, bVariable) > Rank(eSlot, bVariable);
    if (bHigher) lPlace = std::min(lPlace, sTail.size());
    sTail += Terminated(oSplit.Text(), oSplit.End().empty() ? sEnd : oSplit.End());
  }
  sTail.insert(std::min(lPlace, sTail.size()), sLine);
  SetTail(oCarrier.lLine, sTail);
}
