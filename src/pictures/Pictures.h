// The pictures of the windows: icons of the tree, the lists, the toolbar and the dialogs, and the
// program's own. A picture is named by its key:
//   "Standard EXE", "Closed Folder", "Form Module" ...  kinds of projects, folders, components
//   "Declarations", "Property", "Method", "Event"       kinds of procedures
//   a kind of component or procedure and "Dirty"        the same with a mark for pending changes
//   "Open", "Print", "Tree", "List", "Wand", "Star", "Help"   the toolbar
//   one of these and "X"                                the same for a disabled button
//   "FApplyPending", "FCopySuggest" ...                 each scope dialog, by its name
//   "Quillon"                                           the program, its menu entry and button
// The pictures are drawn when the program is built (pictures/, cmake/DrawPictures.cmake) and are
// part of it: there are no files to find at run time.
#pragma once

#include <span>
#include <string_view>
#include <vector>

/// A square PNG with transparency, of the least size that isn't below nPixels (16, 24 and 32 are
/// there for every key, 48, 64 and 128 for "Quillon"); beyond the largest size, the largest one.
/// sKey counts letter by letter. The bytes live as long as the program; none for an unknown key.
std::span<const unsigned char> FindPicture(std::u16string_view sKey, int nPixels);

/// Each key once; element 0 is a key like any other.
std::vector<std::u16string_view> PictureKeys();
