#include "LogicalLine.h"

#include "MXStringVB.h"
#include "ProcText.h"

bool LogicalLines::Next() {
  if (mlNext >= masLine.size()) return false;
  mlFirst = mlNext;
  Text sJoined;
  while (mlNext + 1 < masLine.size() && Continues(masLine[mlNext])) {
    TextView sLine = Trim(masLine[mlNext]);
    while (sLine.back() == u'\t') sLine = RightTrim(sLine.substr(0, sLine.size() - 1));
    sJoined.append(sLine.substr(0, sLine.size() - 1));  // the underscore goes, its blank stays
    ++mlNext;
  }
  sJoined.append(Trim(masLine[mlNext++]));
  const TextView sCode = MXStringVB::TrimVBComments(sJoined);
  msStatement = LowerCase(Trim(MXStringVB::TrimVBLiterals(sCode)));
  return true;
}
