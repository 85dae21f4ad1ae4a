#include "SourceDocument.h"

#include <algorithm>

#include "EditMemory.h"
#include "Failure.h"
#include "HeaderBlock.h"
#include "LineTable.h"
#include "MemberAttributes.h"
#include "PageBytes.h"
#include "ProcIndex.h"

namespace {

// A CR without LF ends a line, too.
std::int32_t CountEnds(std::string_view sBytes) {
  std::int32_t lCount = 0;
  for (std::size_t l = 0; l < sBytes.size(); ++l) {
    const bool bReturn = sBytes[l] == '\r' && (l + 1 == sBytes.size() || sBytes[l + 1] != '\n');
    if (bReturn || sBytes[l] == '\n') ++lCount;
  }
  return lCount;
}

}  // namespace

/// How many lines of the file the editor hides ahead of one of its own lines.
struct HiddenLines {
  std::uint64_t lVersion = 0;  ///< of the line table that was counted
  std::int32_t lAhead = 0, lCount = 0;
};

struct SourceDocument::Impl {
  Impl(std::string sBytes, const CodePage& oAnsi, bool bForcePage,
       const std::vector<CondConstant>& oConstants)
      : oPage(bForcePage ? oAnsi : CodePage::Detect(sBytes, oAnsi)),
        oHeader(sBytes, oPage),
        oLines(std::move(sBytes), oHeader.Length()),
        oIndex(oLines, oPage, oConstants),
        oMemory(oLines),
        oAttributes(oLines, oIndex, oPage) {}

  void CheckLines(std::int32_t lStart, std::int32_t lCount) const {
    if (lStart < 1 || lCount < 0 || lStart - 1 > oLines.Count() - lCount) throw Failure(9);
  }
  std::int32_t ScopeOf(TextView sName, ProcKind nKind) {
    const std::int32_t lScope = oIndex.Find(sName, nKind);
    if (lScope == 0) throw Failure(35);
    return lScope;
  }
  void CheckMember(std::int32_t lMember) {
    if (lMember < 1 || lMember > oIndex.MemberCount()) throw Failure(9);
  }

  const CodePage& oPage;
  HeaderBlock oHeader;
  LineTable oLines;
  ProcIndex oIndex;
  EditMemory oMemory;
  MemberAttributes oAttributes;
  HiddenLines oHidden;
};

SourceDocument::SourceDocument(std::string sBytes, const CodePage& oAnsi, bool bForcePage,
                               std::vector<CondConstant> oConstants)
    : mpImpl(std::make_unique<Impl>(std::move(sBytes), oAnsi, bForcePage, oConstants)) {}

SourceDocument::~SourceDocument() = default;

bool SourceDocument::IsHeaderOpen() const {
  return mpImpl->oHeader.IsOpen();
}
const std::vector<DesignerBlock>& SourceDocument::Blocks() const {
  return mpImpl->oHeader.Blocks();
}
Text SourceDocument::RootProperty(TextView sName) const {
  return mpImpl->oHeader.RootProperty(sName);
}
Text SourceDocument::ModuleAttribute(TextView sName) const {
  return mpImpl->oHeader.ModuleAttribute(sName);
}

Text SourceDocument::Lines(std::int32_t lStart, std::int32_t lCount) const {
  mpImpl->CheckLines(lStart, lCount);
  std::size_t lBytes = 0;
  for (std::int32_t l = lStart; l < lStart + lCount; ++l) lBytes += mpImpl->oLines.At(l).lLength;
  Text sText;
  sText.reserve(lBytes);
  for (std::int32_t l = lStart; l < lStart + lCount;) {
    if (l > lStart) sText += CrLf;
    // Lines that lie behind one another in the file with their CR LF are text as they are.
    std::int32_t lTaken = 1;
    mpImpl->oPage.Decode(mpImpl->oLines.RunOf(l, lStart + lCount - 1, lTaken), sText);
    l += lTaken;
  }
  return sText;
}

// Whoever lists a module asks for line after line: the count goes on from the last answer.
std::int32_t SourceDocument::FileLine(std::int32_t line) const {
  const LineTable& lines = mpImpl->oLines;
  HiddenLines& known = mpImpl->oHidden;
  if (known.lVersion != lines.Version()) {
    const LineTable::Line& header = lines.At(0);
    known = {lines.Version(), 0, CountEnds(lines.TextOf(header)) + CountEnds(lines.EndOf(header))};
  }
  for (; known.lAhead < line && known.lAhead <= lines.Count(); ++known.lAhead) {
    const LineTable::Line& ahead = lines.At(known.lAhead);
    if (ahead.bTail) known.lCount += CountEnds(lines.TailOf(ahead));
  }
  // And back, by a procedure or two: those of a property don't stand in the order of their kinds.
  for (; known.lAhead > std::max(line, 0); --known.lAhead) {
    const LineTable::Line& behind = lines.At(known.lAhead - 1);
    if (behind.bTail) known.lCount -= CountEnds(lines.TailOf(behind));
  }
  return line + known.lCount;
}

std::int32_t SourceDocument::CountOfLines() const {
  return mpImpl->oLines.Count();
}

std::int32_t SourceDocument::CountOfDeclarationLines() const {
  return mpImpl->oIndex.LineCount(0);
}

std::int32_t SourceDocument::HiddenProcedures() const {
  return mpImpl->oIndex.HiddenProcedures();
}

bool SourceDocument::HasProcedure(TextView name, ProcKind kind) const {
  return mpImpl->oIndex.Find(name, kind) != 0;
}

std::int32_t SourceDocument::ProcStartLine(TextView sName, ProcKind nKind) const {
  return mpImpl->oIndex.StartLine(mpImpl->ScopeOf(sName, nKind));
}

// The IDE gives line 1 for a Declare: callers tell by that line that there is no body.
std::int32_t SourceDocument::ProcBodyLine(TextView sName, ProcKind nKind) const {
  if (nKind == ProcKind::Method && mpImpl->oIndex.IsDeclare(sName)) return 1;
  return mpImpl->oIndex.BodyLine(mpImpl->ScopeOf(sName, nKind));
}

std::int32_t SourceDocument::ProcCountLines(TextView sName, ProcKind nKind) const {
  return mpImpl->oIndex.LineCount(mpImpl->ScopeOf(sName, nKind));
}

void SourceDocument::DeleteLines(std::int32_t lStart, std::int32_t lCount) {
  mpImpl->CheckLines(lStart, lCount);
  if (lCount == 0) return;
  mpImpl->oMemory.Delete(lStart, lCount);
  mpImpl->oIndex.NoteEdit(lStart, lCount, 0);
}

void SourceDocument::InsertLines(std::int32_t lLine, TextView sText) {
  if (lLine < 1) throw Failure(9);
  const std::string sBytes = PageBytes(sText, mpImpl->oPage);
  const std::int32_t place = std::min(lLine, CountOfLines() + 1);
  const auto [count, sameAhead] = mpImpl->oMemory.Insert(place, sBytes, mpImpl->oIndex.Scan());
  mpImpl->oIndex.NoteEdit(place, 0, count);
  if (sameAhead > 0) mpImpl->oIndex.NotePlain(place + sameAhead);
}

std::int32_t SourceDocument::MemberCount() const {
  return mpImpl->oIndex.MemberCount();
}

SourceDocument::MemberInfo SourceDocument::MemberAt(std::int32_t lIndex) const {
  mpImpl->CheckMember(lIndex);
  return mpImpl->oIndex.MemberAt(lIndex);
}

std::uint32_t SourceDocument::MembersVersion() const {
  return mpImpl->oIndex.MembersVersion();
}

bool SourceDocument::IsMember(std::int32_t lIndex, TextView sName, MemberType nType) const {
  return mpImpl->oIndex.IsMember(lIndex, sName, nType);
}

AttributeValue SourceDocument::Attribute(std::int32_t lMember, MemberAttribute eAttribute) const {
  mpImpl->CheckMember(lMember);
  return mpImpl->oAttributes.Get(lMember, eAttribute);
}

void SourceDocument::SetAttribute(std::int32_t lMember, MemberAttribute eAttribute,
                                  const AttributeValue& oValue) {
  mpImpl->CheckMember(lMember);
  mpImpl->oAttributes.Set(lMember, eAttribute, oValue);
}

bool SourceDocument::IsChanged() const {
  return mpImpl->oLines.IsChanged();
}
std::string SourceDocument::Bytes() const {
  return mpImpl->oLines.Bytes();
}
std::string SourceDocument::SavedBytes() const {
  return mpImpl->oLines.SavedBytes();
}

void SourceDocument::MarkSaved() {
  mpImpl->oLines.MarkSaved();
  mpImpl->oMemory.Clear();
}

const CodePage& SourceDocument::Page() const {
  return mpImpl->oPage;
}
