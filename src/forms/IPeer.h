// The interface to what draws: an object of this layer tells its peer what changed, and the peer
// reads the new state from the object. The other direction goes through the object's User...
// operations.
#pragma once

#include <cstdint>

namespace Forms {

/// What changed. Styles that are only set at design time have no entry: a peer is made after them.
enum class Property {
  Bounds,  ///< place or size
  Visible,
  Enabled,
  Caption,
  Text,
  Font,
  Colors,
  ToolTipText,
  MousePointer,
  ZOrder,  ///< came to the front of its container
  Value,   ///< check box, option button
  Locked,
  Selection,  ///< caret and selected text; the selected lines, rows, node, tab
  Items,      ///< lines, rows, nodes, tabs, panels
  Expanded,
  Columns,
  SortOrder,
  Scroll,  ///< lIndex is to come into view; with 0 the object's own place
  Images,
  Picture,
  Points,     ///< ends of a line
  Interval,   ///< of a timer, or its Enabled
  Menu,       ///< of a form: any change of its menus
  Focusable,  ///< TabStop, TabIndex
  WindowState,
  Icon,
};

class IPeer {
 public:
  /// A peer may be destroyed inside one of its own native events; it must not touch its object
  /// after that.
  virtual ~IPeer() = default;
  /// lIndex: the row, node, tab, panel or line (counted as the object counts) that alone changed;
  /// 0 for all of it. Many calls come in a row when a list fills: a peer notes them and catches up
  /// once, when the program waits for events, pumps them (DoEvents) or asks for Refresh. Behind
  /// Items with 0, nodes and rows that the peer remembers may be gone.
  virtual void Changed(Property eProperty, std::int32_t lIndex) = 0;
  /// Moves the native focus; the object knows already that it has it.
  virtual void Focus() = 0;
  /// Paints now, without waiting.
  virtual void Refresh() = 0;
};

}  // namespace Forms
