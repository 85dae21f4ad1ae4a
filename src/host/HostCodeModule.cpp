#include "HostCodeModule.h"

#include "Failure.h"

::Members& HostMember::Parent() const {
  return moParent;
}

Member& HostMembers::Item(std::int32_t lIndex) {
  if (lIndex < 1 || lIndex > Count()) throw Failure(9);
  auto lPlace = static_cast<std::size_t>(lIndex) - 1;
  if (moItems.size() <= lPlace) moItems.resize(static_cast<std::size_t>(Count()));
  auto& pMember = moItems[lPlace];
  if (!pMember) pMember = std::make_unique<HostMember>(*this, moDocument, lIndex);
  return *pMember;
}

std::int32_t HostVBControls::Count() const {
  std::size_t lBlocks = moDocument.Blocks().size();
  return lBlocks == 0 ? 0 : static_cast<std::int32_t>(lBlocks - 1);
}

Text HostVBControls::ItemName(std::int32_t lIndex) const {
  if (lIndex < 1 || lIndex > Count()) throw Failure(9);
  return moDocument.Blocks()[static_cast<std::size_t>(lIndex)].sName;
}
