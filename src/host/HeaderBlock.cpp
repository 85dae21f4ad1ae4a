#include "HeaderBlock.h"

#include <algorithm>

#include "ByteText.h"
#include "LineSplit.h"
#include "QuotedText.h"

namespace {

// The first word of sLine; sLine becomes what follows.
std::string_view TakeWord(std::string_view& sLine) {
  const std::size_t lEnd = std::min(sLine.find_first_of(" \t"), sLine.size());
  const std::string_view sWord = sLine.substr(0, lEnd);
  sLine = TrimBlanks(sLine.substr(lEnd));
  return sWord;
}

// A value ends at a comment; an apostrophe in a quoted text is none.
std::string_view CutComment(std::string_view sValue) {
  bool bQuoted = false;
  for (std::size_t l = 0; l < sValue.size(); ++l) {
    if (sValue[l] == '"') bQuoted = !bQuoted;
    if (sValue[l] == '\'' && !bQuoted) return TrimBlanks(sValue.substr(0, l));
  }
  return TrimBlanks(sValue);
}

bool IsModuleAttribute(std::string_view sLine) {
  constexpr std::string_view sWord = "attribute ";
  if (!StartsNoCase(sLine, sWord)) return false;
  const std::string_view sRest = SkipBlanks(sLine.substr(sWord.size()));
  const std::string_view sName = sRest.substr(0, sRest.find('='));
  return StartsNoCase(sName, "vb_") && sName.find('.') == std::string_view::npos;
}

template <class Entries>
auto FindEntry(const Entries& oEntries, TextView sName) {
  return std::find_if(oEntries.begin(), oEntries.end(),
                      [&](const auto& o) { return EqualNoCase(o.sName, sName); });
}

}  // namespace

class HeaderBlock::Reader {
 public:
  Reader(HeaderBlock& oHeader, std::string_view sBytes, const CodePage& oPage)
      : moHeader(oHeader), moPage(oPage), moSplit(sBytes, Mark(sBytes)) {
    oHeader.mlLength = Mark(sBytes);
  }

  void Read() {
    bool bLine = moSplit.Next();
    if (bLine && StartsNoCase(TrimBlanks(moSplit.Text()), "version ")) bLine = ReadDesigner();
    for (; bLine && IsModuleAttribute(moSplit.Text()); bLine = moSplit.Next()) {
      AddEntry(moHeader.moAttributes, SkipBlanks(moSplit.Text().substr(10)));
      moHeader.mlLength = moSplit.Behind();
    }
  }

 private:
  static std::size_t Mark(std::string_view sBytes) {
    return sBytes.starts_with(ByteOrderMark) ? ByteOrderMark.size() : 0;
  }

  // Gives false when the file ends in the header. A block that is never closed takes the file up
  // to the module attributes: what can't be told from a form's layout isn't shown as code.
  bool ReadDesigner() {
    moHeader.mlLength = moSplit.Behind();
    while (moSplit.Next()) {
      const std::string_view sLine = TrimBlanks(moSplit.Text());
      if (IsModuleAttribute(moSplit.Text())) return true;
      if (moDepth.empty() && (mbDone || !MayPrecedeBlock(sLine))) return true;
      Take(sLine);
      moHeader.mlLength = moSplit.Behind();
    }
    moHeader.mbOpen = !moDepth.empty();
    return false;
  }

  static bool MayPrecedeBlock(std::string_view sLine) {
    std::string_view sRest = sLine;
    const std::string_view sWord = TakeWord(sRest);
    return sLine.empty() || IsWord(sWord, "object") || IsWord(sWord, "begin");
  }

  void Take(std::string_view sLine) {
    const std::string_view sWhole = sLine;
    const std::string_view sWord = TakeWord(sLine);
    if (IsWord(sWord, "begin")) {
      Begin(sLine);
    } else if (IsWord(sWord, "beginproperty")) {
      moDepth.push_back(false);
    } else if (IsWord(sWhole, "end") || IsWord(sWhole, "endproperty")) {
      if (!moDepth.empty()) Close();
    } else if (moDepth.size() == 1) {
      AddEntry(moHeader.moProperties, sWhole);
    }
  }

  // A class's block has no class and no name, and is no designer.
  void Begin(std::string_view sRest) {
    const std::string_view sClass = TakeWord(sRest);
    if (!sClass.empty()) {
      moHeader.moBlocks.push_back({moPage.Decode(sClass), moPage.Decode(sRest), mnBlocks});
    }
    moDepth.push_back(true);
    ++mnBlocks;
  }

  void Close() {
    if (moDepth.back()) --mnBlocks;
    moDepth.pop_back();
    mbDone = moDepth.empty();
  }

  void AddEntry(std::vector<Entry>& oEntries, std::string_view sLine) {
    const std::size_t lSign = sLine.find('=');
    if (lSign == std::string_view::npos) return;
    oEntries.push_back({moPage.Decode(TrimBlanks(sLine.substr(0, lSign))),
                        moPage.Decode(CutComment(sLine.substr(lSign + 1)))});
  }

  HeaderBlock& moHeader;
  const CodePage& moPage;
  LineSplit moSplit;
  std::vector<bool> moDepth;  // open blocks; false: a property's
  int mnBlocks = 0;
  bool mbDone = false;
};

HeaderBlock::HeaderBlock(std::string_view sBytes, const CodePage& oPage) {
  Reader(*this, sBytes, oPage).Read();
}

Text HeaderBlock::RootProperty(TextView sName) const {
  const auto pFound = FindEntry(moProperties, sName);
  return pFound == moProperties.end() ? Text() : pFound->sValue;
}

Text HeaderBlock::ModuleAttribute(TextView sName) const {
  const auto pFound = FindEntry(moAttributes, sName);
  return pFound == moAttributes.end() ? Text() : Unquoted(pFound->sValue);
}
