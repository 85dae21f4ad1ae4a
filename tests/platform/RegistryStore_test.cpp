#include "RegistryStore.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <cerrno>

#include "CodePage.h"
#include "Failure.h"
#include "FaultyFileOps.h"
#include "TempFolder.h"

namespace {

constexpr TextView sKey = u"HKEY_CURRENT_USER\\Software\\Q";
const std::string sHeader = "Windows Registry Editor Version 5.00\r\n\r\n";
const std::string sKeyLine = "[HKEY_CURRENT_USER\\Software\\Q]\r\n";

std::string Wide(const std::string& sAscii) {
  std::string sWide = "\xFF\xFE";
  for (const char c : sAscii) sWide += {c, '\0'};
  return sWide;
}

TEST(RegistryStore, WrittenValuesReadTheSameInAnotherProgram) {
  const TempFolder oFolder;
  const std::string sPath = oFolder / "new/folder/settings.reg";
  const Text asText[] = {u"",         u"plain",       u"C:\\a \"b\"",     u"caf\u00E9 \u65E5\u672C",
                         u"a\r\nb\t", u"\xD800 lone", Text(u"a\0b\0", 4), Text(200, u'\u00E9')};
  const std::int32_t alLong[] = {0, -1, 31, 2147483647, -2147483647 - 1};
  {
    RegistryStore oStore(sPath);
    EXPECT_FALSE(std::filesystem::exists(sPath));
    for (const Text& sText : asText) oStore.SetString(sKey, u"S" + ToText(&sText - asText), sText);
    for (const auto& lLong : alLong) oStore.SetLong(sKey, u"L" + ToText(&lLong - alLong), lLong);
    oStore.SetString(sKey, u"", u"default");
    oStore.SetLong(sKey, u"a\\\"b=\u00E9", 7);
    EXPECT_EQ(oStore.GetString(sKey, u"S4"), asText[4]);
  }
  RegistryStore oStore(sPath);
  EXPECT_TRUE(oStore.Problems().empty());
  for (const Text& sText : asText) {
    EXPECT_EQ(oStore.GetString(sKey, u"s" + ToText(&sText - asText)), sText);
  }
  for (const auto& lLong : alLong) {
    EXPECT_EQ(oStore.GetLong(u"hkey_current_user\\SOFTWARE\\q\\", u"l" + ToText(&lLong - alLong)),
              lLong);
  }
  EXPECT_EQ(oStore.GetString(sKey, u""), u"default");
  EXPECT_EQ(oStore.GetLong(sKey, u"A\\\"B=\u00C9"), 7);
  EXPECT_EQ(oStore.GetLong(sKey, u"S1"), std::nullopt);
  EXPECT_EQ(oStore.GetString(sKey, u"L1"), std::nullopt);
  EXPECT_TRUE(oStore.KeyExists(u"HKEY_CURRENT_USER\\software"));
  EXPECT_FALSE(oStore.KeyExists(u"HKEY_CURRENT_USER\\soft"));
}

TEST(RegistryStore, ReadsWhatRegistryEditorsExportAndKeepsItsForm) {
  const std::string sBody = sKeyLine +
                            "\"T\"=\"a\\\\b\"\r\n\"N\"=dword:FFFFFFFF\r\n@=\"d\"\r\n"
                            "\"B\"=hex:01,02,\\\r\n  03\r\n";
  const std::string sWideHex = "\"H\"=hex(1):e9,00,\\\r\n  00,00\r\n";
  struct Row {
    const char* sName;
    std::string sBytes;
    std::string sAdded;  ///< what "X"=dword:1 is in the file's own form
    Text sHex;
  } const aoRow[] = {
      {"5.00 in ASCII", sHeader + sBody + sWideHex, "\"X\"=dword:00000001\r\n", u"\u00E9"},
      {"5.00 in UTF-8", "\xEF\xBB\xBF" + sHeader + sBody + sWideHex, "\"X\"=dword:00000001\r\n",
       u"\u00E9"},
      {"5.00 in UTF-16", Wide(sHeader + sBody + sWideHex),
       Wide("\"X\"=dword:00000001\r\n").substr(2), u"\u00E9"},
      {"REGEDIT4", "REGEDIT4\r\n\r\n" + sBody + "\"H\"=hex(1):e9,00\r\n",
       "\"X\"=dword:00000001\r\n", u"\u00E9"},
      {"last line without end", sHeader + sBody + "\"H\"=\"x\"", "\r\n\"X\"=dword:00000001\r\n",
       u"x"},
  };
  for (const Row& oRow : aoRow) {
    SCOPED_TRACE(oRow.sName);
    const TempFolder oFolder;
    TempFolder::Write(oFolder / "s.reg", oRow.sBytes);
    RegistryStore oStore(oFolder / "s.reg");
    EXPECT_TRUE(oStore.Problems().empty());
    EXPECT_EQ(oStore.GetString(sKey, u"T"), u"a\\b");
    EXPECT_EQ(oStore.GetLong(sKey, u"N"), -1);
    EXPECT_EQ(oStore.GetString(sKey, u""), u"d");
    EXPECT_EQ(oStore.GetString(sKey, u"H"), oRow.sHex);
    EXPECT_EQ(oStore.ValueType(sKey, u"B"), 3u);
    EXPECT_EQ(oStore.ValueNames(sKey), (std::vector<Text>{u"T", u"N", u"", u"B", u"H"}));
    oStore.SetLong(sKey, u"X", 1);
    EXPECT_EQ(TempFolder::Read(oFolder / "s.reg"), oRow.sBytes + oRow.sAdded);
    oStore.SetString(sKey, u"X", u"\u00E9");
    EXPECT_EQ(RegistryStore(oFolder / "s.reg").GetString(sKey, u"X"), u"\u00E9");
  }
}

TEST(RegistryStore, DamagedLinesAreToldWithTheirNumbersAndKept) {
  struct Row {
    const char* sName;
    std::string sLine;
    std::vector<std::size_t> alProblem;
    std::optional<std::int32_t> oAfter;  ///< "After"=dword:2 in the line behind
  } const aoRow[] = {
      {"comment", "; a note \xE9\r\n", {}, 2},
      {"no number", "\"A\"=dword:12g\r\n", {4}, 2},
      {"too long a number", "\"A\"=dword:123456789\r\n", {4}, 2},
      {"open quote", "\"A\"=\"b\r\n", {4}, 2},
      {"backslash at the end", "\"A\"=\"b\\\r\n", {4}, 2},
      {"unknown type", "\"A\"=qword:1\r\n", {4}, 2},
      {"half a unit", "\"A\"=hex(1):41\r\n", {4}, 2},
      {"short dword", "\"A\"=hex(4):41,00\r\n", {4}, 2},
      {"hex broken off", "\"A\"=hex:41,\\\r\n", {}, 2},
      {"two lines of damaged hex", "\"A\"=hex:41,\\\r\n  4,444\r\n", {4}, 2},
      {"no name", "=1\r\n", {4}, 2},
      {"text behind a value", "\"A\"=\"b\" c\r\n", {4}, 2},
      {"conflict mark", "<<<<<<< HEAD\r\n", {4}, 2},
      {"NUL bytes", std::string("\0\0\r\n", 4), {4}, 2},
      {"key without bracket", "[HKEY_CURRENT_USER\\Z\r\n", {4, 5}, std::nullopt},
      {"deletion of a key", "[-HKEY_CURRENT_USER\\Z]\r\n", {4, 5}, std::nullopt},
      {"deletion of a value", "\"A\"=-\r\n", {}, 2},
  };
  for (const Row& oRow : aoRow) {
    SCOPED_TRACE(oRow.sName);
    const TempFolder oFolder;
    const std::string sEnd = "\"After\"=dword:00000002\r\n";
    TempFolder::Write(oFolder / "s.reg", sHeader + sKeyLine + oRow.sLine + sEnd);
    RegistryStore oStore(oFolder / "s.reg");
    std::vector<std::size_t> alProblem;
    for (const auto& oProblem : oStore.Problems()) alProblem.push_back(oProblem.lLine);
    EXPECT_EQ(alProblem, oRow.alProblem);
    EXPECT_EQ(oStore.GetLong(sKey, u"After"), oRow.oAfter);
    oStore.SetString(u"HKEY_CURRENT_USER\\Other", u"B", u"c");
    EXPECT_EQ(TempFolder::Read(oFolder / "s.reg"),
              sHeader + sKeyLine + oRow.sLine + sEnd +
                  "\r\n[HKEY_CURRENT_USER\\Other]\r\n\"B\"=\"c\"\r\n");
  }
}

TEST(RegistryStore, ChangesTouchSingleLines) {
  const TempFolder oFolder;
  const std::string sPath = oFolder / "s.reg";
  TempFolder::Write(sPath,
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

TEST(RegistryStore, BatchIsSavedOnceAndAtItsEnd) {
  const TempFolder oFolder;
  FaultyFileOps oFiles;
  RegistryStore oStore(oFolder / "s.reg", &oFiles);
  const auto renames = [&] {
    std::size_t lRenames = 0;
    for (const auto& sOperation : oFiles.Operations()) lRenames += sOperation.starts_with("Rename");
    return lRenames;
  };
  oStore.CreateKey(sKey);
  EXPECT_TRUE(oStore.KeyExists(sKey));
  {
    RegistryStore::Batch oOuter(oStore);
    RegistryStore::Batch oInner(oStore);
    oStore.SetLong(sKey, u"A", 1);
    oStore.SetLong(sKey, u"B", 2);
    oInner.Commit();
    EXPECT_EQ(renames(), 0u);
  }
  EXPECT_EQ(renames(), 1u);
  oStore.SetLong(sKey, u"A", 1);
  EXPECT_EQ(renames(), 1u) << "what is so already isn't written";
  EXPECT_EQ(RegistryStore(oFolder / "s.reg").GetLong(sKey, u"B"), 2);
}

TEST(RegistryStore, FailedSaveNamesThePathKeepsTheValuesAndIsMadeGoodByTheNext) {
  const TempFolder oFolder;
  const std::string sPath = oFolder / "s.reg";
  FaultyFileOps oFiles;
  RegistryStore oStore(sPath, &oFiles);
  oFiles.FailAtNamed("Write", ENOSPC);
  try {
    oStore.SetLong(sKey, u"A", 1);
    ADD_FAILURE();
  } catch (const Failure& oFailure) {
    EXPECT_EQ(oFailure.Number(), 61);
    EXPECT_NE(std::string(oFailure.what()).find(sPath), std::string::npos);
  }
  EXPECT_EQ(oStore.GetLong(sKey, u"A"), 1);
  EXPECT_EQ(TempFolder::Read(sPath), "");
  oStore.SetLong(sKey, u"B", 2);
  EXPECT_EQ(RegistryStore(sPath).GetLong(sKey, u"A"), 1);
  EXPECT_THROW(RegistryStore(oFolder.Path()), Failure);
}

TEST(RegistryStore, NamesAndTextsThatTheFormatCanNotHoldAreRefused) {
  const TempFolder oFolder;
  const std::string sPath = oFolder / "s.reg";
  TempFolder::Write(sPath, "REGEDIT4\r\n");
  RegistryStore oStore(sPath);
  EXPECT_THROW(oStore.SetLong(sKey, u"a\nb", 1), Failure);
  EXPECT_THROW(oStore.SetLong(u"", u"a", 1), Failure);
  EXPECT_THROW(oStore.SetLong(u"-HKEY", u"a", 1), Failure);
  EXPECT_THROW(oStore.SetString(sKey, u"a", u"\u65E5"), Failure);
  EXPECT_EQ(TempFolder::Read(sPath), "REGEDIT4\r\n");
}

TEST(RegistryStore, TwoProgramsThatWriteAtOnceLoseNothing) {
  const TempFolder oFolder;
  const std::string sPath = oFolder / "s.reg";
  const auto write = [&](const Text& sWho) {
    RegistryStore oStore(sPath);
    for (int i = 0; i < 100; ++i) {
      oStore.SetLong(sKey, sWho + ToText(i), i);
      if (i % 3 == 0) oStore.DeleteValue(sKey, sWho + ToText(i));
    }
  };
  const pid_t lChild = fork();
  if (lChild == 0) {
    write(u"child");
    _exit(0);
  }
  write(u"parent");
  int lStatus = 1;
  waitpid(lChild, &lStatus, 0);
  EXPECT_EQ(lStatus, 0);
  RegistryStore oStore(sPath);
  EXPECT_EQ(oStore.ValueNames(sKey).size(), 2u * 66);
  for (int i = 0; i < 100; ++i) {
    const auto oWanted = i % 3 == 0 ? std::nullopt : std::optional(i);
    EXPECT_EQ(oStore.GetLong(sKey, u"child" + ToText(i)), oWanted) << i;
    EXPECT_EQ(oStore.GetLong(sKey, u"parent" + ToText(i)), oWanted) << i;
  }
}

}  // namespace
