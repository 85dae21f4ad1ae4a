#include "CXChooseFile.h"

#include "CommonDialogFailure.h"

using namespace Forms;

namespace {

std::vector<TextView> SplitAtMarks(TextView sFilters) {
  std::vector<TextView> asPiece;
  for (std::size_t lEnd; (lEnd = sFilters.find_first_of(u"|:")) != TextView::npos;) {
    asPiece.push_back(sFilters.substr(0, lEnd));
    sFilters.remove_prefix(lEnd + 1);
  }
  asPiece.push_back(sFilters);
  return asPiece;
}

/// Descriptions and patterns in turn; a last description without a pattern is no filter.
std::vector<FileFilter> FiltersOf(const std::vector<Text>& asFilter) {
  Text sJoined;
  for (const Text& sFilter : asFilter) sJoined += (sJoined.empty() ? u"" : u"|") + sFilter;
  const std::vector<TextView> asPiece = SplitAtMarks(sJoined);
  std::vector<FileFilter> aoFilter;
  for (std::size_t i = 1; i < asPiece.size(); i += 2) {
    aoFilter.push_back({Text(Trim(asPiece[i - 1])), Text(Trim(asPiece[i]))});
  }
  return aoFilter;
}

/// Up to the last separator, and with it; empty without one. On systems with slashes a
/// backslash is an ordinary character of a name.
TextView FolderOf(TextView sPath) {
  const char16_t cSeparator = sPath.find(u'/') != TextView::npos ? u'/' : u'\\';
  return sPath.substr(0, sPath.rfind(cSeparator) + 1);
}

/// Without the folder, if that is the file's.
Text NameIn(TextView sFolder, TextView sPath) {
  return Text(sPath.substr(0, sFolder.size()) == sFolder ? sPath.substr(sFolder.size()) : sPath);
}

}  // namespace

bool CXChooseFile::Show(bool bSave) {
  FileDialog oDialog = Request(bSave);
  if (!WasConfirmed(moToolkit.ChooseFile(oDialog))) return false;
  Take(oDialog);
  return true;
}

FileDialog CXChooseFile::Request(bool bSave) const {
  FileDialog oDialog;
  oDialog.poOwner = Dialog;
  oDialog.bSave = bSave;
  oDialog.sTitle = Title;
  oDialog.sDirectory = Directory;
  oDialog.sFileName = FileName;
  oDialog.aoFilter = FiltersOf(OFilters);
  oDialog.lFilterIndex = FilterIndex;
  oDialog.bMultiSelect = !bSave && MultiSelect;
  oDialog.bFileMustExist = !bSave;
  oDialog.bOverwritePrompt = bSave;
  oDialog.bHideReadOnly = HideReadOnly;
  oDialog.bReadOnly = ReadOnly;
  return oDialog;
}

void CXChooseFile::Take(const FileDialog& oAnswered) {
  FilterIndex = oAnswered.lFilterIndex;
  ReadOnly = oAnswered.bReadOnly;
  FileName.clear();
  FileNames.clear();
  if (oAnswered.asPath.empty()) return;
  Directory = FolderOf(oAnswered.asPath[0]);
  if (oAnswered.asPath.size() == 1) {
    FileName = oAnswered.asPath[0];
    return;
  }
  for (const Text& sPath : oAnswered.asPath) FileNames.push_back(NameIn(Directory, sPath));
}
