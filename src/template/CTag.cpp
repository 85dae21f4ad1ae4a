#include "CTag.h"

#include "MXString.h"

namespace {

// One line in the form that the parser reads: a directive that was joined from several lines
// counts as one. Blanks within quoted values collapse as well, since patterns are compared so.
Text OneLine(TextView sTag) {
  return MXString::FullTrim(MXString::StringReplace(Text(sTag) + u' ', CrLf, u" "));
}

bool IsQuote(char16_t cUnit) {
  return cUnit == u'\'' || cUnit == u'"';
}

}  // namespace

void CTag::SetTag(TextView sTag) {
  mlError = 0;
  msName.clear();
  moParameters.clear();

  const Text sLine = OneLine(sTag);
  if (!sLine.starts_with(u'<')) {
    mlError = 1;
    return;
  }
  if (!sLine.ends_with(u'>')) {
    mlError = 2;
    return;
  }
  // Every word ends in a blank then, the last one too.
  Text sWords = sLine.substr(1, sLine.size() - 2) + u' ';
  const std::size_t lBlank = sWords.find(u' ');
  msName = sWords.substr(0, lBlank);
  ReadParameters(TextView(sWords).substr(lBlank + 1));
}

// sWords is empty or ends in a blank.
void CTag::ReadParameters(TextView sWords) {
  std::size_t lPos = 0;
  while (lPos + 1 < sWords.size()) {
    const std::size_t lEquals = sWords.find(u'=', lPos);
    // A word without a value makes the rest unreadable; that is no error, it counts as absent.
    if (lEquals == TextView::npos) return;
    const TextView sKey = Trim(sWords.substr(lPos, lEquals - lPos));
    if (sKey.find(u' ') != TextView::npos) return;

    std::size_t lStart = lEquals + 1;
    std::size_t lEnd;
    if (IsQuote(sWords[lStart])) {
      // A quote inside the value is told from the closing one by the blank behind the latter.
      const char16_t acClose[] = {sWords[lStart], u' '};
      ++lStart;
      lEnd = sWords.find(TextView(acClose, 2), lStart);
      if (lEnd == TextView::npos) {
        mlError = 3;
        return;
      }
      lPos = lEnd + 2;
    } else {
      lEnd = sWords.find(u' ', lStart);
      lPos = lEnd + 1;
    }
    moParameters.push_back({LowerCase(sKey), Text(sWords.substr(lStart, lEnd - lStart))});
  }
}

Text CTag::Parameter(TextView isParam) const {
  for (const Pair& oPair : moParameters) {
    if (oPair.sKey == isParam) return oPair.sValue;
  }
  return {};
}
