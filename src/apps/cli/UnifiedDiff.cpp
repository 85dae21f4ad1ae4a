#include "UnifiedDiff.h"

#include <filesystem>

#include "LineDifferences.h"

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

  void Hunk(const LineHunk& oHunk) {
    Line(Cyan, "@@ -",
         Place(oHunk.oldFirst, oHunk.oldEnd) + " +" + Place(oHunk.newFirst, oHunk.newEnd) + " @@");
    VisitLines(oHunk, [&](LineFate eFate, std::size_t lLine) {
      if (eFate == LineFate::Goes)
        Body(Red, "-", masOld[lLine]);
      else if (eFate == LineFate::Comes)
        Body(Green, "+", masNew[lLine]);
      else
        Body({}, " ", masNew[lLine]);
    });
  }

 private:
  /// First line from 1 and count; of an empty stretch the line ahead of it.
  static std::string Place(std::size_t lStart, std::size_t lEnd) {
    const std::size_t lCount = lEnd - lStart;
    std::string sPlace = std::to_string(lCount == 0 ? lStart : lStart + 1);
    return lCount == 1 ? sPlace : sPlace + ',' + std::to_string(lCount);
  }

  void Body(std::string_view sColor, std::string_view sMark, std::string_view sLine) {
    const bool bEnded = sLine.back() == '\n';
    if (bEnded) sLine.remove_suffix(1);
    Line(sColor, sMark, sLine);
    if (!bEnded) msResult += "\\ No newline at end of file\n";
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
  const Lines asOld = SplitByteLines(sOld), asNew = SplitByteLines(sNew);
  const std::vector<LineChange> oChanges = LineDifferences(asOld, asNew);
  if (oChanges.empty()) return;
  Writer oWriter(asOld, asNew, oStyle, sResult);
  oWriter.Header("--- ", "a/", sPath);
  oWriter.Header("+++ ", "b/", sPath);
  for (const LineHunk& oHunk : LineHunks(oChanges, asOld.size(), Context)) oWriter.Hunk(oHunk);
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
