// The registry of this machine: one text file in registry export format. Keys in brackets, values
//   "Name"=dword:0000001f     "Name"="text with \\ and \" escaped"     @="default"
// Reads what registry editors export ("Windows Registry Editor Version 5.00" in UTF-16 LE with
// mark, or UTF-8; "REGEDIT4" in 1252). A new file has the 5.00 header, and values are written in
// ASCII, so that it can be imported: a text with other characters is written as hex(1). A file
// that exists keeps its header, encoding and line ends. Other value types and lines that aren't
// understood stay where they are, byte for byte.
// A damaged line is skipped and reported by Problems() with its number.
//
// Every write locks the file (a lock file beside it), reads it again, puts this program's changes
// into it and replaces it atomically: two programs that write at once lose nothing.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Text.h"

class IFileOps;

class RegistryStore {
 public:
  struct Problem {
    std::size_t lLine;  ///< from 1
    Text sMessage;
  };

  /// Opens the store in a file that need not exist yet; its folder is made at the first write.
  /// An empty path keeps everything in memory (tests, --settings ""). A file that is there and
  /// can't be read is a Failure with the path. On Windows, "HKEY_CURRENT_USER" is the system's own
  /// registry, in which every write lands as the same type as in a file. files: null means the
  /// system's files; not owned.
  explicit RegistryStore(std::string path = {}, IFileOps* files = nullptr);
  ~RegistryStore();
  RegistryStore(const RegistryStore&) = delete;
  RegistryStore& operator=(const RegistryStore&) = delete;

  /// Key paths are full, "HKEY_CURRENT_USER\Software\..."; keys and names ignore letter case.
  bool KeyExists(TextView key) const;
  /// In memory only: the file has the key with its first value, so that reading settings never
  /// writes a file. Failure 5 for a key or a value name that the format can't hold, here and below.
  void CreateKey(TextView key);

  /// nullopt when missing; type 1 is a string, 4 a 32-bit integer, others as in the file.
  std::optional<std::uint32_t> ValueType(TextView key, TextView name) const;
  std::optional<std::int32_t> GetLong(TextView key, TextView name) const;
  std::optional<Text> GetString(TextView key, TextView name) const;
  void SetLong(TextView key, TextView name, std::int32_t value);
  void SetString(TextView key, TextView name, TextView value);
  bool DeleteValue(TextView key, TextView name);
  std::vector<Text> ValueNames(TextView key) const;

  /// Writes collect until the outermost Batch ends; each single write outside one is saved at
  /// once. A failed save throws a Failure with the path; the values in memory stay.
  class Batch {
   public:
    explicit Batch(RegistryStore& store);
    ~Batch();  ///< saves if Commit wasn't called; a failure is then reported only
    void Commit();
    /// Locks the file until the outermost Batch ends and reads it again: for writes that depend on
    /// values just read, which another program could change in between. Failure with the path.
    void LockAndRead();

   private:
    RegistryStore& mStore;
    bool mOpen = true;
  };

  const std::vector<Problem>& Problems() const;
  const std::string& Path() const;

 private:
  struct Impl;
  std::unique_ptr<Impl> mImpl;
};

/// The store behind MXRegistry. Null: an empty one in memory is made at first use. Not owned.
extern RegistryStore* goRegistry;
/// The store in use; makes goRegistry when it is null.
RegistryStore& CurrentRegistry();
/// $XDG_CONFIG_HOME/tarvane-quillon/settings.reg, or under ~/.config; empty without a home. On
/// Windows the path that stands for the system's own registry.
std::string DefaultSettingsPath();
