// The File menu: the template, the reports on the project of the tree's node, and leaving.
#include "FPrintOption.h"
#include "MainCommands.h"
#include "PageSetup.h"
#include "Printers.h"
#include "Reports.h"
#include "Workbench.h"

using namespace Forms;

namespace {

/// The column widths on the screen, which the report takes over.
Reports::Widths WidthsOf(ListView& list) {
  Reports::Widths widths;
  for (std::int32_t i = 1; i <= list.ColumnHeaders().Count(); ++i)
    widths.push_back(list.ColumnHeaders().Item(i).Width());
  return widths;
}

void Print(Workbench& window) {
  // The last printer may have gone since the menu dropped.
  if (!window.HasPrinter()) return window.form.oMenu.WorkOut(u"mnuFile");
  const PrintChoice choice = FPrintOption(window.form.App(), window.printers).Display();
  window.form.Refresh();
  Paper::Printer& printer = window.printers.Current();
  CIDEHandler& model = *window.session.Model();
  const ProjectHandle project = window.tree.Project();
  if (choice.bSummary)
    Reports::PrintProjects(model, printer, WidthsOf(window.form.lvwMods), project);
  if (choice.bModuleSettings || choice.bProjectSettings)
    Reports::PrintSettings(model, printer, WidthsOf(window.form.lvwProcs), project,
                           choice.bModuleSettings ? window.tree.Component() : ComponentHandle());
}

void Exit(Workbench& window) {
  if (!window.session.MayDiscard()) return;
  window.form.Hide();
  window.form.Unload();
}

}  // namespace

CommandMenu FileCommands(Workbench& window) {
  return {u"mnuFile",
          u"&File",
          {{.name = u"mnuFileOpenTemplate",
            .caption = u"&Open Template...",
            .key = Ctrl(u'O'),
            .does = [&] { window.session.Choose(); },
            .button = {{u"Open", u"Open Template File...", true}}},
           Separator(u"mnlFileLine1"),
           {.name = u"mnuFilePrint",
            .caption = u"&Print...",
            .key = Ctrl(u'P'),
            .takesTime = true,
            .does = [&] { Print(window); },
            .enabled = [&] { return window.HasModel() && window.HasPrinter(); },
            .button = {{u"Print", u"Print...", true}}},
           {.name = u"mnuFilePageSetup",
            .caption = u"Page Set&up...",
            .takesTime = true,
            .does = [&] { ShowPageSetup(window.form, window.printers); },
            .enabled = [&] { return window.HasPrinter(); }},
           Separator(u"mnlFileRecent"),
           {.name = u"mnuFileRecent",
            .caption = u"<recent>",
            .doesEach = [&](Menu& item) { window.session.OpenAsRecent(Text(item.Tag())); }},
           {.name = u"mnuFileExit", .caption = u"E&xit", .key = Ctrl(u'Q'), .does = [&] {
              Exit(window);
            }}}};
}
