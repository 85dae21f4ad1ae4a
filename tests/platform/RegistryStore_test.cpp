#include "RegistryStore.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <array>
#include <cerrno>

#include "CodePage.h"
#include "Failure.h"
#include "FaultyFileOps.h"
#include "TempFolder.h"

namespace {

constexpr TextView sKey = u"HKEY_CURRENT_USER\\Software\\Q";
const std::string sHeader = "Windows Registry Editor Version 5.00\r\n\r\n";
const std::string sKeyLine = "[HKEY_CURRENT_USER\\Software\\Q]\r\n";

struct RegistryStoreTest : testing::Test {
  const TempFolder oFolder;
  const std::string sPath = oFolder / "new/s.reg";
  FaultyFileOps oFiles;

  /// Does the work in this program and in a child of it at once.
  template <class Work>
  void DoTwice(Work&& oWork) {
    const pid_t lChild = fork();
    oWork(lChild == 0 ? u"child" : u"parent");
    if (lChild == 0) _exit(0);
    int lStatus = 1;
    waitpid(lChild, &lStatus, 0);
    EXPECT_EQ(lStatus, 0);
  }

  void Write(const std::string& sBytes) {
    std::filesystem::create_directories(oFolder / "new");
    TempFolder::Write(sPath, sBytes);
  }
};

std::string Wide(const std::string& sAscii) {
  std::string sWide = "\xFF\xFE";
  for (const char c : sAscii) sWide += {c, '\0'};
  return sWide;
}

TEST_F(RegistryStoreTest, WrittenValuesReadTheSameInAnotherProgram) {
  const Text asText[] = {u"",         u"plain",       u"C:\\a \"b\"",     u"caf\u00E9 \u65E5\u672C",
                         u"a\r\nb\t", u"\xD800 lone", Text(u"a\0b\0", 4), Text(200, u'\u00E9')};
  const std::int32_t alLong[] = {0, -1, 31, 2147483647, -2147483647 - 1};
  {
    RegistryStore oStore(sPath);
    EXPECT_FALSE(std::filesystem::exists(sPath));
    for (const Text& sText : asText) oStore.SetString(sKey, u"S" + ToText(&sText - asText), sText);
    for (const auto& lLong : alLong) oStore.SetLong(sKey, u"L" + ToText(&lLong - alLong), lLong);
    oStore.SetLong(sKey, u"a\\\"b=\u00E9", 7);
    EXPECT_EQ(oStore.GetString(sKey, u"S4"), asText[4]);
  }
  RegistryStore oStore(sPath);
  EXPECT_TRUE(oStore.Problems().empty());
  for (const Text& sText : asText) {
    EXPECT_EQ(oStore.GetString(sKey, u"s" + ToText(&sText - asText)), sText);
  }
  const Text sSameKey = u"hkey_current_user\\SOFTWARE\\q\\";
  for (const auto& lLong : alLong) {
    EXPECT_EQ(oStore.GetLong(sSameKey, u"l" + ToText(&lLong - alLong)), lLong);
  }
  EXPECT_EQ(oStore.GetLong(sKey, u"A\\\"B=\u00C9"), 7);
  EXPECT_EQ(oStore.GetLong(sKey, u"S1"), std::nullopt);
  EXPECT_EQ(oStore.GetString(sKey, u"L1"), std::nullopt);
  EXPECT_TRUE(oStore.KeyExists(u"HKEY_CURRENT_USER\\software"));
  EXPECT_FALSE(oStore.KeyExists(u"HKEY_CURRENT_USER\\soft"));
}

TEST_F(RegistryStoreTest, ReadsWhatRegistryEditorsExportAndKeepsItsForm) {
  const std::string sBody = sKeyLine +
                            "\"T\"=\"a\\\\b\"\r\n\"N\"=dword:FFFFFFFF\r\n@=\"d\"\r\n"
                            "\"B\"=hex:01,02,\\\r\n  03\r\n";
  const std::string sWideHex = "\"H\"=hex(1):e9,00,\\\r\n  00,00\r\n";
  const std::string sAdded = "\"X\"=dword:00000001\r\n";
  // A name, the bytes, the new line in the file's own form.
  const std::array<std::string, 3> aasRow[] = {
      {"5.00 in ASCII", sHeader + sBody + sWideHex, sAdded},
      {"5.00 in UTF-8", "\xEF\xBB\xBF" + sHeader + sBody + sWideHex, sAdded},
      {"5.00 in UTF-16", Wide(sHeader + sBody + sWideHex), Wide(sAdded).substr(2)},
      {"REGEDIT4", "REGEDIT4\r\n\r\n" + sBody + "\"H\"=hex(1):e9,00\r\n", sAdded},
      {"no last line end", sHeader + sBody + "\"H\"=hex(1):e9,00", "\r\n" + sAdded},
  };
  for (const auto& [sName, sBytes, sLine] : aasRow) {
    SCOPED_TRACE(sName);
    Write(sBytes);
    RegistryStore oStore(sPath);
    EXPECT_TRUE(oStore.Problems().empty());
    EXPECT_EQ(oStore.GetString(sKey, u"T"), u"a\\b");
    EXPECT_EQ(oStore.GetLong(sKey, u"N"), -1);
    EXPECT_EQ(oStore.GetString(sKey, u""), u"d");
    EXPECT_EQ(oStore.GetString(sKey, u"H"), u"\u00E9");
    EXPECT_EQ(oStore.ValueType(sKey, u"B"), 3u);
    EXPECT_EQ(oStore.ValueNames(sKey), (std::vector<Text>{u"T", u"N", u"", u"B", u"H"}));
    oStore.SetLong(sKey, u"X", 1);
    EXPECT_EQ(TempFolder::Read(sPath), sBytes + sLine);
    oStore.SetString(sKey, u"X", u"\u00E9");
    EXPECT_EQ(RegistryStore(sPath).GetString(sKey, u"X"), u"\u00E9");
  }
}

TEST_F(RegistryStoreTest, DamagedLinesAreToldWithTheirNumbersAndKept) {
  using Numbers = std::vector<std::size_t>;
  const std::pair<Numbers, std::vector<std::string>> aoRow[] = {
      {{}, {"; a note \xE9", "\"A\"=-", "\"A\"=hex:41,\\", "\t"}},
      {{4}, {"\"A\"=dword:12g", "\"A\"=dword:123456789", "\"A\"=dword:", "\"A\"=qword:1"}},
      {{4}, {"\"A\"=\"b", "\"A\"=\"b\\", "\"A\"=\"b\" c", "\"A", "\"A\"", "=1", "<<<<<<< HEAD"}},
      {{4},
       {"\"A\"=hex(1):41", "\"A\"=hex(4):41,00", "\"A\"=hex:41,\\\r\n  4,444",
        std::string(3, '\0')}},
      {{4, 5}, {"[HKEY_CURRENT_USER\\Z", "[-HKEY_CURRENT_USER\\Z]", " [\\]", "[]"}},
  };
  const std::string sEnd = "\r\n\"After\"=dword:00000002\r\n";
  const std::string sOther = "\r\n[HKEY_CURRENT_USER\\Other]\r\n\"B\"=\"c\"\r\n";
  const auto check = [&](const std::string& sLine, const Numbers& alWanted) {
    SCOPED_TRACE(sLine);
    const std::string sBytes = sHeader + sKeyLine + sLine + sEnd;
    Write(sBytes);
    RegistryStore oStore(sPath);
    Numbers alProblem;
    for (const auto& oProblem : oStore.Problems()) alProblem.push_back(oProblem.lLine);
    EXPECT_EQ(alProblem, alWanted);
    // Behind a damaged key the value belongs to no key at all.
    EXPECT_EQ(oStore.GetLong(sKey, u"After").has_value(), alWanted.size() < 2);
    oStore.SetString(u"HKEY_CURRENT_USER\\Other", u"B", u"c");
    EXPECT_EQ(TempFolder::Read(sPath), sBytes + sOther);
  };
  for (const auto& [alProblem, asLine] : aoRow)
    for (const std::string& sLine : asLine) check(sLine, alProblem);
}

TEST_F(RegistryStoreTest, ChangesTouchSingleLines) {
  Write(
      "Not a header\n[HKEY_CURRENT_USER\\Software\\Q]\n\"A\"=\"1\"\n\"a\"=\"2\"\n"
      "\"B\"=dword:1\n\n; end\n\n[HKEY_CURRENT_USER\\Z]\n");
  RegistryStore oStore(sPath);
  EXPECT_EQ(oStore.Problems().at(0).lLine, 1u);
  EXPECT_EQ(oStore.GetString(sKey, u"A"), u"2");
  oStore.SetString(sKey, u"A", u"3");
  oStore.SetLong(sKey, u"C", 3);
  EXPECT_TRUE(oStore.DeleteValue(sKey, u"b"));
  EXPECT_FALSE(oStore.DeleteValue(sKey, u"b"));
  EXPECT_EQ(TempFolder::Read(sPath),
            "Not a header\n[HKEY_CURRENT_USER\\Software\\Q]\n\"A\"=\"1\"\n\"A\"=\"3\"\n"
            "\n; end\n\"C\"=dword:00000003\n\n[HKEY_CURRENT_USER\\Z]\n");
}

TEST_F(RegistryStoreTest, BatchIsSavedOnceAndAtItsEnd) {
  RegistryStore oStore(sPath, &oFiles);
  const auto renames = [&] { return std::ranges::count(oFiles.Operations(), "Rename " + sPath); };
  oStore.CreateKey(sKey);
  EXPECT_TRUE(oStore.KeyExists(sKey));
  {
    RegistryStore::Batch oOuter(oStore);
    RegistryStore::Batch oInner(oStore);
    oStore.SetLong(sKey, u"A", 1);
    oStore.SetLong(sKey, u"B", 2);
    oInner.Commit();
    EXPECT_EQ(renames(), 0);
  }
  EXPECT_EQ(renames(), 1);
  oStore.SetLong(sKey, u"A", 1);
  EXPECT_EQ(renames(), 1) << "what is so already isn't written";
  EXPECT_EQ(RegistryStore(sPath).GetLong(sKey, u"B"), 2);
}

TEST_F(RegistryStoreTest, FailedSaveNamesThePathKeepsTheValuesAndIsMadeGoodByTheNext) {
  RegistryStore oStore(sPath, &oFiles);
  oFiles.FailAt(1, ENOSPC, "Write");
  try {
    oStore.SetLong(sKey, u"A", 1);
    ADD_FAILURE();
  } catch (const Failure& oFailure) {
    EXPECT_EQ(std::string(oFailure.what()).find("Disk full: " + sPath), 0u);
  }
  EXPECT_EQ(oStore.GetLong(sKey, u"A"), 1);
  EXPECT_EQ(TempFolder::Read(sPath), "");
  oStore.SetLong(sKey, u"B", 2);
  EXPECT_EQ(RegistryStore(sPath).GetLong(sKey, u"A"), 1);
  EXPECT_THROW(RegistryStore(oFolder.Path()), Failure);
}

TEST_F(RegistryStoreTest, NamesAndTextsThatTheFormatCanNotHoldAreRefused) {
  Write("REGEDIT4\r\n");
  RegistryStore oStore(sPath);
  EXPECT_THROW(oStore.SetLong(sKey, u"a\nb", 1), Failure);
  EXPECT_THROW(oStore.SetLong(u"", u"a", 1), Failure);
  EXPECT_THROW(oStore.SetLong(u"-HKEY", u"a", 1), Failure);
  EXPECT_THROW(oStore.SetString(sKey, u"a", u"\u65E5"), Failure);
  EXPECT_EQ(TempFolder::Read(sPath), "REGEDIT4\r\n");
}

TEST_F(RegistryStoreTest, FilesThatEndInTheMiddleOfSomethingAreGoneOnWith) {
  for (const std::string sBytes : {"\xFF\xFE", "\xFF\xFE[", "\xEF\xBB\xBF", "[K]\r", "x"}) {
    Write(sBytes);
    RegistryStore(sPath).SetLong(sKey, u"A", 1);
    EXPECT_EQ(TempFolder::Read(sPath).substr(0, sBytes.size()), sBytes);
    EXPECT_EQ(RegistryStore(sPath).GetLong(sKey, u"A"), 1) << sBytes;
  }
}

TEST_F(RegistryStoreTest, TwoProgramsThatWriteAtOnceLoseNothing) {
  DoTwice([&](const Text& sWho) {
    RegistryStore oStore(sPath);
    for (int i = 0; i < 100; ++i) {
      oStore.SetLong(sKey, sWho + ToText(i), i);
      if (i % 3 == 0) oStore.DeleteValue(sKey, sWho + ToText(i));
    }
  });
  RegistryStore oStore(sPath);
  EXPECT_EQ(oStore.ValueNames(sKey).size(), 2u * 66);
  EXPECT_EQ(oStore.GetLong(sKey, u"child98"), 98);
  EXPECT_EQ(oStore.GetLong(sKey, u"parent99"), std::nullopt);
}

TEST_F(RegistryStoreTest, ProgramsThatWriteWhatTheyReadLoseNothing) {
  DoTwice([&](const Text&) {
    RegistryStore oStore(sPath);
    for (int i = 0; i < 100; ++i) {
      RegistryStore::Batch oBatch(oStore);
      oBatch.LockAndRead();
      oStore.SetLong(sKey, u"Count", oStore.GetLong(sKey, u"Count").value_or(0) + 1);
    }
  });
  EXPECT_EQ(RegistryStore(sPath).GetLong(sKey, u"Count"), 200);
}

}  // namespace
