#include "AtomicFile.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>

#include <array>
#include <cerrno>
#include <functional>

#include "Failure.h"
#include "FaultyFileOps.h"
#include "FileStamp.h"
#include "MXFile.h"
#include "PathText.h"
#include "RegistryStore.h"
#include "StagedFiles.h"
#include "TempFolder.h"

namespace {

namespace fs = std::filesystem;

/// The number of the failure of oCall, 0 without one. Its text must name sPath.
template <class Call>
int FailureOf(const std::string& sPath, Call&& oCall) {
  try {
    oCall();
  } catch (const Failure& oFailure) {
    EXPECT_NE(std::string(oFailure.what()).find(sPath), std::string::npos) << oFailure.what();
    return oFailure.Number();
  }
  return 0;
}

const std::string sOld = "old", sNew = "new\r\nlines\r\n";

struct AtomicFileTest : testing::Test {
  const TempFolder oFolder;
  const std::string sPath = oFolder / "a.bas";
  FaultyFileOps oFiles;
  int Replace() {
    return FailureOf(sPath, [&] { AtomicFile::Replace(sPath, sNew, oFiles); });
  }
};

TEST_F(AtomicFileTest, FailureAtEachOperationLeavesOldOrNewAndNoOtherFile) {
  for (const bool bThere : {true, false}) {
    for (std::size_t lAt = 1; lAt < 20; ++lAt) {
      fs::remove(sPath);
      if (bThere) TempFolder::Write(sPath, sOld);
      oFiles.FailAt(lAt, EIO);
      const int lNumber = Replace();
      const auto& asDone = oFiles.Operations();
      const std::string sOperation = lAt <= asDone.size() ? asDone[lAt - 1] : "";
      SCOPED_TRACE(sOperation);
      const bool bHarmless = sOperation.empty() || sOperation.starts_with("SetOwner") ||
                             sOperation.starts_with("StartFlush") ||
                             sOperation.starts_with("FileSystemOf");
      EXPECT_EQ(lNumber, bHarmless ? 0 : 57);
      const bool bReplaced = bHarmless || sOperation.starts_with("FlushFolder");
      EXPECT_EQ(TempFolder::Read(sPath), bReplaced ? sNew : bThere ? sOld : "");
      EXPECT_EQ(oFolder.Entries(), bReplaced || bThere ? 1u : 0u);
    }
  }
}

TEST_F(AtomicFileTest, EndOfTheProgramAtEachOperationLeavesOldOrNew) {
  bool bFinished = false;
  for (std::size_t lAt = 1; !bFinished && lAt < 30; ++lAt) {
    TempFolder::Write(sPath, sOld);
    const pid_t lChild = fork();
    if (lChild == 0) {
      oFiles.ExitAt(lAt);
      _exit(Replace());
    }
    int lStatus = 0;
    waitpid(lChild, &lStatus, 0);
    bFinished = WEXITSTATUS(lStatus) == 0;
    const std::string sNow = TempFolder::Read(sPath);
    EXPECT_TRUE((sNow == sOld && !bFinished) || sNow == sNew) << lAt;
  }
  EXPECT_TRUE(bFinished);
}

TEST_F(AtomicFileTest, ErrorsOfTheSystemBecomeFailuresThatSayWhatToDo) {
  struct Row {
    const char* pcOperation;
    int lError, lNumber;
  } const aoRow[] = {
      {"Write", ENOSPC, 61},         {"Flush", EDQUOT, 61},    {"Close", ENOSPC, 61},
      {"CreateNew", EACCES, 70},     {"SetOwner", EPERM, 0},   {"CreateNew", EROFS, 75},
      {"CreateNew", ENOENT, 76},     {"Rename", EISDIR, 75},   {"Rename", EXDEV, 57},
      {"CopyAttributes", EPERM, 70}, {"GetStat", ENOTDIR, 76}, {"FlushFolder", EINVAL, 0},
      {"Resolve", ELOOP, 76},
  };
  for (const Row& oRow : aoRow) {
    SCOPED_TRACE(oRow.pcOperation);
    TempFolder::Write(sPath, sOld);
    oFiles.FailAt(1, oRow.lError, oRow.pcOperation);
    EXPECT_EQ(Replace(), oRow.lNumber);
    EXPECT_EQ(TempFolder::Read(sPath), oRow.lNumber == 0 ? sNew : sOld);
  }
}

TEST_F(AtomicFileTest, ModeAndLinksStay) {
  fs::create_directory(oFolder / "sub");
  const std::string sReal = oFolder / "sub/real.bas";
  TempFolder::Write(sReal, sOld);
  chmod(sReal.c_str(), 0640);
  fs::create_symlink("second.bas", sPath);
  fs::create_symlink("sub/real.bas", oFolder / "second.bas");
  fs::create_symlink("sub/missing.bas", oFolder / "dangling.bas");
  fs::create_symlink("loop.bas", oFolder / "loop.bas");
  EXPECT_EQ(Replace(), 0);
  AtomicFile::Replace(oFolder / "dangling.bas", "made");
  EXPECT_TRUE(fs::is_symlink(sPath));
  EXPECT_EQ(TempFolder::Read(sReal), sNew);
  EXPECT_EQ(fs::status(sReal).permissions(), fs::perms(0640));
  EXPECT_EQ(TempFolder::Read(oFolder / "sub/missing.bas"), "made");
  EXPECT_TRUE(fs::is_symlink(oFolder / "dangling.bas"));
  EXPECT_EQ(FailureOf("loop.bas", [&] { AtomicFile::Replace(oFolder / "loop.bas", ""); }), 76);
}

std::string Attribute(const std::string& sFile, const char* pcName) {
  char acValue[256];
  const ssize_t lSize = getxattr(sFile.c_str(), pcName, acValue, sizeof acValue);
  return lSize < 0 ? "none" : std::string(acValue, static_cast<std::size_t>(lSize));
}

/// An access list in the system's form: owner rw, group of that number rw, group r, mask rw.
std::string AccessList(char cGroup) {
  std::string sList("\2\0\0\0", 4);
  for (const auto [cTag, cRights, cId] : {std::array{'\1', '\6', '\xFF'},
                                          {'\4', '\4', '\xFF'},
                                          {'\x08', '\6', cGroup},
                                          {'\x10', '\6', '\xFF'},
                                          {'\x20', '\0', '\xFF'}}) {
    const char cHigh = cTag == '\x08' ? '\0' : '\xFF';
    sList += {cTag, 0, cRights, 0, cId, cHigh, cHigh, cHigh};
  }
  return sList;
}

TEST_F(AtomicFileTest, AccessListAndAttributesStay) {
  constexpr const char* Access = "system.posix_acl_access";
  const std::string sList = AccessList(42);
  TempFolder::Write(sPath, sOld);
  if (setxattr(sPath.c_str(), Access, sList.data(), sList.size(), 0) != 0)
    GTEST_SKIP() << "no access lists in this folder";
  ASSERT_EQ(setxattr(sPath.c_str(), "user.note", "mine", 4, 0), 0);
  EXPECT_EQ(Replace(), 0);
  EXPECT_EQ(Attribute(sPath, Access), sList);
  EXPECT_EQ(Attribute(sPath, "user.note"), "mine");
  // A list that the folder gives to new files isn't the old file's.
  ASSERT_EQ(
      setxattr(oFolder.Path().c_str(), "system.posix_acl_default", sList.data(), sList.size(), 0),
      0);
  removexattr(sPath.c_str(), Access);
  chmod(sPath.c_str(), 0640);
  EXPECT_EQ(Replace(), 0);
  EXPECT_EQ(Attribute(sPath, Access), "none");
  EXPECT_EQ(fs::status(sPath).permissions(), fs::perms(0640));
}

TEST_F(AtomicFileTest, RefusesWhatAnEditorWouldRefuse) {
  const std::string sLong = oFolder / std::string(255, 'l');
  TempFolder::Write(sPath, sOld);
  chmod(sPath.c_str(), 0444);
  const auto replace = [](const std::string& sFile) {
    return FailureOf(sFile.substr(0, sFile.find('\0')), [&] { AtomicFile::Replace(sFile, sNew); });
  };
  EXPECT_EQ(replace(sPath), 75);
  EXPECT_EQ(TempFolder::Read(sPath), sOld);
  EXPECT_EQ(replace(oFolder.Path()), 75);
  TempFolder::Write(oFolder / "one.bas", sOld);
  fs::create_hard_link(oFolder / "one.bas", oFolder / "other.bas");
  EXPECT_EQ(replace(oFolder / "one.bas"), 75) << "other.bas would keep the old text";
  EXPECT_EQ(TempFolder::Read(oFolder / "one.bas"), sOld);
  EXPECT_EQ(replace(oFolder / "gone/a.bas"), 76);
  EXPECT_EQ(replace(sPath + "/a.bas"), 76);
  EXPECT_EQ(replace(oFolder / std::string("a\0b", 3)), 76);
  ASSERT_EQ(mkfifo((oFolder / "pipe").c_str(), 0600), 0);
  EXPECT_EQ(replace(oFolder / "pipe"), 75);
  EXPECT_EQ(FailureOf("pipe", [&] { RegistryStore(oFolder / "pipe").SetLong(u"K", u"A", 1); }), 75);
  EXPECT_TRUE(fs::is_fifo(oFolder / "pipe"));
  EXPECT_EQ(replace(sLong), 0);
  EXPECT_EQ(TempFolder::Read(sLong), sNew);
  EXPECT_EQ(oFolder.Entries(), 5u);
}

TEST_F(AtomicFileTest, NewFileLeftByAKilledProgramIsNoHindrance) {
  TempFolder::Write(oFolder / (".a.bas." + std::to_string(getpid()) + ".quillon-new"), "torn");
  EXPECT_EQ(Replace(), 0);
  EXPECT_EQ(oFolder.Entries(), 1u);
}

TEST_F(AtomicFileTest, ManyFilesNeedFewHandlesAndOnesThatFailLeaveTheOthers) {
  constexpr std::size_t Count = 70;
  const rlimit oFew{64, 64};
  for (const char* pcFault : {"none", "FlushBytes", "FlushFileSystem", "Close"}) {
    SCOPED_TRACE(pcFault);
    const pid_t lChild = fork();
    if (lChild == 0) {
      setrlimit(RLIMIT_NOFILE, &oFew);
      oFiles.FailAt(1, EIO, pcFault);
      StagedFiles oStaged(oFiles);
      for (std::size_t i = 0; i < Count; ++i) oStaged.Stage(oFolder / std::to_string(i), sNew);
      oStaged.Flush();
      int lFailed = 0;
      for (std::size_t i = 0; i < Count; ++i) {
        oStaged.Commit(i);
        const bool bFailed = oStaged.FailureOf(i) != nullptr;
        lFailed += bFailed == fs::exists(oFolder / std::to_string(i)) ? 100 : bFailed ? 1 : 0;
      }
      oStaged.FlushFolders();
      _exit(lFailed);
    }
    int lStatus = 0;
    waitpid(lChild, &lStatus, 0);
    const bool bOfOneFile = std::string_view(pcFault) == "FlushBytes" || pcFault[0] == 'C';
    EXPECT_EQ(WEXITSTATUS(lStatus), bOfOneFile ? 1 : 0);
    for (std::size_t i = 0; i < Count; ++i) fs::remove(oFolder / std::to_string(i));
    EXPECT_EQ(oFolder.Entries(), 0u);
  }
}

TEST_F(AtomicFileTest, ReadGivesAllBytesOrNamesThePath) {
  const std::string sBytes("a\0\r\n\xFF", 5);
  TempFolder::Write(sPath, sBytes);
  const auto read = [&](const std::string& sFile) {
    return FailureOf(sFile, [&] { AtomicFile::Read(sFile, oFiles); });
  };
  EXPECT_EQ(AtomicFile::Read(sPath), sBytes);
  EXPECT_NE(AtomicFile::Read("/proc/self/status"), "") << "a file whose size reads as 0";
  EXPECT_EQ(read(oFolder / "b.bas"), 53);
  EXPECT_EQ(read(oFolder / "gone/b.bas"), 76);
  EXPECT_EQ(read(sPath + "/b.bas"), 76);
  EXPECT_EQ(read(oFolder.Path()), 75);
  ASSERT_EQ(mkfifo((oFolder / "pipe").c_str(), 0600), 0);
  EXPECT_EQ(read(oFolder / "pipe"), 75) << "not an empty file";
  EXPECT_EQ(read("/dev/zero"), 75);
  fs::resize_file(sPath, IFileOps::LargestFile);
  EXPECT_EQ(AtomicFile::Read(sPath).size(), std::size_t{64} << 20);
  fs::resize_file(sPath, IFileOps::LargestFile + 1);
  EXPECT_EQ(FailureOf("a.bas is larger than 64 MB", [&] { AtomicFile::Read(sPath); }), 75);
  oFiles.FailAt(1, EACCES, "ReadAll");
  EXPECT_EQ(read(sPath), 70);
  oFiles.FailAt(1, EIO, "ReadAll");
  EXPECT_EQ(read(sPath), 57);
}

TEST(FileStamp, VouchesOnlyForWhatCantHaveChanged) {
  constexpr std::int64_t second = 1'000'000'000, now = 1000 * second;
  using Stat = IFileOps::Stat;
  struct Row {
    const char* name;
    std::function<void(Stat&)> meanwhile;
    bool vouches = false;
    std::int64_t lastChange = now - 2 * second;
  };
  const Row rows[] = {
      {"nothing", [](Stat&) {}, true},
      {"nothing, but it was young", [](Stat&) {}, false, now - 2 * second + 1},
      {"nothing, but it is of the future", [](Stat&) {}, false, now + 9 * second},
      {"another file", [](Stat& state) { ++state.lNumber; }},
      {"another device", [](Stat& state) { ++state.lDevice; }},
      {"another size", [](Stat& state) { ++state.lSize; }},
      {"another time", [](Stat& state) { ++state.lModified; }},
      {"written, and its time set back", [](Stat& state) { ++state.lChanged; }},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    Stat state;
    state.lModified = now - 60 * second;
    state.lChanged = row.lastChange;
    const FileStamp stamp(state, now);
    row.meanwhile(state);
    EXPECT_EQ(stamp.VouchesFor(state), row.vouches);
  }
  EXPECT_FALSE(FileStamp().VouchesFor({}));
}

TEST(MXFile, TestsOfFilesNeverFail) {
  const TempFolder oFolder;
  const std::string sPath = oFolder / "caf\xE9.bas";
  TempFolder::Write(sPath, sOld);
  chmod(sPath.c_str(), 0555);
  const Text sFile = TextOfPath(sPath), sFolder = TextOfPath(oFolder.Path());
  EXPECT_TRUE(MXFile::FileExists(sFile) && MXFile::FileReadOnly(sFile));
  EXPECT_FALSE(MXFile::PathExists(sFile));
  EXPECT_TRUE(MXFile::PathExists(sFolder));
  EXPECT_FALSE(MXFile::FileExists(sFolder) || MXFile::FileReadOnly(sFolder));
  for (const Text& sNone : {Text(), sFolder + u"/none", sFile + u'\0' + u"b", sFile + u"/x"}) {
    EXPECT_FALSE(MXFile::FileExists(sNone) || MXFile::PathExists(sNone) ||
                 MXFile::FileReadOnly(sNone));
  }
  std::string sContents = "x";
  MXFile::FileBinaryRead(sFile, sContents);
  EXPECT_EQ(sContents, sOld);
}

}  // namespace
