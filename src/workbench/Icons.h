// Which picture stands for what in the tree and the lists. A kind of component or procedure and
// "Dirty" behind it is the same picture with a mark for pending changes.
#pragma once

#include "ImageList.h"

namespace Icons {

inline constexpr TextView Dirty = u"Dirty", ClosedFolder = u"Closed Folder",
                          OpenFolder = u"Open Folder";

/// Puts all of them into the list: kinds of projects, folders, components, procedures.
void Fill(Forms::ImageList& oImages);

/// The picture of a row of the procedure list by its name and shown type, without the mark.
Text OfProcedure(TextView sName, TextView sType);

/// The key with the mark or without it, as bDirty says. A kind that has no marked picture keeps
/// its own; one that has no picture at all gives the empty key, which shows none.
Text Marked(const Forms::ImageList& oImages, TextView sKey, bool bDirty);

}  // namespace Icons
