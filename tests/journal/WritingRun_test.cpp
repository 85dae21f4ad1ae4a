#include "WritingRun.h"

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <ctime>

#include "FailureOf.h"
#include "FaultyFileOps.h"
#include "RegistryStore.h"
#include "StagedFiles.h"
#include "TempFolder.h"

namespace {

namespace fs = std::filesystem;

class WritingRunTest : public testing::Test {
 protected:
  WritingRunTest() {
    setenv("XDG_STATE_HOME", (place / "state").c_str(), 1);
    fs::create_directory(place / "src");
    TempFolder::Write(place / "src/a.vbg", "");
    for (const char* name : {"a", "b"}) TempFolder::Write(File(name), "old");
  }
  std::string File(const std::string& name) const { return place / ("src/" + name + ".bas"); }
  std::string Group() const { return place / "src/a.vbg"; }
  std::unique_ptr<WritingRun> Run(int seconds = 0) const {
    return std::make_unique<WritingRun>(std::vector{Group()}, "quillon refresh", seconds);
  }
  /// A run that writes a text into both files.
  void Write(const std::string& text) const {
    const auto run = Run();
    StagedFiles staged(SystemFileOps());
    for (const char* name : {"a", "b"}) {
      const std::string before = TempFolder::Read(File(name));
      staged.Stage(File(name), text);
      run->Journal()->Add(File(name), staged.File(staged.Count() - 1).Path(), before, text);
    }
    run->Journal()->Flush();
    for (std::size_t i = 0; i < staged.Count(); ++i) staged.Commit(i);
    run->Journal()->Complete({});
  }
  std::string Both() const {
    return TempFolder::Read(File("a")) + ' ' + TempFolder::Read(File("b"));
  }

  TempFolder place;
};

TEST_F(WritingRunTest, UndoLeavesAloneWhatWasChangedSince) {
  struct Row {
    const char* name;
    std::function<void(const std::string&)> meanwhile;
    const char* both;
    std::size_t restored, left, unchanged;
  };
  const auto write = [](const char* text) {
    return [text](const std::string& path) { TempFolder::Write(path, text); };
  };
  const Row rows[] = {
      {"nothing", [](auto&) {}, "old old", 2, 0, 0},
      {"an edit of the same length", write("neW"), "neW old", 1, 1, 0},
      {"its old text", write("old"), "old old", 1, 0, 1},
      {"removed", [](auto& path) { fs::remove(path); }, " old", 1, 1, 0},
      {"a link to the same text",
       [](auto& path) { fs::rename(path, path + "2"), fs::create_symlink(path + "2", path); },
       "new old", 1, 1, 0},
      {"read-only", [](auto& path) { fs::permissions(path, fs::perms::owner_read); }, "new old", 1,
       1, 0},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    for (const char* name : {"a", "b"})
      fs::remove(File(name)), TempFolder::Write(File(name), "old");
    Write("new");
    row.meanwhile(File("a"));
    const std::string before = Both();
    std::size_t shown = 0;
    const RunStore::Run last = Run()->Runs().front();
    const TakenBack tried =
        TryTakeBack(UserRuns().Read(last), SystemFileOps(),
                    [&](auto&, const std::string& now, const std::string& then) {
                      ++shown;
                      EXPECT_EQ(now + ' ' + then, "new old");
                    });
    EXPECT_EQ(Both(), before) << "a trial changes nothing";
    const TakenBack result = Run()->Undo(last);
    EXPECT_EQ(Both(), row.both);
    EXPECT_EQ(result.restored.size(), row.restored);
    ASSERT_EQ(result.left.size(), row.left);
    EXPECT_EQ(result.unchanged, row.unchanged);
    if (row.left > 0) {
      EXPECT_EQ(result.left[0].path, File("a"));
    }
    const bool isLate = std::string_view(row.name) == "read-only";  // only the writing tells
    EXPECT_EQ(shown, isLate ? 2 : row.restored);
    EXPECT_EQ(tried.restored.size(), shown);
    EXPECT_EQ(Run()->Runs().front().state, RunStore::State::TakenBack);
  }
}

TEST_F(WritingRunTest, AnEditorThatSavesWhileAnUndoIsFlushedKeepsItsText) {
  Write("new");
  FaultyFileOps files;
  files.AtFlush = [&] { TempFolder::Write(File("a"), "neW"); };
  const TakenBack result = TakeBack(UserRuns().Read(Run()->Runs().front()), files);
  EXPECT_EQ(Both(), "neW old");
  EXPECT_EQ(result.restored, std::vector{File("b")});
  ASSERT_EQ(result.left.size(), 1u);
  EXPECT_EQ(place.Entries(), 2u);
}

TEST_F(WritingRunTest, AnUndoOnAFullDiskPutsFilesInTheirPlacesToMakeRoom) {
  Write("new");
  FaultyFileOps files;
  files.FailAt(2, ENOSPC, "Write");
  const TakenBack result = TakeBack(UserRuns().Read(Run()->Runs().front()), files);
  EXPECT_EQ(Both(), "old old");
  EXPECT_TRUE(result.left.empty());
}

TEST_F(WritingRunTest, SecondRunWaitsAndSaysWhoHasTheGroup) {
  int ready[2];
  ASSERT_EQ(pipe(ready), 0);
  const pid_t child = fork();
  if (child == 0) {
    const auto run = Run();
    [[maybe_unused]] const auto written = write(ready[1], "x", 1);
    for (;;) pause();
  }
  char byte = 0;
  ASSERT_EQ(read(ready[0], &byte, 1), 1);
  for (const std::string& path : {Group(), place / "src", place / "src/../src/other.vbp"}) {
    SCOPED_TRACE(path);
    std::string message;
    try {
      WritingRun({path}, "second", 0);
    } catch (const Failure& failure) {
      message = failure.what();
    }
    EXPECT_NE(message.find("process " + std::to_string(child) + ", quillon refresh, since 20"),
              std::string::npos)
        << message;
  }
  EXPECT_EQ(FailureOf([&] { WritingRun({place / "elsewhere"}, "third", 0); }), 0);
  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
  EXPECT_EQ(FailureOf([&] { Run(); }), 0) << "the lock ended with its process";
}

TEST_F(WritingRunTest, KeepsRunsWithinTheLimits) {
  struct Row {
    const char* name;
    UndoLimits limits;
    std::size_t kept;
  };
  const std::int64_t day = 86400, now = std::time(nullptr);
  const Row rows[] = {
      {"all", {20, 30, 256}, 4},    {"a number of runs", {3, 30, 256}, 3},
      {"days", {20, 2, 256}, 2},    {"megabytes, but the last one stays", {20, 30, 0}, 1},
      {"nothing", {0, 30, 256}, 0},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    fs::remove_all(place / "state");
    const RunStore store = UserRuns();
    for (int age = 3; age >= 0; --age) {
      RunJournal journal(store, {"c", now - age * day - 60, getpid(), {Group()}}, SystemFileOps());
      journal.Add(File("a"), "", "old", "new");
      journal.Flush();
      journal.Complete({});
    }
    store.Prune(row.limits, now);
    const auto runs = store.RunsOf({Group()});
    ASSERT_EQ(runs.size(), row.kept);
    for (std::size_t i = 1; i < runs.size(); ++i)
      EXPECT_GT(runs[i - 1].head.startedAt, runs[i].head.startedAt) << "the latest stay";
  }
}

TEST_F(WritingRunTest, RecordOfAKilledRunThatCantBeReadStaysAndStopsTheNext) {
  Write("new");
  RunStore::Run run = Run()->Runs().front();
  const std::string whole = TempFolder::Read(run.path);
  UserRuns().SetState(run, RunStore::State::Writing);
  std::string damaged = whole;
  damaged.back() = static_cast<char>(damaged.back() ^ 1);
  TempFolder::Write(run.path, damaged);
  EXPECT_EQ(TellKilledRuns({Group()}).size(), 1u);
  EXPECT_EQ(FailureOf([&] { Run(); }), 321);
  EXPECT_EQ(TempFolder::Read(run.path), damaged);
  EXPECT_EQ(Both(), "new new");

  TempFolder::Write(run.path, whole.substr(0, whole.size() - 1));
  EXPECT_EQ(Run()->Messages().size(), 1u) << "without its end it was broken off";
  EXPECT_EQ(Both(), "old old");
  EXPECT_TRUE(Run()->Messages().empty());
}

TEST_F(WritingRunTest, RecordWhoseGroupCantBeToldStaysAndIsNamed) {
  // Of a process that doesn't run any more; the number is above the system's highest.
  const std::string path = place / "state/tarvane-quillon/runs/1-99999999.writing";
  Write("new");
  for (const auto& [text, stays] :
       {std::pair("Tarvane Quillon run 2\nany", true),
        std::pair("other text than a record's", true), std::pair("Tarvane Quil", false)}) {
    SCOPED_TRACE(text);
    TempFolder::Write(path, text);
    EXPECT_EQ(Run()->Messages().size(), stays ? 1u : 0u);
    EXPECT_EQ(fs::exists(path), stays);
  }
}

TEST_F(WritingRunTest, RunsBelongToTheirGroupsAndFolders) {
  Write("new");
  for (const auto& [path, runs] : {std::pair{"src/a.vbg", 1u},
                                   {"src", 1u},
                                   {"src/b.vbg", 0u},
                                   {".", 0u},
                                   {"src/../src/a.vbg", 1u}}) {
    EXPECT_EQ(RunsToTakeBack({place / path}).size(), runs) << path;
  }
}

}  // namespace
