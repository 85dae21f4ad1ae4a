#include "FRules.h"

#include "MXRegistry.h"
#include "Toolkit.h"

using namespace Forms;

namespace {
constexpr TextView CurrentTab = u"Current Tab";
constexpr std::int32_t alHelpContext[] = {2710, 2720, 2730, 2740, 2750};  // tabs in order
}  // namespace

FRules::FRules(Toolkit& oToolkit) : FOptionSheet(oToolkit, u"FRules") {
  On(tabOption.Click, [this] { tabOption_Click(); });
  On(OnLoad, [this] {
    for (std::int32_t i = 1; i <= fraOption.UBound(); ++i) PlacePage(fraOption(i));
    oNumbering.PlaceInGaps();
  });
}

void FRules::Design() {
  DesignSheet(u"Rules", {u"&Defaults", u"Pre&cedence", u"Boundary &Management", u"Line &Numbering",
                         u"&General"});
  for (std::int32_t i = 0; i <= fraOption.UBound(); ++i) {
    fraOption(i).SetVisible(false);
    fraOption(i).SetBorder(false);
    if (i > 0) fraOption(i).SetHelpContextID(alHelpContext[i - 1]);
  }
  for (IRulesPage* po : moPages) po->Design();
}

bool FRules::Display() {
  Load();
  SelectLastTab();
  for (IRulesPage* po : moPages) po->Fill(MRules::oRules);
  mbShown = true;
  const bool bAccepted = ShowSheet();
  App().Screen().SetMousePointer(Pointer::Hourglass);
  if (bAccepted) Accept();
  Unload();
  return bAccepted;
}

void FRules::SelectLastTab() {
  const std::int32_t lStored = MXRegistry::GetRegLong(hReg(), CurrentTab, 1);
  const bool bThere = lStored >= 1 && lStored <= tabOption.Tabs().Count();
  tabOption.Tabs().Item(bThere ? lStored : 1).SetSelected(true);
}

void FRules::tabOption_Click() {
  const std::int32_t lSelected = tabOption.SelectedItem()->Index();
  for (std::int32_t i = 1; i <= fraOption.UBound(); ++i) fraOption(i).SetVisible(i == lSelected);
  tabOption.SetHelpContextID(fraOption(lSelected).HelpContextID());
}

void FRules::Accept() {
  MRules::Values oNew = MRules::oRules;
  for (const IRulesPage* po : moPages) po->Read(oNew);
  MRules::oRules = oNew;
  MRules::SetRules();
  MXRegistry::SetRegLong(hReg(), CurrentTab, tabOption.SelectedItem()->Index());
}
