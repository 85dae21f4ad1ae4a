// Selects the rows of a list of procedures by their type and name: the user ticks types and gives a
// pattern of the Like language, and each row whose type is ticked or whose name fits is selected,
// all others not. Works on rows only: text is the name, column 2 the type.
#pragma once

#include "CheckBox.h"
#include "CommandButton.h"
#include "FDialog.h"
#include "ListBox.h"
#include "ListView.h"
#include "TextBox.h"

class FSelectCustom : public FDialog {
 public:
  explicit FSelectCustom(Forms::Toolkit& oToolkit);
  /// Leaves the rows alone unless the user presses OK.
  void Display(Forms::ListView& oListView);

  Forms::Frame fraTypes{*this, u"fraTypes"};
  Forms::CheckBox chkSub{fraTypes, u"chkSub"}, chkFunction{fraTypes, u"chkFunction"},
      chkProperty{fraTypes, u"chkProperty"}, chkLet{fraTypes, u"chkLet"},
      chkSet{fraTypes, u"chkSet"}, chkGet{fraTypes, u"chkGet"};
  Forms::Frame fraEvent{*this, u"fraEvent"};
  Forms::ListBox lstEvent{fraEvent, u"lstEvent"};
  Forms::Frame fraPattern{*this, u"fraPattern"};
  Forms::TextBox txtPattern{fraPattern, u"txtPattern"};
  Forms::CommandButton cmdOK{*this, u"cmdOK"}, cmdCancel{*this, u"cmdCancel"},
      cmdHelp{*this, u"cmdHelp"};

 private:
  void Design() override;
  void DesignTypes();
  void DesignPattern();
  void FillEvents();
  void chkProperty_Click();
  void cmdOK_Click();
  /// The ticked types, each followed by "|", behind a first "|".
  Text WantedTypes() const;
  void DoSelection();

  Forms::ListView* moListView = nullptr;
  bool mbAccepted = false;
};
