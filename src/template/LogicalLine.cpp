#include "LogicalLine.h"

#include "MXStringVB.h"
#include "ProcText.h"

Text FoldCode(TextView sCode) {
  Text sFolded(TrimWhite(sCode));
  for (char16_t& cUnit : sFolded) cUnit = cUnit == u'\t' ? u' ' : LowerCase(cUnit);
  return sFolded;
}

bool LogicalLines::Next() {
  if (mlNext >= masLine.size()) return false;
  mlFirst = mlNext;
  Text sJoined;
  while (mlNext + 1 < masLine.size() && Continues(masLine[mlNext])) {
    const TextView sLine = TrimWhite(masLine[mlNext]);
    sJoined.append(sLine.substr(0, sLine.size() - 1));  // the underscore goes, its blank stays
    ++mlNext;
  }
  sJoined.append(TrimWhite(masLine[mlNext++]));
  msStatement = FoldCode(MXStringVB::TrimVBLiterals(MXStringVB::TrimVBComments(sJoined)));
  return true;
}
