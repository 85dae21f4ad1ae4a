// The Tools menu: rewriting code, in bulk, and the options.
#include "FOptions.h"
#include "MRules.h"
#include "MainCommands.h"
#include "Toolkit.h"
#include "Workbench.h"

using namespace Forms;

namespace {

void AskOptions(Workbench& window) {
  if (FOptions(window.form.App()).Display()) {
    window.form.Refresh();
    window.panes.TakeFonts(true);
  }
  window.form.App().Screen().SetMousePointer(Pointer::Default);
}

void TurnProving(CIDEHandler* model) {
  MRules::oRules.bProve = !MRules::oRules.bProve;
  if (model) model->bProve = MRules::oRules.bProve;
  MRules::SetRules();
}

}  // namespace

CommandMenu ToolsCommands(Workbench& window) {
  const auto hasScope = [&] { return window.HasScope(); };
  return {
      u"mnuTools",
      u"&Tools",
      {{.name = u"mnuToolsApplyPending",
        .caption = u"&Apply Pending Properties...",
        .does = [&] { window.bulk.ApplyPending(); },
        .enabled = hasScope,
        .button = {{u"Star", u"Apply Pending Properties...", true,
                    [&] { return window.HasModel(); }}}},
       Separator(u"mnlToolsLine1"),
       {.name = u"mnuToolsLineAdd",
        .caption = u"&Insert Line Numbers...",
        .does = [&] { window.bulk.InsertLineNumbers(); },
        .enabled = hasScope},
       {.name = u"mnuToolsLineRemove",
        .caption = u"Re&move Line Numbers...",
        .does = [&] { window.bulk.RemoveLineNumbers(); },
        .enabled = hasScope},
       Separator(u"mnlToolsLine2"),
       {.name = u"mnuToolsRefresh",
        .caption = u"&Refresh Error Handlers...",
        .does = [&] { window.bulk.RefreshErrorHandlers(); },
        .enabled = [&] { return window.session.HasProjects(); }},
       Separator(u"mnlToolsLine3"),
       {.name = u"mnuToolsOptions", .caption = u"&Options...", .does = [&] { AskOptions(window); }},
       Separator(u"mnlToolsLine4"),
       {.name = u"mnuToolsProve",
        .caption = u"&Prove Rewrites",
        .does = [&] { TurnProving(window.session.Model().get()); },
        .checked = [] { return MRules::oRules.bProve; }}},
      [&] { return window.session.HasTemplate(); }};
}
