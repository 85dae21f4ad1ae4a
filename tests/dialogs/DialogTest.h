// What tests of dialogs share: settings in memory, a help file that exists or not, the lookups of
// an open template file, and two printers.
#pragma once

#include <type_traits>

#include "CXRecent.h"
#include "FormLook.h"
#include "FormsFixture.h"
#include "IPrintQueues.h"
#include "MOptions.h"
#include "MQuillon.h"
#include "MRules.h"
#include "MXHTMLHelp.h"
#include "MXRegistry.h"
#include "OwnSettings.h"
#include "Printers.h"
#include "TableRows.h"

struct TwoQueues : Paper::IPrintQueues {
  std::vector<Paper::PrintQueue> List() override { return {{"hall & stairs", true}, {"office"}}; }
  std::int32_t PaperSizeOf(const std::string&) override { return 9; }
  Paper::Strips StripsOf(const std::string&, std::int32_t) override { return {}; }
  void Submit(const std::string&, const std::string&, TextView, std::int32_t) override {}
};

class DialogTest : public FormsTest {
 protected:
  DialogTest() {
    MXHTMLHelp::SetHelpFile(HelpFile());
    MQuillon::LoadLookups({u"", u"Mod One", u"Mod Two"}, {u"", u"Alpha", u"Beta"});
    ResetRecentFiles();
    RecentFiles().Add(u"Template.dat");
    MRules::Initialize();
    MOptions::Initialize();
  }
  ~DialogTest() override {
    MRules::oRules = {};
    ResetRecentFiles();
    MQuillon::ReleaseLookups();
    MXHTMLHelp::SetHelpFile({});
  }
  static Text HelpFile() { return FromUtf8(QUILLON_SOURCE_DIR "/README.md"); }
  static Text Key(TextView sName) {
    return Text(u"HKEY_CURRENT_USER\\").append(MXRegistry::RootKey).append(sName);
  }
  /// Opens the dialog to a user who does that, and gives the answer of its Display.
  template <class F, class... Args>
  auto Open(F&& oDialog, std::type_identity_t<std::function<void(F&)>> oAct, Args&&... oArgs) {
    User().Modal<std::remove_reference_t<F>>(std::move(oAct));
    return oDialog.Display(std::forward<Args>(oArgs)...);
  }

  OwnSettings moStore;
  TwoQueues moQueues;
  Paper::Printers moPrinters{nullptr, moQueues};
};
