// The system's dialogs for files, fonts and page set-up: what goes in, and what comes back in the
// same fields when the user confirmed. After Cancel the fields are as they were.
#pragma once

#include "FormsTypes.h"

namespace Forms {

class Form;

/// bConfirmed False with lError 0 is a plain Cancel; another lError is the number of a failure.
struct DialogAnswer {
  bool bConfirmed = false;
  std::int32_t lError = 0;
};

struct FileFilter {
  Text sDescription;
  Text sPattern;  ///< such as `*.dat`; several parted by ";"
};

struct FileDialog {
  Form* poOwner = nullptr;
  bool bSave = false;
  Text sTitle, sDirectory;
  Text sFileName;  ///< the name to start with
  std::vector<FileFilter> aoFilter;
  std::int32_t lFilterIndex = 1;  ///< from 1; in and out
  bool bMultiSelect = false, bFileMustExist = false, bOverwritePrompt = false;
  bool bHideReadOnly = true;
  bool bReadOnly = false;    ///< in and out
  std::vector<Text> asPath;  ///< out: full paths of the chosen files, one without bMultiSelect
};

struct FontDialog {
  Form* poOwner = nullptr;
  FontSpec oFont;    ///< in and out
  Color lColor = 0;  ///< in and out
  bool bFixedOnly = false, bTrueTypeOnly = false, bEffects = false, bScript = false;
  bool bScreen = true, bPrinter = true;
  std::int32_t lMinSize = 0, lMaxSize = 0;  ///< points; 0 for no limit
};

enum class MarginUnit { Default, ThousandthsOfInch, HundredthsOfMillimeter };

struct PaperChoice {
  std::int32_t lSize = 0;
  Text sName;
};

struct PageDialog {
  Form* poOwner = nullptr;
  MarginUnit eUnit = MarginUnit::Default;
  std::int32_t lLeft = 0, lTop = 0, lRight = 0, lBottom = 0;  ///< in and out
  bool bDisableMargins = false, bDisableOrientation = false, bDisablePaper = false,
       bDisablePrinter = false;
  std::vector<Text> asDevice;        ///< the printers to choose from
  std::vector<PaperChoice> aoPaper;  ///< the sizes of paper, by the system's numbers
  Text sDeviceName;                  ///< in and out
  std::int32_t lPaperSize = 0;       ///< in and out; the system's number, 0 for its default
  std::int32_t lOrientation = 1;     ///< in and out; 1 upright, 2 across
};

}  // namespace Forms
