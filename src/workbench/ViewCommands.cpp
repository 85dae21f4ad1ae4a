// The View menu: the tree's two views, the panes, and the coming text of procedures.
#include "MainCommands.h"
#include "NodeKey.h"
#include "Workbench.h"

CommandMenu ViewCommands(Workbench& window) {
  const auto ready = [&] { return window.session.HasTemplate(); };
  const auto shows = [&](TextView tab) {
    return [&window, tab] { return window.panes.ShowsTab(tab); };
  };
  const auto select = [&](TextView tab) {
    return [&window, tab] {
      window.layout.ShowTabs();
      window.panes.SelectTab(tab);
    };
  };
  return {u"mnuView",
          u"&View",
          {{.name = u"mnuViewProjectTree",
            .caption = u"Project &Folders",
            .takesTime = true,
            .does = [&] { window.tree.SwitchView(NodeKey::Tree); },
            .enabled = ready,
            .checked = [&] { return window.tree.ShowsView(NodeKey::Tree); },
            .button = {{u"Tree", u"Project Folders", false,
                        [&, ready] { return ready() && window.tree.ShowsView(NodeKey::List); }}}},
           {.name = u"mnuViewProjectList",
            .caption = u"&No Project Folders",
            .takesTime = true,
            .does = [&] { window.tree.SwitchView(NodeKey::List); },
            .enabled = ready,
            .checked = [&] { return window.tree.ShowsView(NodeKey::List); },
            .button = {{u"List", u"No Project Folders", true,
                        [&, ready] { return ready() && window.tree.ShowsView(NodeKey::Tree); }}}},
           Separator(u"mnlViewLine1"),
           {.name = u"mnuViewProperties",
            .caption = u"&Properties",
            .key = Ctrl(u'1'),
            .takesTime = true,
            .does = select(u"Properties"),
            .enabled = ready,
            .checked = shows(u"Properties")},
           {.name = u"mnuViewCode",
            .caption = u"&Code",
            .key = Ctrl(u'2'),
            .does = select(u"Code"),
            .enabled = ready,
            .checked = shows(u"Code")},
           {.name = u"mnuViewResults",
            .caption = u"&Results",
            .key = Ctrl(u'3'),
            .takesTime = true,
            .does = select(u"Results"),
            .checked = shows(u"Results")},
           Separator(u"mnlViewLine2"),
           {.name = u"mnuViewErrors",
            .caption = u"VBIDE &Errors",
            .does =
                [&] {
                  window.panes.ShowsErrors() ? window.panes.HideErrors()
                                             : window.panes.ShowErrors();
                },
            .checked = [&] { return window.panes.ShowsErrors(); }},
           Separator(u"mnlViewLine3"),
           {.name = u"mnuEditClearResults",
            .caption = u"C&lear Results",
            .does = [&] { window.form.srlResults.Clear(); }},
           {.name = u"mnuEditClearErrors",
            .caption = u"Cl&ear VBIDE Errors",
            .does = [&] { window.form.srlErrors.Clear(); },
            .enabled = [&] { return window.panes.ShowsErrors(); }},
           Separator(u"mnlViewLine4"),
           {.name = u"mnuViewPending",
            .caption = u"Pending Co&de",
            .does = [&] { window.sheet.TurnPendingCode(); },
            .enabled = ready,
            .checked = [&] { return window.sheet.ShowsPendingCode(); }}},
          ready};
}
