#include "AskPdfFile.h"

#include "CXChooseFile.h"
#include "Toolkit.h"

std::optional<Text> AskPdfFile(Forms::Toolkit& toolkit, TextView title) {
  CXChooseFile choose(toolkit);
  choose.Dialog = toolkit.ActiveForm();
  choose.Title = u"Print to File";
  choose.FileName = Text(title) + u".pdf";
  choose.OFilters = {u"PDF Files (*.pdf) | *.pdf"};
  if (!choose.Show(true)) return std::nullopt;
  return choose.FileName;
}
