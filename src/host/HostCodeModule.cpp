#include "HostCodeModule.h"

#include <algorithm>
#include <utility>

#include "Failure.h"

HostMember::HostMember(HostMembers& oParent, SourceDocument& oDocument, std::int32_t lIndex)
    : moParent(oParent), moDocument(oDocument), mlIndex(lIndex) {
  const SourceDocument::MemberInfo info = oDocument.MemberAt(lIndex);
  mNameAt = static_cast<std::uint32_t>(oParent.mNames.size());
  mNameLength = static_cast<std::uint32_t>(info.sName.size());
  oParent.mNames += info.sName;
  mnType = info.nType;
}

TextView HostMember::KeptName() const {
  return TextView(moParent.mNames).substr(mNameAt, mNameLength);
}

::Members& HostMember::Parent() const {
  return moParent;
}

bool HostMember::IsAt(std::int32_t lIndex) const {
  return moDocument.IsMember(lIndex, KeptName(), mnType);
}

std::int32_t HostMember::FindPlace() const {
  const std::uint32_t lVersion = moDocument.MembersVersion();
  if (mlVersion == lVersion) return mlIndex;
  if (IsAt(mlIndex)) {
    mlVersion = lVersion;
    return mlIndex;
  }
  const std::int32_t lLast = std::max(mlIndex, moDocument.MemberCount());
  // Members move by the few declarations that a rewrite adds or drops, so the search goes outward.
  for (std::int32_t lStep = 0; lStep < lLast; ++lStep) {
    for (const std::int32_t lIndex : {mlIndex + lStep, mlIndex - lStep}) {
      if (IsAt(lIndex)) return mlIndex = lIndex;
    }
  }
  return 0;
}

std::int32_t HostMember::Place() const {
  const std::int32_t lIndex = FindPlace();
  if (lIndex == 0) throw Failure(35);
  return lIndex;
}

Member& HostMembers::Item(std::int32_t lIndex) {
  if (lIndex < 1 || lIndex > Count()) throw Failure(9);
  const auto lPlace = static_cast<std::size_t>(lIndex) - 1;
  if (moItems.size() <= lPlace) moItems.resize(static_cast<std::size_t>(Count()));
  if (moItems[lPlace] && !moItems[lPlace]->IsAt(lIndex)) Rearrange();
  auto& pMember = moItems[lPlace];
  if (!pMember) pMember = std::make_unique<HostMember>(*this, moDocument, lIndex);
  return *pMember;
}

// Puts the members that were handed out where they stand now.
void HostMembers::Rearrange() {
  auto oOld = std::move(moItems);
  moItems.clear();
  moItems.resize(static_cast<std::size_t>(Count()));
  for (auto& pMember : oOld) {
    const std::int32_t lIndex = pMember ? pMember->FindPlace() : 0;
    if (lIndex == 0 || moItems[static_cast<std::size_t>(lIndex) - 1]) {
      if (pMember) moGone.push_back(std::move(pMember));
    } else {
      moItems[static_cast<std::size_t>(lIndex) - 1] = std::move(pMember);
    }
  }
}

std::int32_t HostVBControls::Count() const {
  std::size_t lBlocks = moDocument.Blocks().size();
  return lBlocks == 0 ? 0 : static_cast<std::int32_t>(lBlocks - 1);
}

Text HostVBControls::ItemName(std::int32_t lIndex) const {
  if (lIndex < 1 || lIndex > Count()) throw Failure(9);
  return moDocument.Blocks()[static_cast<std::size_t>(lIndex)].sName;
}
