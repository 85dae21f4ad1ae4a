// The Rules menu.
#include "FRules.h"
#include "MainCommands.h"
#include "Toolkit.h"
#include "Workbench.h"

using namespace Forms;

CommandMenu RulesCommands(Workbench& window) {
  const auto define = [&] {
    if (FRules(window.form.App()).Display()) {
      window.form.Refresh();
      window.session.Model()->RefreshSuggestions();
      if (window.lists.ShowsProcs()) window.sheet.ProcessProcListSelection();
    }
    window.form.App().Screen().SetMousePointer(Pointer::Default);
  };
  return {u"mnuRules",
          u"&Rules",
          {{.name = u"mnuRulesDefine", .caption = u"&Define Rules...", .does = define}},
          [&] { return window.session.HasTemplate(); }};
}
