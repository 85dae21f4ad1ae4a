#include "BrowserTree.h"

#include "Icons.h"
#include "MQuillon.h"
#include "MRules.h"
#include "NodeKey.h"
#include "Workbench.h"

using namespace Forms;

namespace {

constexpr std::int32_t Folders = 8;

/// Disables the tree while a node is processed, also if that fails. The tree stays disabled when
/// there is no model at the end, because the template was closed meanwhile.
class DisabledTree {
 public:
  DisabledTree(TreeView& shown, const std::shared_ptr<CIDEHandler>& held)
      : tree(shown), model(held) {
    tree.SetEnabled(false);
  }
  ~DisabledTree() { Enable(); }
  DisabledTree(const DisabledTree&) = delete;
  DisabledTree& operator=(const DisabledTree&) = delete;
  void Enable() {
    if (tree.Parent().Loaded() && model) tree.SetEnabled(true);
  }

 private:
  TreeView& tree;
  const std::shared_ptr<CIDEHandler>& model;  ///< the session's own
};

/// An empty text if the IDE fails to answer; the model has reported the failure.
template <class Ask>
Text TextOrEmpty(Ask&& ask) {
  try {
    return ask();
  } catch (const Failure&) {
    return {};
  }
}

}  // namespace

BrowserTree::BrowserTree(Workbench& owner) : window(owner), tree(owner.form.tvwProjects) {}

void BrowserTree::Connect(CIDEHandler& model, std::vector<Connection>& links) {
  links.push_back(model.EnumProjectsProc.Connect(
      [this](ProjectHandle h, TextView title, auto type) { EnumProjectsProc(h, title, type); }));
  links.push_back(model.EnumComponentsProc.Connect(
      [this](ProjectHandle project, ComponentHandle component, TextView name, auto type) {
        EnumComponentsProc(project, component, name, type);
      }));
  links.push_back(
      model.EnumComponentsEOF.Connect([this](ProjectHandle h) { EnumComponentsEOF(h); }));
}

void BrowserTree::Clear() {
  mlLastNode = 0;
  mhProject = {};
  mhComponent = {};
  mbReadOnly = false;
  window.form.lblTree.SetCaption({});
  tree.Nodes().Clear();
}

bool BrowserTree::ShowsView(TextView view) const {
  return tree.Tag() == view;
}

void BrowserTree::EnumProjectsProc(ProjectHandle hProject, TextView sTitle, ProjectType nType) {
  const Text image =
      Icons::Marked(window.form.imlProjects, MQuillon::VBProjectTypeName(nType), false);
  Node& project = tree.Nodes().Add(NodeKey::Project(hProject), sTitle, image);
  if (ShowsView(NodeKey::List)) return project.SetSorted(true);
  for (std::int32_t i = 1; i <= Folders; ++i) {
    Node& folder =
        tree.Nodes().Add(project, NodeKey::Folder(hProject, i),
                         MQuillon::asFolderName[static_cast<std::size_t>(i)], Icons::ClosedFolder);
    folder.SetExpandedImage(Icons::OpenFolder);
    folder.SetSorted(true);
  }
}

void BrowserTree::EnumComponentsProc(ProjectHandle hProject, ComponentHandle hComponent,
                                     TextView sName, ComponentType nComponentType) {
  CIDEHandler& model = *window.session.Model();
  const std::int32_t folder = model.Component(hComponent).lFolderType;
  // A type that belongs to no folder stands below the project itself in both views.
  const bool inFolder = ShowsView(NodeKey::Tree) && folder > 0;
  Node& above =
      tree.Nodes().Item(inFolder ? NodeKey::Folder(hProject, folder) : NodeKey::Project(hProject));
  // With its mark: the tree is also rebuilt when the view changes, while changes are pending.
  const Text image =
      Icons::Marked(window.form.imlProjects, MQuillon::VBComponentTypeName(nComponentType),
                    model.ComponentIsDirty(hComponent));
  const Text key = NodeKey::Component(tree.Tag(), hProject, folder, hComponent);
  tree.Nodes().Add(above, key, sName, image).SetTag(hComponent.Number());
}

void BrowserTree::EnumComponentsEOF(ProjectHandle hProject) {
  for (std::int32_t i = 1; i <= Folders && ShowsView(NodeKey::Tree); ++i) {
    Node& folder = tree.Nodes().Item(NodeKey::Folder(hProject, i));
    if (folder.Children().empty()) tree.Nodes().Remove(folder);
  }
  tree.Nodes().Item(NodeKey::Project(hProject)).SetExpanded(true);
}

void BrowserTree::NodeClick() {
  window.events.Busy(u"tvwProjects_NodeClick", [&] {
    Node* node = tree.SelectedItem();
    if (node && node->Index() != mlLastNode) ProcessNode(*node);
  });
}

void BrowserTree::ProcessNode(Node& node) {
  const std::int32_t index = node.Index();
  ++nodesShown;
  DisabledTree disabled(tree, window.session.Model());
  const NodeKey::Fields fields = NodeKey::Read(node.Key(), tree.Tag());
  mhProject = fields.hProject;
  mhComponent = fields.hComponent;
  // Set ahead of filling the list: filling handles waiting events, and a command among them must
  // work on the new list.
  window.lists.SetInFront(mhComponent ? ObjectLists::Kind::Procs : ObjectLists::Kind::Mods);
  mbReadOnly = mhComponent && window.session.Model()->ComponentReadOnly(mhComponent) &&
               MRules::oRules.bSkipReadOnly;
  window.sheet.ClearSheet();
  const Text name = node.Text();
  if (!(mhComponent ? ShowComponent(name) : ShowModules(name, fields.lFolder))) return;
  disabled.Enable();
  if (tree.Usable()) tree.SetFocus();
  mlLastNode = index;
}

template <class Fill>
bool BrowserTree::Filled(Fill&& fill) {
  // Filling handles waiting events; one of them may close the template or select another node.
  const auto model = window.session.Model();
  const auto keptTemplate = window.session.Template();
  const auto shown = nodesShown;
  fill(*model);
  return window.session.Model() == model && nodesShown == shown;
}

bool BrowserTree::ShowComponent(TextView name) {
  if (!Filled([h = mhComponent](CIDEHandler& model) {
        model.LoadComponent(h);
        model.EnumProcedures(h);
      }))
    return false;
  CIDEHandler& model = *window.session.Model();
  window.lists.ShowObjectCount();
  const Text file = TextOrEmpty([&] { return model.ComponentFileName(mhComponent); });
  Panel& path = window.form.StatusBar1.Panels(2);
  path.SetTag(file);
  path.SetText(file);
  window.form.lblList.SetCaption(u"Procedures of " + model.ComponentFolderName(mhComponent) +
                                 u" '" + Text(name) + u"'");
  window.sheet.ProcessProcListSelection();
  return true;
}

bool BrowserTree::ShowModules(TextView name, std::int32_t folder) {
  if (!Filled([&](CIDEHandler& model) { model.EnumComponentsEx(mhProject, folder); })) return false;
  CIDEHandler& model = *window.session.Model();
  window.lists.ShowObjectCount();
  window.panes.ShowPath(TextOrEmpty([&] { return model.ProjectFileName(mhProject); }));
  const Text project =
      u"Project '" + TextOrEmpty([&] { return model.ProjectName(mhProject); }) + u"'";
  window.form.lblList.SetCaption((folder > 0 ? Text(name) : u"Modules") + u" of " + project);
  return true;
}

void BrowserTree::ChooseFirst(TextView name) {
  Nodes& nodes = tree.Nodes();
  Node* first = nullptr;
  for (std::int32_t i = 1; i <= nodes.Count() && !first && !name.empty(); ++i) {
    if (nodes.Item(i).Text() == name) first = &nodes.Item(i);
  }
  if (!first && nodes.Count() > 0) first = &nodes.Item(1);
  if (!first) return;
  first->SetSelected(true);
  NodeClick();
}

void BrowserTree::SwitchView(TextView view) {
  tree.SetEnabled(false);
  ProjectHandle project;
  ComponentHandle component;
  SelectedNode(project, component);
  tree.SetTag(view);
  tree.Nodes().Clear();
  OnEvent(u"SwitchView", [&] { window.session.Model()->EnumProjects(); });
  SelectNode(project, component);
  if (window.form.Loaded()) window.ManageControls();
}

void BrowserTree::SelectedNode(ProjectHandle& ihProject, ComponentHandle& ihComponent) const {
  const Node* node = tree.SelectedItem();
  const NodeKey::Fields fields = node ? NodeKey::Read(node->Key(), tree.Tag()) : NodeKey::Fields();
  ihProject = fields.hProject;
  ihComponent = fields.hComponent;
}

void BrowserTree::SelectNode(ProjectHandle ihProject, ComponentHandle ihComponent) {
  if (!ihProject && !ihComponent) return;
  Nodes& nodes = tree.Nodes();
  for (std::int32_t i = 1; i <= nodes.Count(); ++i) {
    Node& node = nodes.Item(i);
    const NodeKey::Fields fields = NodeKey::Read(node.Key(), tree.Tag());
    const bool matches = ihComponent ? fields.hComponent == ihComponent
                                     : fields == NodeKey::Fields{ihProject, 0, {}};
    if (!matches) continue;
    node.SetSelected(true);
    return NodeClick();
  }
}

void BrowserTree::RefreshProjectTree() {
  CIDEHandler& model = *window.session.Model();
  for (std::int32_t i = 1; i <= tree.Nodes().Count(); ++i) {
    Node& node = tree.Nodes().Item(i);
    const ComponentHandle component(node.Tag());
    if (!component) continue;
    const auto type =
        MQuillon::FromNumber<ComponentType>(NodeKey::Number(model.ComponentType(component)));
    node.SetImage(Icons::Marked(window.form.imlProjects, MQuillon::VBComponentTypeName(type),
                                model.ComponentIsDirty(component)));
  }
}
