#include "FormMenus.h"

#include <wx/frame.h>
#include <wx/menu.h>

#include "Form.h"
#include "KeyCodes.h"
#include "Menu.h"
#include "NativeText.h"

namespace Forms {

namespace {

/// The caption, or a blank for the empty one, which the window system doesn't accept.
wxString LabelOf(const Menu& oMenu) {
  const wxString sCaption = oMenu.Caption().empty() ? wxString(" ") : ToWx(oMenu.Caption());
  const Shortcut o = oMenu.Shortcut();
  const wxString sShortcut = ShortcutText(o.nKeyCode, o.nShift);
  return sShortcut.empty() ? sCaption : sCaption + "\t" + sShortcut;
}

}  // namespace

FormMenus::Entries FormMenus::EntriesOf(const std::vector<Menu*>& oMenus) {
  Entries oEntries;
  for (Menu* po : oMenus) {
    if (po->Checked()) moMarked.insert(po);
    if (!po->Visible()) continue;
    const bool bItems = !po->Items().empty();
    oEntries.push_back({po, po->Separator(), bItems, !bItems && moMarked.count(po) != 0});
  }
  return oEntries;
}

int FormMenus::IdOf(const Menu& oMenu) {
  const auto [it, bNew] = moIds.try_emplace(&oMenu, 0);
  if (bNew) it->second = wxWindow::NewControlId();
  return it->second;
}

void FormMenus::Update() {
  const Entries oEntries = EntriesOf(moForm.Menus());
  moItems.clear();
  if (oEntries != moTop) MakeBar(oEntries);
  for (std::size_t i = 0; i < moTop.size(); ++i) {
    Menu& oMenu = *moTop[i].poMenu;
    if (mpoBar->GetMenuLabel(i) != LabelOf(oMenu)) mpoBar->SetMenuLabel(i, LabelOf(oMenu));
    mpoBar->EnableTop(i, oMenu.Enabled());
    Bring(*mpoBar->GetMenu(i), oMenu);
  }
}

void FormMenus::MakeBar(const Entries& oEntries) {
  if (wxMenuBar* const poOld = std::exchange(mpoBar, nullptr)) {
    moFrame.SetMenuBar(nullptr);
    delete poOld;
  }
  mpoDropped = nullptr;
  moNatives.clear();
  moShown.clear();
  moTop = oEntries;
  if (oEntries.empty()) return;
  mpoBar = new wxMenuBar;
  for (const Entry& o : oEntries) mpoBar->Append(new wxMenu, LabelOf(*o.poMenu));
  moFrame.SetMenuBar(mpoBar);
}

void FormMenus::Bring(wxMenu& oNative, Menu& oMenu) {
  moNatives[&oNative] = &oMenu;
  const Entries oEntries = EntriesOf(oMenu.Items());
  if (moShown[&oNative] != oEntries) Fill(oNative, oEntries);
  std::size_t i = 0;
  for (wxMenuItem* poItem : oNative.GetMenuItems()) {
    Menu& oItem = *oEntries[i++].poMenu;
    if (poItem->IsSeparator()) continue;
    moItems[poItem->GetId()] = &oItem;
    if (poItem->GetItemLabel() != LabelOf(oItem)) poItem->SetItemLabel(LabelOf(oItem));
    if (poItem->IsEnabled() != oItem.Enabled()) poItem->Enable(oItem.Enabled());
    if (poItem->IsCheckable()) poItem->Check(oItem.Checked());
    if (wxMenu* const poSub = poItem->GetSubMenu()) Bring(*poSub, oItem);
  }
}

void FormMenus::Fill(wxMenu& oNative, const Entries& oEntries) {
  while (oNative.GetMenuItemCount() > 0) {
    wxMenuItem* const poItem = oNative.FindItemByPosition(0);
    moNatives.erase(poItem->GetSubMenu());
    moShown.erase(poItem->GetSubMenu());
    oNative.Destroy(poItem);
  }
  for (const Entry& o : oEntries) {
    if (o.bSeparator) {
      oNative.AppendSeparator();
    } else if (o.bItems) {
      oNative.AppendSubMenu(new wxMenu, LabelOf(*o.poMenu));
    } else {
      oNative.Append(IdOf(*o.poMenu), LabelOf(*o.poMenu), wxString(),
                     o.bMark ? wxITEM_CHECK : wxITEM_NORMAL);
    }
  }
  moShown[&oNative] = oEntries;
}

void FormMenus::Opened(const wxMenuEvent& oEvent) {
  const auto it = moNatives.find(oEvent.GetMenu());
  if (it == moNatives.end()) return;
  it->second->UserDrop();
  Update();
  mpoDropped = oEvent.GetMenu();
}

void FormMenus::Picked(const wxCommandEvent& oEvent) {
  const auto it = moItems.find(oEvent.GetId());
  if (it != moItems.end()) it->second->UserPick();
}

}  // namespace Forms
