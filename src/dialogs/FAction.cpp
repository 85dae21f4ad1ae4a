#include "FAction.h"

#include "MXHTMLHelp.h"
#include "Put.h"
#include "Toolkit.h"

using namespace Forms;

FAction::FAction(Toolkit& oToolkit, TextView sName, TextView sCaption, std::int32_t lHelpContext)
    : FDialog(oToolkit, sName, u"FAction"), msCaption(sCaption), mlHelpContext(lHelpContext) {
  cmdAction.OnElement(
      [this](CommandButton& o) { On(o.Click, [this, &o] { cmdAction_Click(o.Index()); }); });
  On(cmdCancel.Click, [this] { cmdAction_Click(0); });
  On(cmdHelp.Click, [this] { MXHTMLHelp::ShowHelpTOC(App(), mlHelpContext); });
}

void FAction::Design() {
  DesignWindow(msCaption, 4200, 3000);
  SetHelpContextID(mlHelpContext);
  Image1.SetBorderStyle(BorderStyle::None);
  Image1.SetPicture(Name());
  Image1.Move(120, 240, 480, 480);
  DesignButtons();
}

void FAction::DesignButtons() {
  constexpr TextView asCaption[] = {u"", u"Current &Selection", u"Current &Module",
                                    u"Current &Project", u"&All Projects"};
  cmdAction(0).SetVisible(false);  // the buttons count from 1, as the answers do
  for (std::int32_t i = 1; i <= 4; ++i) {
    Put(cmdAction(i), asCaption[i], {720, 240 + (i - 1) * 540, 2040, 420});
  }
  cmdAction(1).SetDefault(true);
  Put(cmdCancel, u"Cancel", {2880, 240, 1080, 420});
  cmdCancel.SetCancel(true);
  Put(cmdHelp, u"&Help", {2880, 780, 1080, 420});
}

eAction FAction::Display(bool bSelection, bool bModule, bool bAll) {
  miAction = eAction::Cancel;
  Load();
  cmdAction(1).SetEnabled(bSelection);
  cmdAction(2).SetEnabled(bModule);
  cmdAction(4).SetEnabled(bAll);
  cmdHelp.SetEnabled(MXHTMLHelp::HelpExists());
  RunModal();
  App().Screen().SetMousePointer(Pointer::Hourglass);
  Unload();
  return miAction;
}

void FAction::cmdAction_Click(std::int32_t Index) {
  miAction = static_cast<eAction>(Index);
  Hide();
}
