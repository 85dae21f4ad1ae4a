// What makes the library known: its class, program id and type library, and its entry in the IDE's
// list of add-ins for the user. Class and type library are written for the whole machine where the
// user may do that, else for the user alone; an IDE that runs as administrator sees the former
// only.
//
//   Registration registration(server);
//   HRESULT result = registration.Add();      // Remove() takes all of it away again
#pragma once

#include <windows.h>

#include <vector>

#include "Text.h"

struct ServerNames {
  GUID classId, libraryId;
  Text programId;                      ///< such as Project.Class
  Text name;                           ///< as the list of add-ins shows it
  Text description;                    ///< below that list; of the type library
  Text file;                           ///< full path of the library, which holds the type library
  std::uint16_t major = 1, minor = 0;  ///< of the type library
};

class Registration {
 public:
  explicit Registration(ServerNames server) : mServer(std::move(server)) {}

  /// An entry that is in the list of add-ins keeps the user's choice when it is loaded.
  /// SELFREG_E_CLASS or SELFREG_E_TYPELIB when neither place can be written; what was written then
  /// is removed again.
  HRESULT Add() const;
  /// Leaves nothing, in either place. What isn't there needn't be removed.
  HRESULT Remove() const;

  /// The keys of the class below a root of classes, which Remove deletes with all below them.
  std::vector<Text> ClassKeys() const;
  /// Of the list of add-ins, below HKEY_CURRENT_USER.
  Text AddInKey() const;

 private:
  bool AddClass(HKEY root) const;
  HRESULT AddLibrary(bool machine) const;
  bool AddToList() const;

  ServerNames mServer;
};
