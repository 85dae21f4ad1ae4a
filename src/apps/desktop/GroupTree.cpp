#include "GroupTree.h"

#include <algorithm>
#include <filesystem>

#include "MQuillon.h"
#include "PathText.h"

namespace {

constexpr std::int32_t lLastProjectType = 3, lLastComponentType = 15;
constexpr TextView sMark = u"Dirty";

/// Kinds of components that can't change have no picture with the mark.
bool HasMarked(ComponentType nType) {
  return nType != ComponentType::ResFile && nType != ComponentType::RelatedDocument;
}

std::string IdentityOf(const std::string& sPath) {
  std::error_code oError;
  const auto oCanonical = std::filesystem::weakly_canonical(sPath, oError);
  return oError ? sPath : oCanonical.generic_string();
}

}  // namespace

void GroupTree::DesignImages() {
  for (std::int32_t n = 0; n <= lLastProjectType; ++n)
    moImages.Add(MQuillon::VBProjectTypeName(MQuillon::FromNumber<ProjectType>(n)));
  for (std::int32_t n = 1; n <= lLastComponentType; ++n) {
    const auto eType = MQuillon::FromNumber<ComponentType>(n);
    const Text sName = MQuillon::VBComponentTypeName(eType);
    if (sName.empty()) continue;
    moImages.Add(sName);
    if (HasMarked(eType)) moImages.Add(sName + Text(sMark));
  }
}

void GroupTree::Fill(VBProjects& oProjects) {
  moEntries.clear();
  moTree.Nodes().Clear();
  for (std::int32_t i = 1; i <= oProjects.Count(); ++i) AddProject(oProjects.Item(i));
}

void GroupTree::AddProject(VBProject& oProject) {
  const Text sImage = MQuillon::VBProjectTypeName(oProject.Type());
  Forms::Node& oNode =
      moTree.Nodes().Add({}, oProject.Name(), moImages.Exists(sImage) ? sImage : Text());
  VBComponents& oComponents = oProject.VBComponents();
  for (std::int32_t i = 1; i <= oComponents.Count(); ++i) AddComponent(oNode, oComponents.Item(i));
  oNode.SetSorted(true);
  oNode.SetExpanded(true);
}

void GroupTree::AddComponent(Forms::Node& oParent, VBComponent& oComponent) {
  const Text sKind = MQuillon::VBComponentTypeName(oComponent.Type());
  const Text sImage = moImages.Exists(sKind) ? sKind : Text();
  Forms::Node& oNode = moTree.Nodes().Add(oParent, {}, oComponent.Name(), sImage);
  moEntries.push_back(
      {&oComponent, &oNode, IdentityOf(PathOfText(oComponent.FileNames(1))), sImage});
  oNode.SetTag(static_cast<std::int32_t>(moEntries.size()));
}

void GroupTree::Mark(const std::vector<std::string>& asChangedPath) {
  std::vector<std::string> asIdentity;
  for (const std::string& sPath : asChangedPath) asIdentity.push_back(IdentityOf(sPath));
  std::sort(asIdentity.begin(), asIdentity.end());
  for (const Entry& oEntry : moEntries) {
    const bool bChanged =
        std::binary_search(asIdentity.begin(), asIdentity.end(), oEntry.sIdentity);
    const Text sMarked = oEntry.sImage + Text(sMark);
    oEntry.poNode->SetImage(bChanged && moImages.Exists(sMarked) ? sMarked : oEntry.sImage);
  }
}

const GroupTree::Entry* GroupTree::EntryOf(const Forms::Node& oNode) const {
  const auto lEntry = static_cast<std::size_t>(oNode.Tag());
  return lEntry >= 1 && lEntry <= moEntries.size() ? &moEntries[lEntry - 1] : nullptr;
}

VBComponent* GroupTree::ComponentOf(const Forms::Node& oNode) const {
  const Entry* poEntry = EntryOf(oNode);
  return poEntry ? poEntry->poComponent : nullptr;
}

Forms::Node* GroupTree::NodeOf(const std::string& sPath) const {
  const std::string sIdentity = IdentityOf(sPath);
  const auto it = std::find_if(moEntries.begin(), moEntries.end(),
                               [&](const Entry& oEntry) { return oEntry.sIdentity == sIdentity; });
  return it == moEntries.end() ? nullptr : it->poNode;
}

std::string GroupTree::PathAmong(const std::vector<std::string>& asPath,
                                 const Forms::Node& oNode) const {
  const Entry* poEntry = EntryOf(oNode);
  for (const std::string& sPath : asPath)
    if (poEntry && IdentityOf(sPath) == poEntry->sIdentity) return sPath;
  return {};
}
