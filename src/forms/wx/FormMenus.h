// A form's menus as a native menu bar.
#pragma once

#include <wx/event.h>

#include <map>
#include <set>
#include <vector>

class wxFrame;
class wxMenu;
class wxMenuBar;

namespace Forms {

class Form;
class Menu;

class FormMenus {
 public:
  FormMenus(Form& oForm, wxFrame& oFrame) : moForm(oForm), moFrame(oFrame) {}

  /// Makes the menu bar agree with the form's menus. A menu whose entries are the same keeps them
  /// and gets new captions, marks and states; another is filled anew.
  void Update();
  /// A menu is about to show: its own Click may enable, check and hide.
  void Opened(const wxMenuEvent& oEvent);
  void Closed(const wxMenuEvent& oEvent) {
    if (oEvent.GetMenu() == mpoDropped) mpoDropped = nullptr;
  }
  /// The menu that shows; null for none.
  wxMenu* Dropped() const { return mpoDropped; }
  /// The form may be destroyed when this returns.
  void Picked(const wxCommandEvent& oEvent);

 private:
  struct Entry {
    Menu* poMenu;
    bool bSeparator, bItems;
    bool bMark;  ///< was checked at some time, so that its native item has room for a check mark
    bool operator==(const Entry&) const = default;
  };
  using Entries = std::vector<Entry>;
  Entries EntriesOf(const std::vector<Menu*>& oMenus);
  void MakeBar(const Entries& oEntries);
  void Bring(wxMenu& oNative, Menu& oMenu);
  void Fill(wxMenu& oNative, const Entries& oEntries);
  int IdOf(const Menu& oMenu);

  Form& moForm;
  wxFrame& moFrame;
  wxMenuBar* mpoBar = nullptr;
  wxMenu* mpoDropped = nullptr;
  std::map<const Menu*, int> moIds;
  std::map<int, Menu*> moItems;
  std::map<const wxMenu*, Menu*> moNatives;
  std::set<const Menu*> moMarked;
  Entries moTop;
  std::map<const wxMenu*, Entries> moShown;
};

}  // namespace Forms
