// The registry of Windows, as what is behind a RegistryStore there.
#pragma once

#include <memory>
#include <string>

#include "RegistryLine.h"

class SystemRegistry {
 public:
  /// Null on systems that have none.
  static std::unique_ptr<SystemRegistry> Open();
  /// The path of a store that is behind the registry; empty on systems that have none.
  static std::string Path();

  virtual ~SystemRegistry() = default;
  /// All keys of this product, of the user, in registry export format. Failure with the key.
  virtual std::string Export() const = 0;
  /// value: null deletes it. The key is made when missing. Failure with the key.
  virtual void Put(TextView key, TextView name, const RegistryValue* value) = 0;
  /// The file that two programs lock which change what they read.
  virtual std::string LockFile() const = 0;
};
