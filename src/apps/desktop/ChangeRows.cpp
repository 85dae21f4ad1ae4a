#include "ChangeRows.h"

#include <algorithm>

#include "CodePage.h"
#include "LineDiff.h"

namespace {

using Forms::LineMark;
using Lines = std::vector<std::string_view>;

constexpr std::size_t lAround = 3;

class Rows {
 public:
  Rows(const std::string& sOld, const std::string& sNew)
      : moPage(CodePage::Detect(sNew, CodePage::Get("1252"))),
        masOld(SplitBytes(sOld)),
        masNew(SplitBytes(sNew)) {}

  std::vector<ChangeRow> Make() {
    const std::vector<LineChange> aoChange = CompareLines(masOld, masNew);
    for (std::size_t i = 0; i < aoChange.size(); ++i) {
      const bool bJoined = i > 0 && Gap(aoChange[i - 1], aoChange[i]) <= 2 * lAround;
      if (!bJoined) Begin(aoChange[i]);
      AddChange(aoChange[i]);
      const std::size_t lBehind =
          i + 1 < aoChange.size() ? Gap(aoChange[i], aoChange[i + 1]) : masNew.size();
      AddUnchanged(aoChange[i].lNewEnd, lBehind <= 2 * lAround ? lBehind : lAround);
    }
    return std::move(moRows);
  }

 private:
  static std::size_t Gap(const LineChange& oFirst, const LineChange& oSecond) {
    return oSecond.lNewStart - oFirst.lNewEnd;
  }
  void Begin(const LineChange& oChange) {
    const std::size_t lStart = oChange.lNewStart - std::min(lAround, oChange.lNewStart);
    moRows.push_back({LineMark::Heading, {}, u"Line " + NumberOf(oChange.lNewStart)});
    AddUnchanged(lStart, oChange.lNewStart - lStart);
  }
  void AddUnchanged(std::size_t lStart, std::size_t lCount) {
    const std::size_t lEnd = std::min(lStart + lCount, masNew.size());
    for (std::size_t l = lStart; l < lEnd; ++l) Add(LineMark::None, l, masNew);
  }
  void AddChange(const LineChange& oChange) {
    for (std::size_t l = oChange.lOldStart; l < oChange.lOldEnd; ++l)
      Add(LineMark::Removed, l, masOld);
    for (std::size_t l = oChange.lNewStart; l < oChange.lNewEnd; ++l)
      Add(LineMark::Added, l, masNew);
  }
  void Add(LineMark eMark, std::size_t lLine, const Lines& asLine) {
    std::string_view sLine = asLine[lLine];
    while (!sLine.empty() && (sLine.back() == '\n' || sLine.back() == '\r')) sLine.remove_suffix(1);
    Text sText = moPage.Decode(sLine);
    // To the pane a carriage return inside would be the end of a line.
    std::replace(sText.begin(), sText.end(), u'\r', u'\u240D');
    moRows.push_back({eMark, NumberOf(lLine), std::move(sText)});
  }
  static Text NumberOf(std::size_t lLine) { return ToText(static_cast<long long>(lLine) + 1); }

  const CodePage& moPage;
  Lines masOld, masNew;
  std::vector<ChangeRow> moRows;
};

}  // namespace

std::vector<ChangeRow> ChangeRows(const std::string& sOldBytes, const std::string& sNewBytes) {
  return Rows(sOldBytes, sNewBytes).Make();
}

void ShowRows(const std::vector<ChangeRow>& aoRow, Forms::CodePane& oPane) {
  Text sText;
  for (const ChangeRow& oRow : aoRow) {
    if (&oRow != &aoRow.front()) sText += CrLf;
    sText += oRow.sText;
  }
  oPane.SetText(sText);
  std::int32_t lLine = 0;
  for (const ChangeRow& oRow : aoRow) {
    ++lLine;
    oPane.SetMark(lLine, oRow.eMark);
    oPane.SetLineNumber(lLine, oRow.sNumber);
  }
}
