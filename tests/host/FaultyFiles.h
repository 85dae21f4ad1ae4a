// The system's files, one operation of which fails, or ends the program as far as files can tell.
#pragma once

#include <cerrno>

#include "IFileOps.h"

class FaultyFiles : public IFileOps {
 public:
  static constexpr int End = -1;
  struct Ended {};

  /// Operation nAt from now on fails with nError; with End, nothing happens from it on.
  void Arm(int nAt, int nError) { mnLeft = nAt, mnError = nError, mbFired = false; }
  bool Fired() const { return mbFired; }

  int GetStat(const std::string& s, Stat& o) override {
    return Do([&] { return moReal.GetStat(s, o); });
  }
  int ReadAll(const std::string& s, std::string& sBytes) override {
    return Do([&] { return moReal.ReadAll(s, sBytes); });
  }
  int ListFolder(const std::string& s, std::vector<std::string>& as) override {
    return Do([&] { return moReal.ListFolder(s, as); });
  }
  int Resolve(const std::string& s, std::string& sTarget) override {
    return Do([&] { return moReal.Resolve(s, sTarget); });
  }
  int CreateNew(const std::string& s, std::uint32_t lMode, int& h) override {
    return Do([&] { return moReal.CreateNew(s, lMode, h); });
  }
  int Write(int h, std::string_view s) override {
    if (mnLeft == 1) moReal.Write(h, s.substr(0, s.size() / 2));  // a failing write has begun
    return Do([&] { return moReal.Write(h, s); });
  }
  int SetOwner(int h, std::uint32_t lOwner, std::uint32_t lGroup) override {
    return Do([&] { return moReal.SetOwner(h, lOwner, lGroup); });
  }
  int SetMode(int h, std::uint32_t lMode) override {
    return Do([&] { return moReal.SetMode(h, lMode); });
  }
  int Flush(int h) override {
    return Do([&] { return moReal.Flush(h); });
  }
  int Close(int h) override {
    int nReal = moReal.Close(h);  // the system does so for a program that ends, too
    return Do([&] { return nReal; });
  }
  int Rename(const std::string& sFrom, const std::string& sTo) override {
    return Do([&] { return moReal.Rename(sFrom, sTo); });
  }
  int Remove(const std::string& s) override {
    return Do([&] { return moReal.Remove(s); });
  }
  int FlushFolder(const std::string& s) override {
    return Do([&] { return moReal.FlushFolder(s); });
  }

 private:
  template <class Call>
  int Do(Call&& oCall) {
    if (mbFired && mnError == End) return EIO;
    if (mnLeft == 0 || --mnLeft > 0) return oCall();
    mbFired = true;
    if (mnError == End) throw Ended();
    return mnError;
  }

  IFileOps& moReal = SystemFileOps();
  int mnLeft = 0, mnError = 0;
  bool mbFired = false;
};
