// Keys of the nodes of the project tree. A key is a row of fields, each ending in a dot, and is
// read by the view that made it:
//
//   project    VBProject.3.        in both views
//   folder     VBProject.3.2.      project, folder number; in the view with folders only
//   component  VBProject.3.2.17.   project, folder, component, in the view with folders
//              VBProject.3.17.     project, component, in the view without
//
// So one component has one key in each view, and the tree is built anew when the view changes.
#pragma once

#include <cstdint>

#include "Handle.h"
#include "Text.h"

namespace NodeKey {

/// The two views, as the tree's Tag names them.
inline constexpr TextView Tree = u"Tree", List = u"List";

/// What a key tells; 0 or none for what it doesn't have.
struct Fields {
  ProjectHandle hProject{};
  std::int32_t lFolder = 0;
  ComponentHandle hComponent{};
  bool operator==(const Fields&) const = default;
};

Text Project(ProjectHandle hProject);
Text Folder(ProjectHandle hProject, std::int32_t lFolder);
/// lFolder isn't used in the view without folders.
Text Component(TextView sView, ProjectHandle hProject, std::int32_t lFolder,
               ComponentHandle hComponent);

/// Never fails: a field that is missing or no number counts as 0.
Fields Read(TextView sKey, TextView sView);

/// The number that the text begins with, 0 when there is none or it is too large for a handle.
/// Example: `17` gives 17, `x` gives 0.
std::int32_t Number(TextView sText);

}  // namespace NodeKey
