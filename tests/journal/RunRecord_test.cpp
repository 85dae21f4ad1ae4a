#include "RunRecord.h"

#include <gtest/gtest.h>

#include "FailureOf.h"

namespace {

const RunHead Head{"quillon apply caf\xE9", 1795453262, 4711, {"/src/Orders.vbg", "/src"}};

/// Texts of all lengths around the words of the sum, and some that say little or much.
std::string BytesOfFile(std::size_t number) {
  std::string bytes(number * 7, 'x');
  for (std::size_t i = 0; i < bytes.size(); i += number % 5 + 1)
    bytes[i] = static_cast<char>(i * i * number);
  return bytes;
}

RunFile FileOf(std::size_t number) {
  const std::string before = BytesOfFile(number), name = "/src/" + std::to_string(number);
  return {name, name + ".new", MarkOf(before), MarkOf(before + "'"), Pack(before)};
}

std::string RecordOf(std::size_t count) {
  std::string bytes = BytesOf(Head);
  for (std::size_t i = 0; i < count; ++i) bytes += BytesOf(FileOf(i));
  return bytes;
}

/// What was read is the beginning of what was written.
void ExpectBeginning(const RunRecord& record) {
  if (record.hasHead) {
    EXPECT_EQ(record.head, Head);
  }
  for (std::size_t i = 0; i < record.files.size(); ++i) EXPECT_EQ(record.files[i], FileOf(i));
}

TEST(RunRecord, GivesBackWhatWasWritten) {
  constexpr std::size_t count = 40;
  RunRecord record = ReadRun(RecordOf(count));
  EXPECT_EQ(record.form, RunRecord::Form::Whole);
  EXPECT_FALSE(record.isComplete);
  ASSERT_EQ(record.files.size(), count);
  ExpectBeginning(record);
  for (std::size_t i = 0; i < count; ++i)
    EXPECT_EQ(Unpack(record.files[i].packed, record.files[i].before), BytesOfFile(i));

  record = ReadRun(RecordOf(4) + EndBytes({0, 2}));
  EXPECT_TRUE(record.isComplete);
  ASSERT_EQ(record.files.size(), 2u) << "files that weren't replaced are none of the run's";
  EXPECT_EQ(record.files[0], FileOf(1));
  EXPECT_EQ(record.files[1], FileOf(3));
}

TEST(RunRecord, TellsWhatIsMissingOrDamaged) {
  using Form = RunRecord::Form;
  const std::string whole = RecordOf(3) + EndBytes({});
  const std::size_t firstLine = whole.find('\n') + 1;
  for (std::size_t size = 0; size < whole.size(); ++size) {
    SCOPED_TRACE("cut to " + std::to_string(size));
    const RunRecord record = ReadRun(whole.substr(0, size));
    EXPECT_FALSE(record.isComplete);
    EXPECT_NE(record.form, Form::Damaged);
    EXPECT_NE(record.form, Form::OtherVersion);
    ExpectBeginning(record);
  }
  for (std::size_t at = 0; at < whole.size(); ++at) {
    SCOPED_TRACE("another byte at " + std::to_string(at));
    std::string bytes = whole;
    bytes[at] = static_cast<char>(bytes[at] ^ 1);
    const RunRecord record = ReadRun(bytes);
    EXPECT_FALSE(record.isComplete);
    EXPECT_NE(record.form, Form::Whole);
    EXPECT_EQ(record.form == Form::OtherVersion, at < firstLine && at + 2 >= firstLine)
        << "the number in the line";
    ExpectBeginning(record);
  }
}

TEST(RunRecord, DamagedBytesOfBeforeAreNoneToWriteBack) {
  const std::string bytes = BytesOfFile(30), packed = Pack(bytes);
  const auto unpack = [&](const std::string& some, ContentMark mark) {
    return FailureOf([&] { Unpack(some, mark); });
  };
  EXPECT_EQ(unpack(packed, MarkOf(bytes)), 0);
  EXPECT_EQ(unpack(packed, MarkOf(bytes + "x")), 321);
  EXPECT_EQ(unpack(packed, {~std::uint64_t{0}, 1}), 321) << "no memory is asked for";
  EXPECT_EQ(unpack("x", MarkOf(bytes)), 321);
  EXPECT_EQ(unpack(Pack(BytesOfFile(31)), MarkOf(bytes)), 321);
}

TEST(RunRecord, MarksTellOneByteApart) {
  for (std::size_t number : {0, 1, 5, 12, 30}) {
    const std::string bytes = BytesOfFile(number) + "x";
    for (std::size_t at = 0; at < bytes.size(); ++at) {
      std::string other = bytes;
      other[at] = static_cast<char>(other[at] ^ 0x80);
      EXPECT_NE(MarkOf(bytes), MarkOf(other)) << number << " at " << at;
    }
  }
}

}  // namespace
