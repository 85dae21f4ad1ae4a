// The dialogs that choose a file to open or to save.
//
//   CXChooseFile oChoose(App());
//   oChoose.Dialog = this;
//   oChoose.Title = u"Open Template";
//   oChoose.OFilters = {u"Template Files (*.dat) | *.dat"};
//   if (oChoose.Show(false)) OpenTemplate(oChoose.FileName);
#pragma once

#include <cstdint>
#include <vector>

#include "Toolkit.h"

class CXChooseFile {
 public:
  explicit CXChooseFile(Forms::Toolkit& oToolkit) : moToolkit(oToolkit) {}

  Text Title;
  Forms::Form* Dialog = nullptr;  ///< the owner; null for none
  /// To start in; when confirmed that of the chosen file, with a separator at its end.
  Text Directory;
  /// To start with; when confirmed the full path of the chosen file, empty with several.
  Text FileName;
  /// When confirmed with several files: their names in Directory.
  std::vector<Text> FileNames;
  /// Each a description and a pattern, parted by ":" or "|".
  std::vector<Text> OFilters;
  std::int32_t FilterIndex = 1;  ///< from 1; in and out
  bool MultiSelect = false, HideReadOnly = true;
  bool ReadOnly = false;  ///< in and out

  /// bSave: asks before it takes a file that exists; otherwise the file has to exist. True when
  /// the user confirmed; after Cancel nothing has changed. Failures as those of WasConfirmed.
  bool Show(bool bSave);

 private:
  Forms::FileDialog Request(bool bSave) const;
  void Take(const Forms::FileDialog& oAnswered);

  Forms::Toolkit& moToolkit;
};
