#include "RunRecord.h"

#include <algorithm>
#include <optional>
#include <set>

namespace {

constexpr std::string_view Name = "Tarvane Quillon run ", FirstLine = "Tarvane Quillon run 1\n";
enum class Piece : char { Head = 'H', File = 'F', End = 'E' };

class Writer {
 public:
  Writer& Put(std::uint64_t number) {
    for (int shift = 0; shift < 64; shift += 8) mBytes += static_cast<char>(number >> shift);
    return *this;
  }
  Writer& Put(std::string_view text) {
    Put(text.size());
    mBytes += text;
    return *this;
  }
  Writer& Put(const ContentMark& mark) { return Put(mark.size).Put(mark.sum); }
  std::string AsPiece(Piece kind) const {
    Writer piece;
    piece.mBytes += static_cast<char>(kind);
    piece.Put(mBytes.size()).Put(MarkOf(mBytes).sum);
    return piece.mBytes += mBytes;
  }

 private:
  std::string mBytes;
};

/// Once something is missing it gives nothing but zeros and empty texts, and says so.
class Reader {
 public:
  explicit Reader(std::string_view bytes) : mRest(bytes) {}
  bool IsAtEnd() const { return mRest.empty(); }
  bool IsShort() const { return mIsShort; }
  std::string_view Bytes(std::uint64_t count) {
    mIsShort |= count > mRest.size();
    if (mIsShort) return {};
    const auto length = static_cast<std::size_t>(count);
    const std::string_view bytes = mRest.substr(0, length);
    mRest.remove_prefix(length);
    return bytes;
  }
  std::uint64_t Number() {
    std::uint64_t number = 0;
    int shift = 0;
    for (const char byte : Bytes(8)) {
      number |= std::uint64_t{static_cast<unsigned char>(byte)} << shift;
      shift += 8;
    }
    return number;
  }
  std::string String() { return std::string(Bytes(Number())); }
  ContentMark Mark() {
    const std::uint64_t size = Number();
    return {size, Number()};
  }

 private:
  std::string_view mRest;
  bool mIsShort = false;
};

RunHead ReadHead(Reader& reader) {
  RunHead head;
  head.command = reader.String();
  head.startedAt = static_cast<std::int64_t>(reader.Number());
  head.process = static_cast<std::int64_t>(reader.Number());
  while (!reader.IsAtEnd() && !reader.IsShort()) head.groups.push_back(reader.String());
  return head;
}

RunFile ReadFile(Reader& reader) {
  RunFile file;
  file.path = reader.String();
  file.newFile = reader.String();
  file.before = reader.Mark();
  file.after = reader.Mark();
  file.packed = reader.String();
  return file;
}

void TakeEnd(Reader& reader, RunRecord& record) {
  std::set<std::uint64_t> kept;
  while (!reader.IsAtEnd() && !reader.IsShort()) kept.insert(reader.Number());
  std::uint64_t number = 0;
  std::erase_if(record.files, [&](const RunFile&) { return kept.contains(number++); });
  record.isComplete = true;
}

/// False for a piece that isn't understood.
bool TakePiece(Piece kind, std::string_view bytes, RunRecord& record) {
  Reader reader(bytes);
  if (record.hasHead == (kind == Piece::Head)) return false;
  switch (kind) {
    case Piece::Head:
      record.head = ReadHead(reader);
      record.hasHead = true;
      break;
    case Piece::File:
      record.files.push_back(ReadFile(reader));
      break;
    case Piece::End:
      TakeEnd(reader, record);
      break;
    default:
      return false;
  }
  return !reader.IsShort();
}

}  // namespace

std::string BytesOf(const RunHead& head) {
  Writer writer;
  writer.Put(head.command);
  writer.Put(static_cast<std::uint64_t>(head.startedAt));
  writer.Put(static_cast<std::uint64_t>(head.process));
  for (const std::string& group : head.groups) writer.Put(group);
  return std::string(FirstLine) + writer.AsPiece(Piece::Head);
}

std::string BytesOf(const RunFile& file) {
  Writer writer;
  writer.Put(file.path).Put(file.newFile).Put(file.before).Put(file.after).Put(file.packed);
  return writer.AsPiece(Piece::File);
}

std::string EndBytes(const std::vector<std::size_t>& kept) {
  Writer writer;
  for (const std::size_t number : kept) writer.Put(std::uint64_t{number});
  return writer.AsPiece(Piece::End);
}

RunRecord ReadRun(std::string_view bytes) {
  using Form = RunRecord::Form;
  RunRecord record;
  const std::string_view first = bytes.substr(0, FirstLine.size());
  if (first != FirstLine) {
    const bool isName = first.substr(0, Name.size()) == Name.substr(0, first.size());
    record.form = !isName ? Form::Damaged
                  : first.find('\n') == first.npos && bytes.size() < FirstLine.size()
                      ? Form::CutOff
                      : Form::OtherVersion;
    return record;
  }
  Reader reader(bytes.substr(FirstLine.size()));
  while (!reader.IsAtEnd() && record.form == Form::Whole) {
    const std::string_view kind = reader.Bytes(1);
    const std::uint64_t size = reader.Number(), sum = reader.Number();
    const std::string_view piece = reader.Bytes(size);
    if (reader.IsShort()) {
      record.form = Form::CutOff;
    } else if (MarkOf(piece).sum != sum || !TakePiece(Piece{kind.front()}, piece, record)) {
      record.form = Form::Damaged;
    }
  }
  return record;
}
