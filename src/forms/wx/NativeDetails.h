// What the window library has no portable call for. One file per window system implements it:
// GtkDetails_gtk.cpp, MswDetails_win.cpp, and PlainDetails.cpp for the others.
#pragma once

class wxChoice;
class wxMenu;
class wxTopLevelWindow;
class wxWindow;

namespace Forms::NativeDetails {

/// Pixels per inch by which fonts are drawn.
double Resolution();
/// Makes native controls as low as forms lay them out. Once, before the first window.
void MakeCompact();
/// oAbove stays in front of its owner; null for none.
void SetOwner(wxTopLevelWindow& oAbove, wxTopLevelWindow* poOwner);
/// Opens the list of a drop-down list.
void DropDown(wxChoice& oChoice);
/// Hands the key that is being handled to a menu that shows. False where menus get their keys.
bool GiveKey(wxMenu& oMenu);
/// Lets the window take input while a modal form is in front.
void FreeFromModal(wxTopLevelWindow& oWindow);

/// Keeps input from all other windows as long as it lives.
class ModalInput {
 public:
  explicit ModalInput(wxTopLevelWindow& oWindow);
  ModalInput(const ModalInput&) = delete;
  ModalInput& operator=(const ModalInput&) = delete;
  ~ModalInput();

  /// The window that keeps the input is about to hide: the system gives the focus to the next
  /// window that takes input, so the others have to take it by now.
  static void EndAheadOf(wxTopLevelWindow& oWindow);

 private:
  void* mpNative;
};

}  // namespace Forms::NativeDetails
