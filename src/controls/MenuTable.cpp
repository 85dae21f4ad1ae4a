#include "MenuTable.h"

#include "Failure.h"
#include "Form.h"

using namespace Forms;

struct MenuTable::Entry {
  Command row;
  std::int32_t button = -1;  ///< its number
  std::unique_ptr<Menu> menu{};
  std::unique_ptr<ControlArray<Menu>> array{};
};

/// The entries end before the menu that they stand under.
struct MenuTable::Title {
  Title(Form& form, const CommandMenu& table)
      : menu(form, table.name), caption(table.caption), enabled(table.enabled) {}
  Menu menu;
  TextView caption;
  std::function<bool()> enabled;
  std::vector<Entry> entries{};
};

MenuTable::MenuTable(Form& owner, Runner runner, std::vector<CommandMenu> menus)
    : form(owner), run(std::move(runner)) {
  for (CommandMenu& menu : menus) Add(std::move(menu));
}

MenuTable::~MenuTable() = default;

void MenuTable::Add(CommandMenu menu) {
  Title& title = *titles.emplace_back(std::make_unique<Title>(form, menu));
  for (Command& row : menu.rows) title.entries.push_back({std::move(row)});
  for (Entry& entry : title.entries) MakeEntry(title, entry);
  title.menu.On(title.menu.Click, [this, &title] {
    run(title.menu.Name() + u"_Click", false, [&] { WorkOut(title); });
  });
}

void MenuTable::MakeEntry(Title& title, Entry& entry) {
  const Command& row = entry.row;
  if (row.button) entry.button = buttonCount++;
  if (!row.doesEach) {
    entry.menu = std::make_unique<Menu>(title.menu, row.name);
    return entry.menu->On(entry.menu->Click, [this, &row] { Run(row); });
  }
  entry.array = std::make_unique<ControlArray<Menu>>(title.menu, row.name);
  entry.array->OnElement([this, &row](Menu& element) {
    element.On(element.Click, [this, &row, &element] {
      run(Text(row.name) + u"_Click", row.takesTime, [&] { row.doesEach(element); });
    });
  });
}

void MenuTable::Design() {
  for (const auto& title : titles) {
    title->menu.SetCaption(title->caption);
    for (Entry& entry : title->entries) {
      Menu& menu = entry.menu ? *entry.menu : (*entry.array)(0);
      menu.SetCaption(entry.row.caption);
      if (entry.row.key.nKeyCode) menu.SetShortcut(entry.row.key.nKeyCode, entry.row.key.nShift);
      if (entry.array) menu.SetVisible(false);
    }
  }
}

const MenuTable::Entry& MenuTable::Find(TextView name) const {
  for (const auto& title : titles)
    for (const Entry& entry : title->entries)
      if (entry.row.name == name) return entry;
  throw Failure(340, u"There is no menu " + Text(name));
}

Menu& MenuTable::operator[](TextView name) const {
  for (const auto& title : titles)
    if (title->menu.Name() == name) return title->menu;
  return *Find(name).menu;
}

ControlArray<Menu>& MenuTable::Array(TextView name) const {
  return *Find(name).array;
}

void MenuTable::WorkOut(TextView name) {
  for (const auto& title : titles)
    if (title->menu.Name() == name) WorkOut(*title);
}

void MenuTable::WorkOut(Title& title) {
  for (Entry& entry : title.entries) {
    const Command& row = entry.row;
    if (row.checked) entry.menu->SetChecked(row.checked());
    if (!row.enabled) continue;
    const bool enabled = row.enabled();
    entry.menu->SetEnabled(enabled);
    if (row.button && !row.button->enabled) ButtonEnabled(entry.button, enabled);
  }
}

void MenuTable::WorkOutTitles() {
  for (const auto& title : titles)
    if (title->enabled) title->menu.SetEnabled(title->enabled());
}

void MenuTable::WorkOutButtons() {
  for (const auto& title : titles) {
    for (const Entry& entry : title->entries) {
      if (!entry.row.button) continue;
      const auto& rule = entry.row.button->enabled ? entry.row.button->enabled : entry.row.enabled;
      if (rule) ButtonEnabled(entry.button, rule());
    }
  }
}

std::vector<const Command*> MenuTable::Buttons() const {
  std::vector<const Command*> rows;
  for (const auto& title : titles)
    for (const Entry& entry : title->entries)
      if (entry.row.button) rows.push_back(&entry.row);
  return rows;
}

void MenuTable::Run(const Command& command) const {
  run(Text(command.name) + u"_Click", command.takesTime, [&] {
    if (command.does) command.does();
  });
}
