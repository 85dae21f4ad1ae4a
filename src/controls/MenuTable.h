// The menus of a form as tables: each row tells what an entry is called, its key, when it is
// enabled and checked, what it does, and the toolbar's button that stands for it.
//
//   CommandMenu FileCommands(Window& window) {
//     return {u"mnuFile", u"&File", {
//         {.name = u"mnuFileOpen", .caption = u"&Open...", .key = Ctrl(u'O'),
//          .does = [&] { window.Open(); }},
//         Separator(u"mnlFileLine1"),
//         {.name = u"mnuFileExit", .caption = u"E&xit", .does = [&] { window.Leave(); }}}};
//   }
//
// The rules of a menu's entries are worked out each time it drops, which it also does ahead of an
// entry's shortcut. Titles and buttons change only when the form asks for it.
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "ControlArray.h"
#include "Menu.h"

/// A button of a toolbar. Buttons stand in the order of their rows.
struct ToolButton {
  TextView picture{}, tip{};
  bool endsGroup = false;
  /// None: it is enabled as its command is, whenever that is worked out.
  std::function<bool()> enabled{};
};

struct Command {
  TextView name{};  ///< of the menu; its routine is called that with `_Click` behind it
  TextView caption{};
  Forms::Shortcut key{};
  bool takesTime = false;
  std::function<void()> does{};
  /// Makes the row an array of entries, whose element 0 stays hidden: what a pick of one does.
  std::function<void(Forms::Menu&)> doesEach{};
  /// None: the form sets it, or it is always so.
  std::function<bool()> enabled{}, checked{};
  std::optional<ToolButton> button{};
};

struct CommandMenu {
  TextView name{}, caption{};
  std::vector<Command> rows{};
  std::function<bool()> enabled{};
};

inline Forms::Shortcut Ctrl(char16_t letter) {
  return {letter, Forms::Shift::Ctrl};
}
inline Command Separator(TextView name) {
  return {.name = name, .caption = u"-"};
}

class MenuTable {
 public:
  /// Runs the work of a command as the routine of that name; no failure comes out of it.
  using Runner =
      std::function<void(TextView routine, bool takesTime, const std::function<void()>& work)>;

  MenuTable(Forms::Form& owner, Runner runner, std::vector<CommandMenu> menus = {});
  ~MenuTable();
  /// Makes the menus, behind those that are there.
  void Add(CommandMenu menu);
  /// Sets the values of design time.
  void Design();

  /// The menu of that name; Failure 340 when there is none.
  Forms::Menu& operator[](TextView name) const;
  /// The same for rows that are arrays.
  Forms::ControlArray<Forms::Menu>& Array(TextView name) const;

  /// Works out the rules of the entries under that title.
  void WorkOut(TextView title);
  void WorkOutTitles();
  /// The rules of the buttons, and of the commands of those that have none.
  void WorkOutButtons();

  /// Rows with a button, in order. WorkOut tells by number, from 0, which are enabled.
  std::vector<const Command*> Buttons() const;
  Signal<std::int32_t, bool> ButtonEnabled;
  void Run(const Command& command) const;

 private:
  struct Entry;
  struct Title;
  void MakeEntry(Title& title, Entry& entry);
  void WorkOut(Title& title);
  const Entry& Find(TextView name) const;

  Forms::Form& form;
  Runner run;
  std::vector<std::unique_ptr<Title>> titles;
  std::int32_t buttonCount = 0;
};
