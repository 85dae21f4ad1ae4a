// What tests of dialogs share: settings in memory, a help file that exists or not, the lookups of
// an open template file, and a look at a whole dialog: its captions, and whether everything on it
// has room.
#pragma once

#include <algorithm>

#include "CheckBox.h"
#include "CommandButton.h"
#include "Form.h"
#include "FormsFixture.h"
#include "Frame.h"
#include "Label.h"
#include "MQuillon.h"
#include "MXHTMLHelp.h"
#include "MXRegistry.h"
#include "OptionButton.h"
#include "RegistryStore.h"
#include "TabStrip.h"

class DialogTest : public FormsTest {
 protected:
  DialogTest() {
    goRegistry = &moStore;
    SetHelp(true);
    MQuillon::LoadLookups({u"", u"Mod One", u"Mod Two"}, {u"", u"Alpha", u"Beta"});
  }
  ~DialogTest() override {
    MQuillon::ReleaseLookups();
    MXHTMLHelp::SetHelpFile({});
    goRegistry = nullptr;
  }
  static Text HelpFile() { return FromUtf8(QUILLON_SOURCE_DIR "/README.md"); }
  static void SetHelp(bool bExists) {
    MXHTMLHelp::SetHelpFile(bExists ? HelpFile() : HelpFile() + u".none");
  }
  static Text Key(TextView sName) {
    return Text(u"HKEY_CURRENT_USER\\").append(MXRegistry::RootKey).append(sName);
  }
  /// What the Help buttons asked for.
  std::string Help() const {
    std::string sAll;
    for (const Text& s : moRenderer.Opened()) sAll += ToUtf8(s.substr(s.rfind(u'|') + 1)) + " ";
    return sAll;
  }

  RegistryStore moStore;
};

/// `name`, or `name(index)` in an array.
inline std::string NameOf(const Forms::Component& o) {
  const std::string sName = ToUtf8(o.Name());
  return o.Index() < 0 ? sName : sName + "(" + std::to_string(o.Index()) + ")";
}

inline Text CaptionOf(const Forms::Component& o) {
  using Forms::ComponentKind;
  switch (o.Kind()) {
    case ComponentKind::Label:
      return static_cast<const Forms::Label&>(o).Caption();
    case ComponentKind::Frame:
      return static_cast<const Forms::Frame&>(o).Caption();
    case ComponentKind::CheckBox:
      return static_cast<const Forms::CheckBox&>(o).Caption();
    case ComponentKind::OptionButton:
      return static_cast<const Forms::OptionButton&>(o).Caption();
    case ComponentKind::CommandButton:
      return static_cast<const Forms::CommandButton&>(o).Caption();
    default:
      return {};
  }
}

/// The window's caption, and of each control that has one its name and caption, in the order of
/// construction; the captions of tabs count as those of their strip. Each behind a "; ".
inline std::string Captions(const Forms::Form& oForm) {
  std::string sAll = ToUtf8(oForm.Caption());
  for (const auto* po : oForm.Components()) {
    Text sCaption = CaptionOf(*po);
    if (po->Kind() == Forms::ComponentKind::TabStrip) {
      const auto& oTabs = static_cast<const Forms::TabStrip&>(*po).Tabs();
      for (std::int32_t i = 1; i <= oTabs.Count(); ++i)
        sCaption += (i > 1 ? u"|" : u"") + oTabs.Item(i).Caption();
    }
    if (!sCaption.empty()) sAll += "; " + NameOf(*po) + " " + ToUtf8(sCaption);
  }
  return sAll;
}

/// How many lines a text takes in that width, broken at blanks.
inline std::int32_t LinesIn(const Forms::ControlContainer& oFont, TextView sText,
                            std::int32_t lWidth) {
  std::int32_t lLines = 1;
  Text sLine;
  for (std::size_t i = 0; i < sText.size();) {
    const std::size_t lEnd = std::min(sText.find(u' ', i), sText.size() - 1) + 1;
    const Text sWord(sText.substr(i, lEnd - i));
    if (oFont.TextWidth(sLine + Text(RightTrim(sWord))) > lWidth && !sLine.empty()) {
      ++lLines;
      sLine.clear();
    }
    sLine += sWord;
    i = lEnd;
  }
  return lLines;
}

/// Whether its caption has room in a font as wide as six pixels a character.
inline bool CaptionFits(const Forms::Control& o) {
  using Forms::ComponentKind;
  const bool bBox = o.Kind() == ComponentKind::CheckBox || o.Kind() == ComponentKind::OptionButton;
  const bool bButton = o.Kind() == ComponentKind::CommandButton;
  const std::int32_t lWidth = o.Width() - (bBox ? 330 : bButton ? 150 : 0);
  const auto& oFont = o.Container();
  const Text sCaption = Forms::PlainCaption(CaptionOf(o));
  if (sCaption.empty() || o.Kind() == ComponentKind::Frame) return true;
  const std::int32_t lLines = LinesIn(oFont, sCaption, lWidth);
  return lLines * oFont.TextHeight(u"x") <= o.Height();
}

inline bool Overlap(const Forms::Rect& a, const Forms::Rect& b) {
  return a.lLeft < b.lLeft + b.lWidth && b.lLeft < a.lLeft + a.lWidth &&
         a.lTop < b.lTop + b.lHeight && b.lTop < a.lTop + a.lHeight;
}

/// Every control of the shown pages lies inside its container, apart from its neighbours, with room
/// for its caption. Pages under tabs may cover them, and text boxes the gap in a caption.
inline void ExpectRoom(const Forms::Form& oForm) {
  using Forms::ComponentKind;
  for (const auto* poComponent : oForm.Components()) {
    const auto* po = dynamic_cast<const Forms::Control*>(poComponent);
    if (!po || !po->Visible()) continue;
    SCOPED_TRACE(NameOf(*po));
    const auto& oBox = po->Container();
    EXPECT_TRUE(po->Left() >= 0 && po->Left() + po->Width() <= oBox.ScaleWidth());
    EXPECT_TRUE(po->Top() >= 0 && po->Top() + po->Height() <= oBox.ScaleHeight());
    EXPECT_TRUE(CaptionFits(*po));
    for (const auto* poOther : oBox.Controls()) {
      const bool bCovers =
          po->Kind() == ComponentKind::TabStrip || poOther->Kind() == ComponentKind::TabStrip ||
          po->Kind() == ComponentKind::TextBox || poOther->Kind() == ComponentKind::TextBox;
      if (po == poOther || bCovers || !poOther->Visible()) continue;
      EXPECT_FALSE(Overlap(po->Bounds(), poOther->Bounds())) << NameOf(*poOther);
    }
  }
}
