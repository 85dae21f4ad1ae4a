#include "RegistryStore.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>

#include "AtomicFile.h"
#include "CodePage.h"
#include "Failure.h"
#include "FileLock.h"
#include "IErrorRuntime.h"
#include "IFileOps.h"
#include "RegistryDocument.h"
#include "SystemRegistry.h"

namespace {

/// What this program set or deleted since its last save; put into whatever the file has by then.
struct Change {
  Text key, name;
  std::optional<RegistryValue> value;  ///< nullopt: deleted

  void PutInto(RegistryDocument& document) const {
    if (value) {
      document.Set(key, name, *value);
    } else {
      document.Delete(key, name);
    }
  }
};

}  // namespace

struct RegistryStore::Impl {
  std::string path;
  IFileOps& files;
  RegistryDocument document;
  std::vector<Change> changes;
  std::vector<Text> createdKeys;
  int batches = 0;
  std::unique_ptr<FileLock> lock;               ///< held by a batch that rests on what it read
  std::unique_ptr<SystemRegistry> system = {};  ///< in place of a file

  std::string ReadFile() const {
    if (system) return system->Export();
    IFileOps::Stat stat;
    if (files.GetStat(path, stat) == ENOENT) return {};
    return AtomicFile::Read(path, files);
  }

  void Put(Change change) {
    change.PutInto(document);
    const auto same = std::find_if(changes.begin(), changes.end(), [&](const Change& other) {
      return EqualNoCase(other.key, change.key) && EqualNoCase(other.name, change.name);
    });
    if (same != changes.end()) {
      *same = std::move(change);
    } else {
      changes.push_back(std::move(change));
    }
    if (batches == 0) Save();
  }

  void Save() {
    std::unique_ptr<FileLock> held = std::move(lock);  // released at the end, also by an exception
    if (!changes.empty() && !path.empty()) {
      if (!held) held = Lock();
      MergeIntoFile();
    }
    changes.clear();
  }

  std::unique_ptr<FileLock> Lock() const {
    std::string target;
    if (system) {
      const std::string file = system->LockFile();
      return file.empty() ? nullptr : LockWithFolder(file);
    }
    if (files.Resolve(path, target) != 0) target = path;
    AtomicFile::RefuseSpecial(target, files);
    return LockWithFolder(target + ".lock");
  }

  static std::unique_ptr<FileLock> LockWithFolder(const std::string& file) {
    std::error_code ignored;
    const auto folder = std::filesystem::path(file).parent_path();
    if (!folder.empty()) std::filesystem::create_directories(folder, ignored);
    return std::make_unique<FileLock>(file);
  }

  RegistryDocument Merged(const std::string& bytes) const {
    RegistryDocument merged(bytes);
    for (const Change& change : changes) change.PutInto(merged);
    return merged;
  }

  void MergeIntoFile() {
    if (system) return PutIntoSystem();
    const std::string oldBytes = ReadFile();
    RegistryDocument merged = Merged(oldBytes);
    const std::string newBytes = merged.Bytes();
    if (newBytes != oldBytes) AtomicFile::Replace(path, newBytes, files);
    document = std::move(merged);
  }

  void PutIntoSystem() {
    for (const Change& change : changes)
      system->Put(change.key, change.name, change.value ? &*change.value : nullptr);
    document = RegistryDocument(ReadFile());
  }

  void LockAndRead() {
    if (path.empty()) return;
    if (!lock) lock = Lock();
    document = Merged(ReadFile());
  }

  const RegistryValue* Find(TextView key, TextView name, std::uint32_t type) const {
    const RegistryValue* value = document.Find(key, name);
    return value != nullptr && value->type == type ? value : nullptr;
  }
};

RegistryStore::RegistryStore(std::string path, IFileOps* files)
    : mImpl(new Impl{std::move(path),
                     files != nullptr ? *files : SystemFileOps(),
                     RegistryDocument(),
                     {},
                     {},
                     0,
                     nullptr}) {
  if (!Path().empty() && Path() == SystemRegistry::Path()) mImpl->system = SystemRegistry::Open();
  if (!Path().empty()) mImpl->document = RegistryDocument(mImpl->ReadFile());
}

RegistryStore::~RegistryStore() = default;

const std::string& RegistryStore::Path() const {
  return mImpl->path;
}

const std::vector<RegistryStore::Problem>& RegistryStore::Problems() const {
  return mImpl->document.Problems();
}

bool RegistryStore::KeyExists(TextView key) const {
  const auto& createdKeys = mImpl->createdKeys;
  return mImpl->document.HasKey(key) ||
         std::any_of(createdKeys.begin(), createdKeys.end(), [&](const Text& created) {
           return EqualNoCase(created, PlainRegistryKey(key));
         });
}

void RegistryStore::CreateKey(TextView key) {
  RegistryDocument::CheckKey(key);
  if (!KeyExists(key)) mImpl->createdKeys.emplace_back(PlainRegistryKey(key));
}

std::optional<std::uint32_t> RegistryStore::ValueType(TextView key, TextView name) const {
  const RegistryValue* value = mImpl->document.Find(key, name);
  return value != nullptr ? std::optional(value->type) : std::nullopt;
}

std::optional<std::int32_t> RegistryStore::GetLong(TextView key, TextView name) const {
  const RegistryValue* value = mImpl->Find(key, name, RegistryValue::Long);
  return value != nullptr ? std::optional(value->number) : std::nullopt;
}

std::optional<Text> RegistryStore::GetString(TextView key, TextView name) const {
  const RegistryValue* value = mImpl->Find(key, name, RegistryValue::String);
  return value != nullptr ? std::optional(value->text) : std::nullopt;
}

void RegistryStore::SetLong(TextView key, TextView name, std::int32_t value) {
  mImpl->Put({Text(key), Text(name), RegistryValue{RegistryValue::Long, {}, value}});
}

void RegistryStore::SetString(TextView key, TextView name, TextView value) {
  mImpl->Put({Text(key), Text(name), RegistryValue{RegistryValue::String, Text(value), 0}});
}

bool RegistryStore::DeleteValue(TextView key, TextView name) {
  if (!ValueType(key, name)) return false;
  mImpl->Put({Text(key), Text(name), std::nullopt});
  return true;
}

std::vector<Text> RegistryStore::ValueNames(TextView key) const {
  return mImpl->document.Names(key);
}

RegistryStore::Batch::Batch(RegistryStore& store) : mStore(store) {
  ++store.mImpl->batches;
}

RegistryStore::Batch::~Batch() {
  try {
    Commit();
  } catch (const Failure& failure) {
    goError->CheckResult(u"Save of the settings: " + failure.Description(), failure.Number());
  }
}

void RegistryStore::Batch::Commit() {
  if (!mOpen) return;
  mOpen = false;
  if (--mStore.mImpl->batches == 0) mStore.mImpl->Save();
}

void RegistryStore::Batch::LockAndRead() {
  mStore.mImpl->LockAndRead();
}

RegistryStore* goRegistry = nullptr;

RegistryStore& CurrentRegistry() {
  static RegistryStore inMemory;
  if (goRegistry == nullptr) goRegistry = &inMemory;
  return *goRegistry;
}

std::string DefaultSettingsPath() {
  if (const std::string system = SystemRegistry::Path(); !system.empty()) return system;
  const char* config = std::getenv("XDG_CONFIG_HOME");
  const char* home = std::getenv("HOME");
  const std::string name = "/tarvane-quillon/settings.reg";
  if (config != nullptr && *config == '/') return config + name;
  return home != nullptr && *home != '\0' ? home + ("/.config" + name) : std::string();
}
