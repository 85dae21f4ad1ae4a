#include "DocumentStore.h"

#include <cerrno>
#include <set>

#include "AtomicFile.h"
#include "DocumentSave.h"
#include "FileFailure.h"
#include "PathText.h"
#include "SourceFile.h"

namespace {

[[noreturn]] void Refuse(std::int32_t lNumber, const std::string& sPath, TextView sWhy) {
  throw Failure(lNumber, Text(sWhy) + u" Nothing was written: " + TextOfPath(sPath), u"host");
}

}  // namespace

SourceDocument& StoredDocument::Get() {
  if (moFailure) throw Failure(*moFailure);
  if (!mpDocument) Read();
  return *mpDocument;
}

void StoredDocument::Read() {
  try {
    mStamp = FileStamp::Of(msPath, *moSettings.poFiles);
    mpDocument = MakeDocument();
  } catch (const Failure& oFailure) {
    moFailure = oFailure;
    throw;
  }
}

std::unique_ptr<SourceDocument> StoredDocument::MakeDocument() const {
  auto pDocument =
      std::make_unique<SourceDocument>(ReadSource(msPath, *moSettings.poFiles), *moSettings.poAnsi,
                                       moSettings.bForcePage, mConstants.ToReadWith());
  // Lines put into such a file would be taken for its header when it is read again.
  if (pDocument->IsHeaderOpen())
    throw Failure(
        321,
        u"The header block of the file is never closed, so its code can't be told from it: " +
            TextOfPath(msPath),
        u"host");
  return pDocument;
}

Text StoredDocument::ReadOnlyReason() const {
  return moSettings.roots ? moSettings.roots->Reason(mRealPath) : Text();
}

WriteRefusal StoredDocument::Refusal() const {
  return moSettings.roots ? moSettings.roots->Refusal(mRealPath) : WriteRefusal::None;
}

bool StoredDocument::IsThere() const {
  IFileOps::Stat state;
  return moSettings.poFiles->GetStat(mRealPath, state) == 0;
}

std::string StoredDocument::PathToWrite() const {
  std::string path = ::RealPath(msPath);
  const Text reason = moSettings.roots ? moSettings.roots->Reason(path) : Text();
  if (!reason.empty()) throw Failure(75, reason, u"host");
  return path;
}

// The file's state tells at once that nothing happened; where it differs or proves nothing the
// bytes decide, since a checkout or a copy back touches files without changing them.
bool StoredDocument::IsOnDisk() const {
  IFileOps::Stat now;
  const int error = moSettings.poFiles->GetStat(msPath, now);
  if (error == ENOENT)
    Refuse(53, msPath,
           u"The file was removed or renamed since it was read. Put it back and retry.");
  if (error == 0 && now.bDirectory)
    Refuse(75, msPath, u"A folder stands where the file was. Move it away and retry.");
  if (error == 0 && mStamp.VouchesFor(now)) return false;
  const std::string bytes = AtomicFile::Read(msPath, *moSettings.poFiles);
  if (bytes == mpDocument->Bytes()) return true;
  if (bytes != mpDocument->SavedBytes())
    Refuse(70, msPath,
           u"The file was changed by another program since it was read. Read the group again.");
  return false;
}

void StoredDocument::MarkSaved(const FileStamp& stamp) {
  mpDocument->MarkSaved();
  mStamp = stamp;
}

StoredDocument::Disk StoredDocument::Refresh() {
  if (!mpDocument) {
    const bool bFailed = moFailure.has_value();
    moFailure.reset();
    if (bFailed) try {
        Read();
      } catch (const Failure&) {
        return Disk::Same;  // as before; it is told where the code is asked for
      }
    return bFailed ? Disk::Reread : Disk::Same;
  }
  const FileStamp stamp = FileStamp::Of(msPath, *moSettings.poFiles);
  if (mStamp.VouchesFor(stamp.State())) return Disk::Same;
  try {
    auto pOnDisk = MakeDocument();
    const std::string sOnDisk = pOnDisk->Bytes();
    const bool bTouched = sOnDisk == mpDocument->SavedBytes();
    if (!bTouched && mpDocument->IsChanged() && sOnDisk != mpDocument->Bytes())
      return Disk::Conflict;
    mStamp = stamp;
    if (bTouched) return Disk::Same;
    mpDocument = std::move(pOnDisk);
    ++mlVersion;
    return Disk::Reread;
  } catch (const Failure&) {
    // What was read stays: it may be all that is left of the file.
    return mpDocument->IsChanged() ? Disk::Conflict : Disk::Same;
  }
}

StoredDocument& DocumentStore::Add(const std::string& sIdentity, const std::string& sPath,
                                   ProjectConstants::Owner owner) {
  auto [it, bNew] = moByIdentity.try_emplace(sIdentity);
  if (bNew) {
    moDocuments.push_back(std::make_unique<StoredDocument>(sPath, sIdentity, moSettings));
    it->second = moDocuments.back().get();
  }
  it->second->AddOwner(std::move(owner));
  return *it->second;
}

std::vector<StoredDocument*> DocumentStore::Changed() const {
  std::vector<StoredDocument*> oChanged;
  for (const auto& pDocument : moDocuments)
    if (pDocument->IsChanged()) oChanged.push_back(pDocument.get());
  return oChanged;
}

std::vector<DocumentStore::Saved> DocumentStore::Save(RunJournal* journal) {
  SweepNewFiles();
  DocumentSave save(*moSettings.poFiles, journal);
  for (StoredDocument* document : Changed()) save.Add(*document);
  return save.Finish();
}

void DocumentStore::SweepNewFiles() {
  std::set<std::string> folders;
  for (const auto& document : moDocuments)
    if (document->Refusal() == WriteRefusal::None)
      folders.insert(FileFailure::FolderOf(document->RealPath()));
  for (const std::string& folder : folders) StagedFile::Sweep(folder, *moSettings.poFiles);
}

const StoredDocument* DocumentStore::Changed(const std::string& sPath) const {
  for (const auto& pDocument : moDocuments)
    if (pDocument->Path() == sPath) return pDocument->IsChanged() ? pDocument.get() : nullptr;
  return nullptr;
}
