// The project tree: built from the model's events, in two views; a click on a node decides what the
// lists show and what commands work on.
#include "FMain.h"
#include "Icons.h"
#include "MQuillon.h"
#include "MRules.h"
#include "NodeKey.h"

using namespace Forms;

namespace {

constexpr std::int32_t Folders = 8;

/// Disables the tree while a node is processed, also if that fails. The tree stays disabled when
/// there is no model at the end, because the template was closed meanwhile.
class DisabledTree {
 public:
  DisabledTree(TreeView& oTree, const std::shared_ptr<CIDEHandler>& pModel)
      : moTree(oTree), mpModel(pModel) {
    moTree.SetEnabled(false);
  }
  ~DisabledTree() { Enable(); }
  DisabledTree(const DisabledTree&) = delete;
  DisabledTree& operator=(const DisabledTree&) = delete;
  void Enable() {
    if (moTree.Parent().Loaded() && mpModel) moTree.SetEnabled(true);
  }

 private:
  TreeView& moTree;
  const std::shared_ptr<CIDEHandler>& mpModel;  ///< the window's own
};

/// An empty text if the IDE fails to answer; the model has reported the failure.
template <class Ask>
Text TextOrEmpty(Ask&& oAsk) {
  try {
    return oAsk();
  } catch (const Failure&) {
    return {};
  }
}

}  // namespace

void FMain::EnumProjectsProc(ProjectHandle hProject, TextView sTitle, ProjectType nType) {
  Nodes& oNodes = tvwProjects.Nodes();
  const Text sImage = Icons::Marked(imlProjects, MQuillon::VBProjectTypeName(nType), false);
  Node& oProject = oNodes.Add(NodeKey::Project(hProject), sTitle, sImage);
  if (tvwProjects.Tag() == NodeKey::List) return oProject.SetSorted(true);
  for (std::int32_t i = 1; i <= Folders; ++i) {
    Node& oFolder =
        oNodes.Add(oProject, NodeKey::Folder(hProject, i),
                   MQuillon::asFolderName[static_cast<std::size_t>(i)], Icons::ClosedFolder);
    oFolder.SetExpandedImage(Icons::OpenFolder);
    oFolder.SetSorted(true);
  }
}

void FMain::EnumComponentsProc(ProjectHandle hProject, ComponentHandle hComponent, TextView sName,
                               ComponentType nComponentType) {
  Nodes& oNodes = tvwProjects.Nodes();
  const std::int32_t lFolder = oIDEHandler->Component(hComponent).lFolderType;
  // A type that belongs to no folder stands below the project itself in both views.
  const bool bFolder = tvwProjects.Tag() == NodeKey::Tree && lFolder > 0;
  Node& oAbove =
      oNodes.Item(bFolder ? NodeKey::Folder(hProject, lFolder) : NodeKey::Project(hProject));
  // With its mark: the tree is also rebuilt when the view changes, while changes are pending.
  const Text sImage = Icons::Marked(imlProjects, MQuillon::VBComponentTypeName(nComponentType),
                                    oIDEHandler->ComponentIsDirty(hComponent));
  oNodes
      .Add(oAbove, NodeKey::Component(tvwProjects.Tag(), hProject, lFolder, hComponent), sName,
           sImage)
      .SetTag(hComponent.Number());
}

void FMain::EnumComponentsEOF(ProjectHandle hProject) {
  Nodes& oNodes = tvwProjects.Nodes();
  for (std::int32_t i = 1; i <= Folders && tvwProjects.Tag() == NodeKey::Tree; ++i) {
    Node& oFolder = oNodes.Item(NodeKey::Folder(hProject, i));
    if (oFolder.Children().empty()) oNodes.Remove(oFolder);
  }
  oNodes.Item(NodeKey::Project(hProject)).SetExpanded(true);
}

void FMain::tvwProjects_NodeClick() {
  Busy(u"tvwProjects_NodeClick", [&] {
    Node* poNode = tvwProjects.SelectedItem();
    if (poNode && poNode->Index() != mlLastNode) ProcessNode(*poNode);
  });
}

void FMain::ProcessNode(Node& oNode) {
  const std::int32_t lIndex = oNode.Index();
  ++mnNodesShown;
  DisabledTree oDisabled(tvwProjects, oIDEHandler);
  const NodeKey::Fields oFields = NodeKey::Read(oNode.Key(), tvwProjects.Tag());
  mhProject = oFields.hProject;
  mhComponent = oFields.hComponent;
  // Set ahead of filling the list: filling handles waiting events, and a command among them must
  // work on the new list.
  msListType = mhComponent ? u"Procs" : u"Mods";
  mbReadOnly =
      mhComponent && oIDEHandler->ComponentReadOnly(mhComponent) && MRules::oRules.bSkipReadOnly;
  ClearSheet();
  const Text sText = oNode.Text();
  if (!(mhComponent ? ShowComponent(sText) : ShowModules(sText, oFields.lFolder))) return;
  oDisabled.Enable();
  if (tvwProjects.Usable()) tvwProjects.SetFocus();
  mlLastNode = lIndex;
}

bool FMain::ShowComponent(TextView sNode) {
  // Filling handles waiting events; one of them may close the template or select another node.
  const auto pModel = oIDEHandler;
  const auto pTemplate = oTemplate;
  const auto shown = mnNodesShown;
  const ComponentHandle hComponent = mhComponent;
  pModel->LoadComponent(hComponent);
  pModel->EnumProcedures(hComponent);
  if (oIDEHandler != pModel || mnNodesShown != shown) return false;
  ShowObjectCount(lvwProcs);
  const Text sFile = TextOrEmpty([&] { return pModel->ComponentFileName(mhComponent); });
  StatusBar1.Panels(2).SetTag(sFile);
  StatusBar1.Panels(2).SetText(sFile);
  lblList.SetCaption(u"Procedures of " + pModel->ComponentFolderName(mhComponent) + u" '" +
                     Text(sNode) + u"'");
  ProcessProcListSelection();
  return true;
}

bool FMain::ShowModules(TextView sNode, std::int32_t lFolder) {
  const auto pModel = oIDEHandler;
  const auto pTemplate = oTemplate;
  const auto shown = mnNodesShown;
  pModel->EnumComponentsEx(mhProject, lFolder);
  if (oIDEHandler != pModel || mnNodesShown != shown) return false;
  ShowObjectCount(lvwMods);
  ShowPath(TextOrEmpty([&] { return pModel->ProjectFileName(mhProject); }));
  const Text sProject =
      u"Project '" + TextOrEmpty([&] { return pModel->ProjectName(mhProject); }) + u"'";
  lblList.SetCaption((lFolder > 0 ? Text(sNode) : u"Modules") + u" of " + sProject);
  return true;
}

void FMain::SwitchView(TextView sProcedure, TextView sView) {
  Busy(sProcedure, [&] {
    tvwProjects.SetEnabled(false);
    ProjectHandle hProject;
    ComponentHandle hComponent;
    SelectedNode(hProject, hComponent);
    tvwProjects.SetTag(sView);
    tvwProjects.Nodes().Clear();
    OnEvent(u"SwitchView", [&] { oIDEHandler->EnumProjects(); });
    SelectNode(hProject, hComponent);
    if (Loaded()) ManageControls();
  });
}

void FMain::SelectedNode(ProjectHandle& ihProject, ComponentHandle& ihComponent) const {
  const Node* poNode = tvwProjects.SelectedItem();
  const NodeKey::Fields oFields =
      poNode ? NodeKey::Read(poNode->Key(), tvwProjects.Tag()) : NodeKey::Fields();
  ihProject = oFields.hProject;
  ihComponent = oFields.hComponent;
}

void FMain::SelectNode(ProjectHandle ihProject, ComponentHandle ihComponent) {
  if (!ihProject && !ihComponent) return;
  Nodes& oNodes = tvwProjects.Nodes();
  for (std::int32_t i = 1; i <= oNodes.Count(); ++i) {
    Node& oNode = oNodes.Item(i);
    const NodeKey::Fields oFields = NodeKey::Read(oNode.Key(), tvwProjects.Tag());
    const bool bMatch = ihComponent ? oFields.hComponent == ihComponent
                                    : oFields == NodeKey::Fields{ihProject, 0, {}};
    if (!bMatch) continue;
    oNode.SetSelected(true);
    return tvwProjects_NodeClick();
  }
}

void FMain::RefreshProjectTree() {
  Nodes& oNodes = tvwProjects.Nodes();
  for (std::int32_t i = 1; i <= oNodes.Count(); ++i) {
    Node& oNode = oNodes.Item(i);
    const ComponentHandle hComponent(oNode.Tag());
    if (!hComponent) continue;
    const auto nType = MQuillon::FromNumber<ComponentType>(
        NodeKey::Number(oIDEHandler->ComponentType(hComponent)));
    oNode.SetImage(Icons::Marked(imlProjects, MQuillon::VBComponentTypeName(nType),
                                 oIDEHandler->ComponentIsDirty(hComponent)));
  }
}
