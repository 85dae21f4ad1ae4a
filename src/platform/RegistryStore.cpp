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

namespace {

/// What this program set or deleted since its last save; put into whatever the file has by then.
struct Change {
  Text sKey, sName;
  std::optional<RegistryValue> oValue;  ///< nullopt: deleted

  void PutInto(RegistryDocument& oDocument) const {
    if (oValue) {
      oDocument.Set(sKey, sName, *oValue);
    } else {
      oDocument.Delete(sKey, sName);
    }
  }
};

}  // namespace

struct RegistryStore::Impl {
  std::string sPath;
  IFileOps& oFiles;
  RegistryDocument oDocument;
  std::vector<Change> oChanges;
  std::vector<Text> asCreated;
  int lBatches = 0;
  std::unique_ptr<FileLock> pLock;  ///< held by a batch that rests on what it read

  std::string ReadFile() const {
    IFileOps::Stat oStat;
    if (oFiles.GetStat(sPath, oStat) == ENOENT) return {};
    return AtomicFile::Read(sPath, oFiles);
  }

  void Put(Change oChange) {
    oChange.PutInto(oDocument);
    const auto oSame = std::find_if(oChanges.begin(), oChanges.end(), [&](const Change& oOther) {
      return EqualNoCase(oOther.sKey, oChange.sKey) && EqualNoCase(oOther.sName, oChange.sName);
    });
    if (oSame != oChanges.end()) {
      *oSame = std::move(oChange);
    } else {
      oChanges.push_back(std::move(oChange));
    }
    if (lBatches == 0) Save();
  }

  void Save() {
    std::unique_ptr<FileLock> pHeld =
        std::move(pLock);  // released at the end, also by an exception
    if (!oChanges.empty() && !sPath.empty()) {
      if (!pHeld) pHeld = Lock();
      MergeIntoFile();
    }
    oChanges.clear();
  }

  std::unique_ptr<FileLock> Lock() const {
    std::string sTarget;
    if (oFiles.Resolve(sPath, sTarget) != 0) sTarget = sPath;
    AtomicFile::RefuseSpecial(sTarget, oFiles);
    std::error_code oIgnored;
    const auto oFolder = std::filesystem::path(sTarget).parent_path();
    if (!oFolder.empty()) std::filesystem::create_directories(oFolder, oIgnored);
    return std::make_unique<FileLock>(sTarget + ".lock");
  }

  RegistryDocument Merged(const std::string& sBytes) const {
    RegistryDocument oMerged(sBytes);
    for (const Change& oChange : oChanges) oChange.PutInto(oMerged);
    return oMerged;
  }

  void MergeIntoFile() {
    const std::string sOld = ReadFile();
    RegistryDocument oMerged = Merged(sOld);
    const std::string sNew = oMerged.Bytes();
    if (sNew != sOld) AtomicFile::Replace(sPath, sNew, oFiles);
    oDocument = std::move(oMerged);
  }

  void LockAndRead() {
    if (sPath.empty()) return;
    if (!pLock) pLock = Lock();
    oDocument = Merged(ReadFile());
  }

  const RegistryValue* Find(TextView sKey, TextView sName, std::uint32_t lType) const {
    const RegistryValue* poValue = oDocument.Find(sKey, sName);
    return poValue != nullptr && poValue->lType == lType ? poValue : nullptr;
  }
};

RegistryStore::RegistryStore(std::string sPath, IFileOps* poFiles)
    : mpImpl(new Impl{std::move(sPath),
                      poFiles != nullptr ? *poFiles : SystemFileOps(),
                      RegistryDocument(),
                      {},
                      {},
                      0,
                      nullptr}) {
  if (!Path().empty()) mpImpl->oDocument = RegistryDocument(mpImpl->ReadFile());
}

RegistryStore::~RegistryStore() = default;

const std::string& RegistryStore::Path() const {
  return mpImpl->sPath;
}

const std::vector<RegistryStore::Problem>& RegistryStore::Problems() const {
  return mpImpl->oDocument.Problems();
}

bool RegistryStore::KeyExists(TextView sKey) const {
  const auto& asCreated = mpImpl->asCreated;
  return mpImpl->oDocument.HasKey(sKey) ||
         std::any_of(asCreated.begin(), asCreated.end(), [&](const Text& sCreated) {
           return EqualNoCase(sCreated, PlainRegistryKey(sKey));
         });
}

void RegistryStore::CreateKey(TextView sKey) {
  RegistryDocument::CheckKey(sKey);
  if (!KeyExists(sKey)) mpImpl->asCreated.emplace_back(PlainRegistryKey(sKey));
}

std::optional<std::uint32_t> RegistryStore::ValueType(TextView sKey, TextView sName) const {
  const RegistryValue* poValue = mpImpl->oDocument.Find(sKey, sName);
  return poValue != nullptr ? std::optional(poValue->lType) : std::nullopt;
}

std::optional<std::int32_t> RegistryStore::GetLong(TextView sKey, TextView sName) const {
  const RegistryValue* poValue = mpImpl->Find(sKey, sName, RegistryValue::lLong);
  return poValue != nullptr ? std::optional(poValue->lNumber) : std::nullopt;
}

std::optional<Text> RegistryStore::GetString(TextView sKey, TextView sName) const {
  const RegistryValue* poValue = mpImpl->Find(sKey, sName, RegistryValue::lString);
  return poValue != nullptr ? std::optional(poValue->sText) : std::nullopt;
}

void RegistryStore::SetLong(TextView sKey, TextView sName, std::int32_t lValue) {
  mpImpl->Put({Text(sKey), Text(sName), RegistryValue{RegistryValue::lLong, {}, lValue}});
}

void RegistryStore::SetString(TextView sKey, TextView sName, TextView sValue) {
  mpImpl->Put({Text(sKey), Text(sName), RegistryValue{RegistryValue::lString, Text(sValue), 0}});
}

bool RegistryStore::DeleteValue(TextView sKey, TextView sName) {
  if (!ValueType(sKey, sName)) return false;
  mpImpl->Put({Text(sKey), Text(sName), std::nullopt});
  return true;
}

std::vector<Text> RegistryStore::ValueNames(TextView sKey) const {
  return mpImpl->oDocument.Names(sKey);
}

RegistryStore::Batch::Batch(RegistryStore& oStore) : moStore(oStore) {
  ++oStore.mpImpl->lBatches;
}

RegistryStore::Batch::~Batch() {
  try {
    Commit();
  } catch (const Failure& oFailure) {
    goError->CheckResult(u"Save of the settings: " + oFailure.Description(), oFailure.Number());
  }
}

void RegistryStore::Batch::Commit() {
  if (!mbOpen) return;
  mbOpen = false;
  if (--moStore.mpImpl->lBatches == 0) moStore.mpImpl->Save();
}

void RegistryStore::Batch::LockAndRead() {
  moStore.mpImpl->LockAndRead();
}

RegistryStore* goRegistry = nullptr;

RegistryStore& CurrentRegistry() {
  static RegistryStore oInMemory;
  if (goRegistry == nullptr) goRegistry = &oInMemory;
  return *goRegistry;
}

std::string DefaultSettingsPath() {
  const char* pcConfig = std::getenv("XDG_CONFIG_HOME");
  const char* pcHome = std::getenv("HOME");
  const std::string sName = "/tarvane-quillon/settings.reg";
  if (pcConfig != nullptr && *pcConfig == '/') return pcConfig + sName;
  return pcHome != nullptr && *pcHome != '\0' ? pcHome + ("/.config" + sName) : std::string();
}
