#include "FOptionSheet.h"

#include "MXHTMLHelp.h"

using namespace Forms;

FOptionSheet::FOptionSheet(Toolkit& oToolkit, TextView sName) : FDialog(oToolkit, sName, sName) {
  On(cmdOK.Click, [this] {
    mbAccepted = true;
    Hide();
  });
  On(cmdCancel.Click, [this] { Hide(); });
  On(cmdHelp.Click, [this] { MXHTMLHelp::ShowHelpTOC(App(), tabOption.HelpContextID()); });
}

void FOptionSheet::DesignSheet(TextView sCaption, std::initializer_list<TextView> asTab) {
  DesignWindow(sCaption, 6480, 4680);
  tabOption.Move(120, 120, 6120, 3480);
  for (const TextView sTab : asTab) tabOption.Tabs().Add(0, sTab, sTab);
  cmdOK.SetCaption(u"OK");
  cmdOK.SetDefault(true);
  cmdCancel.SetCaption(u"Cancel");
  cmdCancel.SetCancel(true);
  cmdHelp.SetCaption(u"&Help");
  std::int32_t lLeft = 2790, lTabIndex = 10000;  // in tab order behind the pages
  for (CommandButton* po : {&cmdOK, &cmdCancel, &cmdHelp}) {
    po->Move(lLeft, 3690, 1080, 420);
    po->SetTabIndex(lTabIndex++);
    lLeft += 1185;
  }
}

void FOptionSheet::PlacePage(Frame& oPage) {
  const Rect oArea = tabOption.ClientArea();
  oPage.SetBorder(false);
  oPage.Move(oArea.lLeft, oArea.lTop, oArea.lWidth, oArea.lHeight);
}

bool FOptionSheet::ShowSheet() {
  mbAccepted = false;
  cmdHelp.SetVisible(MXHTMLHelp::HelpExists());
  RunModal();
  return mbAccepted;
}
