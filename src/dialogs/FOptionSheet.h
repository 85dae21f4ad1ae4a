// A dialog of pages under tabs, with OK, Cancel and Help below them: the rules and the options.
#pragma once

#include <initializer_list>

#include "CommandButton.h"
#include "FDialog.h"
#include "TabStrip.h"

class FOptionSheet : public FDialog {
 public:
  Forms::TabStrip tabOption{*this, u"tabOption"};
  Forms::CommandButton cmdOK{*this, u"cmdOK"}, cmdCancel{*this, u"cmdCancel"},
      cmdHelp{*this, u"cmdHelp"};

 protected:
  /// sName: also that of its key.
  FOptionSheet(Forms::Toolkit& oToolkit, TextView sName);
  /// For Design. Help opens the page of the tab strip's help context.
  void DesignSheet(TextView sCaption, std::initializer_list<TextView> asTab);
  /// Lays a page over the area of the tabs.
  void PlacePage(Forms::Frame& oPage);
  /// Shows the filled sheet. True when the user left it with OK: then it is only hidden, and the
  /// controls still have their values.
  bool ShowSheet();

 private:
  bool mbAccepted = false;
};
