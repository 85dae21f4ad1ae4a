// The open group as a tree: projects, below each its components by name, with a mark on those that
// have unsaved changes.
#pragma once

#include <string>
#include <vector>

#include "ImageList.h"
#include "TreeView.h"
#include "VBProject.h"

class GroupTree {
 public:
  GroupTree(Forms::TreeView& oTree, Forms::ImageList& oImages) : moTree(oTree), moImages(oImages) {}
  /// Fills the image list; for design time.
  void DesignImages();
  /// Builds the tree anew; nothing is selected then. The projects outlive it, or the next Fill.
  void Fill(VBProjects& oProjects);
  /// Marks the components of these files, and takes the mark off the others.
  void Mark(const std::vector<std::string>& asChangedPath);
  /// Null for the node of a project.
  VBComponent* ComponentOf(const Forms::Node& oNode) const;
  /// The node of the component of that file, or of the first of several; null when there is none.
  Forms::Node* NodeOf(const std::string& sPath) const;
  /// The path among asPath that is this component's file, spelt as there; empty when none is.
  std::string PathAmong(const std::vector<std::string>& asPath, const Forms::Node& oNode) const;
  /// Names and places of all components: tells whether a filled tree still shows the group.
  std::size_t ComponentCount() const { return moEntries.size(); }

 private:
  struct Entry {
    VBComponent* poComponent;
    Forms::Node* poNode;
    std::string sIdentity;  ///< its file with links resolved
    Text sImage;            ///< without the mark
  };
  void AddProject(VBProject& oProject);
  void AddComponent(Forms::Node& oParent, VBComponent& oComponent);
  const Entry* EntryOf(const Forms::Node& oNode) const;

  Forms::TreeView& moTree;
  Forms::ImageList& moImages;
  std::vector<Entry> moEntries;
};
