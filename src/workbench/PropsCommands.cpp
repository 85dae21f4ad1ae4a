// The Properties menu: pending values, in bulk.
#include "MainCommands.h"
#include "Workbench.h"

CommandMenu PropsCommands(Workbench& window) {
  const auto hasScope = [&] { return window.HasScope(); };
  return {u"mnuProps",
          u"&Properties",
          {{.name = u"mnuPropsCopySuggest",
            .caption = u"&Copy Suggested...",
            .does = [&] { window.bulk.CopySuggested(); },
            .enabled = hasScope,
            .button = {{u"Wand", u"Copy Suggested Properties...", false,
                        [&] { return window.HasModel(); }}}},
           Separator(u"mnlPropsLine1"),
           {.name = u"mnuPropsUndoPending",
            .caption = u"&Discard Pending...",
            .does = [&] { window.bulk.DiscardPending(); },
            .enabled = hasScope}},
          [&] { return window.session.HasTemplate(); }};
}
