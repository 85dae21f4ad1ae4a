// A form for tests to put controls on, and tables that play on it. A row is a rule, what the user
// or code does, what shows then and what was heard of it; an empty third cell says that all looks
// as it did in the row above.
//
//   Play(R"(
//     a click turns it on     | chkBox             | chkBox | chkBox
//     a disabled one stays on | off chkBox; chkBox |        | no
//     no focus for it         | focus chkBox       |        | 5)");
//
// Deeds are parted by ";". Their verbs are those below and what a test adds to them by Can; any
// other deed is one of FormLook.h, such as the name of a control to click. Heard are the events
// that the log watches, "no" for what a user can't do, and the number of a Failure.
#pragma once

#include <functional>
#include <iterator>
#include <type_traits>

#include "FormLook.h"
#include "FormsFixture.h"
#include "TableRows.h"

/// The words of a deed, its verb at 0.
struct Deed {
  explicit Deed(const std::string& deed) {
    std::istringstream in(deed);
    words.assign(std::istream_iterator<std::string>(in), {});
  }
  std::string Word(std::size_t at) const { return at < words.size() ? words[at] : ""; }
  Text Wide(std::size_t at) const { return FromUtf8(Word(at)); }
  /// A number, a letter's key, or the name of a key or of what is held with it; 0 for no word.
  std::int32_t Number(std::size_t at) const {
    static const std::map<std::string, std::int32_t> Names{
        {"", 0},      {"Shift", 1},   {"Ctrl", 2},    {"Ctrl+Shift", 3}, {"Alt", 4},
        {"Back", 8},  {"Tab", 9},     {"Return", 13}, {"Escape", 27},    {"Space", 32},
        {"End", 35},  {"Home", 36},   {"Left", 37},   {"Up", 38},        {"Right", 39},
        {"Down", 40}, {"Insert", 45}, {"Delete", 46}};
    const std::string word = Word(at);
    if (const auto it = Names.find(word); it != Names.end()) return it->second;
    return word >= "A" ? word[0] : std::stoi(word);
  }

  std::vector<std::string> words;
};

/// Plays tables with the verbs that it is told.
class Player {
 public:
  virtual ~Player() = default;

 protected:
  /// What shows, in the words of the tables.
  virtual std::string Look() { return {}; }
  /// A deed whose verb isn't known.
  virtual bool Other(const std::string& deed) = 0;

  /// A deed that gives a bool is a user's.
  template <class Deeds>
  void Can(const std::string& verb, Deeds deeds) {
    verbs[verb] = [deeds](const Deed& o) {
      if constexpr (!std::is_void_v<decltype(deeds(o))>) return deeds(o);
      deeds(o);
      return true;
    };
  }
  void DoOne(const std::string& deed) {
    try {
      const Deed o(deed);
      const auto it = verbs.find(o.Word(0));
      if (!(it != verbs.end() ? it->second(o) : Other(deed))) log.Note("no");
    } catch (const Failure& failure) {
      log.Note(std::to_string(failure.Number()));
    }
  }
  void Play(const std::string& table) {
    const auto Shown = [this] { return ToUtf8(Trim(FromUtf8(Look()))); };
    std::string look = Shown();
    for (const auto& row : Rows(table)) {
      SCOPED_TRACE(row[0]);
      std::istringstream deeds(row[1]);
      for (std::string deed; std::getline(deeds >> std::ws, deed, ';');) DoOne(deed);
      if (!row[2].empty()) look = row[2];
      EXPECT_EQ(Shown(), look);
      EXPECT_EQ(log.Take(), row[3]);
    }
  }

  EventLog log;
  std::map<std::string, std::function<bool(const Deed&)>> verbs;
};

/// The stage is a form of the kind F.
template <class F>
class PlayOn : public FormsTest, protected Player {
 protected:
  PlayOn() {
    Can("double", [this](auto& o) { return At(o).UserDblClick(); });
    Can("press",
        [this](auto& o) { return At(o).UserMouseDown(std::max(1, o.Number(2)), 0, 15, 15); });
    Can("key", [this](auto& o) { return At(o).UserKey(o.Number(2), o.Number(3)); });
    Can("stroke", [this](auto& o) { return form.UserKey(o.Number(1), o.Number(2)); });
    Can("type", [this](auto& o) { return At(o).UserType(o.Wide(2)); });
    Can("enter", [this](auto& o) { return At(o).UserFocus(); });
    Can("focus", [this](auto& o) { At(o).SetFocus(); });
    Can("on", [this](auto& o) { At(o).SetEnabled(true); });
    Can("off", [this](auto& o) { At(o).SetEnabled(false); });
    Can("show", [this](auto& o) { At(o).SetVisible(true); });
    Can("hide", [this](auto& o) { At(o).SetVisible(false); });
  }
  bool Other(const std::string& deed) override { return Act(form, deed); }
  /// The control that the deed is about.
  Forms::Control& At(const Deed& o) { return o.Word(1) == "form" ? form : Find(form, o.Word(1)); }
  void WatchClicks() {
    for (auto* po : ControlsOf(form)) log.Watch(po->Click, NameOf(*po));
  }

  F form{moToolkit, u"Form"};
};
using PlayTest = PlayOn<Forms::Form>;
