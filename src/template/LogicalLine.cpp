#include "LogicalLine.h"

#include "MXStringVB.h"
#include "ProcText.h"

Text FoldCode(TextView code) {
  Text folded(TrimWhite(code));
  for (char16_t& unit : folded) unit = unit == u'\t' ? u' ' : LowerCase(unit);
  return folded;
}

bool LogicalLines::Next() {
  if (mNext >= mLines.size()) return false;
  mFirst = mNext;
  Text joined;
  while (mNext + 1 < mLines.size() && Continues(mLines[mNext])) {
    const TextView line = TrimWhite(mLines[mNext]);
    joined.append(line.substr(0, line.size() - 1));  // the underscore goes, its blank stays
    ++mNext;
  }
  joined.append(TrimWhite(mLines[mNext++]));
  mStatement = FoldCode(MXStringVB::TrimVBLiterals(MXStringVB::TrimVBComments(joined)));
  return true;
}
