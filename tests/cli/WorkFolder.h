// Runs the program from outside, in a folder of its own that holds a small group, its template
// file and nothing of the user's settings. The folder goes with the object.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <regex>
#include <string>
#include <vector>

class WorkFolder {
 public:
  struct Result {
    int nExit = -1;
    std::string sOut, sErr;
  };

  WorkFolder() {
    std::string sName = (std::filesystem::temp_directory_path() / "quillon-cli-XXXXXX").string();
    moFolder = mkdtemp(sName.data());
    std::filesystem::create_directories(moFolder / "io");
    WriteGroup();
  }
  ~WorkFolder() { std::filesystem::remove_all(moFolder); }

  /// sLine: what stands behind "quillon" in a shell; it may go on with a pipe.
  Result Run(const std::string& sLine, const std::string& sInput = {}) {
    Write("io/in", sInput);
    std::string sRoot = moFolder.string();
    std::string sCommand = "cd " + sRoot + "/src && export HOME=" + sRoot +
                           " XDG_CONFIG_HOME=" + sRoot + "/io XDG_STATE_HOME=" + sRoot +
                           "/io TERM=dumb; { " + QUILLON_BIN_DIR "/quillon " + sLine +
                           "\n} <../io/in >../io/out 2>../io/err";
    int nStatus = std::system(("bash -o pipefail -c '" + Escaped(sCommand) + "'").c_str());
    return {WEXITSTATUS(nStatus), Read("io/out"), Read("io/err")};
  }

  void Write(const std::string& sPath, const std::string& sBytes) {
    std::filesystem::create_directories((moFolder / sPath).parent_path());
    std::ofstream(moFolder / sPath, std::ios::binary) << sBytes;
  }
  std::string Read(const std::string& sPath) { return Bytes(moFolder / sPath); }
  static std::string Bytes(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  const std::filesystem::path& Folder() const { return moFolder; }

  /// All files under src with their bytes.
  std::map<std::string, std::string> Files() {
    std::map<std::string, std::string> oFiles;
    for (const auto& oEntry : std::filesystem::recursive_directory_iterator(moFolder / "src"))
      if (oEntry.is_regular_file()) {
        std::string sPath = std::filesystem::relative(oEntry.path(), moFolder).string();
        oFiles[sPath] = Read(sPath);
      }
    return oFiles;
  }

  /// The text with CR LF at its line ends.
  static std::string Dos(const std::string& sText) {
    return std::regex_replace(sText, std::regex("\n"), "\r\n");
  }

 private:
  static std::string Escaped(const std::string& sText) {
    return std::regex_replace(sText, std::regex("'"), "'\\''");
  }

  void WriteGroup() {
    Write("src/Demo.vbg", Dos("VBGROUP 5.0\nStartupProject=App\\Demo.vbp\n"));
    Write("src/App/Demo.vbp", Dos("Type=Exe\nModule=modMain; MODMAIN.BAS\n"
                                  "Class=clsStock; ..\\Core\\clsStock.cls\nName=\"Demo\"\n"));
    Write("src/App/modMain.bas", Dos("Attribute VB_Name = \"modMain\"\n"
                                     "Option Explicit\n"
                                     "\n"
                                     "' Starts it all.\n"
                                     "Public Sub Main()\n"
                                     "    Debug.Print \"Gr\xf6\xdf"
                                     "e\"\n"
                                     "End Sub\n"
                                     "\n"
                                     "Private Function Jumps(ByVal n As Long) As Long\n"
                                     "10  n = n - 1\n"
                                     "    If n > 0 Then GoTo 10\n"
                                     "End Function"));
    Write("src/Core/clsStock.cls", Dos("VERSION 1.0 CLASS\nBEGIN\n  MultiUse = -1  'True\nEND\n"
                                       "Attribute VB_Name = \"clsStock\"\n"
                                       "Option Explicit\n"
                                       "Private mlCount As Long\n"
                                       "\n"
                                       "Public Property Get Count() As Long\n"
                                       "    mlCount = mlCount + 1\n    Count = mlCount\n"
                                       "End Property\n"));
    Write("src/TEMPLATE.DAT",
          Dos("<#Template name=Signature type=signature>\n<#Start>\n"
              "'Sign: <%Signature>\n<#End>\n"
              "<#Template name=Module type=module>\n<#Start>\n"
              "<#if boundary>Private Const Edge = <%Boundary>\n<#if severity>Private Const Level = "
              "<%Severity>\n<#if retry>Private Const Again = <%Retry>\n<#End>\n"
              "<#Template name=Main type=procedure>\n<#Start>\n"
              "    On Error GoTo Caught\n<#BodyStart>\n<#BodyEnd>\n"
              "    Exit <%ProcType>\nCaught:\n"
              "<#if boundary>    Trap.Edge = <%Boundary>\n"
              "<#if severity>    Trap.Level = <%Severity>\n"
              "<#if retry>    Trap.Again = <%Retry>\n"
              "<#if trace>    Trap.Traced\n"
              "    Trap.Caught \"<%ModuleName>\", \"<%ProcName>\"\n<#End>\n"
              "<#Template name=Odd type=procedure>\n<#Start>\n"
              "    On Error GoTo Odd\n<#BodyStart>\n<#BodyEnd>\n"
              "    Exit <%ProcType>\nOdd:\n<#End>\n"));
  }

  std::filesystem::path moFolder;
};

/// Stands for whatever is printed.
inline const std::string Any = "*";

/// What was printed holds the text; an empty text: nothing was printed.
#define EXPECT_HOLDS(sAll, sPart)                                                           \
  EXPECT_TRUE((sPart) == Any ||                                                             \
              ((sPart).empty() ? (sAll).empty() : (sAll).find(sPart) != std::string::npos)) \
      << "missing: " << (sPart) << "\nin: " << (sAll)

/// A run with what it gives: its texts hold these; an empty one: nothing is printed.
struct RunRow {
  const char* sName;
  std::string sLine;
  int nExit;
  std::string sOut, sErr;
};
inline void ExpectRuns(
    WorkFolder& oPlace, const std::vector<RunRow>& oRows,
    const std::function<void()>& fnThen = [] {}) {
  for (const RunRow& oRow : oRows) {
    SCOPED_TRACE(oRow.sName);
    const WorkFolder::Result oResult = oPlace.Run(oRow.sLine);
    EXPECT_EQ(oResult.nExit, oRow.nExit) << oResult.sErr;
    EXPECT_HOLDS(oResult.sOut, oRow.sOut);
    EXPECT_HOLDS(oResult.sErr, oRow.sErr);
    fnThen();
  }
}
