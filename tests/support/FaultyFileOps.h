// The system's file operations with a fault at the n-th of them: it fails with an error number, or
// the process ends there. A write at that place leaves half of its bytes. Records what was asked.
#pragma once

#include <unistd.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "IFileOps.h"

class FaultyFileOps : public IFileOps {
 public:
  /// lOperation counts from 1 over all operations from now on whose record begins with sName; that
  /// many of them fail from there on.
  void FailAt(std::size_t lOperation, int lError, const std::string& sName = {},
              std::size_t lTimes = 1) {
    masOperation.clear();
    msFaultName = sName;
    mlLeft = lOperation;
    mlTimes = lTimes;
    mlError = lError;
  }
  /// The process ends with status 77.
  void ExitAt(std::size_t lOperation) { FailAt(lOperation, -1); }
  /// "Rename /a/b" and so on, in their order; operations on an open file have their name alone.
  const std::vector<std::string>& Operations() const { return masOperation; }

  /// What another program does meanwhile: runs once, ahead of the next flush of a file.
  std::function<void()> AtFlush;

  int GetStat(const std::string& sPath, Stat& oStat) override {
    return Run("GetStat " + sPath, &IFileOps::GetStat, sPath, oStat);
  }
  int ReadAll(const std::string& sPath, std::string& sBytes) override {
    return Run("ReadAll " + sPath, &IFileOps::ReadAll, sPath, sBytes);
  }
  int ReadStart(const std::string& sPath, std::size_t most, std::string& sBytes) override {
    return Run("ReadStart " + sPath, &IFileOps::ReadStart, sPath, most, sBytes);
  }
  int ListFolder(const std::string& sPath, std::vector<std::string>& asName) override {
    return Run("ListFolder " + sPath, &IFileOps::ListFolder, sPath, asName);
  }
  int Resolve(const std::string& sPath, std::string& sTarget) override {
    return Run("Resolve " + sPath, &IFileOps::Resolve, sPath, sTarget);
  }
  int CreateNew(const std::string& sPath, std::uint32_t lMode, int& hFile) override {
    return Run("CreateNew " + sPath, &IFileOps::CreateNew, sPath, lMode, hFile);
  }
  int Write(int hFile, std::string_view sBytes) override {
    if (Faulty("Write")) return moReal.Write(hFile, sBytes.substr(0, sBytes.size() / 2)), Fault();
    return moReal.Write(hFile, sBytes);
  }
  int SetOwner(int hFile, std::uint32_t lOwner, std::uint32_t lGroup) override {
    return Run("SetOwner", &IFileOps::SetOwner, hFile, lOwner, lGroup);
  }
  int CopyAttributes(const std::string& from, int file) override {
    return Run("CopyAttributes", &IFileOps::CopyAttributes, from, file);
  }
  int SetMode(int hFile, std::uint32_t lMode) override {
    return Run("SetMode", &IFileOps::SetMode, hFile, lMode);
  }
  int StartFlush(int hFile) override { return Run("StartFlush", &IFileOps::StartFlush, hFile); }
  int Flush(int hFile) override {
    if (AtFlush) std::exchange(AtFlush, nullptr)();
    return Run("Flush", &IFileOps::Flush, hFile);
  }
  int FlushBytes(int hFile) override {
    if (AtFlush) std::exchange(AtFlush, nullptr)();
    return Run("FlushBytes", &IFileOps::FlushBytes, hFile);
  }
  int FileSystemOf(int hFile, std::uint64_t& lFileSystem) override {
    return Run("FileSystemOf", &IFileOps::FileSystemOf, hFile, lFileSystem);
  }
  int FlushFileSystem(int hFile) override {
    return Run("FlushFileSystem", &IFileOps::FlushFileSystem, hFile);
  }
  int Close(int hFile) override {
    // A close that fails has closed the file all the same.
    const int lError = moReal.Close(hFile);
    return Faulty("Close") ? Fault() : lError;
  }
  int Rename(const std::string& sFrom, const std::string& sTo) override {
    return Run("Rename " + sTo, &IFileOps::Rename, sFrom, sTo);
  }
  int Remove(const std::string& sPath) override {
    return Run("Remove " + sPath, &IFileOps::Remove, sPath);
  }
  int FlushClosed(const std::string& sPath) override {
    return Run("FlushClosed " + sPath, &IFileOps::FlushClosed, sPath);
  }
  int FlushFolder(const std::string& sPath) override {
    return Run("FlushFolder " + sPath, &IFileOps::FlushFolder, sPath);
  }

 private:
  bool Faulty(const std::string& sOperation) {
    masOperation.push_back(sOperation);
    if (mlLeft == 0 || !sOperation.starts_with(msFaultName) || --mlLeft > 0) return false;
    mlLeft = --mlTimes > 0 ? 1 : 0;
    return true;
  }
  int Fault() const { return mlError < 0 ? _exit(77), 0 : mlError; }

  template <class Method, class... Args>
  int Run(const std::string& sOperation, Method pMethod, Args&&... oArgs) {
    return Faulty(sOperation) ? Fault() : (moReal.*pMethod)(std::forward<Args>(oArgs)...);
  }

  IFileOps& moReal = SystemFileOps();
  std::vector<std::string> masOperation;
  std::string msFaultName;
  std::size_t mlLeft = 0, mlTimes = 0;
  int mlError = 0;
};
