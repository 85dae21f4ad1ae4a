// What the error run-time asks this application: plain words for a failure, lines for its
// diagnostics, and how to end. Nothing here reports to the error run-time.
#pragma once

#include <vector>

#include "IErrorClient.h"
#include "Text.h"

namespace Forms {
class Form;
class Toolkit;
}  // namespace Forms

class CErrorClient : public IErrorClient {
 public:
  /// asHostForm: names of forms that belong to the program around the add-in. They stay open when
  /// the add-in ends, because they may hold unsaved work.
  explicit CErrorClient(Forms::Toolkit& oToolkit, std::vector<Text> asHostForm = {});

  void CustomClick(std::int32_t) override {}
  /// Closes the add-in's forms, hides the main window, and takes menu entry and toolbar out of the
  /// IDE. The main window itself stays with its Connect. Never fails.
  void EndApplication() override;
  /// Writes its lines with goError->WriteDiagnostic; the argument stays as it is.
  void GetDiagnostics(std::u16string& sDiagnostics) override;
  /// sNotes is set for every number, the other two for those of disks, files and printers.
  void GetErrorText(std::int32_t lError, std::u16string& sDescription, std::u16string& sSuggestion,
                    std::u16string& sNotes) override;
  void NotifyError(std::u16string_view, std::u16string_view, std::u16string_view, std::int32_t,
                   std::int32_t, std::int32_t, std::int32_t, std::u16string_view,
                   std::u16string_view, std::int32_t&) override {}

 private:
  std::vector<Forms::Form*> OwnForms() const;

  Forms::Toolkit& moToolkit;
  std::vector<Text> masHostForm;
};
