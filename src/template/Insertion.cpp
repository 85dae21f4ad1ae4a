#include "Insertion.h"

#include <span>

#include "Failure.h"
#include "LineNumbers.h"
#include "LineWriter.h"
#include "ProcPlaces.h"
#include "TraceExits.h"

namespace {

/// The first run of clean-up comment lines of a body: indices of its lines.
struct CleanUpBlock {
  std::size_t first = 0;
  std::size_t end = 0;
  bool Found() const { return end > first; }
};

CleanUpBlock FindCleanUp(const ProcText& code, const ProcPlaces& places) {
  const auto isCleanUp = [&](std::size_t i) { return code.Folded(i).starts_with(FireMark); };
  CleanUpBlock block;
  std::size_t i = places.firstBody;
  // A line that continues a comment is no block of its own.
  while (i < places.end && !(isCleanUp(i) && !code.IsContinued(i))) ++i;
  block.first = i;
  while (i < places.end && isCleanUp(i)) ++i;
  block.end = i;
  return block;
}

/// The code of a clean-up comment line: what stands behind the mark and its one blank.
TextView CleanUpCode(TextView line) {
  line.remove_prefix(line.find_first_not_of(u' ') + FireMark.size());
  if (line.starts_with(u' ')) line.remove_prefix(1);
  return line;
}

class TemplateInsertion {
 public:
  TemplateInsertion(const InsertionRequest& request, const ProcText& code)
      : mRequest(request), mRow(request.row), mValues(request.values), mCode(code) {}

  Insertion Run() {
    CheckRequest();
    if (!Accepted()) return std::move(mResult);
    if (mRequest.declarations) {
      CheckNoTemplate();
      if (Accepted()) WriteDeclarations();
    } else {
      const ProcPlaces places = FindPlaces(mCode, mRequest.headLine, mValues.baseType);
      if (places.refusal) Refuse({*places.refusal});
      if (Accepted()) CheckNoTemplate();
      if (Accepted()) WriteProcedure(places);
    }
    mResult.text = mWriter.Take();
    return std::move(mResult);
  }

 private:
  bool Accepted() const { return mResult.refusals.empty(); }
  void Refuse(Refusal refusal) { mResult.refusals.push_back(std::move(refusal)); }

  void CheckRequest() {
    const bool module = mRequest.declarations;
    if (mRow.eType != (module ? TemplateType::Module : TemplateType::Procedure)) {
      Refuse({RefusalKind::WrongType, 0, mRow.sName, module ? u"module" : u"procedure"});
    } else if (!Signatures().IsReadable(mValues.signature, mRequest.locked)) {
      Refuse({RefusalKind::SignatureNotReadable, 0, Text(mValues.signature)});
    }
  }

  void CheckNoTemplate() {
    if (!mRequest.signedCode) return;
    const std::size_t line = Signatures().FindNamed(mCode);
    if (line == mCode.Count()) return;
    Refuse({RefusalKind::TemplateThere, line + 1, Text(mCode.Line(line))});
  }

  const Signature& Signatures() const { return mRequest.templates.Signatures(); }

  /// Writes lines of the template and remembers which they are.
  template <class Write>
  void WriteOwn(Write&& write) {
    const std::size_t first = mWriter.Count();
    write();
    if (mWriter.Count() > first) mResult.templateLines.push_back({first, mWriter.Count()});
  }
  void WriteSignature() {
    WriteOwn([&] { mWriter.Add(Signatures().Line(mValues.signature, mRequest.locked)); });
  }
  void WriteSection(Section first, Section last) {
    WriteOwn([&] {
      WriteRows(mRequest.templates.lines, mRow.lStart[first], mRow.lStart[last], mValues, mWriter);
    });
  }

  void WriteProcedure(const ProcPlaces& places) {
    constexpr std::size_t TemplateUnits = 2048;  // more than most templates take
    mWriter.Reserve(mCode.Units() + TemplateUnits);
    mResult.body = {places.firstBody, places.end};
    mWriter.Add(mCode, 0, places.firstBody);
    WriteSignature();
    try {
      WriteSections(places);
    } catch (const Failure& failure) {  // a number that doesn't fit its field
      return Refuse({RefusalKind::NumberTooLong, 0, Text(failure.Description())});
    }
    mWriter.Add(mCode, places.end, mCode.Count());
  }

  /// The sections and the body behind the signature.
  void WriteSections(const ProcPlaces& places) {
    WriteSection(Section::Start, Section::BodyStart);
    if (mValues.trace && mRow.lTraceExit > 0) {
      mResult.traceExit =
          TraceExits::GetTraceExit(mRequest.templates.Row(mRow.lTraceExit), mValues);
    }
    if (!mRow.bFire) {
      WriteBody(places.firstBody, places.end);
      return WriteSection(Section::BodyEnd, Section::End);
    }
    const CleanUpBlock block = FindCleanUp(mCode, places);
    if (block.Found()) mResult.cleanUp = {block.first, block.end};
    WriteBody(places.firstBody, block.Found() ? block.first : places.end);
    if (block.Found()) mWriter.Add(mCode, block.end, places.end);
    WriteSection(Section::BodyEnd, Section::FireStart);
    for (std::size_t i = block.first; i < block.end; ++i) mWriter.Add(CleanUpCode(mCode.Line(i)));
    WriteSection(Section::FireEnd, Section::End);
  }

  /// Lines of the body with their trace exits and line numbers.
  void WriteBody(std::size_t first, std::size_t end) {
    if (mRequest.numbering == MQuillon::LineNumAction::Leave) {
      return WriteTraced(first, end, mWriter);
    }
    LineWriter traced;
    WriteTraced(first, end, traced);
    if (traced.Count() == 0) return;
    const Text text = traced.Take();
    std::vector<TextView> lines;
    for (std::size_t l = 0; l <= text.size(); l += lines.back().size() + CrLf.size()) {
      lines.push_back(TextView(text).substr(l, FindLineEnd(text, l) - l));
    }
    mWriter.AddEnded(LineNumbers::DoLineNumbers(lines, mRequest.numbering, mRequest.rules));
  }

  void WriteTraced(std::size_t first, std::size_t end, LineWriter& writer) const {
    // Without its first letter, which is too common to search for.
    if (mResult.traceExit.empty() || !mCode.MayHold(first, end, u"xit ")) {
      return writer.Add(mCode, first, end);
    }
    std::size_t kept = first;  // lines from here on are written as they are
    bool comment = false;      // in a comment that continues over lines nothing is code
    for (std::size_t i = first; i < end; ++i) {
      const TextView line = mCode.Line(i);
      const bool goesOn = Continues(line);
      if (!comment && FindText(line, u"Exit ") != TextView::npos) {
        writer.Add(mCode, kept, i);
        writer.Add(TraceExits::Insert(line, mValues.baseType, mResult.traceExit));
        kept = i + 1;
      }
      comment = goesOn && (comment || mCode.CommentOf(i) < line.size());
    }
    writer.Add(mCode, kept, end);
  }

  void WriteDeclarations() {
    std::size_t place = BehindOptions(mCode);
    // Blank declarations that end in a line end: the empty piece behind it isn't a line, and the
    // template goes ahead of it.
    if (place > 0 && place == mCode.Count() && mCode.Line(place - 1).empty()) --place;
    mWriter.Add(mCode, 0, place);
    WriteSignature();
    WriteSection(Section::Start, Section::End);
    mWriter.Add(mCode, place, mCode.Count());
  }

  const InsertionRequest& mRequest;
  const TemplateRow& mRow;
  const SectionValues& mValues;
  const ProcText& mCode;
  LineWriter mWriter;
  Insertion mResult;
};

}  // namespace

Insertion InsertTemplate(const InsertionRequest& request, const ProcText& code) {
  return TemplateInsertion(request, code).Run();
}
