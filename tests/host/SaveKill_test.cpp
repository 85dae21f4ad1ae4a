// Saving several files while everything goes wrong: every file is its old or its new self, and
// what a killed program leaves behind doesn't stop the next one.
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <functional>
#include <random>

#include "CodePage.h"
#include "DiskIDE.h"
#include "FaultyFileOps.h"
#include "ProjectTree.h"
#include "WritingRun.h"

namespace {

namespace fs = std::filesystem;
constexpr int FileCount = 9;  // enough to be flushed together

class SaveTest : public testing::Test {
 protected:
  // In memory where the machine has it: what is proved doesn't depend on how long a flush takes.
  SaveTest() : moTree(fs::exists("/dev/shm") ? "/dev/shm" : fs::temp_directory_path()) {
    std::string sProject = "Type=Exe\r\n";
    for (int i = 0; i < FileCount; ++i) {
      sProject += "Module=" + Name(i) + "; src\\" + Name(i) + ".bas\r\n";
      msHead[i] = "Attribute VB_Name = \"" + Name(i) + "\"\r\n";
      for (int j = 0; j < 800; ++j) msTail[i] += "' line " + std::to_string(j) + "\r\n";
      msTail[i] += "Sub A()\r\nEnd Sub";
    }
    moTree.Write("P.vbp", sProject);
    setenv("XDG_STATE_HOME", moTree.Path("state").c_str(), 1);
    Restore();
  }

  /// A run of its own for a save, which has what a killed one left taken back.
  std::unique_ptr<WritingRun> Run(IFileOps& files = SystemFileOps()) const {
    return std::make_unique<WritingRun>(std::vector{moTree.Path("P.vbp")}, "turn", 5, files);
  }
  std::vector<RunStore::Run> Runs() const { return UserRuns().RunsOf({moTree.Path("P.vbp")}); }
  int CountNew() const {
    int count = 0;
    for (int i = 0; i < FileCount; ++i) count += IsNew(i) ? 1 : 0;
    return count;
  }
  void ExpectAllOldOrAllNew() const {
    ExpectOldOrNew();
    EXPECT_EQ(CountNew() % FileCount, 0) << "of one run and another";
    EXPECT_EQ(Leftovers(), 0);
  }

  static std::string Name(int i) { return std::string("Part") + static_cast<char>('A' + i); }
  static std::string File(int i) { return "src/" + Name(i) + ".bas"; }
  std::string Old(int i) const { return msHead[i] + msTail[i]; }
  std::string New(int i) const { return msHead[i] + "' new\r\n" + msTail[i]; }
  bool IsNew(int i) const { return moTree.Read(File(i)) == New(i); }
  void Restore() const {
    for (int i = 0; i < FileCount; ++i) moTree.Write(File(i), Old(i));
  }
  int Leftovers() const {
    return static_cast<int>(std::distance(fs::directory_iterator(moTree.Path("src")), {})) -
           FileCount;
  }

  std::unique_ptr<DiskIDE> Open(IFileOps* poFiles = nullptr) const {
    DiskIDE::Options oOptions;
    oOptions.poFiles = poFiles;
    return DiskIDE::Open(moTree.Path("P.vbp"), oOptions);
  }
  /// Makes an old file new and a new one old.
  static void Turn(DiskIDE& oIDE, int nFiles = FileCount) {
    for (int i = 1; i <= nFiles; ++i) {
      CodeModule& oCode = *oIDE.Root().VBProjects().Item(1).VBComponents().Item(i).CodeModule();
      if (oCode.Lines(1, 1) == u"' new")
        oCode.DeleteLines(1, 1);
      else
        oCode.InsertLines(1, u"' new");
    }
  }
  void ExpectOldOrNew() const {
    for (int i = 0; i < FileCount; ++i)
      EXPECT_TRUE(IsNew(i) || moTree.Read(File(i)) == Old(i)) << Name(i) << " is torn or gone";
  }
  void ExpectNextProgramSaves() const {
    auto pIDE = Open();
    Turn(*pIDE);
    EXPECT_EQ(pIDE->Save().asSaved.size(), static_cast<std::size_t>(FileCount));
    ExpectOldOrNew();
  }
  void ExpectWholeSave(DiskIDE& oIDE, const FaultyFileOps& oFiles, std::size_t lAt) const {
    auto oResult = oIDE.Save();
    const auto& asDone = oFiles.Operations();
    // The files of one folder share its flush.
    const bool bShared = lAt <= asDone.size() && asDone[lAt - 1].starts_with("FlushFolder");
    ExpectOldOrNew();
    EXPECT_EQ(Leftovers(), 0);
    EXPECT_EQ(oResult.asSaved.size() + oResult.oFailed.size(), FileCount + 0u);
    EXPECT_LE(oResult.oFailed.size(), bShared ? FileCount + 0u : 1u);
    ExpectNamed(oResult);
    EXPECT_EQ(oIDE.Save().asSaved.size(), oResult.oFailed.size());
    for (int i = 0; i < FileCount; ++i) EXPECT_TRUE(IsNew(i));
  }
  /// The writes, flushes and renames: how often each in succession.
  static std::string StepsOf(const FaultyFileOps& oFiles) {
    std::string sSteps, sLast;
    int nSame = 0;
    const auto Next = [&](const std::string& sName) {
      if (sName != sLast && nSame > 0) sSteps += std::to_string(nSame) + ' ' + sLast + ' ';
      nSame = sName == sLast ? nSame + 1 : 1;
      sLast = sName;
    };
    for (const std::string& sOperation : oFiles.Operations()) {
      const std::string sName = sOperation.substr(0, sOperation.find(' '));
      if (sName == "Write" || sName == "Rename" || sName.starts_with("Flush")) Next(sName);
    }
    Next({});
    return sSteps;
  }
  static void ExpectNamed(const DiskIDE::SaveResult& oResult) {
    for (const auto& oNote : oResult.oFailed)
      EXPECT_NE(oNote.sMessage.find(oNote.sFile), Text::npos) << ToUtf8(oNote.sMessage);
  }

  ProjectTree moTree;
  std::string msHead[FileCount], msTail[FileCount];
};

TEST_F(SaveTest, AFailureAtAnyOperationLeavesOldOrNewFiles) {
  for (int nError : {ENOSPC, EACCES, EIO}) {
    FaultyFileOps oFiles;
    for (std::size_t lAt = 1; lAt == 1 || oFiles.Operations().size() >= lAt - 1; ++lAt) {
      SCOPED_TRACE("error " + std::to_string(nError) + " at operation " + std::to_string(lAt));
      Restore();
      oFiles.FailAt(0, 0);
      auto pIDE = Open(&oFiles);
      Turn(*pIDE);
      oFiles.FailAt(lAt, nError);
      ExpectWholeSave(*pIDE, oFiles, lAt);
    }
  }
}

TEST_F(SaveTest, AnEndAtAnyOperationLeavesOldOrNewFiles) {
  bool bEnded = true;
  for (std::size_t lAt = 1; bEnded; ++lAt) {
    SCOPED_TRACE(lAt);
    Restore();
    int nStatus = 0;
    pid_t nChild = fork();
    if (nChild == 0) {
      FaultyFileOps oFiles;
      auto pIDE = Open(&oFiles);
      Turn(*pIDE);
      oFiles.ExitAt(lAt);
      pIDE->Save();
      _exit(0);
    }
    ASSERT_EQ(waitpid(nChild, &nStatus, 0), nChild);
    bEnded = WEXITSTATUS(nStatus) == 77;
    ASSERT_TRUE(WIFEXITED(nStatus) && (bEnded || nStatus == 0));
    ExpectOldOrNew();
    ExpectNextProgramSaves();
  }
}

TEST_F(SaveTest, KilledProgramsLeaveOldOrNewFiles) {
  std::minstd_rand oRandom(20260);
  int nOld = 0, nLeft = 0;
  constexpr int Runs = 200;
  for (int nRun = 0; nRun < Runs; ++nRun) {
    SCOPED_TRACE(nRun);
    pid_t nChild = fork();
    ASSERT_GE(nChild, 0);
    if (nChild == 0) {
      auto pIDE = Open();
      for (;;) Turn(*pIDE), pIDE->Save();
    }
    usleep(1000 + static_cast<useconds_t>(oRandom() % 10000));
    kill(nChild, SIGKILL);
    int nStatus = 0;
    ASSERT_EQ(waitpid(nChild, &nStatus, 0), nChild);
    ASSERT_TRUE(WIFSIGNALED(nStatus) && WTERMSIG(nStatus) == SIGKILL);
    ExpectOldOrNew();
    for (int i = 0; i < FileCount; ++i) nOld += IsNew(i) ? 0 : 1;
    nLeft += Leftovers();
  }
  // The programs did save, and some were stopped in the middle of it.
  EXPECT_GT(nLeft, 0);
  EXPECT_GT(nOld, 0);
  EXPECT_LT(nOld, Runs * FileCount);
  ExpectNextProgramSaves();
  EXPECT_EQ(Leftovers(), 0) << "each program removes what dead ones left";
}

TEST_F(SaveTest, ARunThatEndsAtAnyOperationIsTakenBackAndSoIsOneThatFails) {
  struct Row {
    const char* name;
    int error;
    bool isUndo;
  };
  for (const auto& [name, error, isUndo] :
       {Row{"a killed run", -1, false}, Row{"a full disk", ENOSPC, false},
        Row{"a killed undo", -1, true}, Row{"an undo on a full disk", ENOSPC, true}}) {
    bool hasFault = true;
    for (std::size_t at = 1; hasFault; at += error == -1 ? 1 : 4) {
      SCOPED_TRACE(std::string(name) + " at operation " + std::to_string(at));
      Restore();
      for (const RunStore::Run& run : Runs()) fs::remove(run.path);
      if (isUndo) {
        auto ide = Open();
        Turn(*ide);
        ide->Save(Run()->Journal());
      }
      const pid_t child = fork();
      if (child == 0) {
        FaultyFileOps files;
        auto ide = Open(&files);
        Turn(*ide);
        files.FailAt(at, error);
        try {
          auto run = Run(files);
          isUndo ? static_cast<void>(run->Undo(Runs().front()))
                 : static_cast<void>(ide->Save(run->Journal()));
        } catch (const Failure&) {
        }
        _exit(files.Operations().size() >= at ? 1 : 0);
      }
      int status = 0;
      ASSERT_EQ(waitpid(child, &status, 0), child);
      ASSERT_TRUE(WIFEXITED(status));
      hasFault = WEXITSTATUS(status) != 0;
      ExpectOldOrNew();
      if (error == -1 && hasFault) {
        Run();
        Open()->Save();
        ExpectAllOldOrAllNew();
      }
      for (const RunStore::Run& run : Runs())
        EXPECT_TRUE(run.state == RunStore::State::Complete ||
                    run.state == RunStore::State::TakenBack || error != -1);
    }
    EXPECT_EQ(CountNew(), isUndo ? 0 : FileCount) << "without a fault";
  }
}

TEST_F(SaveTest, FilesThatAreNotTheOnesReadAreLeftAlone) {
  struct Row {
    const char* sName;
    std::function<void(const std::string&)> oMeanwhile;  // what happens to PartB on disk
    std::size_t nFailed;
    bool bEarly = false;  // matters only ahead of the save
  };
  auto Write = [&](const std::string& sBytes) { moTree.Write(File(1), sBytes); };
  const Row Rows[] = {
      {"edited", [&](auto&) { Write(Old(1) + "x"); }, 1},
      {"edited, of the same size and time",
       [&](auto& sPath) {
         const auto time = fs::last_write_time(sPath);
         std::string sBytes = Old(1);
         sBytes.back() = 'B';
         Write(sBytes);
         fs::last_write_time(sPath, time);
       },
       1},
      {"replaced by one of the same size and time",
       [&](auto& sPath) {
         const auto time = fs::last_write_time(sPath);
         moTree.Write("new", std::string(Old(1).size(), '\''));
         fs::rename(moTree.Path("new"), sPath);
         fs::last_write_time(sPath, time);
       },
       1},
      {"cut to nothing", [&](auto&) { Write(""); }, 1},
      {"touched only",
       [](auto& sPath) {
         fs::last_write_time(sPath, fs::last_write_time(sPath) + std::chrono::hours(1));
       },
       0},
      {"changed the same way", [&](auto&) { Write(New(1)); }, 0},
      {"removed", [](auto& sPath) { fs::remove(sPath); }, 1},
      {"replaced by a folder", [](auto& sPath) { fs::remove(sPath), fs::create_directory(sPath); },
       1},
      {"read-only", [](auto& sPath) { fs::permissions(sPath, fs::perms::owner_read); }, 1, true},
      {"folder gone", [&](auto&) { fs::rename(moTree.Path("src"), moTree.Path("gone")); },
       FileCount},
      {"a file for the folder",
       [&](auto&) { fs::remove_all(moTree.Path("src")), moTree.Write("src", "x"); }, FileCount},
  };
  for (const Row& oRow : Rows) {
    for (const bool bLate : {false, true}) {
      SCOPED_TRACE(std::string(oRow.sName) + (bLate ? " while new files are flushed" : ""));
      if (bLate && oRow.bEarly) continue;
      for (const char* sFolder : {"src", "gone"}) fs::remove_all(moTree.Path(sFolder));
      Restore();
      FaultyFileOps oFiles;
      auto pIDE = Open(&oFiles);
      Turn(*pIDE);
      std::string sBytes;
      const auto Meanwhile = [&] {
        oRow.oMeanwhile(moTree.Path(File(1)));
        sBytes = moTree.Read(File(1));
      };
      bLate ? oFiles.AtFlush = Meanwhile, void() : Meanwhile();
      auto oResult = pIDE->Save();
      ASSERT_EQ(oResult.oFailed.size(), oRow.nFailed);
      EXPECT_EQ(oResult.asSaved.size(), FileCount - oRow.nFailed);
      EXPECT_EQ(pIDE->ChangedPaths().size(), oRow.nFailed);
      EXPECT_EQ(moTree.Read(File(1)), oRow.nFailed > 0 ? sBytes : New(1));
      ExpectNamed(oResult);
    }
  }
}

TEST_F(SaveTest, AllNewFilesAreOnTheDiskBeforeTheFirstIsRenamed) {
  struct Row {
    const char* sName;
    int nFiles;
    const char* sFault;
    std::size_t nAt, nTimes, nFailed;
    const char* sSteps;
  };
  const Row Rows[] = {
      {"many", 9, "", 0, 0, 0,
       "9 Write 9 FlushBytes 1 FlushFileSystem 9 Rename 1 FlushFileSystem "},
      {"few", 7, "", 0, 0, 0, "7 Write 7 Flush 7 Rename 1 FlushFolder "},
      {"one of another file system", 9, "FileSystemOf", 1, 1, 0,
       "9 Write 1 Flush 8 FlushBytes 1 FlushFileSystem 9 Rename 1 FlushFileSystem 1 FlushFolder "},
      {"an error of another program's", 9, "Flush", 10, 1, 0,
       "9 Write 9 FlushBytes 1 FlushFileSystem 1 Flush 8 FlushClosed 9 Rename 1 FlushFolder "},
      {"an error of the first two", 9, "Flush", 10, 3, 2,
       "9 Write 9 FlushBytes 1 FlushFileSystem 1 Flush 8 FlushClosed 7 Rename 1 FlushFolder "},
      {"renames that aren't flushed together", 9, "Flush", 11, 1, 0,
       "9 Write 9 FlushBytes 1 FlushFileSystem 9 Rename 1 FlushFileSystem 1 FlushFolder "},
  };
  for (const Row& oRow : Rows) {
    SCOPED_TRACE(oRow.sName);
    Restore();
    FaultyFileOps oFiles;
    auto pIDE = Open(&oFiles);
    Turn(*pIDE, oRow.nFiles);
    oFiles.FailAt(oRow.nAt, EIO, oRow.sFault, oRow.nTimes);
    const auto oResult = pIDE->Save();
    EXPECT_EQ(oResult.oFailed.size(), oRow.nFailed);
    ExpectNamed(oResult);
    EXPECT_EQ(StepsOf(oFiles), oRow.sSteps);
    EXPECT_EQ(Leftovers(), 0);
    ExpectOldOrNew();
  }
}

TEST_F(SaveTest, ADiskWithRoomForOneNewFileAtATimeIsEnough) {
  FaultyFileOps oFiles;
  auto pIDE = Open(&oFiles);
  Turn(*pIDE);
  oFiles.FailAt(2, ENOSPC, "Write");
  EXPECT_EQ(pIDE->Save().asSaved.size(), FileCount + 0u);
  EXPECT_EQ(Leftovers(), 0);
}

}  // namespace
