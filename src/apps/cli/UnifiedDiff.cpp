#include "UnifiedDiff.h"

#include <algorithm>
#include <filesystem>

#include "LineDifferences.h"
#include "Utf8.h"

namespace {

constexpr std::size_t Context = 3;
constexpr std::string_view Bold = "\x1b[1m", Red = "\x1b[31m", Green = "\x1b[32m",
                           Cyan = "\x1b[36m", Plain = "\x1b[m";

using Lines = std::vector<std::string_view>;

void AppendQuoted(unsigned char byte, std::string& name) {
  name += '\\';
  if (byte == '"' || byte == '\\') {
    name += static_cast<char>(byte);
  } else {
    for (int shift : {6, 3, 0}) name += static_cast<char>('0' + ((byte >> shift) & 7));
  }
}

/// A name that would break the header line, or isn't UTF-8, is quoted as git does, so that git and
/// patch find the file; behind a name with a blank a tab says where it ends.
std::string HeaderName(std::string_view prefix, std::string_view path) {
  const std::string raw = std::string(prefix) + std::string(path);
  std::string name;
  bool quoted = false;
  for (std::string_view rest = raw; !rest.empty();) {
    const auto byte = static_cast<unsigned char>(rest.front());
    const bool plain = byte >= 0x20 && byte < 0x7f && byte != '"' && byte != '\\';
    const std::size_t length = plain ? 1 : byte < 0x80 ? 0 : Utf8::SequenceLength(rest);
    if (length == 0) {
      AppendQuoted(byte, name);
      quoted = true;
    }
    name += rest.substr(0, length);
    rest.remove_prefix(std::max<std::size_t>(length, 1));
  }
  if (quoted) return '"' + name + '"';
  return raw.find(' ') == std::string::npos ? raw : raw + '\t';
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
  return oRelative.empty() ? oAbsolute.generic_string() : oRelative.generic_string();
}
