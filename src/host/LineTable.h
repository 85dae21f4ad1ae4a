// The lines of a source file over its bytes, eight bytes a line. Line 0 is the header block with
// the module attributes; lines 1 to Count() are those that the editor shows. Lines that it hides
// (Attribute Name.VB_...) are no lines here: they are the tail of the line ahead of them, so they
// go wherever that line goes.
//
// Bytes that were read stay where they are; new text is collected behind them in a second buffer.
// Views that are handed out are good until the next MarkSaved.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "AddedText.h"
#include "GapBuffer.h"

/// True for a line that the editor hides: in column 1, Attribute Name.VB_...
bool IsMemberAttribute(std::string_view sLine);

class LineTable {
 public:
  /// A place in one of the two buffers: text, line end, tail.
  struct Line {
    std::uint32_t lOffset = 0;
    std::uint32_t lLength : 31 = 0;
    std::uint32_t bTail : 1 = 0;
  };

  /// lHeaderLength: bytes of the header block. Failure 7 for a file of over 2 GB.
  LineTable(std::string sBytes, std::size_t lHeaderLength);

  std::int32_t Count() const { return static_cast<std::int32_t>(moLines.Size()) - 1; }
  /// The text of a visible line, without its line end.
  std::string_view TextOf(std::int32_t lLine) const { return TextOf(At(lLine)); }
  std::string_view TextOf(const Line& oLine) const;
  /// With line end and tail.
  std::string_view BytesOf(const Line& oLine) const {
    const bool isAdded = (oLine.lOffset & AddedText::Limit) != 0;
    const char* const first =
        isAdded ? moAdded.At(oLine.lOffset - AddedText::Limit) : msFile.data() + oLine.lOffset;
    return {first, oLine.lLength};
  }
  /// The bytes of line lFirst and of as many lines behind it, up to lLast, as lie behind one
  /// another with a CR LF and no tail between them; without the last one's line end. lTaken: how
  /// many.
  std::string_view RunOf(std::int32_t lFirst, std::int32_t lLast, std::int32_t& lTaken) const;
  /// Its own line end: CR LF, LF, CR, or nothing. Always good.
  std::string_view EndOf(const Line& oLine) const;
  /// The hidden lines behind it, with their line ends.
  std::string_view TailOf(const Line& oLine) const;
  const Line& At(std::int32_t lLine) const { return moLines[static_cast<std::size_t>(lLine)]; }

  /// False when no line of the file has or ever had hidden lines behind it.
  bool MayHaveTails() const { return mbTails; }

  /// Another number after every change of lines.
  std::uint64_t Version() const { return mlVersion; }

  /// The line end that most lines of the file have; CR LF for a file without one.
  std::string_view OwnEnd() const { return msOwnEnd; }

  /// Failure 7 when lBytes more bytes of new text don't fit; to be asked before a change.
  void MakeRoom(std::size_t lBytes) const { moAdded.MakeRoom(lBytes); }
  /// A new line, for Set or Insert. The views may point into the line table.
  Line Add(std::string_view sText, std::string_view sEnd, std::string_view sTail = {});
  /// The line with more hidden lines behind those that it has.
  Line WithTail(const Line& oLine, std::string_view sTail);
  void Set(std::int32_t lLine, const Line& oLine);
  /// The lines that go, in order.
  std::vector<Line> Remove(std::int32_t lStart, std::int32_t lCount);
  void Insert(std::int32_t lLine, const std::vector<Line>& oLines);

  /// The file as it is to be written. Every line but the last has a line end; the last has one
  /// if it had one in the file that was read.
  std::string Bytes() const;
  /// The file as it was read, or saved last.
  std::string SavedBytes() const;
  bool IsChanged() const;
  /// The present bytes are the saved ones from now on.
  void MarkSaved();

 private:
  void Touch();
  bool IsOpen(const Line& oLine) const;
  void Split(std::size_t lHeaderLength);
  std::string_view PieceOf(const Line& oLine, const Line* poNext, std::string_view& sMore) const;
  std::string_view PieceOf(const GapBuffer<Line>& oLines, std::size_t l,
                           std::string_view& sMore) const;
  std::string Compose(const GapBuffer<Line>& oLines) const;
  void Rebase(std::string sBytes);

  std::string msFile;
  AddedText moAdded;
  GapBuffer<Line> moLines;
  std::string_view msOwnEnd;
  bool mbFinalEnd = true;
  bool mbTails = false;
  GapBuffer<Line> moSaved;  // what was saved last, while lines differ from it and msFile isn't it
  bool mbFileSaved = true;  // msFile holds the saved bytes
  bool mbTouched = false;   // since then
  std::uint64_t mlVersion = 1;
};
