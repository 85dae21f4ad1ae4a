// The project tree: built from the model's events, in two views. A click on a node decides what the
// lists show and what the commands work on.
#pragma once

#include "CIDEHandler.h"
#include "TreeView.h"

struct Workbench;

class BrowserTree {
 public:
  explicit BrowserTree(Workbench& owner);
  /// Links that fill the tree while the model tells its projects.
  void Connect(CIDEHandler& model, std::vector<Connection>& links);
  void Clear();

  /// What the node that was processed last stands for; no component for a project or a folder.
  ProjectHandle Project() const { return mhProject; }
  ComponentHandle Component() const { return mhComponent; }
  /// Its component is read-only, and the rules pass over such ones.
  bool ReadOnly() const { return mbReadOnly; }

  void NodeClick();
  /// The first node of that text, or the first of all.
  void ChooseFirst(TextView name);
  /// view: one of NodeKey's.
  void SwitchView(TextView view);
  bool ShowsView(TextView view) const;
  void SelectedNode(ProjectHandle& ihProject, ComponentHandle& ihComponent) const;
  void SelectNode(ProjectHandle ihProject, ComponentHandle ihComponent);
  /// Marks the components with pending changes.
  void RefreshProjectTree();

 private:
  void EnumProjectsProc(ProjectHandle hProject, TextView sTitle, ProjectType nType);
  void EnumComponentsProc(ProjectHandle hProject, ComponentHandle hComponent, TextView sName,
                          ComponentType nComponentType);
  void EnumComponentsEOF(ProjectHandle hProject);
  void ProcessNode(Forms::Node& node);
  /// Runs what fills a list. False: the template was closed meanwhile, or another node clicked.
  template <class Fill>
  bool Filled(Fill&& fill);
  bool ShowComponent(TextView name);
  bool ShowModules(TextView name, std::int32_t folder);

  Workbench& window;
  Forms::TreeView& tree;
  ProjectHandle mhProject;
  ComponentHandle mhComponent;
  bool mbReadOnly = false;
  std::int32_t mlLastNode = 0;
  std::uint32_t nodesShown = 0;  ///< so that processing one notices another inside it
};
