#include "UnifiedDiff.h"

#include <algorithm>
#include <filesystem>

#include "LineDiff.h"

namespace {

constexpr std::size_t Context = 3;
constexpr std::string_view Bold = "\x1b[1m", Red = "\x1b[31m", Green = "\x1b[32m",
                           Cyan = "\x1b[36m", Plain = "\x1b[m";

using Lines = std::vector<std::string_view>;

/// A name with characters that would break the header line is quoted as git does; behind a name
/// with a blank a tab says where it ends.
std::string HeaderName(std::string_view sPrefix, std::string_view sPath) {
  std::string sName, sRaw = std::string(sPrefix) + std::string(sPath);
  bool bQuote = false;
  for (char c : sRaw) {
    auto cByte = static_cast<unsigned char>(c);
    if (c != '"' && c != '\\' && cByte >= 0x20 && cByte != 0x7f) {
      sName += c;
      continue;
    }
    bQuote = true;
    sName += '\\';
    if (c == '"' || c == '\\')
      sName += c;
    else
      for (int nShift : {6, 3, 0}) sName += static_cast<char>('0' + ((cByte >> nShift) & 7));
  }
  if (bQuote) return '"' + sName + '"';
  return sRaw.find(' ') == std::string::npos ? sRaw : sRaw + '\t';
}

class Writer {
 public:
  Writer(const Lines& asOld, const Lines& asNew, const DiffStyle& oStyle, std::string& sResult)
      : masOld(asOld), masNew(asNew), moStyle(oStyle), msResult(sResult) {}

  void Header(std::string_view sMark, std::string_view sPrefix, std::string_view sPath) {
    Line(Bold, sMark, HeaderName(sPrefix, sPath));
  }

  void Hunk(const LineChange* oFirst, const LineChange* oLast) {
    std::size_t lLead = std::min(Context, oFirst->lOldStart);
    std::size_t lTail = std::min(Context, masOld.size() - oLast->lOldEnd);
    std::size_t lOld = oFirst->lOldStart - lLead, lNew = oFirst->lNewStart - lLead;
    Line(Cyan, "@@ -",
         Place(lOld, oLast->lOldEnd + lTail - lOld) + " +" +
             Place(lNew, oLast->lNewEnd + lTail - lNew) + " @@");
    for (const LineChange* oChange = oFirst; oChange <= oLast; ++oChange) {
      Body({}, " ", masOld, lOld, oChange->lOldStart);
      Body(Red, "-", masOld, oChange->lOldStart, oChange->lOldEnd);
      Body(Green, "+", masNew, oChange->lNewStart, oChange->lNewEnd);
      lOld = oChange->lOldEnd;
    }
    Body({}, " ", masOld, lOld, lOld + lTail);
  }

 private:
  /// First line from 1 and count; of an empty stretch the line ahead of it.
  static std::string Place(std::size_t lStart, std::size_t lCount) {
    std::string sPlace = std::to_string(lCount == 0 ? lStart : lStart + 1);
    return lCount == 1 ? sPlace : sPlace + ',' + std::to_string(lCount);
  }

  void Body(std::string_view sColor, std::string_view sMark, const Lines& asLine,
            std::size_t lStart, std::size_t lEnd) {
    for (std::size_t i = lStart; i < lEnd; ++i) {
      std::string_view sLine = asLine[i];
      bool bEnded = sLine.back() == '\n';
      if (bEnded) sLine.remove_suffix(1);
      Line(sColor, sMark, sLine);
      if (!bEnded) msResult += "\\ No newline at end of file\n";
    }
  }

  void Line(std::string_view sColor, std::string_view sMark, std::string_view sText) {
    bool bColor = moStyle.bColor && !sColor.empty();
    if (bColor) msResult += sColor;
    msResult += sMark;
    msResult += sText;
    if (bColor) msResult += Plain;
    msResult += '\n';
  }

  const Lines& masOld;
  const Lines& masNew;
  const DiffStyle& moStyle;
  std::string& msResult;
};

}  // namespace

void AppendUnifiedDiff(std::string_view sPath, std::string_view sOld, std::string_view sNew,
                       const DiffStyle& oStyle, std::string& sResult) {
  Lines asOld = SplitBytes(sOld), asNew = SplitBytes(sNew);
  std::vector<LineChange> oChanges = CompareLines(asOld, asNew);
  if (oChanges.empty()) return;
  Writer oWriter(asOld, asNew, oStyle, sResult);
  oWriter.Header("--- ", "a/", sPath);
  oWriter.Header("+++ ", "b/", sPath);
  for (std::size_t lFirst = 0, lLast; lFirst < oChanges.size(); lFirst = lLast + 1) {
    lLast = lFirst;
    while (lLast + 1 < oChanges.size() &&
           oChanges[lLast + 1].lOldStart - oChanges[lLast].lOldEnd <= 2 * Context)
      ++lLast;
    oWriter.Hunk(&oChanges[lFirst], &oChanges[lLast]);
  }
}

std::string RelativePath(const std::string& sPath) {
  namespace fs = std::filesystem;
  std::error_code oError;
  fs::path oFolder = fs::current_path(oError);
  if (oError) return sPath;
  fs::path oAbsolute = (oFolder / sPath).lexically_normal();
  fs::path oRelative = oAbsolute.lexically_relative(oFolder);
  return oRelative.empty() ? oAbsolute.string() : oRelative.string();
}
