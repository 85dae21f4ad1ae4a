// The main window: a browser over the open projects, the property sheet of what is selected, and
// every command. The add-in's connection makes one and shows it modally above the IDE:
//
//   FMain oMain(oToolkit, oPrinters);
//   oMain.Display(oVBE, oConnect);  // returns when the user has left the window
//
// It holds its parts together: MainForm has the controls, Workbench the subjects that work on them,
// the files ending in Commands the menus. In here is what the window itself does, and which event
// goes where. Everything refers to the model of the group by handles only.
#pragma once

#include "Workbench.h"

class Connect;

class FMain : public MainForm {
 public:
  /// The printers outlive the window.
  FMain(Forms::Toolkit& oToolkit, Paper::Printers& oPrinters);
  ~FMain() override;

  /// Shows the window modally. The first call, and the first after the window was closed, takes
  /// the arguments, which outlive the window, and opens a template once the window is there.
  void Display(VBE& VBInst, Connect& oConnect);
  /// The caller of Display; null before.
  Connect* poConnect() const { return moConnect; }

  /// Counts operations that may run inside one another: the outermost sets the pointer of the
  /// screen, and its end gives the normal one back. Blocks nothing.
  void EventPush(std::int32_t MousePointer) { window.events.Push(MousePointer); }
  void EventPop() { window.events.Pop(); }
  /// Ends all operations that a failure left open.
  void EventFlush() { window.events.Flush(); }
  /// True inside at least two operations.
  void CascadedEvent(bool& bCascaded) const { bCascaded = window.events.Cascaded(); }

  /// What the tree's selected node stands for; none and none without one, no component for a
  /// project or a folder.
  void SelectedNode(ProjectHandle& ihProject, ComponentHandle& ihComponent) const {
    window.tree.SelectedNode(ihProject, ihComponent);
  }
  /// Selects the node of a component, or of a project, and shows what is in it.
  void SelectNode(ProjectHandle ihProject, ComponentHandle ihComponent) {
    window.tree.SelectNode(ihProject, ihComponent);
  }

  /// null while no template is open, or one with errors is.
  CIDEHandler* Model() const { return window.session.Model().get(); }

 private:
  void ConnectWindow();
  void ConnectList(Forms::ListView& oList, TextView sSelect, void (*Process)(Workbench&));
  void ConnectBrowser();
  void ConnectPanes();
  void Form_Load();
  void Form_QueryUnload(bool& bCancel, Forms::UnloadMode eMode);
  void Form_Unload();
  void tmrStartUp_Timer();
  void ButtonClick(std::int32_t Index);

  Workbench window;
  Connect* moConnect = nullptr;
};
