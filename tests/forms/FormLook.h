// A user who is told in words what to do on a form, and a look at a whole form: its captions, what
// is off, and whether everything on it has room.
//
//   User().Modal<FRules>(Deeds("tabOption=4; chkSkipEnd; cmdOK"));
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "CheckBox.h"
#include "CommandButton.h"
#include "Form.h"
#include "Frame.h"
#include "Label.h"
#include "ListEntries.h"
#include "OptionButton.h"
#include "TabStrip.h"
#include "TextBox.h"

/// `name`, or `name(index)` in an array.
inline std::string NameOf(const Forms::Component& o) {
  const std::string sName = ToUtf8(o.Name());
  return o.Index() < 0 ? sName : sName + "(" + std::to_string(o.Index()) + ")";
}

inline std::vector<Forms::Control*> ControlsOf(const Forms::Form& oForm) {
  std::vector<Forms::Control*> oAll;
  for (auto* po : oForm.Components())
    if (auto* poControl = dynamic_cast<Forms::Control*>(po)) oAll.push_back(poControl);
  return oAll;
}

inline Forms::Control& Find(const Forms::Form& oForm, const std::string& sName) {
  for (auto* po : ControlsOf(oForm))
    if (NameOf(*po) == sName) return *po;
  throw std::logic_error("There is no control " + sName);
}

inline bool Act(Forms::Form& oForm, const std::string& sDeed) {
  static const std::map<std::string, std::int32_t> Keys{
      {"Return", Forms::Key::Return}, {"Escape", Forms::Key::Escape}, {"Tab", Forms::Key::Tab}};
  if (sDeed == "close") return oForm.UserClose();
  if (Keys.count(sDeed)) return oForm.UserKey(Keys.at(sDeed), 0);
  if (sDeed.starts_with("Alt+")) return oForm.UserKey(sDeed[4], Forms::Shift::Alt);
  const auto lMark = sDeed.find('=');
  Forms::Control& oControl = Find(oForm, sDeed.substr(0, lMark));
  if (lMark == std::string::npos) return oControl.UserClick();
  const std::string sValue = sDeed.substr(lMark + 1);
  if (auto* po = dynamic_cast<Forms::TextBox*>(&oControl)) return po->UserText(FromUtf8(sValue), 0);
  if (auto* po = dynamic_cast<Forms::TabStrip*>(&oControl))
    return po->UserSelect(std::stoi(sValue));
  return dynamic_cast<Forms::ListEntries&>(oControl).UserSelect(std::stoi(sValue));
}

/// What the user does, parted by "; ": `cmdOK` clicks, `cboTrace=2` picks a line or a tab,
/// `txtPattern=a*` writes; `Alt+S`, `Return`, `Escape`, `Tab`; `close` is the close box. A "!"
/// ahead of what the dialog is to refuse.
inline void Do(Forms::Form& oForm, std::string sDeeds) {
  for (sDeeds += "; "; sDeeds.size() > 2; sDeeds.erase(0, sDeeds.find("; ") + 2)) {
    const std::string sDeed = sDeeds.substr(0, sDeeds.find("; "));
    const bool bRefused = sDeed[0] == '!';
    EXPECT_EQ(Act(oForm, sDeed.substr(bRefused ? 1 : 0)), !bRefused) << sDeed;
  }
}

/// The same as a function, for a script of the user.
inline auto Deeds(const std::string& sDeeds) {
  return [sDeeds](Forms::Form& o) { Do(o, sDeeds); };
}

/// The names of the disabled controls, each behind a blank.
inline std::string Off(const Forms::Form& oForm) {
  std::string sAll;
  for (const auto* po : ControlsOf(oForm))
    if (!po->Enabled()) sAll += " " + NameOf(*po);
  return sAll;
}

/// What the deeds turn on and off: a "+" or "-" and the name of each control, behind a blank.
inline std::string Switched(Forms::Form& oForm, const std::string& sDeeds) {
  std::map<Forms::Control*, bool> bBefore;
  for (auto* po : ControlsOf(oForm)) bBefore[po] = po->Enabled();
  Do(oForm, sDeeds);
  std::string sAll;
  for (auto* po : ControlsOf(oForm))
    if (po->Enabled() != bBefore[po]) sAll += (po->Enabled() ? " +" : " -") + NameOf(*po);
  return sAll;
}

/// The caption of a control that has one of these kinds.
template <class... Kinds>
Text CaptionIn(const Forms::Control& o) {
  Text sCaption;
  const auto Take = [&](const auto* po) { sCaption = po ? po->Caption() : sCaption; };
  (Take(dynamic_cast<const Kinds*>(&o)), ...);
  return sCaption;
}
inline Text CaptionOf(const Forms::Control& o) {
  using namespace Forms;
  return CaptionIn<Label, Frame, CheckBox, OptionButton, CommandButton>(o);
}

/// Whether it can be read, if it is there to be read or clicked.
inline bool HasItsCaption(const Forms::Control& o) {
  using Forms::ComponentKind;
  const bool bReads = o.Kind() == ComponentKind::CheckBox || o.Kind() == ComponentKind::Label ||
                      o.Kind() == ComponentKind::OptionButton ||
                      o.Kind() == ComponentKind::CommandButton;
  return !bReads || !o.Visible() || !CaptionOf(o).empty();
}

/// Whether its caption, broken at blanks, has room in a font as wide as six pixels a character.
inline bool CaptionFits(const Forms::Control& o) {
  using Forms::ComponentKind;
  const bool bBox = o.Kind() == ComponentKind::CheckBox || o.Kind() == ComponentKind::OptionButton;
  const std::int32_t lMark = bBox ? 330 : o.Kind() == ComponentKind::CommandButton ? 150 : 0;
  const auto& oFont = o.Container();
  std::int32_t lLines = 1;
  Text sLine;
  for (const char16_t c : Forms::PlainCaption(CaptionOf(o)) + u" ") {
    if (c == u' ' && oFont.TextWidth(sLine) > o.Width() - lMark) {
      sLine.erase(0, sLine.rfind(u' ') + 1);
      ++lLines;
    }
    sLine += c;
  }
  return lLines * oFont.TextHeight(u"x") <= o.Height() || o.Kind() == ComponentKind::Frame;
}

/// Every control of the shown pages lies inside its container, apart from its neighbours, with room
/// for its caption. Pages under tabs may cover them, and text boxes the gap in a caption.
inline void ExpectRoom(const Forms::Form& oForm) {
  const auto Covers = [](const Forms::Control& o) {
    using Forms::ComponentKind;
    return o.Kind() == ComponentKind::TabStrip || o.Kind() == ComponentKind::TextBox;
  };
  const auto Apart = [](const Forms::Rect& a, const Forms::Rect& b) {
    return a.lLeft + a.lWidth <= b.lLeft || a.lTop + a.lHeight <= b.lTop;
  };
  for (const auto* po : ControlsOf(oForm)) {
    if (!po->Visible()) continue;
    SCOPED_TRACE(NameOf(*po));
    const auto& oBox = po->Container();
    EXPECT_TRUE(po->Left() >= 0 && po->Left() + po->Width() <= oBox.ScaleWidth());
    EXPECT_TRUE(po->Top() >= 0 && po->Top() + po->Height() <= oBox.ScaleHeight());
    EXPECT_TRUE(CaptionFits(*po));
    for (const auto* poOther : oBox.Controls()) {
      if (po == poOther || Covers(*po) || Covers(*poOther) || !poOther->Visible()) continue;
      EXPECT_TRUE(Apart(po->Bounds(), poOther->Bounds()) || Apart(poOther->Bounds(), po->Bounds()))
          << NameOf(*poOther);
    }
  }
}
