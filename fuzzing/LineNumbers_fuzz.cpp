// Numbering any body twice equals numbering it once, and takes nothing from a line but its number.
#include <cstdint>
#include <cstdlib>

#include "CodePage.h"
#include "Failure.h"
#include "LineNumbers.h"
#include "ProcText.h"
#include "Proof.h"

namespace {

Text Number(TextView sBody, MQuillon::LineNumAction eAction, const MRules::Values& oRules) {
  const ProcText oProc(sBody);
  std::vector<TextView> asLine;
  for (std::size_t i = 0; i < oProc.Count(); ++i) asLine.push_back(oProc.Line(i));
  if (asLine.empty()) return {};
  Text sResult = LineNumbers::DoLineNumbers(asLine, eAction, oRules);
  sResult.resize(sResult.size() - CrLf.size());
  return sResult;
}

bool Differs(TextView sBefore, TextView sAfter) {
  return Proof::FirstDifference(ProcText(sBefore), ProcText(sAfter), true).has_value();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t lSize) {
  if (lSize < 1) return 0;
  MRules::Values oRules;
  oRules.eLineNumWhat = MQuillon::FromNumber<MQuillon::LineNumWhat>(pData[0] % 3);
  oRules.bLineNumSkipEnd = pData[0] & 4;
  oRules.bLineNumSkipData = pData[0] & 8;
  oRules.bLineNumSkipShort = pData[0] & 16;
  const Text sBody = CodePage::Get("1252").Decode(
      std::string_view(reinterpret_cast<const char*>(pData) + 1, lSize - 1));
  try {
    const Text sOnce = Number(sBody, MQuillon::LineNumAction::Insert, oRules);
    if (Number(sOnce, MQuillon::LineNumAction::Insert, oRules) != sOnce) std::abort();
    if (Differs(sBody, sOnce)) std::abort();
    if (Differs(sBody, Number(sOnce, MQuillon::LineNumAction::Remove, oRules))) std::abort();
  } catch (const Failure&) {  // more than 9,999 numbers
  }
  return 0;
}
