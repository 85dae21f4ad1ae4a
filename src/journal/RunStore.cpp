#include "RunStore.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <map>

#include "AtomicFile.h"
#include "ErrorLog.h"
#include "FileFailure.h"
#include "MXRegistry.h"
#include "PathText.h"
#include "Process.h"

namespace {

namespace fs = std::filesystem;
using State = RunStore::State;

constexpr std::array<std::pair<State, std::string_view>, 4> Ends = {
    {{State::Writing, ".writing"},
     {State::Complete, ".run"},
     {State::TakingBack, ".undoing"},
     {State::TakenBack, ".undone"}}};
/// More than a head takes up, unless it was given hundreds of paths.
constexpr std::size_t HeadSize = 1 << 14;

std::string_view EndOf(State state) {
  return std::find_if(Ends.begin(), Ends.end(), [&](auto& row) { return row.first == state; })
      ->second;
}

/// A folder and what lies directly in it belong together.
bool AreRelated(const std::string& left, const std::string& right) {
  return left == right || FileFailure::FolderOf(left) == right ||
         FileFailure::FolderOf(right) == left;
}

bool AreRelated(const std::vector<std::string>& left, const std::vector<std::string>& right) {
  return std::any_of(left.begin(), left.end(), [&](const std::string& one) {
    return std::any_of(right.begin(), right.end(),
                       [&](const std::string& other) { return AreRelated(one, other); });
  });
}

bool IsKept(State state) {
  return state == State::Writing || state == State::TakingBack;
}

/// By the process number in the name of a record.
bool IsOfDeadProcess(const std::string& path) {
  return IsProcessGone(std::strtoll(path.c_str() + path.rfind('-') + 1, nullptr, 10));
}

}  // namespace

UndoLimits ReadUndoLimits() {
  using namespace MXRegistry;
  UndoLimits limits;
  const std::int32_t key = OpenRegKey(HKEY_CURRENT_USER, Text(RootKey) + u"Undo", KEY_ALL_ACCESS);
  limits.runs = GetRegLong(key, u"Kept Runs", limits.runs);
  limits.days = GetRegLong(key, u"Kept Days", limits.days);
  limits.megabytes = GetRegLong(key, u"Kept Megabytes", limits.megabytes);
  CloseRegKey(key);
  return limits;
}

std::string DefaultStateFolder() {
  const std::string log = DefaultLogPath();
  return log.empty() ? log : FileFailure::FolderOf(log);
}

std::string RunStore::NewPath(const RunHead& head) const {
  using namespace std::chrono;
  std::error_code error;
  fs::create_directories(mFolder, error);
  if (!error) fs::permissions(mFolder, fs::perms::owner_all, error);
  if (error) FileFailure::ThrowWrite(error.value(), mFolder, mFiles);
  const auto now = duration_cast<microseconds>(system_clock::now().time_since_epoch()).count();
  return mFolder + '/' + std::to_string(now) + '-' + std::to_string(head.process) +
         std::string(EndOf(State::Writing));
}

std::vector<RunStore::Run> RunStore::All() const {
  std::vector<std::string> names;
  mFiles.ListFolder(mFolder, names);
  // The number of microseconds keeps its length for the next 250 years.
  std::sort(names.begin(), names.end(), std::greater<>());
  std::vector<Run> runs;
  for (const std::string& name : names)
    for (const auto& [state, end] : Ends)
      if (name.ends_with(end)) runs.push_back({mFolder + '/' + name, state, {}});
  return runs;
}

bool RunStore::ReadHead(Run& run) const {
  std::string bytes;
  if (mFiles.ReadStart(run.path, HeadSize, bytes) != 0) return false;
  RunRecord record = ReadRun(bytes);
  if (!record.hasHead && bytes.size() == HeadSize && mFiles.ReadAll(run.path, bytes) == 0) {
    record = ReadRun(bytes);
  }
  run.head = std::move(record.head);
  return record.hasHead;
}

// The whole head is on the disk ahead of the first rename.
bool RunStore::IsBeginning(const Run& run) const {
  std::string bytes;
  return mFiles.ReadAll(run.path, bytes) == 0 && ReadRun(bytes).form == RunRecord::Form::CutOff;
}

std::vector<std::string> RunStore::Unreadable() const {
  std::vector<std::string> paths;
  for (Run& run : All())
    if (IsKept(run.state) && IsOfDeadProcess(run.path) && !ReadHead(run) && !IsBeginning(run))
      paths.push_back(run.path);
  return paths;
}

std::vector<RunStore::Run> RunStore::RunsOf(const std::vector<std::string>& groups) const {
  std::vector<Run> runs;
  for (Run& run : All())
    if (ReadHead(run) && AreRelated(run.head.groups, groups)) runs.push_back(std::move(run));
  return runs;
}

RunRecord RunStore::Read(const Run& run) const {
  using Form = RunRecord::Form;
  RunRecord record = ReadRun(AtomicFile::Read(run.path, mFiles));
  // Of a run that was killed, the files behind the place where it is cut off weren't replaced yet.
  const bool lacksEnd = run.state == State::Complete && !record.isComplete;
  if (record.form == Form::OtherVersion) {
    FileFailure::Throw(321, run.path,
                       u" is the record of a run by another version of the program, which can take "
                       u"it back; remove the record to do without");
  }
  if (record.form == Form::Damaged || lacksEnd) {
    FileFailure::Throw(321, run.path,
                       u" is the record of a run and is damaged; look at the files that the run "
                       u"changed, then remove the record");
  }
  return record;
}

void RunStore::SetState(Run& run, State state) const {
  const std::string stem = run.path.substr(0, run.path.rfind('.'));
  const std::string path = stem + std::string(EndOf(state));
  if (const int error = mFiles.Rename(run.path, path)) {
    FileFailure::ThrowWrite(error, run.path, mFiles);
  }
  run.path = path;
  run.state = state;
}

void RunStore::Prune(const UndoLimits& limits, std::int64_t now) const {
  constexpr std::int64_t secondsOfADay = 86400;
  std::map<std::vector<std::string>, std::int32_t> runsOfGroup;
  std::uint64_t size = 0;
  for (Run& run : All()) {
    if (!ReadHead(run)) {
      if (run.state == State::Writing && IsOfDeadProcess(run.path) && IsBeginning(run))
        mFiles.Remove(run.path);
      continue;
    }
    if (IsKept(run.state)) continue;
    IFileOps::Stat file;
    mFiles.GetStat(run.path, file);
    const std::int32_t number = ++runsOfGroup[run.head.groups];
    const bool isOld = now - run.head.startedAt > limits.days * secondsOfADay;
    const bool isTooMuch =
        size > 0 && (size + file.lSize) >> 20 >= static_cast<std::uint64_t>(limits.megabytes);
    if (number > limits.runs || isOld || isTooMuch) {
      mFiles.Remove(run.path);
    } else {
      size += file.lSize;
    }
  }
}
