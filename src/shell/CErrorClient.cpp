#include "CErrorClient.h"

#include <algorithm>

#include "Connect.h"
#include "Diagnostics.h"
#include "FMain.h"
#include "Form.h"
#include "IErrorRuntime.h"
#include "Toolkit.h"

namespace {

constexpr TextView sMainForm = u"FMain";
constexpr TextView sAdministrator = u"Contact your system administrator";

struct ErrorWords {
  std::vector<std::int32_t> alError;
  TextView sDescription, sSuggestion;
};

const std::vector<ErrorWords>& Words() {
  static const std::vector<ErrorWords> aoWords = {
      {{53, 54, 55, 57, 58, 59, 62, 63, 67, 74, 75}, u"Disk Access Error", sAdministrator},
      {{61, 3026, 3336}, u"Disk Full", u"Free some disk space and try again"},
      {{68, 71},
       u"Disk or Device Not Ready",
       u"Ensure a Disk is inserted and check the Device is Attached"},
      {{70}, u"File Permissions Error", sAdministrator},
      {{482, 483, 484}, u"Printer Error", sAdministrator},
  };
  return aoWords;
}

template <class Call>
void Ignoring(Call&& oCall) {
  try {
    oCall();
  } catch (const std::exception&) {
    // The application is ending: a form that can't be closed is left open.
  }
}

void CloseMain(Forms::Form& oForm) {
  Ignoring([&] { oForm.Hide(); });
  Ignoring([&] {
    const auto* poMain = dynamic_cast<const FMain*>(&oForm);
    if (poMain && poMain->poConnect()) poMain->poConnect()->RemoveAddInMenus();
  });
}

}  // namespace

CErrorClient::CErrorClient(Forms::Toolkit& oToolkit, std::vector<Text> asHostForm)
    : moToolkit(oToolkit), masHostForm(std::move(asHostForm)) {}

// A copy, because closing a form removes it from the toolkit's list.
std::vector<Forms::Form*> CErrorClient::OwnForms() const {
  std::vector<Forms::Form*> aoForm = moToolkit.LoadedForms();
  std::erase_if(aoForm, [&](const Forms::Form* po) {
    return std::find(masHostForm.begin(), masHostForm.end(), po->Name()) != masHostForm.end();
  });
  return aoForm;
}

void CErrorClient::EndApplication() {
  goError->SetEnding(true);
  // From the last one: a form that stands above another one is closed before it.
  std::vector<Forms::Form*> aoForm = OwnForms();
  std::reverse(aoForm.begin(), aoForm.end());
  for (Forms::Form* po : aoForm) {
    const auto& aoLoaded = moToolkit.LoadedForms();
    const bool bThere = std::find(aoLoaded.begin(), aoLoaded.end(), po) != aoLoaded.end();
    if (!bThere || po->Name() == sMainForm) continue;
    Ignoring([&] { po->Hide(); });
    Ignoring([&] { po->Unload(); });
  }
  for (Forms::Form* po : OwnForms())
    if (po->Name() == sMainForm) CloseMain(*po);
}

void CErrorClient::GetDiagnostics(std::u16string&) {
  for (const Text& sLine : DiagnosticLines(CurrentSystem(), CurrentProgram()))
    goError->WriteDiagnostic(sLine);
}

void CErrorClient::GetErrorText(std::int32_t lError, std::u16string& sDescription,
                                std::u16string& sSuggestion, std::u16string& sNotes) {
  for (const ErrorWords& oWords : Words()) {
    if (std::find(oWords.alError.begin(), oWords.alError.end(), lError) == oWords.alError.end())
      continue;
    sDescription = oWords.sDescription;
    sSuggestion = oWords.sSuggestion;
  }
  sNotes =
      u"Detailed diagnostics for this error have been logged using Tarvane.\r\n"
      u"If this problem persists, please send the details to support@tarvane.example.";
}
