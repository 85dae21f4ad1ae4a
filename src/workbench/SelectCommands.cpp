// The Select menu: which rows of the list in front are selected.
#include "FSelectCustom.h"
#include "MainCommands.h"
#include "Workbench.h"

using namespace Forms;

CommandMenu SelectCommands(Workbench& window) {
  const auto hasRows = [&] { return window.lists.HasRows(); };
  const auto select = [&](bool (*choice)(const ListItem&)) {
    return [&window, choice] { window.lists.SelectRows(choice); };
  };
  const auto selectCustom = [&] {
    FSelectCustom(window.form.App()).Display(window.form.lvwProcs);
    window.form.Refresh();
    window.sheet.ProcessProcListSelection();
  };
  return {u"mnuSelect",
          u"&Select",
          {{.name = u"mnuSelectAll",
            .caption = u"Select &All",
            .key = Ctrl(u'A'),
            .takesTime = true,
            .does = select([](const ListItem&) { return true; }),
            .enabled = hasRows},
           {.name = u"mnuSelectNone",
            .caption = u"Select &None",
            .key = Ctrl(u'N'),
            .takesTime = true,
            .does = select([](const ListItem&) { return false; }),
            .enabled = hasRows},
           {.name = u"mnuSelectInvert",
            .caption = u"&Invert Selection",
            .key = Ctrl(u'I'),
            .takesTime = true,
            .does = select([](const ListItem& row) { return !row.Selected(); }),
            .enabled = hasRows},
           Separator(u"mnlSelectLine1"),
           {.name = u"mnuSelectCustom",
            .caption = u"&Custom Select...",
            .does = selectCustom,
            .enabled = [&] { return window.lists.HasRows() && window.lists.ShowsProcs(); }}},
          [&] { return window.session.HasTemplate(); }};
}
