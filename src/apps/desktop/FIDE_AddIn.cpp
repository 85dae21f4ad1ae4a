// The add-in, the menu and the tool bars through which it is reached.
#include "FIDE.h"
#include "Toolkit.h"

template <class Work>
void FIDE::InAddIn(Work&& oWork) {
  if (mbInAddIn) return;
  Refresh();
  mbInAddIn = true;
  const auto End = [this] {
    mbInAddIn = false;
    ShowBars();
    Refresh();
  };
  try {
    oWork();
  } catch (...) {
    End();
    throw;
  }
  End();
}

void FIDE::ConnectAddIn(ConnectMode nConnectMode) {
  mpIDE->Bars().SetClipboard([this] {
    const std::int32_t lPixels = 16 * 15 / App().Screen().TwipsPerPixelX();
    return Picture{App().Picture(App().Clipboard().PictureKey(), lPixels)};
  });
  mpAddIn = moMakeAddIn();
  InAddIn([&] {
    mpAddIn->OnConnection(mpIDE->Root(), nConnectMode);
    if (nConnectMode != ConnectMode::AfterStartup) mpAddIn->OnStartupComplete();
    mpAddIn->OnAddInsUpdate();
  });
}

void FIDE::DisconnectAddIn() {
  if (!mpAddIn) return;
  InAddIn([&] { mpAddIn->OnDisconnection(0); });
  mpAddIn.reset();
  ShowBars();
}

void FIDE::Clicked(CommandBarControl* poControl) {
  if (poControl) InAddIn([&] { mpIDE->Click(*poControl); });
}

void FIDE::ShowBars() {
  if (!Loaded()) return;
  HostCommandBars& oBars = mpIDE->Bars();
  oMenu[u"mnuAddInsBar1"].SetVisible(moBarMenu.Show(oBars.Item(u"Add-Ins")));
  oMenu.WorkOut(u"mnuAddIns");
  moToolBars.Show(oBars);
  const auto aoBar = ToolBarsOf(oBars);
  const auto lCount = static_cast<std::int32_t>(aoBar.size());
  auto& items = oMenu.Array(u"mnuViewToolBar");
  while (items.UBound() > lCount) items.Unload(items.UBound());
  while (items.UBound() < lCount) items.Load(items.UBound() + 1);
  for (std::int32_t i = 1; i <= lCount; ++i) {
    const HostCommandBar& oBar = *aoBar[static_cast<std::size_t>(i) - 1];
    items(i).SetCaption(u"Toolbar &" + oBar.Name());
    items(i).SetChecked(oBar.Visible());
    items(i).SetVisible(true);
  }
  oMenu[u"mnuViewBar1"].SetVisible(lCount > 0);
  Form_Resize();
}

void FIDE::mnuViewToolBar_Click(std::int32_t lIndex) {
  const auto aoBar = ToolBarsOf(mpIDE->Bars());
  if (lIndex < 1 || static_cast<std::size_t>(lIndex) > aoBar.size()) return;
  HostCommandBar& oBar = *aoBar[static_cast<std::size_t>(lIndex) - 1];
  oBar.SetVisible(!oBar.Visible());
  ShowBars();
}
