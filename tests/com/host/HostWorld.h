// What all objects of the COM host share: how it behaves, what it is to fail, and the account of
// what was called, what failed, and which objects still live.
#pragma once

#include <ole2.h>

#include <iosfwd>
#include <map>
#include <string>

#include "DiskIDE.h"

/// Where IDEs differ, or where nobody knows.
struct HostManner {
  bool bareErrors = false;        ///< Invoke gives an error's own code, without an exception record
  bool eventsAsDispatch = false;  ///< a click source is IDispatch as well as IUnknown
  bool retypes = true;            ///< inserted code is written anew, as by the IDE's editor
  bool forgetsAttributes = true;  ///< a member's attributes go with its lines
  /// Members that fail, such as "ICodeModule.InsertLines".
  std::map<std::string, HRESULT> faults{};
};

class HostWorld {
 public:
  /// The type library is a resource of this program. Fails with Failure 48 without it.
  explicit HostWorld(DiskIDE& ide);
  ~HostWorld();
  HostWorld(const HostWorld&) = delete;
  HostWorld& operator=(const HostWorld&) = delete;

  DiskIDE& ide;
  HostManner manner{};
  HWND mainWindow = nullptr;  ///< what the IDE tells as its own

  /// Belongs to the world.
  ITypeInfo* InfoOf(const IID& iid);
  /// A plain name of a type of the library.
  static std::string NameOf(ITypeInfo& info);

  void Born(const std::string& object) { ++mAlive[object]; }
  void Gone(const std::string& object) { --mAlive[object]; }
  /// S_OK, or what the member is to fail with.
  HRESULT Called(const std::string& object, const std::string& member);
  /// Counts an error and gives its code back.
  HRESULT Failed(const std::string& where, HRESULT error);

  int Alive() const;
  int Calls(const std::string& object, const std::string& member) const;
  void Print(std::ostream& out) const;

 private:
  ITypeLib* mLibrary = nullptr;
  std::map<std::string, ITypeInfo*> mInfos;
  std::map<std::string, std::map<std::string, int>> mCalls;
  std::map<std::string, int> mErrors, mAlive;
};
