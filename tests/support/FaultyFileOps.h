// The system's file operations with a fault at the n-th of them: it fails with an error number, or
// the process ends there. A write at that place leaves half of its bytes. Records what was asked.
#pragma once

#include <unistd.h>

#include <functional>
#include <string>
#include <vector>

#include "IFileOps.h"

class FaultyFileOps : public IFileOps {
 public:
  static constexpr int lExitCode = 77;

  /// lOperation counts from 1 over all operations from now on; 0: no fault.
  void FailAt(std::size_t lOperation, int lError) { SetFault(lOperation, lError, false); }
  /// As FailAt, for the n-th operation whose name begins with sName, such as "Rename".
  void FailAtNamed(const std::string& sName, int lError) {
    SetFault(1, lError, false);
    msFaultName = sName;
  }
  void ExitAt(std::size_t lOperation) { SetFault(lOperation, 0, true); }
  /// "Rename /a/b" and so on, in their order; operations on an open file have their name alone.
  const std::vector<std::string>& Operations() const { return masOperation; }

  int GetStat(const std::string& sPath, Stat& oStat) override {
    return Run("GetStat " + sPath, [&] { return moReal.GetStat(sPath, oStat); });
  }
  int ReadAll(const std::string& sPath, std::string& sBytes) override {
    return Run("ReadAll " + sPath, [&] { return moReal.ReadAll(sPath, sBytes); });
  }
  int ListFolder(const std::string& sPath, std::vector<std::string>& asName) override {
    return Run("ListFolder " + sPath, [&] { return moReal.ListFolder(sPath, asName); });
  }
  int Resolve(const std::string& sPath, std::string& sTarget) override {
    return Run("Resolve " + sPath, [&] { return moReal.Resolve(sPath, sTarget); });
  }
  int CreateNew(const std::string& sPath, std::uint32_t lMode, int& hFile) override {
    return Run("CreateNew " + sPath, [&] { return moReal.CreateNew(sPath, lMode, hFile); });
  }
  int Write(int hFile, std::string_view sBytes) override {
    const auto torn = [&] { moReal.Write(hFile, sBytes.substr(0, sBytes.size() / 2)); };
    return Run(
        "Write", [&] { return moReal.Write(hFile, sBytes); }, torn);
  }
  int SetOwner(int hFile, std::uint32_t lOwner, std::uint32_t lGroup) override {
    return Run("SetOwner", [&] { return moReal.SetOwner(hFile, lOwner, lGroup); });
  }
  int SetMode(int hFile, std::uint32_t lMode) override {
    return Run("SetMode", [&] { return moReal.SetMode(hFile, lMode); });
  }
  int Flush(int hFile) override {
    return Run("Flush", [&] { return moReal.Flush(hFile); });
  }
  int Close(int hFile) override {
    // A close that fails has closed the file all the same.
    return Run(
        "Close", [&] { return moReal.Close(hFile); }, [&] { moReal.Close(hFile); });
  }
  int Rename(const std::string& sFrom, const std::string& sTo) override {
    return Run("Rename " + sTo, [&] { return moReal.Rename(sFrom, sTo); });
  }
  int Remove(const std::string& sPath) override {
    return Run("Remove " + sPath, [&] { return moReal.Remove(sPath); });
  }
  int FlushFolder(const std::string& sPath) override {
    return Run("FlushFolder " + sPath, [&] { return moReal.FlushFolder(sPath); });
  }

 private:
  void SetFault(std::size_t lOperation, int lError, bool bExit) {
    masOperation.clear();
    msFaultName.clear();
    mlLeft = lOperation;
    mlError = lError;
    mbExit = bExit;
  }

  int Run(
      std::string sOperation, const std::function<int()>& oCall,
      const std::function<void()>& oTorn = [] {}) {
    const bool bCounts = mlLeft > 0 && sOperation.rfind(msFaultName, 0) == 0;
    masOperation.push_back(std::move(sOperation));
    if (!bCounts || --mlLeft > 0) return oCall();
    oTorn();
    if (mbExit) _exit(lExitCode);
    return mlError;
  }

  IFileOps& moReal = SystemFileOps();
  std::vector<std::string> masOperation;
  std::string msFaultName;
  std::size_t mlLeft = 0;
  int mlError = 0;
  bool mbExit = false;
};
