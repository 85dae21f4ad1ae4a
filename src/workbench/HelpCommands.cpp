// The Help menu.
#include "FAbout.h"
#include "MQuillon.h"
#include "MXHTMLHelp.h"
#include "MainCommands.h"
#include "Toolkit.h"
#include "Workbench.h"

using namespace Forms;

namespace {

constexpr std::int32_t FirstTopic = 0, SupportTopic = 1800;  ///< numbers in the help's contents

void OpenVendorPage(Toolkit& toolkit) {
  if (toolkit.Open(MQuillon::VendorAddress)) return;
  toolkit.MsgBox(u"No browser could be started. The address is " + Text(MQuillon::VendorAddress),
                 MsgBoxButtons::OkOnly, MsgBoxIcon::Exclamation, u"Tarvane Quillon");
}

}  // namespace

CommandMenu HelpCommands(Workbench& window) {
  Toolkit& toolkit = window.form.App();
  const auto hasHelp = [] { return MXHTMLHelp::HelpExists(); };
  return {u"mnuHelp",
          u"&Help",
          {{.name = u"mnuHelpTopics",
            .caption = u"&Contents...",
            .does = [&] { MXHTMLHelp::ShowHelpTOC(toolkit, FirstTopic); },
            .enabled = hasHelp,
            .button = {{u"Help", u"Help"}}},
           {.name = u"mnuHelpIndex",
            .caption = u"&Index...",
            .does = [&] { MXHTMLHelp::ShowHelpIndex(toolkit); },
            .enabled = hasHelp},
           {.name = u"mnuHelpSearch",
            .caption = u"&Search...",
            .does = [&] { MXHTMLHelp::ShowHelpSearch(toolkit); },
            .enabled = hasHelp},
           Separator(u"mnlHelpLine1"),
           {.name = u"mnuHelpSupport",
            .caption = u"&Technical Support...",
            .does = [&] { MXHTMLHelp::ShowHelpTOC(toolkit, SupportTopic); },
            .enabled = hasHelp},
           {.name = u"mnuHelpWeb",
            .caption = u"Morvelle on the &Web",
            .does = [&] { OpenVendorPage(toolkit); }},
           Separator(u"mnlHelpLine2"),
           {.name = u"mnuHelpAbout", .caption = u"&About Tarvane", .does = [&] {
              FAbout(toolkit).Display();
            }}}};
}
