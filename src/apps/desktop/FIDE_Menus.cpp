// The menus of the stand-in IDE.
#include "FAbout.h"
#include "FIDE.h"
#include "MXHTMLHelp.h"
#include "Toolkit.h"

namespace {

using namespace Forms;

void ShowContents(Toolkit& toolkit) {
  if (MXHTMLHelp::HelpExists()) return MXHTMLHelp::ShowHelpTOC(toolkit, 0);
  toolkit.MsgBox(u"The help can't be shown: there is no file " + MXHTMLHelp::HelpFile() +
                     u".\r\n\r\nInstall Tarvane Quillon again to get it back.",
                 MsgBoxButtons::OkOnly, MsgBoxIcon::Exclamation);
}

}  // namespace

std::vector<CommandMenu> FIDE::Menus() {
  const auto isOpen = [this] { return !msGroup.empty(); };
  const auto loadAddIn = [this] {
    mpAddIn ? DisconnectAddIn() : ConnectAddIn(ConnectMode::AfterStartup);
  };
  const auto pickRecent = [this](Menu& item) { OpenGroup(moRecent.Item(item.Index())); };
  const auto pickAddIn = [this](Menu& item) { Clicked(moBarMenu.ControlOf(item.Index())); };
  const auto pickToolBar = [this](Menu& item) { mnuViewToolBar_Click(item.Index()); };
  return {
      {u"mnuFile",
       u"&File",
       {{.name = u"mnuFileOpen",
         .caption = u"&Open Group...",
         .key = Ctrl(u'O'),
         .does = [this] { mnuFileOpen_Click(); }},
        {.name = u"mnuFileReload",
         .caption = u"&Reload Group",
         .key = {Key::F1 + 4},
         .does = [this] { OpenGroup(Text(msGroup)); },
         .enabled = isOpen},
        {.name = u"mnuFileSave",
         .caption = u"&Save All",
         .key = Ctrl(u'S'),
         .does = [this] { SaveAll(); }},
        {.name = u"mnuFileUndo",
         .caption = u"&Take Back Last Run...",
         .does = [this] { mnuFileUndo_Click(); },
         .enabled = isOpen},
        Separator(u"mnuFileBar1"),
        {.name = u"mnuFileRecent", .doesEach = pickRecent},
        {.name = u"mnuFileExit", .caption = u"E&xit", .does = [this] { Unload(); }}}},
      {u"mnuView",
       u"&View",
       {{.name = u"mnuViewCode",
         .caption = u"&Code",
         .key = {Key::F1 + 6},
         .does = [this] { ShowView(u"Code"); }},
        {.name = u"mnuViewChanges",
         .caption = u"C&hanges",
         .key = {Key::F1 + 7},
         .does = [this] { ShowView(u"Changes"); }},
        Separator(u"mnuViewBar1"),
        {.name = u"mnuViewToolBar", .doesEach = pickToolBar}}},
      {u"mnuAddIns",
       u"&Add-Ins",
       {{.name = u"mnuAddInsItem", .doesEach = pickAddIn},
        Separator(u"mnuAddInsBar1"),
        {.name = u"mnuAddInsLoad",
         .caption = u"&Load Tarvane Quillon",
         .does = loadAddIn,
         .checked = [this] { return mpAddIn != nullptr; }}}},
      {u"mnuHelp",
       u"&Help",
       {{.name = u"mnuHelpContents",
         .caption = u"&Contents",
         .does = [this] { ShowContents(App()); }},
        {.name = u"mnuHelpAbout",
         .caption = u"&About Tarvane Quillon...",
         .does = [this] { FAbout(App()).Display(this); }}}},
  };
}
