// The record of a run: any bytes are read without a failure, behind a whole head as well, and what
// is whole comes out the same when it is written again.
#include <cstdlib>

#include "Failure.h"
#include "RunRecord.h"

namespace {

void Read(const std::string& bytes) {
  const RunRecord record = ReadRun(bytes);
  std::string again = BytesOf(record.head);
  for (const RunFile& file : record.files) try {
      again += BytesOf(file);
      if (Unpack(file.packed, file.before).size() != file.before.size) std::abort();
    } catch (const Failure&) {
      continue;
    }
  const bool isPlain = record.form == RunRecord::Form::Whole && !record.isComplete;
  if (isPlain && record.hasHead && again != bytes) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  Read(bytes);
  Read(BytesOf(RunHead{bytes, 1, 1, {bytes}}) + bytes);
  Read(BytesOf(RunHead{}) + BytesOf(RunFile{bytes, {}, MarkOf(bytes), {}, Pack(bytes)}) + bytes);
  return 0;
}
