// NativeDetails for GTK.
#include <wx/defs.h>

#include "NativeDetails.h"

#ifdef __WXGTK__

// GTK's headers cause several of the warnings that are on here.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wpedantic"
#include <gtk/gtk.h>
#pragma GCC diagnostic pop
#include <wx/choice.h>
#include <wx/menu.h>
#include <wx/toplevel.h>

namespace Forms::NativeDetails {

namespace {

// GTK's default theme makes a button 34 pixels high; forms are laid out for 25.
constexpr char CompactStyle[] =
    "button { min-height: 0; min-width: 0; padding: 1px 4px; }"
    "entry { min-height: 0; padding: 0 3px; }"
    "combobox button, combobox button.combo { min-height: 0; padding: 0 4px; }"
    "combobox arrow { min-height: 12px; min-width: 12px; }"
    "checkbutton, radiobutton { padding: 0; margin: 0; }"
    "checkbutton check, radiobutton radio { margin: 0 3px 0 0; }"
    "menubar > menuitem { min-height: 0; padding: 2px 7px; }"
    "scrolledwindow undershoot { background: none; }"
    "menu menuitem { min-height: 0; padding: 3px 6px; }";

GtkWindow* NativeWindow(const wxTopLevelWindow& o) {
  return GTK_WINDOW(o.GetHandle());
}

}  // namespace

double Resolution() {
  const double dResolution = gdk_screen_get_resolution(gdk_screen_get_default());
  return dResolution > 0 ? dResolution : 96;
}

void MakeCompact() {
  GtkCssProvider* const poStyle = gtk_css_provider_new();
  gtk_css_provider_load_from_data(poStyle, CompactStyle, -1, nullptr);
  gtk_style_context_add_provider_for_screen(gdk_screen_get_default(), GTK_STYLE_PROVIDER(poStyle),
                                            GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
  g_object_unref(poStyle);
  // Scroll bars that appear only under the mouse don't show that there is more to see.
  g_object_set(gtk_settings_get_default(), "gtk-overlay-scrolling", FALSE, nullptr);
}

void SetOwner(wxTopLevelWindow& oAbove, wxTopLevelWindow* poOwner) {
  gtk_window_set_transient_for(NativeWindow(oAbove), poOwner ? NativeWindow(*poOwner) : nullptr);
}

void DropDown(wxChoice& oChoice) {
  gtk_combo_box_popup(GTK_COMBO_BOX(oChoice.GetHandle()));
}

bool GiveKey(wxMenu& oMenu) {
  GdkEvent* const poEvent = gtk_get_current_event();
  const bool bKey =
      poEvent && poEvent->type == GDK_KEY_PRESS && gtk_widget_get_mapped(oMenu.m_menu);
  if (bKey) {
    GtkMenuShell* const poShell = GTK_MENU_SHELL(oMenu.m_menu);
    // A menu without a selected entry would pass the key on to the bar, and wx back to here.
    const bool bNone = !gtk_menu_shell_get_selected_item(poShell);
    const guint nKey = poEvent->key.keyval;
    if (bNone && nKey == GDK_KEY_Escape) {
      gtk_menu_shell_cancel(poShell);
    } else {
      if (bNone) gtk_menu_shell_select_first(poShell, TRUE);
      if (!bNone || nKey != GDK_KEY_Down) gtk_widget_event(oMenu.m_menu, poEvent);
    }
  }
  if (poEvent) gdk_event_free(poEvent);
  return bKey;
}

void FreeFromModal(wxTopLevelWindow& oWindow) {
  GtkWindowGroup* const poGroup = gtk_window_group_new();
  gtk_window_group_add_window(poGroup, NativeWindow(oWindow));
  g_object_unref(poGroup);
}

// Holds a reference, because the window may be destroyed first.
ModalInput::ModalInput(wxTopLevelWindow& oWindow) : mpNative(g_object_ref(NativeWindow(oWindow))) {
  gtk_window_set_modal(GTK_WINDOW(mpNative), TRUE);
}

ModalInput::~ModalInput() {
  gtk_window_set_modal(GTK_WINDOW(mpNative), FALSE);
  g_object_unref(mpNative);
}

void ModalInput::EndAheadOf(wxTopLevelWindow&) {}

}  // namespace Forms::NativeDetails

#endif
