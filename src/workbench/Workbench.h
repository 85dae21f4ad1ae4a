// What the main window is made of, one subject a class; each knows the others through here. The
// members stand so that they end from the last to the first: what refers to the model and to the
// template ends before the session, which owns both, and all of them before the form.
#pragma once

#include "BrowserTree.h"
#include "BulkCommands.h"
#include "ObjectLists.h"
#include "SelectionSheet.h"
#include "TemplateSession.h"
#include "WindowEvents.h"
#include "WindowLayout.h"
#include "WindowPanes.h"

namespace Paper {
class Printers;
}

struct Workbench {
  Workbench(MainForm& window, Paper::Printers& devices) : form(window), printers(devices) {}

  MainForm& form;
  Paper::Printers& printers;  ///< of the program; they outlive the window
  WindowKeys keys;
  WindowEvents events{form};
  TemplateSession session{*this};
  WindowLayout layout{*this};
  WindowPanes panes{*this};
  ObjectLists lists{*this};
  SelectionSheet sheet{*this};
  BrowserTree tree{*this};
  BulkCommands bulk{*this};

  /// A template is open, and the group has projects.
  bool HasModel() const { return session.HasTemplate() && session.HasProjects(); }
  /// There is something that a command in bulk can work on.
  bool HasScope() const { return lists.ListInFront() && session.HasProjects(); }
  /// Enables titles of menus, buttons and the tree.
  void ManageControls();
  /// False also when they can't be asked.
  bool HasPrinter();
};
